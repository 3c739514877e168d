#include "pose/nodechannels.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxfloatproperty.h>

namespace {

int channelOfName(const QString &name)
{
    static const QString names[PoseChannelCount] = {
        QStringLiteral("XTranslate"), QStringLiteral("YTranslate"), QStringLiteral("ZTranslate"),
        QStringLiteral("XRotate"),    QStringLiteral("YRotate"),    QStringLiteral("ZRotate"),
        QStringLiteral("Scale"),      QStringLiteral("XScale"),     QStringLiteral("YScale"),
        QStringLiteral("ZScale")};
    for (int i = 0; i < PoseChannelCount; ++i) {
        if (names[i] == name)
            return i;
    }
    return -1;
}

double finite(double value, int channel)
{
    return std::isfinite(value) ? value : NodeChannels::defaultValue(channel);
}

} // namespace

NodeChannels::NodeChannels(const VxNode *node)
    : m_node(node)
{
    for (VxProperty *property : node->getMadeProperties()) {
        const int channel = channelOfName(property->getName());
        if (channel >= 0)
            m_controls[std::size_t(channel)] = qobject_cast<VxFloatProperty *>(property);
    }
}

PoseValues NodeChannels::values(VxTime time) const
{
    PoseValues values;
    for (int i = 0; i < PoseChannelCount; ++i)
        values[std::size_t(i)] = at(i) ? finite(double(at(i)->getValue(time)), i) : defaultValue(i);
    return values;
}

PoseValues NodeChannels::rest() const
{
    PoseValues values;
    if (const auto &rest = m_node->getRestPose()) {
        std::copy(rest->begin(), rest->end(), values.begin());
        return values;
    }
    for (int i = 0; i < PoseChannelCount; ++i)
        values[std::size_t(i)] =
            at(i) ? finite(double(at(i)->getStoredValue()), i) : defaultValue(i);
    return values;
}

VxFloatProperty *NodeChannels::make(const VxNode *node, int channel)
{
    switch (channel) {
    case XPlace:
        return node->getXPosControl();
    case YPlace:
        return node->getYPosControl();
    case ZPlace:
        return node->getZPosControl();
    case XAngle:
        return node->getXRotControl();
    case YAngle:
        return node->getYRotControl();
    case ZAngle:
        return node->getZRotControl();
    case AllScale:
        return node->getScaleControl();
    case XStretch:
        return node->getXScaleControl();
    case YStretch:
        return node->getYScaleControl();
    default:
        return node->getZScaleControl();
    }
}

#include "pose/nodechannels.h"

#include <algorithm>
#include <cmath>
#include <vxcore/vxfloatproperty.h>

namespace {

double finite(double value, int channel)
{
    return std::isfinite(value) ? value : NodeChannels::defaultValue(channel);
}

} // namespace

NodeChannels::NodeChannels(const VxNode *node)
    : m_node(node)
{
    for (VxProperty *property : node->getMadeProperties()) {
        const int channel = VxNode::getTransformControlIndex(property->getName());
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
    const VxRestPose rest = m_node->getRestValues();
    PoseValues values;
    std::copy(rest.begin(), rest.end(), values.begin());
    return values;
}

#include "vxtimeline/keygraph/vxfloatchannel.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vxcore/vxapp.h>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxkeyedit.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertyhelper.h>
#include <vxcore/vxstyle.h>

namespace {

bool isRotation(const VxProperty *property)
{
    const VxNode *node = VxPropertyHelper::getNode(property);
    return node && (property == node->getXRotControl() || property == node->getYRotControl() ||
                    property == node->getZRotControl());
}

} // namespace

class VxFloatChannel::Private
{
public:
    bool isKey(int index) const { return index >= 0 && index < property->getNumKeys(); }
    // In the property's unit; not finite when it does not fit.
    float stored(double value) const { return VxFloatChannel::narrowed(value / displayScale); }
    VxTcb tcb(int index) const
    {
        VxTcb result;
        property->getKeyInterpolationType(index, &result.tension, &result.continuity, &result.bias);
        return result;
    }
    void setShape(int index, int type, const VxTcb &tcb)
    {
        property->setKeyInterpolation(index, type, tcb.tension, tcb.continuity, tcb.bias);
    }
    void setTcb(int index, float VxTcb::*part, double value)
    {
        if (!isKey(index))
            return;
        VxTcb next = tcb(index);
        next.*part = VxFloatChannel::narrowed(value);
        setShape(index, property->getKeyInterpolationType(index), next);
    }
    bool replaceKey(int index, VxTime time, double value);

    VxFloatProperty *property = nullptr;
    double displayScale = 1.0;
};

// The new key first: if the property refuses it, the old one still exists.
bool VxFloatChannel::Private::replaceKey(int index, VxTime time, double value)
{
    const VxTime formerTime = property->getKeyTime(index);
    const VxTcb shape = tcb(index);
    const int type = property->getKeyInterpolationType(index);
    const VxChangeBlock block;
    if (!property->setKey(time, stored(value), type, shape.tension, shape.continuity, shape.bias))
        return false;
    if (time != formerTime)
        property->deleteKeys(VxTimeRange(formerTime, formerTime));
    return true;
}

VxFloatChannel::VxFloatChannel(VxFloatProperty *property, VxKeyCommunication *keyBus)
    : VxKeyGraphChannel(keyBus)
    , d(std::make_unique<Private>())
{
    d->property = property;
    d->displayScale = property->isPercentage() ? 100.0 : 1.0;
}

VxFloatChannel::~VxFloatChannel() = default;

float VxFloatChannel::narrowed(double value)
{
    if (!(std::abs(value) <= double(std::numeric_limits<float>::max())))
        return std::numeric_limits<float>::quiet_NaN();
    return static_cast<float>(value);
}

VxProperty *VxFloatChannel::getProperty() const
{
    return d->property;
}

QString VxFloatChannel::getLabel() const
{
    const VxNode *node = VxPropertyHelper::getNode(d->property);
    if (!node)
        return d->property->getLabel();
    return node->getLabel() + QLatin1String(": ") + d->property->getLabel();
}

QStringList VxFloatChannel::getPath() const
{
    QStringList names(d->property->getName());
    const VxNode *node = VxPropertyHelper::getNode(d->property);
    for (; node; node = node->getNodeParent())
        names.append(node->getName());
    return names;
}

QColor VxFloatChannel::getColor() const
{
    struct AxisColor
    {
        const char *name;
        Qt::GlobalColor fallBack;
    };
    static constexpr AxisColor colors[] = {{"Style_X_Axis", Qt::red},
                                           {"Style_Y_Axis", Qt::green},
                                           {"Style_Z_Axis", Qt::blue},
                                           {"Style_All_Axis", Qt::white}};
    const int axis = d->property->getAxis();
    if (axis < VxFloatProperty::XAxis || axis > VxFloatProperty::AllAxes)
        return QColor();
    const AxisColor &axisColor = colors[axis - VxFloatProperty::XAxis];
    const VxStyle *style = vxApp ? vxApp->getStyle() : nullptr;
    const QColor color = style ? style->getInterfaceColor(QLatin1String(axisColor.name)) : QColor();
    return color.isValid() ? color : QColor(axisColor.fallBack);
}

double VxFloatChannel::getValue(VxTime time) const
{
    return double(d->property->getValue(time)) * d->displayScale;
}

void VxFloatChannel::setValue(VxTime time, double value)
{
    d->property->setValue(time, d->stored(value));
    invalidateKeyCache();
}

int VxFloatChannel::getNumKeys() const
{
    return d->property->getNumKeys();
}

VxTime VxFloatChannel::getKeyTime(int index) const
{
    return d->property->getKeyTime(index);
}

double VxFloatChannel::getKeyValue(int index) const
{
    return double(d->property->getKeyValue(index)) * d->displayScale;
}

void VxFloatChannel::setKeyValue(int index, double value)
{
    if (d->isKey(index))
        d->property->setKeyValue(index, d->stored(value));
}

void VxFloatChannel::setKey(int index, VxTime time, double value)
{
    if (!d->isKey(index))
        return;
    const KeyGraphKeys before = getKeys();
    if (before.times[index] == time) {
        setKeyValue(index, value);
        return;
    }
    const VxTime target =
        vxPlanKeyTimes(before.times, before.count, {&index, &time, 1, nullptr}, VxCollision::Nudge)
            .front();
    QVector<VxKeyGraphKey> records = getKeyCache();
    const VxKeyGraphKey moved = records.at(index);
    const int neighbour = time < moved.time ? index - 1 : index + 1;
    const bool neighbourSelected =
        neighbour >= 0 && neighbour < records.size() && records.at(neighbour).selected;
    if (!d->replaceKey(index, target, value))
        return;

    const int newIndex = d->property->findKey(target);
    records.remove(index);
    records.insert(newIndex, moved);
    records[newIndex].time = target;
    setKeyCache(records);
    if (newIndex == index)
        return;
    setKeySelected(newIndex, moved.selected);
    setKeySelected(index, neighbourSelected);
    records = getKeyCache();
    records[newIndex].dragStartTime = moved.dragStartTime;
    records[newIndex].dragStartValue = moved.dragStartValue;
    setKeyCache(records);
}

int VxFloatChannel::getKeyInterpolation(int index, float *tension, float *continuity,
                                        float *bias) const
{
    return d->property->getKeyInterpolationType(index, tension, continuity, bias);
}

void VxFloatChannel::setKeyInterpolation(int index, int type)
{
    if (d->isKey(index))
        d->setShape(index, type, d->tcb(index));
}

void VxFloatChannel::setKeyTension(int index, double tension)
{
    d->setTcb(index, &VxTcb::tension, tension);
}

void VxFloatChannel::setKeyContinuity(int index, double continuity)
{
    d->setTcb(index, &VxTcb::continuity, continuity);
}

void VxFloatChannel::setKeyBias(int index, double bias)
{
    d->setTcb(index, &VxTcb::bias, bias);
}

void VxFloatChannel::removeKey(int index)
{
    if (!d->isKey(index))
        return;
    d->property->deleteKeys(index, index);
    invalidateKeyCache();
}

KeyGraphKeys VxFloatChannel::getKeys() const
{
    const VxKeyColumns<float> keys = d->property->getKeys();
    return {keys.times, keys.values, keys.types, keys.count, d->displayScale};
}

void VxFloatChannel::getValues(const VxTime *times, int count, double *values) const
{
    std::vector<float> plain(static_cast<std::size_t>(count));
    d->property->getValues(times, count, plain.data());
    std::transform(plain.begin(), plain.end(), values,
                   [this](float value) { return double(value) * d->displayScale; });
}

QString VxFloatChannel::getUnit() const
{
    if (d->property->isPercentage())
        return QStringLiteral("%");
    return isRotation(d->property) ? QString(QChar(0x00b0)) : QString();
}

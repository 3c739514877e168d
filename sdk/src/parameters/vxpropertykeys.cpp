#include "parameters/vxpropertykeys.h"

#include "parameters/vxpropertyvalue.h"

#include <vxcore/vxchangeblock.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxparameterspane.h>
#include <vxcore/vxundostackhold.h>

namespace {

/// Makes a key regardless of the scene's animating state.
void setKeyTo(VxNumericProperty *property, VxTime time, double value)
{
    if (auto *whole = qobject_cast<VxIntProperty *>(property)) {
        whole->setKey(time, int(value));
        return;
    }
    auto *number = qobject_cast<VxFloatProperty *>(property);
    if (!number)
        return;
    // Like a key made by setting a value: shaped like the previous one.
    const int before = number->getFirstKeyFrom(time) - 1;
    float tension = 0, continuity = 0, bias = 0;
    int type = number->getDefaultInterpolation();
    if (before >= 0)
        type = number->getKeyInterpolationType(before, &tension, &continuity, &bias);
    number->setKey(time, float(value), type, tension, continuity, bias);
}

void setKey(VxProperty *property, VxTime time)
{
    auto *number = qobject_cast<VxNumericProperty *>(property);
    if (!number || !number->canBeKeyed() || number->hasKey(time))
        return;
    const double value = number->getDoubleValue(time);
    setKeyTo(number, time, value);
    // A link's offset is no part of the key.
    const double added = number->getDoubleValue(time) - value;
    if (added != 0)
        setKeyTo(number, time, value - added);
}

double defaultValue(const VxNumericProperty *property)
{
    if (const auto *number = qobject_cast<const VxFloatProperty *>(property))
        return double(number->getDefaultValue());
    const auto *whole = qobject_cast<const VxIntProperty *>(property);
    return whole ? whole->getDefaultValue() : 0.0;
}

template <class Command>
void runCommand(const VxPropertyKeys::Properties &properties, const QString &text,
                const Command &command)
{
    VxUndoStackHold hold;
    {
        const VxChangeBlock block;
        for (VxProperty *property : properties) {
            if (property && VxPropertyValue::isEditable(property))
                command(property);
        }
    }
    hold.accept(text);
}

} // namespace

VxPropertyListItemModel::KeyState VxPropertyKeys::state(const VxProperty *property, VxTime time)
{
    if (!property || !property->canBeKeyed())
        return VxPropertyListItemModel::NotKeyable;
    if (property->hasKey(time))
        return VxPropertyListItemModel::OnKey;
    return property->getNumKeys() > 0 ? VxPropertyListItemModel::Keyed
                                      : VxPropertyListItemModel::NoKeys;
}

VxPropertyListItemModel::KeyState VxPropertyKeys::together(VxPropertyListItemModel::KeyState one,
                                                           VxPropertyListItemModel::KeyState other)
{
    if (one == VxPropertyListItemModel::NotKeyable)
        return other;
    const bool same = one == other || other == VxPropertyListItemModel::NotKeyable;
    return same ? one : VxPropertyListItemModel::MixedKeys;
}

VxPropertyListItemModel::KeyState VxPropertyKeys::state(const Properties &properties, VxTime time)
{
    VxPropertyListItemModel::KeyState all = VxPropertyListItemModel::NotKeyable;
    for (const VxProperty *property : properties)
        all = together(all, state(property, time));
    return all;
}

void VxPropertyKeys::setKeys(const Properties &properties, VxTime time)
{
    runCommand(properties, VxParametersPane::tr("Set Key"),
               [time](VxProperty *property) { setKey(property, time); });
}

void VxPropertyKeys::deleteKeys(const Properties &properties, VxTime time)
{
    runCommand(properties, VxParametersPane::tr("Delete Key"),
               [time](VxProperty *property) { property->deleteKeys(VxTimeRange(time, time)); });
}

void VxPropertyKeys::deleteAllKeys(const Properties &properties)
{
    runCommand(properties, VxParametersPane::tr("Delete All Keys"),
               [](VxProperty *property) { property->deleteAllKeys(); });
}

void VxPropertyKeys::toggleKeys(const Properties &properties, VxTime time)
{
    if (state(properties, time) == VxPropertyListItemModel::OnKey)
        deleteKeys(properties, time);
    else
        setKeys(properties, time);
}

void VxPropertyKeys::reset(const Properties &properties, VxTime time)
{
    runCommand(properties, VxParametersPane::tr("Reset Value"), [time](VxProperty *property) {
        if (auto *number = qobject_cast<VxNumericProperty *>(property))
            VxPropertyValue::setShownValue(number, time,
                                           defaultValue(number) * VxPropertyValue::scale(number));
    });
}

bool VxPropertyKeys::findKeyBeside(const Properties &properties, VxTime time, bool after,
                                   VxTime *found)
{
    bool any = false;
    for (const VxProperty *property : properties) {
        if (!property)
            continue;
        const bool last = time == VxTimeMax;
        const int key = !after ? property->getFirstKeyFrom(time) - 1
                        : last ? property->getNumKeys()
                               : property->getFirstKeyFrom(time + 1);
        if (key < 0 || key >= property->getNumKeys())
            continue;
        const VxTime at = property->getKeyTime(key);
        if (!any || (after ? at < *found : at > *found))
            *found = at;
        any = true;
    }
    return any;
}

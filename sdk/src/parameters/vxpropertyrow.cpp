#include "parameters/vxpropertyrow.h"

#include "parameters/vxpropertykeys.h"
#include "parameters/vxpropertyvalue.h"

#include <vxcore/vxnumericproperty.h>
#include <vxcore/vxparameterspane.h>
#include <vxcore/vxpropertylistnode.h>

const VxProperty *VxPropertyRow::leading(const VxPropertyListNode *row)
{
    for (int i = 0; row && !row->isHeading() && i < row->getNumProperties(); ++i) {
        if (const VxProperty *property = row->getProperty(i))
            return property;
    }
    return nullptr;
}

bool VxPropertyRow::isMixed(const VxPropertyListNode *row, VxTime time)
{
    const VxProperty *first = leading(row);
    if (!first || row->getNumProperties() < 2)
        return false;
    const auto *number = qobject_cast<const VxNumericProperty *>(first);
    const double value = number ? number->getDoubleValue(time) : 0;
    for (int i = 1; i < row->getNumProperties(); ++i) {
        const VxProperty *other = row->getProperty(i);
        const auto *otherNumber = qobject_cast<const VxNumericProperty *>(other);
        const bool same = number && otherNumber
                              ? otherNumber->getDoubleValue(time) == value
                              : !other || VxPropertyValue::isSame(first, other, time);
        if (!same)
            return true;
    }
    return false;
}

VxPropertyListItemModel::KeyState VxPropertyRow::keyState(const VxPropertyListNode *row,
                                                          VxTime time)
{
    VxPropertyListItemModel::KeyState all = VxPropertyListItemModel::NotKeyable;
    for (int i = 0; row && !row->isHeading() && i < row->getNumProperties(); ++i) {
        all = VxPropertyKeys::together(all, VxPropertyKeys::state(row->getProperty(i), time));
        if (all == VxPropertyListItemModel::MixedKeys)
            break;
    }
    return all;
}

QString VxPropertyRow::spokenValue(const VxPropertyListNode *row, VxTime time)
{
    return isMixed(row, time) ? VxParametersPane::tr("Mixed values")
                              : VxPropertyValue::text(leading(row), time);
}

QString VxPropertyRow::spokenKeyState(VxPropertyListItemModel::KeyState state)
{
    switch (state) {
    case VxPropertyListItemModel::NoKeys:
        return VxParametersPane::tr("No keys");
    case VxPropertyListItemModel::Keyed:
        return VxParametersPane::tr("Keyed");
    case VxPropertyListItemModel::OnKey:
        return VxParametersPane::tr("On a key");
    case VxPropertyListItemModel::MixedKeys:
        return VxParametersPane::tr("Mixed keys");
    case VxPropertyListItemModel::NotKeyable:
        break;
    }
    return {};
}

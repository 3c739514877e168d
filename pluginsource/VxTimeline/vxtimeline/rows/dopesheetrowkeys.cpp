#include "vxtimeline/rows/dopesheetrowkeys.h"

#include "vxtimeline/rows/vxdopesheetitem.h"

#include <vxcore/vxfloatproperty.h>

namespace {

// Only float properties have keys of different types.
void takeTypes(const VxProperty *property, DopeSheetRowKeys &keys)
{
    if (const auto *numbers = qobject_cast<const VxFloatProperty *>(property)) {
        const VxKeyColumns<float> columns = numbers->getKeys();
        keys.commonLook = DopeSheetRowKeys::Linear;
        // During a drag the row may have fewer or more keys than the property.
        if (columns.count == keys.count)
            keys.types = columns.types;
    } else {
        keys.commonLook = static_cast<DopeSheetRowKeys::Look>(property->getKeyInterpolationType(0));
    }
}

} // namespace

DopeSheetRowKeys DopeSheetRowKeys::of(const VxDopeSheetItem *item)
{
    DopeSheetRowKeys keys;
    keys.count = item->keyCount();
    keys.times = item->keyTimes();
    keys.flags = item->keyFlags();
    if (const VxProperty *property = item->property())
        takeTypes(property, keys);
    return keys;
}

#include "vxtimeline/rows/commontcb.h"

#include "vxtimeline/rows/dopesheetrowkeys.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <algorithm>
#include <cstring>
#include <vxcore/vxfloatproperty.h>

namespace {

bool isSelected(quint8 flags)
{
    return flags & DopeSheetRowKeys::Selected;
}

constexpr float VxTcb::*parts[] = {&VxTcb::tension, &VxTcb::continuity, &VxTcb::bias};
static_assert(std::size(parts) == CommonTcb::PartCount);

} // namespace

// Searches the array of types for TCB keys, which is faster than testing key by key.
void CommonTcb::add(const VxDopeSheetItem *item)
{
    const auto *property = qobject_cast<const VxFloatProperty *>(item->property());
    const DopeSheetRowKeys keys = DopeSheetRowKeys::of(item);
    if (!property || !keys.types)
        return;
    const VxTcb *tcb = property->getKeys().tcb; // null: all keys have zeros
    int i = int(std::find_if(keys.flags, keys.flags + keys.count, isSelected) - keys.flags);
    int end = keys.count;
    while (end > i && !isSelected(keys.flags[end - 1]))
        --end;
    for (; i < end && !isSettled(); ++i) {
        const void *found = std::memchr(keys.types + i, DopeSheetRowKeys::Tcb, size_t(end - i));
        if (!found)
            return;
        i = int(static_cast<const quint8 *>(found) - keys.types);
        if (!isSelected(keys.flags[i]))
            continue;
        add(tcb ? tcb[i] : VxTcb());
        if (!tcb)
            return;
    }
}

void CommonTcb::add(const VxTcb &tcb)
{
    if (!m_seen) {
        m_seen = true;
        m_isEqual.fill(true);
        m_common = tcb;
        return;
    }
    for (std::size_t i = 0; i < PartCount; ++i)
        m_isEqual[i] = m_isEqual[i] && tcb.*parts[i] == m_common.*parts[i];
}

bool CommonTcb::get(Part part, float *value) const
{
    if (m_isEqual[part] && value)
        *value = m_common.*parts[part];
    return m_isEqual[part];
}

#include "vxtimeline/dopesheet/commontcb.h"

#include <algorithm>
#include <cstring>
#include <vxcore/vxfloatproperty.h>

#include "vxtimeline/dopesheet/dopesheetrowkeys.h"
#include "vxtimeline/dopesheet/vxdopesheetitem.h"

namespace {

bool isSelected(quint8 flags)
{
    return flags & DopeSheetRowKeys::Selected;
}

bool getCommon(bool isCommon, float common, float *value)
{
    if (isCommon && value)
        *value = common;
    return isCommon;
}

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
        m_seen = m_tensionEqual = m_continuityEqual = m_biasEqual = true;
        m_common = tcb;
        return;
    }
    m_tensionEqual = m_tensionEqual && tcb.tension == m_common.tension;
    m_continuityEqual = m_continuityEqual && tcb.continuity == m_common.continuity;
    m_biasEqual = m_biasEqual && tcb.bias == m_common.bias;
}

bool CommonTcb::getTension(float *tension) const
{
    return getCommon(m_tensionEqual, m_common.tension, tension);
}

bool CommonTcb::getContinuity(float *continuity) const
{
    return getCommon(m_continuityEqual, m_common.continuity, continuity);
}

bool CommonTcb::getBias(float *bias) const
{
    return getCommon(m_biasEqual, m_common.bias, bias);
}

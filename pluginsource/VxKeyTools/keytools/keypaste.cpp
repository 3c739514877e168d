#include "keytools/keypaste.h"

#include "keytools/valuelimiter.h"

#include <QtCore/QVector>
#include <algorithm>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertygrouptree.h>

namespace {

template <class V, class Property>
bool setKeys(Property *property, const VxCopiedKeys &copied, const std::vector<VxTime> &times)
{
    const ValueLimiter<V> limiter(*property);
    std::vector<V> values(copied.values.size());
    std::transform(copied.values.begin(), copied.values.end(), values.begin(), limiter);
    VxKeyColumns<V> keys;
    keys.times = times.data();
    keys.values = values.data();
    if (std::is_same_v<V, float>) {
        keys.types = copied.types.data();
        keys.tcb = copied.tcb.empty() ? nullptr : copied.tcb.data();
    }
    keys.count = int(times.size());
    return property->setKeys(keys);
}

/// A property below a group with a name; null for none.
VxProperty *findBelow(const VxPropertyGroup *group, const QString &name)
{
    for (int i = 0; i < group->getNumProperties(); ++i) {
        if (group->getProperty(i)->getName() == name)
            return group->getProperty(i);
    }
    for (int i = 0; i < group->getNumChildren(); ++i) {
        if (VxProperty *found = findBelow(group->getChild(i), name))
            return found;
    }
    return nullptr;
}

} // namespace

KeyPaste::KeyPaste(const std::vector<VxCopiedKeys> &copied, VxTime at, VxTime step, Mode mode)
    : m_mode(mode)
    , m_step(step)
{
    VxTime first = VxTimeMax;
    VxTime last = VxTimeMin;
    for (const VxCopiedKeys &keys : copied) {
        first = std::min(first, keys.times.front());
        last = std::max(last, keys.times.back());
    }
    m_offset = std::min(qint64(at) - first, qint64(VxTimeMax) - last);
    m_span = VxTimeRange(VxTime(first + m_offset), VxTime(last + m_offset));
}

VxProperty *KeyPaste::findProperty(const VxNode *node, const QString &name)
{
    VxProperty *own = node->findProperty(name);
    return own ? own : findBelow(node->getPropertyGroups()->getRoot(), name);
}

// Before the first key is written: false leaves the property as it is.
bool KeyPaste::makeRoom(VxNumericProperty *property) const
{
    const int first = property->getFirstKeyFrom(m_span.getStart());
    const int count = property->getNumKeys();
    if (m_mode == Replace) {
        const int last =
            m_span.getEnd() == VxTimeMax ? count : property->getFirstKeyFrom(m_span.getEnd() + 1);
        return first >= last || property->deleteKeys(first, last - 1) > 0;
    }
    if (m_mode != Ripple || first >= count)
        return true;
    const qint64 shift = qint64(m_span.getEnd()) - m_span.getStart() + m_step;
    if (property->getKeyTime(count - 1) + shift > VxTimeMax)
        return false;
    QVector<int> indexes;
    QVector<VxTime> times;
    for (int i = first; i < count; ++i) {
        indexes.append(i);
        times.append(VxTime(property->getKeyTime(i) + shift));
    }
    return property->moveKeys(indexes, times);
}

bool KeyPaste::write(const VxCopiedKeys &keys, VxNumericProperty *property)
{
    std::vector<VxTime> times(keys.times.size());
    std::transform(keys.times.begin(), keys.times.end(), times.begin(),
                   [this](VxTime time) { return VxTime(time + m_offset); });
    bool isSet = false;
    if (auto *number = qobject_cast<VxFloatProperty *>(property))
        isSet = setKeys<float>(number, keys, times);
    else if (auto *whole = qobject_cast<VxIntProperty *>(property))
        isSet = setKeys<qint32>(whole, keys, times);
    if (isSet) {
        m_keys += int(times.size());
        m_entries.push_back({property, keySpansAt(times, *property), 0});
    }
    return isSet;
}

void KeyPaste::paste(const VxCopiedKeys &keys, VxProperty *property)
{
    auto *holder = qobject_cast<VxNumericProperty *>(property->getKeyHolder());
    if (m_holders.contains(holder))
        return;
    m_holders.insert(holder);
    const bool isDriven = !holder || !holder->canBeKeyed() || KeyTargets::isReadOnly(*holder);
    if (isDriven || !makeRoom(holder) || !write(keys, holder))
        ++m_skipped;
}

#include "vxtimeline/dopesheet/copiedkeys.h"

#include "vxtimeline/time/timelinesnap.h"

#include <algorithm>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxintproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertyhelper.h>

namespace {

// Deliberately less than one half, so that halves round down. One rule for all numbers, whole and
// negative ones too.
constexpr double RoundingShare = 0.49999;

template <typename Value>
void takeColumns(CopiedKeys::Entry &entry, const VxKeyColumns<Value> &keys,
                 const QVector<int> &indexes)
{
    const auto count = std::size_t(indexes.size());
    entry.times.reserve(count);
    entry.values.reserve(count);
    for (const int index : indexes) {
        entry.times.push_back(keys.times[index]);
        entry.values.push_back(double(keys.values[index]));
    }
    entry.types.assign(count, VxKeyInterp::Constant);
    if (keys.types)
        std::transform(indexes.cbegin(), indexes.cend(), entry.types.begin(),
                       [&keys](int index) { return keys.types[index]; });
    if (!keys.tcb)
        return;
    entry.tcb.reserve(count);
    for (const int index : indexes)
        entry.tcb.push_back(keys.tcb[index]);
}

std::vector<VxTime> shifted(const std::vector<VxTime> &times, qint64 offset)
{
    std::vector<VxTime> result(times.size());
    std::transform(times.cbegin(), times.cend(), result.begin(),
                   [offset](VxTime time) { return static_cast<VxTime>(time + offset); });
    return result;
}

bool pasteFloats(const CopiedKeys::Entry &entry, VxFloatProperty *property,
                 const std::vector<VxTime> &times)
{
    std::vector<float> values(entry.values.cbegin(), entry.values.cend());
    if (property->isClamped()) {
        for (float &value : values)
            value = qBound(property->getMin(), value, property->getMax());
    }
    VxKeyColumns<float> keys;
    keys.times = times.data();
    keys.values = values.data();
    keys.types = entry.types.data();
    keys.tcb = entry.tcb.empty() ? nullptr : entry.tcb.data();
    keys.count = int(times.size());
    return property->setKeys(keys);
}

bool pasteInts(const CopiedKeys::Entry &entry, VxIntProperty *property,
               const std::vector<VxTime> &times)
{
    std::vector<qint32> values(entry.values.size());
    std::transform(entry.values.cbegin(), entry.values.cend(), values.begin(),
                   &CopiedKeys::rounded);
    if (property->isClamped()) {
        for (qint32 &value : values)
            value = qBound(property->getMin(), value, property->getMax());
    }
    VxKeyColumns<qint32> keys;
    keys.times = times.data();
    keys.values = values.data();
    keys.count = int(times.size());
    return property->setKeys(keys);
}

// Of the node that owns the property itself or through an object.
QString nodeName(const VxProperty *property)
{
    const VxNode *node = VxPropertyHelper::getNode(property);
    return node ? node->getName() : QString();
}

} // namespace

void CopiedKeys::add(const QString &path, const VxProperty *property, const QVector<int> &indexes)
{
    if (indexes.isEmpty())
        return;
    Entry entry;
    entry.path = path;
    if (const auto *number = qobject_cast<const VxFloatProperty *>(property))
        takeColumns(entry, number->getKeys(), indexes);
    else if (const auto *whole = qobject_cast<const VxIntProperty *>(property))
        takeColumns(entry, whole->getKeys(), indexes);
    else
        return;
    entry.node = nodeName(property);
    entry.property = property->getName();
    m_earliest = std::min(m_earliest, entry.times.front());
    m_latest = std::max(m_latest, entry.times.back());
    if (!m_byPath.contains(path))
        m_byPath.insert(path, int(m_entries.size()));
    m_entries.push_back(std::move(entry));
}

const CopiedKeys::Entry *CopiedKeys::find(const QString &path) const
{
    const auto found = m_byPath.constFind(path);
    return found == m_byPath.cend() ? nullptr : &m_entries[std::size_t(found.value())];
}

// At the latest time the paste is moved back as far as the keys need.
bool CopiedKeys::paste(const Entry &entry, VxProperty *property, VxTime at) const
{
    const qint64 offset = std::min(qint64(at) - m_earliest, qint64(VxTimeMax) - m_latest);
    const std::vector<VxTime> times = shifted(entry.times, offset);
    if (auto *number = qobject_cast<VxFloatProperty *>(property))
        return pasteFloats(entry, number, times);
    if (auto *whole = qobject_cast<VxIntProperty *>(property))
        return pasteInts(entry, whole, times);
    return false;
}

qint32 CopiedKeys::rounded(double value)
{
    return TimelineSnap::saturatedInt(value + RoundingShare);
}

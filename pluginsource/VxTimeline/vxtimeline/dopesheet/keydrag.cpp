#include "vxtimeline/dopesheet/keydrag.h"

#include "vxtimeline/rows/selectedkeys.h"
#include "vxtimeline/rows/vxdopesheetitem.h"

#include <QtCore/QPointer>
#include <QtCore/QVector>
#include <algorithm>
#include <vector>
#include <vxcore/vxchangeblock.h>
#include <vxcore/vxnumericproperty.h>

namespace {

// The keys of one property.
struct Moved
{
    QPointer<VxNumericProperty> property;
    QVector<VxTime> origins;
    QVector<VxTime> presentTimes; // key by key
    QVector<int> indexes;         // their last known indexes
    std::vector<QPointer<VxDopeSheetItem>> rows;

    bool areWhereFound() const;
    void locate();
    bool moveTo(qint64 offset, VxCollision rule);
    void showIn(VxDopeSheetItem *row) const;
};

// Most steps preserve the order of the keys.
bool Moved::areWhereFound() const
{
    if (indexes.size() != presentTimes.size() || presentTimes.isEmpty() ||
        indexes.last() >= property->getNumKeys())
        return false;
    const VxTime *times = property->getKeyTimes();
    if (indexes.last() - indexes.first() == indexes.size() - 1)
        return std::equal(presentTimes.cbegin(), presentTimes.cend(), times + indexes.first());
    return std::equal(presentTimes.cbegin(), presentTimes.cend(), indexes.cbegin(),
                      [times](VxTime time, int index) { return times[index] == time; });
}

// Finds the keys by their last times. Missing ones are dropped.
void Moved::locate()
{
    if (areWhereFound())
        return;
    indexes.resize(0);
    indexes.reserve(presentTimes.size());
    const VxTime *times = property->getKeyTimes();
    const int count = property->getNumKeys();
    int key = presentTimes.isEmpty() ? count : property->getFirstKeyFrom(presentTimes.first());
    int kept = 0;
    for (int i = 0; i < presentTimes.size(); ++i) {
        while (key < count && times[key] < presentTimes.at(i))
            ++key;
        if (key == count || times[key] != presentTimes.at(i))
            continue;
        indexes.append(key);
        origins[kept] = origins.at(i);
        presentTimes[kept] = presentTimes.at(i);
        ++kept;
    }
    origins.resize(kept);
    presentTimes.resize(kept);
}

bool Moved::moveTo(qint64 offset, VxCollision rule)
{
    const int before = presentTimes.size();
    locate();
    if (indexes.isEmpty())
        return before == 0;
    const std::vector<VxTime> targets =
        vxShiftedKeyTimes(origins.constData(), origins.size(), offset);
    const std::vector<VxTime> planned = vxPlanKeyTimes(
        property->getKeyTimes(), property->getNumKeys(),
        {indexes.constData(), targets.data(), indexes.size(), origins.constData()}, rule);
    if (planned.empty())
        return false;
    // Its constructor from a range appends value by value.
    QVector<VxTime> times(int(planned.size()));
    std::copy(planned.cbegin(), planned.cend(), times.begin());
    if (times != presentTimes && !property->moveKeys(indexes, times))
        return false;
    presentTimes = times;
    return indexes.size() == before;
}

// Only some of the keys may be selected in this row.
void Moved::showIn(VxDopeSheetItem *row) const
{
    const VxTime *saved = row->savedTimes();
    const int count = row->savedTimeCount();
    if (count == origins.size() && std::equal(origins.cbegin(), origins.cend(), saved)) {
        row->selectOnlyKeysAt(presentTimes.constData(), presentTimes.size());
        return;
    }
    QVector<VxTime> times;
    times.reserve(count);
    int key = 0;
    for (int i = 0; i < count; ++i) {
        while (key < origins.size() && origins.at(key) < saved[i])
            ++key;
        if (key < origins.size() && origins.at(key) == saved[i])
            times.append(presentTimes.at(key));
    }
    row->selectOnlyKeysAt(times.constData(), times.size());
}

} // namespace

class KeyDrag::Private
{
public:
    std::vector<Moved> properties;
    std::vector<QPointer<VxDopeSheetItem>> rows;
    VxTime earliest = VxTimeMax;
    VxTime latest = -1;

    void suppressKeyChanges(bool suppress) const
    {
        for (const auto &row : rows) {
            if (row)
                row->setSuppressKeyChanges(suppress);
        }
    }
};

KeyDrag::KeyDrag()
    : d(std::make_unique<Private>())
{
}

KeyDrag::~KeyDrag() = default;

void KeyDrag::add(const SelectedKeys &keys)
{
    auto *property = qobject_cast<VxNumericProperty *>(keys.property);
    if (!property)
        return;
    Moved moved;
    moved.property = property;
    moved.indexes = keys.indexes;
    const VxTime *times = property->getKeyTimes();
    moved.origins.resize(keys.indexes.size());
    std::transform(keys.indexes.cbegin(), keys.indexes.cend(), moved.origins.begin(),
                   [times](int index) { return times[index]; });
    moved.presentTimes = moved.origins;
    for (VxDopeSheetItem *row : keys.rows) {
        row->saveSelectedKeyTimes();
        moved.rows.emplace_back(row);
        d->rows.emplace_back(row);
    }
    d->earliest = std::min(d->earliest, moved.origins.first());
    d->latest = std::max(d->latest, moved.origins.last());
    d->properties.push_back(std::move(moved));
}

VxTime KeyDrag::earliest() const
{
    return d->earliest;
}

VxTime KeyDrag::latest() const
{
    return d->latest;
}

// The rows adopt the new times within the block, before any report, and observe their properties
// again only after all reports.
bool KeyDrag::moveTo(qint64 offset, VxCollision rule)
{
    bool complete = true;
    d->suppressKeyChanges(true);
    {
        VxChangeBlock block;
        for (Moved &moved : d->properties) {
            if (!moved.property) {
                complete = false;
                continue;
            }
            complete = moved.moveTo(offset, rule) && complete;
            for (const auto &row : moved.rows) {
                if (row)
                    moved.showIn(row);
            }
        }
    }
    d->suppressKeyChanges(false);
    return complete;
}

void KeyDrag::visitRows(const std::function<void(VxDopeSheetItem *)> &visit) const
{
    for (const auto &row : d->rows) {
        if (row)
            visit(row);
    }
}

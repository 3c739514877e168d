#include "vxtimeline/rows/selectedkeys.h"

#include "vxtimeline/rows/vxdopesheetitem.h"

#include <algorithm>
#include <iterator>
#include <vxcore/vxproperty.h>

namespace {

QVector<int> united(const QVector<int> &one, const QVector<int> &other)
{
    QVector<int> both;
    both.reserve(one.size() + other.size());
    std::set_union(one.cbegin(), one.cend(), other.cbegin(), other.cend(),
                   std::back_inserter(both));
    return both;
}

} // namespace

void SelectedKeysCollector::add(VxDopeSheetItem *item)
{
    VxProperty *property = item->property();
    if (!property || !item->hasSelectedKeys())
        return;
    const auto found = m_byHolder.constFind(property->getKeyHolder());
    if (found == m_byHolder.cend()) {
        m_byHolder.insert(property->getKeyHolder(), int(m_keys.size()));
        m_keys.push_back({property, {item}, item->selectedKeyIndexes()});
        return;
    }
    SelectedKeys &known = m_keys[std::size_t(found.value())];
    known.rows.append(item);
    known.indexes = united(known.indexes, item->selectedKeyIndexes());
}

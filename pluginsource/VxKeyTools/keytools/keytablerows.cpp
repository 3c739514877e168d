#include "keytools/keytablerows.h"

#include <algorithm>
#include <numeric>
#include <vxcore/vxnode.h>
#include <vxcore/vxpropertyhelper.h>

void KeyTableRows::setTargets(KeyTargets targets)
{
    auto listing = std::make_shared<Listing>();
    listing->targets = std::move(targets);
    for (const KeyTarget &track : listing->targets.tracks) {
        listing->properties.emplace_back(track.property);
        listing->names.push_back(namesOf(*track.property));
        std::vector<int> starts(track.spans.size());
        int position = 0;
        for (std::size_t i = 0; i < starts.size(); ++i) {
            starts[i] = position;
            position += track.spans[i].last - track.spans[i].first;
        }
        listing->starts.push_back(std::move(starts));
    }
    m_listing = std::move(listing);
    rebuild();
}

KeyTableRows::Names KeyTableRows::namesOf(const VxNumericProperty &property)
{
    const VxNode *node = VxPropertyHelper::getNode(&property);
    return {node ? node->getLabel() : QString(), property.getLabel()};
}

bool KeyTableRows::areNamesCurrent() const
{
    for (std::size_t track = 0; track < m_listing->names.size(); ++track) {
        const VxNumericProperty *property = m_listing->properties[track];
        const Names &names = m_listing->names[track];
        const Names present = property ? namesOf(*property) : Names();
        if (present.node != names.node || present.property != names.property)
            return false;
    }
    return true;
}

bool KeyTableRows::areAlive() const
{
    return std::none_of(m_listing->properties.begin(), m_listing->properties.end(),
                        [](const auto &property) { return property.isNull(); });
}

void KeyTableRows::setFilter(const QString &text)
{
    m_filter = text;
    rebuild();
}

void KeyTableRows::sort(KeyTableColumn column, Qt::SortOrder order)
{
    m_isSorted = true;
    m_column = column;
    m_sortOrder = order;
    rebuild();
}

void KeyTableRows::unsort()
{
    m_isSorted = false;
    rebuild();
}

KeyTableRows::Key KeyTableRows::at(int row) const
{
    return unsorted(m_order.empty() ? row : m_order[std::size_t(row)]);
}

KeyTableRows::Key KeyTableRows::unsorted(int row) const
{
    const auto after = std::upper_bound(m_firstRows.begin(), m_firstRows.end(), row);
    const auto shown = std::size_t(after - m_firstRows.begin() - 1);
    const auto track = std::size_t(m_shown[shown]);
    const int position = row - m_firstRows[shown];
    const std::vector<int> &starts = m_listing->starts[track];
    const auto span =
        std::size_t(std::upper_bound(starts.begin(), starts.end(), position) - starts.begin() - 1);
    const int index = m_listing->targets.tracks[track].spans[span].first + position - starts[span];
    return {int(track), position, index};
}

void KeyTableRows::rebuild()
{
    m_shown.clear();
    m_firstRows.clear();
    m_order.clear();
    m_count = 0;
    for (std::size_t track = 0; track < m_listing->names.size(); ++track) {
        const Names &names = m_listing->names[track];
        if (!m_filter.isEmpty() && !names.node.contains(m_filter, Qt::CaseInsensitive) &&
            !names.property.contains(m_filter, Qt::CaseInsensitive))
            continue;
        m_shown.push_back(int(track));
        m_firstRows.push_back(m_count);
        m_count += m_listing->targets.tracks[track].numKeys();
    }
    if (!m_isSorted || !areAlive())
        return;
    const auto shape = [this](const Key &key, int part) {
        float parts[3] = {};
        const int type =
            property(key.track)->getKeyInterpolationType(key.index, parts, parts + 1, parts + 2);
        return part < 0 ? double(type) : double(parts[part]);
    };
    switch (m_column) {
    case KeyTableColumn::Node:
        return sortBy<QString>([this](const Key &key) { return nodeName(key.track); });
    case KeyTableColumn::Property:
        return sortBy<QString>([this](const Key &key) { return propertyName(key.track); });
    case KeyTableColumn::Time:
        return sortBy<VxTime>(
            [this](const Key &key) { return property(key.track)->getKeyTime(key.index); });
    case KeyTableColumn::Value:
        return sortBy<double>(
            [this](const Key &key) { return property(key.track)->getKeyDoubleValue(key.index); });
    case KeyTableColumn::Type:
        return sortBy<double>([&shape](const Key &key) { return shape(key, -1); });
    case KeyTableColumn::Tension:
    case KeyTableColumn::Continuity:
    case KeyTableColumn::Bias: {
        const int part = int(m_column) - int(KeyTableColumn::Tension);
        return sortBy<double>([&shape, part](const Key &key) { return shape(key, part); });
    }
    }
}

template <class T, class Read> void KeyTableRows::sortBy(const Read &read)
{
    std::vector<T> values;
    values.reserve(std::size_t(m_count));
    for (int row = 0; row < m_count; ++row)
        values.push_back(read(unsorted(row)));
    std::vector<qint32> order(values.size());
    std::iota(order.begin(), order.end(), 0);
    const bool ascends = m_sortOrder == Qt::AscendingOrder;
    std::stable_sort(order.begin(), order.end(), [&values, ascends](qint32 a, qint32 b) {
        const T &left = values[std::size_t(ascends ? a : b)];
        const T &right = values[std::size_t(ascends ? b : a)];
        return left < right;
    });
    m_order = std::move(order);
}

#include "keys/keystore.h"

#include "keys/keyjournal.h"
#include "scene/journalitems.h"
#include "undo/vxundovalueitem.h"

#include <algorithm>
#include <cstring>
#include <vxcore/vxjournalwriter.h>
#include <vxcore/vxkeyselection.h>

namespace {

/// To the last bit: 0 and -0 differ, as in the keys of an undo entry.
template <class V> bool isSame(V a, V b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

} // namespace

template <class V>
constexpr JournalNumber NumberType =
    std::is_floating_point_v<V> ? JournalNumber::Float : JournalNumber::Int;

/// Key changes of one property within a hold.
template <class V> class KeyUndoItem : public VxUndoItem
{
public:
    KeyUndoItem(VxProperty *property, KeyStore<V> *store)
        : VxUndoItem(property, VxUndoKeys)
        , m_property(property)
        , m_store(store)
        , m_selected(selectedKeys())
        , m_wasInDocument(vxIsInDocument(property))
    {
    }

    bool isAlive() const { return m_property; }
    void touch(const VxTimeRange &times) { m_delta.touch(m_store->track(), times); }

    void swap() override
    {
        if (!m_property)
            return;
        m_store->swap(m_delta);
        m_selected.swap(m_othersSelected);
    }

    // Keeps keys selected since then where neither state has a selected key.
    void settle() override
    {
        VxKeySelection *selection = VxKeySelection::current();
        if (m_property && selection && !(m_selected.empty() && m_othersSelected.empty()))
            selection->setForHolders({{m_property, m_othersSelected, 0}});
    }

    bool finish() override
    {
        if (m_property) {
            m_delta.trim(m_store->track());
            m_othersSelected = selectedKeys();
        }
        return m_property && !m_delta.isEmpty();
    }

    bool write(VxJournalWriter &writer) const override
    {
        if (!m_wasInDocument)
            return true;
        if (!m_property || m_delta.isEmpty())
            return false;
        const KeyTrack<V> &track = m_store->track();
        const auto [first, last] = track.indexRange(m_delta.range());
        const VxKeyColumns<V> before = m_delta.keys().columns();
        const VxKeyColumns<V> after = track.columns(first, last);
        constexpr qint64 HeaderBytes = 64;
        writer.reserve(HeaderBytes + KeyJournal::bytesOf(before) + KeyJournal::bytesOf(after));
        writer.number(JournalItem::Keys);
        if (!writer.property(m_property))
            return false;
        writer.number(NumberType<V>);
        journalPut(writer, m_delta.range());
        KeyJournal::put(writer, before);
        KeyJournal::put(writer, after);
        return true;
    }

    qint64 memoryUsed() const override
    {
        const std::size_t spans = m_selected.capacity() + m_othersSelected.capacity();
        const std::size_t bytes = sizeof *this + m_delta.memoryBytes() + spans * sizeof(VxKeySpan);
        return qint64(bytes);
    }

private:
    std::vector<VxKeySpan> selectedKeys() const
    {
        const VxKeySelection *selection = VxKeySelection::current();
        return selection ? selection->spansOf(m_property) : std::vector<VxKeySpan>();
    }

    QPointer<VxProperty> m_property;
    KeyStore<V> *m_store; // lives as long as the property
    KeyDelta<V> m_delta;
    std::vector<VxKeySpan> m_selected;       // of the keys in m_delta
    std::vector<VxKeySpan> m_othersSelected; // of the keys now in the track
    const bool m_wasInDocument;
};

/// Changes of the stored value within a hold.
template <class V> class StoredValueUndoItem : public VxUndoItem
{
public:
    StoredValueUndoItem(VxProperty *property, KeyStore<V> *store)
        : VxUndoItem(property, VxUndoStoredValue)
        , m_property(property)
        , m_store(store)
        , m_value(store->stored())
        , m_wasInDocument(vxIsInDocument(property))
    {
    }

    bool isAlive() const { return m_property; }

    void swap() override
    {
        if (!m_property)
            return;
        const V present = m_store->stored();
        m_store->setStored(m_value);
        m_value = present;
    }

    bool finish() override { return m_property && !isSame(m_store->stored(), m_value); }
    bool write(VxJournalWriter &writer) const override
    {
        if (!m_wasInDocument)
            return true;
        writer.number(JournalItem::StoredValue);
        if (!m_property || !writer.property(m_property))
            return false;
        writer.number(NumberType<V>);
        writer.number(m_value);
        writer.number(m_store->stored());
        return true;
    }
    qint64 memoryUsed() const override { return qint64(sizeof(*this)); }

private:
    QPointer<VxProperty> m_property;
    KeyStore<V> *m_store;
    V m_value;
    const bool m_wasInDocument;
};

template <class V> void KeyStore<V>::touch(const VxTimeRange &times)
{
    VxUndoStack *stack = VxUndoStack::current();
    if (!vxMustRecord(stack, m_property, VxUndoKeys))
        return;
    auto *item = vxFindLivingItem<KeyUndoItem<V>>(stack, m_property, VxUndoKeys);
    if (!item) {
        item = new KeyUndoItem<V>(m_property, this);
        stack->record(item);
    }
    item->touch(times);
}

template <class V> void KeyStore<V>::report(const VxTimeRange &times)
{
    VxProperty::Private *property = VxProperty::Private::of(m_property);
    property->bumpKeyRevision();
    property->reportChange(times);
}

template <class V> VxTimeRange KeyStore<V>::spanOf(const QVector<int> &indexes) const
{
    return {m_track.time(indexes.first()), m_track.time(indexes.last())};
}

template <class V> bool KeyStore<V>::areIndexes(const QVector<int> &indexes) const
{
    return !indexes.isEmpty() && indexes.first() >= 0 && indexes.last() < m_track.count() &&
           isStrictlyAscending(indexes.constData(), indexes.size());
}

template <class V> bool KeyStore<V>::setStored(V value)
{
    if (isSame(m_stored, value))
        return true;
    VxUndoStack *stack = VxUndoStack::current();
    using Item = StoredValueUndoItem<V>;
    if (vxMustRecord(stack, m_property, VxUndoStoredValue) &&
        !vxFindLivingItem<Item>(stack, m_property, VxUndoStoredValue))
        stack->record(new Item(m_property, this));
    m_stored = value;
    if (m_track.isEmpty())
        VxProperty::Private::of(m_property)->reportChange(VxTimeRange::all());
    return true;
}

template <class V> void KeyStore<V>::set(VxTime time, V value, const VxKeyShape &shape)
{
    const int index = m_track.find(time);
    if (index >= 0 && m_track.value(index) == value && m_track.shape(index) == shape)
        return;
    touch({time, time});
    m_track.set(time, value, shape);
    report({time, time});
}

template <class V> bool KeyStore<V>::insertMany(const VxKeyColumns<V> &keys)
{
    if (keys.count == 0)
        return true;
    if (!isStrictlyAscending(keys.times, keys.count))
        return false;
    const VxTimeRange span(keys.times[0], keys.times[keys.count - 1]);
    touch(span);
    m_track.insertMany(keys);
    report(span);
    return true;
}

template <class V> bool KeyStore<V>::replace(const VxTimeRange &range, const VxKeyColumns<V> &keys)
{
    if (!isStrictlyAscending(keys.times, keys.count))
        return false;
    const auto taken = m_track.indexRange(range);
    if (taken.first == taken.second)
        return insertMany(keys);
    VxTimeRange span(m_track.time(taken.first), m_track.time(taken.second - 1));
    if (keys.count > 0)
        span = span.united({keys.times[0], keys.times[keys.count - 1]});
    touch(span);
    m_track.removeIndexRange(taken.first, taken.second);
    m_track.insertMany(keys);
    report(span);
    return true;
}

template <class V> int KeyStore<V>::removeRange(const VxTimeRange &range)
{
    const auto taken = m_track.indexRange(range);
    return removeIndexRange(taken.first, taken.second);
}

template <class V> int KeyStore<V>::removeIndexRange(int first, int last)
{
    first = std::max(first, 0);
    last = std::min(last, m_track.count());
    if (first >= last)
        return 0;
    const VxTimeRange span(m_track.time(first), m_track.time(last - 1));
    touch(span);
    m_track.removeIndexRange(first, last);
    report(span);
    return last - first;
}

template <class V> int KeyStore<V>::removeIndexes(const QVector<int> &indexes)
{
    if (!areIndexes(indexes))
        return 0;
    const VxTimeRange span = spanOf(indexes);
    touch(span);
    m_track.removeIndexes(indexes.constData(), indexes.size());
    report(span);
    return indexes.size();
}

template <class V>
bool KeyStore<V>::move(const QVector<int> &indexes, const QVector<VxTime> &newTimes)
{
    if (indexes.isEmpty() && newTimes.isEmpty())
        return true;
    if (!areIndexes(indexes) || indexes.size() != newTimes.size())
        return false;
    QVector<VxTime> sorted = newTimes;
    if (!isStrictlyAscending(sorted.constData(), sorted.size())) {
        std::sort(sorted.begin(), sorted.end());
        if (!isStrictlyAscending(sorted.constData(), sorted.size()))
            return false;
    }
    const VxTimeRange span = spanOf(indexes).united({sorted.first(), sorted.last()});
    touch(span);
    m_track.moveKeys(indexes.constData(), newTimes.constData(), indexes.size());
    report(span);
    return true;
}

template <class V>
template <class Change>
bool KeyStore<V>::edit(const QVector<int> &indexes, const Change &change)
{
    if (indexes.isEmpty())
        return true;
    if (!areIndexes(indexes))
        return false;
    const VxTimeRange span = spanOf(indexes);
    touch(span);
    if (change())
        report(span);
    return true;
}

template <class V> bool KeyStore<V>::setShape(const QVector<int> &indexes, const VxKeyShape &shape)
{
    return edit(indexes,
                [&] { return m_track.setShape(indexes.constData(), indexes.size(), shape) > 0; });
}

template <class V> bool KeyStore<V>::setType(const QVector<int> &indexes, quint8 type)
{
    return edit(indexes,
                [&] { return m_track.setType(indexes.constData(), indexes.size(), type) > 0; });
}

template <class V> bool KeyStore<V>::setValues(const QVector<int> &indexes, const V *values)
{
    return edit(indexes, [&] {
        if (indexes.last() - indexes.first() == indexes.size() - 1) {
            m_track.setValues(indexes.first(), values, indexes.size());
        } else {
            for (int i = 0; i < indexes.size(); ++i)
                m_track.setValues(indexes.at(i), values + i, 1);
        }
        return true;
    });
}

template <class V> void KeyStore<V>::swap(KeyDelta<V> &delta)
{
    if (delta.isEmpty())
        return;
    const VxTimeRange span = delta.range();
    delta.swap(m_track);
    report(span);
}

template class KeyStore<float>;
template class KeyStore<qint32>;

#ifndef KEYSTORE_H
#define KEYSTORE_H

#include "keys/keydelta.h"
#include "keys/keyevaluator.h"
#include "keys/keytrack.h"
#include "keys/vxproperty_p.h"

#include <QtCore/QPointer>
#include <vxcore/vxundoitem.h>

template <class V> class KeyUndoItem;

/// The keys of a property whatever the type of their values.
class KeyStoreBase
{
public:
    virtual ~KeyStoreBase() = default;

    virtual int count() const = 0;
    /// Null without keys.
    virtual const VxTime *times() const = 0;
    /// The value of a key; 0 when there is no such key.
    virtual double keyValue(int index) const = 0;
    virtual qint64 memoryBytes() const = 0;

    /// The number of keys removed.
    virtual int removeRange(const VxTimeRange &range) = 0;
    virtual int removeIndexRange(int first, int last) = 0; // [first, last)
    virtual int removeIndexes(const QVector<int> &indexes) = 0;
    virtual bool move(const QVector<int> &indexes, const QVector<VxTime> &newTimes) = 0;
};

/// The value of one property: its keys, and its stored value for when it has none.
///
/// All edits pass through here, because each has the same three steps in the same order: it
/// reports the times to be touched to the open hold, changes the track in one pass, and reports
/// the changed time span. An edit of no keys, and setting a key to its present state, skip all
/// three; setting a shape or type that the keys have already is not reported.
template <class V> class KeyStore final : public KeyStoreBase
{
public:
    KeyStore(VxProperty *property, V value)
        : m_stored(value)
        , m_property(property)
    {
    }

    const KeyTrack<V> &track() const { return m_track; }
    V stored() const { return m_stored; }
    V value(VxTime time) const { return KeyEvaluator<V>(m_track).value(time, m_stored, m_cursor); }

    int count() const override { return m_track.count(); }
    const VxTime *times() const override { return m_track.columns().times; }
    double keyValue(int index) const override
    {
        return index >= 0 && index < m_track.count() ? double(m_track.value(index)) : 0.0;
    }
    qint64 memoryBytes() const override { return qint64(m_track.memoryBytes()); }

    bool setStored(V value);
    void set(VxTime time, V value, const VxKeyShape &shape);
    bool insertMany(const VxKeyColumns<V> &keys);
    bool replace(const VxTimeRange &range, const VxKeyColumns<V> &keys);
    int removeRange(const VxTimeRange &range) override;
    int removeIndexRange(int first, int last) override;
    int removeIndexes(const QVector<int> &indexes) override;
    bool move(const QVector<int> &indexes, const QVector<VxTime> &newTimes) override;
    bool setShape(const QVector<int> &indexes, const VxKeyShape &shape);
    bool setType(const QVector<int> &indexes, quint8 type);
    bool setValues(const QVector<int> &indexes, const V *values);

    /// Exchanges the keys of a span with those in `delta`, without recording: undo and redo.
    void swap(KeyDelta<V> &delta);

private:
    void touch(const VxTimeRange &times);
    void report(const VxTimeRange &times);
    /// An edit of keys that keep their times; change() is false when it changed none.
    template <class Change> bool edit(const QVector<int> &indexes, const Change &change);
    VxTimeRange spanOf(const QVector<int> &indexes) const;
    bool areIndexes(const QVector<int> &indexes) const;

    /// First what the evaluation of a frame reads: with the table of functions two cache lines.
    KeyTrack<V> m_track;
    mutable int m_cursor = 0;
    V m_stored;
    VxProperty *m_property;
};

extern template class KeyStore<float>;
extern template class KeyStore<qint32>;

#endif

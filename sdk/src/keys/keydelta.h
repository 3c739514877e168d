#ifndef KEYDELTA_H
#define KEYDELTA_H

#include "keys/keytrack.h"

/// What one undo entry stores of one track: the time span its edits touched, and the keys that
/// were in it before them.
///
/// Undo and redo are one routine, swap(): it exchanges the keys of the span with the stored ones.
/// Keys outside the span are neither kept nor read, so they may change freely.
///
///     start      `a b c d e f`
///     edits      `a b x . e f`    touched 2..3
///     delta      span 2..3, keys `. . c d . .`
///     swap       `a b c d e f`    delta: `. . x . . .`
///     swap       `a b x . e f`    delta: `. . c d . .`
template <class V> class KeyDelta
{
public:
    /// Called before each edit, with the times at which it removes, sets or changes keys. Copies
    /// the part of the track that the span does not hold yet, and some keys more when edits walk
    /// along the track, so that a thousand small steps do not copy a thousand times; trim() drops
    /// the surplus.
    void touch(const KeyTrack<V> &track, const VxTimeRange &times);
    /// Called after the last edit: narrows the span to where the track differs from before.
    void trim(const KeyTrack<V> &track);
    /// True when there is nothing to swap: no touch, or trim() found no difference.
    bool isEmpty() const { return !m_touched; }
    /// The span of times, both ends included; meaningless while empty.
    VxTimeRange range() const { return m_range; }
    /// The keys that swap() will write to the span.
    const KeyTrack<V> &keys() const { return m_keys; }

    /// Exchanges the span's keys in the track with the stored ones. Does nothing while empty.
    void swap(KeyTrack<V> &track);

    size_t memoryBytes() const { return sizeof *this + m_keys.memoryBytes(); }

private:
    void extendBack(const KeyTrack<V> &track, VxTime start);
    void extendOn(const KeyTrack<V> &track, VxTime end);

    KeyTrack<V> m_keys;
    VxTimeRange m_range;
    bool m_touched = false;
};

extern template class KeyDelta<float>;
extern template class KeyDelta<qint32>;

#endif

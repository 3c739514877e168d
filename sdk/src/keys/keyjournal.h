#ifndef KEYJOURNAL_H
#define KEYJOURNAL_H

#include "keys/keytrack.h"

class VxJournalReader;
class VxJournalWriter;

/// Keys in records of the journal: the columns as they lie in memory.
namespace KeyJournal {

template <class V> void put(VxJournalWriter &writer, const VxKeyColumns<V> &keys);
/// The bytes that put() writes.
template <class V> qint64 bytesOf(const VxKeyColumns<V> &keys);
/// Keys within a range, both ends included. Fails the reader on times that do not ascend or lie
/// outside, on numbers that are not finite, and on unknown types.
template <class V> KeyTrack<V> get(VxJournalReader &reader, const VxTimeRange &range);

} // namespace KeyJournal

#endif

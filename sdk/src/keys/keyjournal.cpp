#include "keys/keyjournal.h"

#include "keys/keytrackwriter.h"

#include <cmath>
#include <cstring>
#include <type_traits>
#include <vxcore/vxjournalreader.h>
#include <vxcore/vxjournalwriter.h>

namespace KeyJournal {

namespace {

template <class T> std::vector<T> column(VxJournalReader &reader, int count)
{
    const qint64 bytes = qint64(count) * qint64(sizeof(T));
    std::vector<T> result;
    if (const char *from = reader.block(bytes)) {
        result.resize(size_t(count));
        if (bytes > 0)
            std::memcpy(static_cast<void *>(result.data()), from, size_t(bytes));
    }
    return result;
}

template <class V> bool isFiniteColumn(const std::vector<V> &values)
{
    if constexpr (std::is_floating_point_v<V>)
        return std::all_of(values.begin(), values.end(),
                           [](V value) { return std::isfinite(value); });
    else
        return true;
}

} // namespace

template <class V> qint64 bytesOf(const VxKeyColumns<V> &keys)
{
    const auto perKey =
        qint64(sizeof(VxTime) + sizeof(V) + sizeof(quint8) + (keys.tcb ? sizeof(VxTcb) : 0));
    return qint64(sizeof(qint32) + sizeof(quint8)) + keys.count * perKey;
}

template <class V> void put(VxJournalWriter &writer, const VxKeyColumns<V> &keys)
{
    writer.number(qint32(keys.count));
    writer.number(quint8(keys.tcb != nullptr));
    if (keys.count == 0)
        return;
    writer.block(keys.times, keys.count * qint64(sizeof(VxTime)));
    writer.block(keys.values, keys.count * qint64(sizeof(V)));
    writer.block(keys.types, keys.count);
    if (keys.tcb)
        writer.block(keys.tcb, keys.count * qint64(sizeof(VxTcb)));
}

template <class V> KeyTrack<V> get(VxJournalReader &reader, const VxTimeRange &range)
{
    const auto count = reader.number<qint32>();
    const bool hasTcb = reader.number<quint8>() != 0;
    const auto times = column<VxTime>(reader, count);
    const auto values = column<V>(reader, count);
    const auto types = column<quint8>(reader, count);
    const auto tcb = column<VxTcb>(reader, hasTcb ? count : 0);
    KeyTrack<V> keys;
    if (reader.failed() || count == 0)
        return keys;
    const bool isInside = range.contains(times.front()) && range.contains(times.back());
    const bool isKnown = std::all_of(types.begin(), types.end(),
                                     [](quint8 type) { return type <= VxKeyInterp::Tcb; });
    const VxKeyColumns<V> columns{times.data(), values.data(), types.data(),
                                  hasTcb ? tcb.data() : nullptr, count};
    if (!isInside || !isKnown || !isFiniteColumn(values) ||
        !std::all_of(tcb.begin(), tcb.end(), isFiniteTcb) || !keys.insertMany(columns))
        reader.fail();
    return keys;
}

template void put(VxJournalWriter &, const VxKeyColumns<float> &);
template void put(VxJournalWriter &, const VxKeyColumns<qint32> &);
template qint64 bytesOf(const VxKeyColumns<float> &);
template qint64 bytesOf(const VxKeyColumns<qint32> &);
template KeyTrack<float> get(VxJournalReader &, const VxTimeRange &);
template KeyTrack<qint32> get(VxJournalReader &, const VxTimeRange &);

} // namespace KeyJournal

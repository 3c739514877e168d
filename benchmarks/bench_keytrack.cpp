// The key arrays alone, each operation beside a floor: a plain loop over arrays of the same size.
// Scenes are made of 1,530 tracks (170 bones of nine channels), so that memory, not the cache of
// one track, is measured. "a_key" is the time a key of the scene takes, "a_track" that of a track.

#include "keys/keydelta.h"
#include "keys/keyevaluator.h"

#include <benchmark/benchmark.h>
#include <numeric>
#include <random>
#include <vxcore/vxkeyedit.h>

namespace {

constexpr int TrackCount = 1530;
constexpr VxTime Frame = 160;

enum Selection { EverySecond, AtRandom };

struct Columns
{
    std::vector<VxTime> times;
    std::vector<float> values;
    std::vector<quint8> types;

    Columns(int count, quint8 type, VxTime first = 0, VxTime step = Frame)
        : times(count)
        , values(count)
        , types(count, type)
    {
        for (int i = 0; i < count; ++i) {
            times[i] = first + i * step;
            values[i] = float((i * 37) % 100);
        }
    }
    VxKeyColumns<float> view() const
    {
        return {times.data(), values.data(), types.data(), nullptr, int(times.size())};
    }
};

std::vector<KeyTrack<float>> scene(int keyCount, quint8 type = VxKeyInterp::Linear)
{
    const Columns columns(keyCount, type);
    std::vector<KeyTrack<float>> tracks(TrackCount);
    for (auto &track : tracks)
        track.insertMany(columns.view());
    return tracks;
}

std::vector<Columns> plainScene(int keyCount)
{
    return std::vector<Columns>(TrackCount, Columns(keyCount, VxKeyInterp::Linear));
}

std::vector<int> halfOf(int keyCount, int selection)
{
    std::vector<int> indexes;
    std::mt19937 random(1);
    for (int i = 0; i < keyCount; ++i) {
        if (selection == EverySecond ? i % 2 == 0 : random() % 2 == 0)
            indexes.push_back(i);
    }
    return indexes;
}

void report(benchmark::State &state, const char *unit, double count)
{
    using benchmark::Counter;
    state.counters[unit] = Counter(count, Counter::kIsIterationInvariantRate | Counter::kInvert);
}
void reportKeys(benchmark::State &state, int keyCount)
{
    report(state, "a_key", double(TrackCount) * keyCount);
}

void floorCopy(benchmark::State &state)
{
    const auto tracks = plainScene(int(state.range(0)));
    for (auto _ : state) {
        for (const Columns &track : tracks) {
            Columns copy(track);
            benchmark::DoNotOptimize(copy.times.data());
        }
    }
    reportKeys(state, int(state.range(0)));
}

void insertIntoNothing(benchmark::State &state)
{
    const int keyCount = int(state.range(0));
    const auto tracks = plainScene(keyCount);
    size_t bytes = 0;
    for (auto _ : state) {
        for (const Columns &columns : tracks) {
            KeyTrack<float> track;
            track.insertMany(columns.view());
            benchmark::DoNotOptimize(track.columns().times);
            bytes = track.memoryBytes();
        }
    }
    reportKeys(state, keyCount);
    state.counters["bytes_a_key"] = double(bytes) / keyCount;
}

void insertBetween(benchmark::State &state)
{
    const int keyCount = int(state.range(0));
    const Columns between(keyCount / 2, VxKeyInterp::Linear, Frame / 2, 2 * Frame);
    auto tracks = scene(keyCount);
    const auto start = tracks;
    size_t bytes = 0;
    for (auto _ : state) {
        for (auto &track : tracks)
            track.insertMany(between.view());
        bytes = tracks[0].memoryBytes();
        state.PauseTiming();
        tracks = start;
        state.ResumeTiming();
    }
    reportKeys(state, keyCount + keyCount / 2);
    state.counters["bytes_a_key"] = double(bytes) / (keyCount + keyCount / 2);
}

void floorSearch(benchmark::State &state)
{
    const Columns columns(int(state.range(0)), VxKeyInterp::Linear);
    std::mt19937 random(1);
    for (auto _ : state) {
        const VxTime time = VxTime(random() % quint32(columns.times.back()));
        benchmark::DoNotOptimize(
            std::lower_bound(columns.times.begin(), columns.times.end(), time));
    }
}

void find(benchmark::State &state)
{
    KeyTrack<float> track;
    track.insertMany(Columns(int(state.range(0)), VxKeyInterp::Linear).view());
    const VxTime end = track.time(track.count() - 1);
    std::mt19937 random(1);
    for (auto _ : state)
        benchmark::DoNotOptimize(track.find(VxTime(random() % quint32(end))));
}

// One track, tick by tick a little further.
void evaluateRemembered(benchmark::State &state)
{
    KeyTrack<float> track;
    track.insertMany(Columns(3000, quint8(state.range(0))).view());
    const KeyEvaluator<float> evaluator(track);
    const VxTime end = track.time(track.count() - 1);
    int cursor = 0;
    VxTime time = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(evaluator.value(time, 0, cursor));
        time = time < end ? time + 7 : 0;
    }
}

// Any track of the scene at any time.
void evaluateCold(benchmark::State &state)
{
    const auto tracks = scene(int(state.range(0)));
    const VxTime end = tracks[0].time(tracks[0].count() - 1);
    std::mt19937 random(1);
    for (auto _ : state) {
        int cursor = 0;
        const auto &track = tracks[random() % TrackCount];
        benchmark::DoNotOptimize(
            KeyEvaluator<float>(track).value(VxTime(random() % quint32(end)), 0, cursor));
    }
}

void evaluateMany(benchmark::State &state)
{
    KeyTrack<float> track;
    track.insertMany(Columns(3000, quint8(state.range(0))).view());
    std::vector<VxTime> times(2000);
    for (size_t i = 0; i < times.size(); ++i)
        times[i] = VxTime(i) * 240 + 1;
    std::vector<float> values(times.size());
    for (auto _ : state) {
        KeyEvaluator<float>(track).values(times.data(), int(times.size()), values.data(), 0);
        benchmark::DoNotOptimize(values.data());
    }
    report(state, "a_value", double(times.size()));
}

// One frame of playback after the other; the time is that of one frame of all channels.
void floorFrame(benchmark::State &state)
{
    const int keyCount = int(state.range(0));
    const auto tracks = plainScene(keyCount);
    std::vector<float> values(TrackCount);
    int i = 0;
    for (auto _ : state) {
        for (int k = 0; k < TrackCount; ++k) {
            const auto &from = tracks[k].values;
            values[k] = from[i] + (from[i + 1] - from[i]) * 0.5F;
        }
        benchmark::DoNotOptimize(values.data());
        i = i + 2 < keyCount ? i + 1 : 0;
    }
    report(state, "a_track", TrackCount);
}

void evaluateFrame(benchmark::State &state)
{
    const auto tracks = scene(int(state.range(0)), quint8(state.range(1)));
    const VxTime end = tracks[0].time(tracks[0].count() - 1);
    std::vector<int> cursors(TrackCount);
    std::vector<float> values(TrackCount);
    VxTime time = Frame / 3;
    for (auto _ : state) {
        for (int k = 0; k < TrackCount; ++k)
            values[k] = KeyEvaluator<float>(tracks[k]).value(time, 0, cursors[k]);
        benchmark::DoNotOptimize(values.data());
        time = time + Frame < end ? time + Frame : Frame / 3;
    }
    report(state, "a_track", TrackCount);
}

// Reads and writes what a move of half the keys must, in order.
void floorMove(benchmark::State &state)
{
    const int keyCount = int(state.range(0));
    const auto tracks = plainScene(keyCount);
    Columns moved(keyCount, VxKeyInterp::Linear);
    for (auto _ : state) {
        for (const Columns &track : tracks) {
            for (int i = 0; i < keyCount; ++i) {
                moved.times[i] = track.times[i] + (i % 2 == 0 ? 80 : 0);
                moved.values[i] = track.values[i];
                moved.types[i] = track.types[i];
            }
            benchmark::DoNotOptimize(moved.times.data());
        }
    }
    reportKeys(state, keyCount);
}

void moveHalf(benchmark::State &state)
{
    const int keyCount = int(state.range(0));
    auto tracks = scene(keyCount);
    const auto indexes = halfOf(keyCount, int(state.range(1)));
    std::vector<VxTime> origins;
    for (int i : indexes)
        origins.push_back(tracks[0].time(i));
    std::vector<int> selected = indexes;
    std::vector<int> landed;
    qint64 offset = 0;
    for (auto _ : state) {
        offset = offset == 0 ? Frame * 5 / 2 : 0; // there and back, beside the others
        for (auto &track : tracks) {
            const auto keys = track.columns();
            const auto targets = vxShiftedKeyTimes(origins.data(), int(origins.size()), offset);
            const auto times = vxPlanKeyTimes(
                keys.times, keys.count,
                {selected.data(), targets.data(), int(selected.size()), origins.data()},
                state.range(2) ? VxCollision::WaitBeside : VxCollision::Replace);
            track.moveKeys(selected.data(), times.data(), int(times.size()), &landed);
        }
        selected = landed;
    }
    reportKeys(state, keyCount);
}

void floorShift(benchmark::State &state)
{
    auto tracks = plainScene(int(state.range(0)));
    for (auto _ : state) {
        for (Columns &track : tracks) {
            for (VxTime &time : track.times)
                time += 1;
        }
        benchmark::ClobberMemory();
    }
    reportKeys(state, int(state.range(0)));
}

void shift(benchmark::State &state)
{
    const int keyCount = int(state.range(0));
    auto tracks = scene(keyCount);
    std::vector<int> indexes(static_cast<std::size_t>(keyCount));
    std::iota(indexes.begin(), indexes.end(), 0);
    for (auto _ : state) {
        for (auto &track : tracks) {
            const auto times = vxShiftedKeyTimes(track.columns().times, keyCount, 1);
            track.moveKeys(indexes.data(), times.data(), keyCount);
        }
        benchmark::ClobberMemory();
    }
    reportKeys(state, keyCount);
}

void floorRetype(benchmark::State &state)
{
    auto tracks = plainScene(int(state.range(0)));
    quint8 type = 0;
    for (auto _ : state) {
        type = type == 0 ? 1 : 0;
        for (Columns &track : tracks)
            std::fill(track.types.begin(), track.types.end(), type);
        benchmark::ClobberMemory();
    }
    reportKeys(state, int(state.range(0)));
}

void retype(benchmark::State &state)
{
    const int keyCount = int(state.range(0));
    auto tracks = scene(keyCount);
    quint8 type = 0;
    for (auto _ : state) {
        type = type == 0 ? 1 : 0;
        for (auto &track : tracks)
            track.setType(0, keyCount, type);
        benchmark::ClobberMemory();
    }
    reportKeys(state, keyCount);
}

void retypeSelection(benchmark::State &state)
{
    const int keyCount = int(state.range(0));
    auto tracks = scene(keyCount);
    const auto indexes = halfOf(keyCount, AtRandom);
    quint8 type = 0;
    for (auto _ : state) {
        type = type == 0 ? 1 : 0;
        for (auto &track : tracks)
            track.setType(indexes.data(), int(indexes.size()), type);
        benchmark::ClobberMemory();
    }
    reportKeys(state, keyCount);
}

void removeHalf(benchmark::State &state)
{
    const int keyCount = int(state.range(0));
    auto tracks = scene(keyCount);
    const auto start = tracks;
    const auto indexes = halfOf(keyCount, int(state.range(1)));
    for (auto _ : state) {
        for (auto &track : tracks)
            track.removeIndexes(indexes.data(), int(indexes.size()));
        state.PauseTiming();
        tracks = start;
        state.ResumeTiming();
    }
    reportKeys(state, keyCount);
}

// What an edit of half of each track's keys costs to record, and to undo and redo.
void recordDelta(benchmark::State &state)
{
    const int keyCount = int(state.range(0));
    const auto tracks = scene(keyCount);
    const VxTimeRange half(tracks[0].time(keyCount / 4), tracks[0].time(keyCount * 3 / 4));
    for (auto _ : state) {
        for (const auto &track : tracks) {
            KeyDelta<float> delta;
            delta.touch(track, half);
            delta.trim(track);
            benchmark::DoNotOptimize(delta.isEmpty());
        }
    }
    reportKeys(state, keyCount / 2);
}

void swapDelta(benchmark::State &state)
{
    const int keyCount = int(state.range(0));
    auto tracks = scene(keyCount);
    const VxTimeRange half(tracks[0].time(keyCount / 4), tracks[0].time(keyCount * 3 / 4));
    std::vector<KeyDelta<float>> deltas(TrackCount);
    for (int k = 0; k < TrackCount; ++k) {
        deltas[k].touch(tracks[k], half);
        tracks[k].removeRange(half);
        deltas[k].trim(tracks[k]);
    }
    for (auto _ : state) {
        for (int k = 0; k < TrackCount; ++k)
            deltas[k].swap(tracks[k]);
        benchmark::ClobberMemory();
    }
    reportKeys(state, keyCount / 2);
}

} // namespace

BENCHMARK(floorCopy)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(insertIntoNothing)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(insertBetween)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(floorSearch)->Arg(300)->Arg(3000);
BENCHMARK(find)->Arg(300)->Arg(3000);
BENCHMARK(evaluateRemembered)->ArgName("type")->DenseRange(0, 2);
BENCHMARK(evaluateCold)->Arg(300)->Arg(3000);
BENCHMARK(evaluateMany)->ArgName("type")->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK(floorFrame)->Arg(300)->Arg(3000)->Unit(benchmark::kMicrosecond);
BENCHMARK(evaluateFrame)
    ->ArgNames({"keys", "type"})
    ->ArgsProduct({{300, 3000}, {0, 1, 2}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(floorMove)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(moveHalf)
    ->ArgNames({"keys", "random", "preview"})
    ->ArgsProduct({{300, 3000}, {EverySecond, AtRandom}, {0, 1}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(floorShift)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(shift)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(floorRetype)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(retype)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(retypeSelection)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(removeHalf)
    ->ArgNames({"keys", "random"})
    ->ArgsProduct({{300, 3000}, {EverySecond, AtRandom}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(recordDelta)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);
BENCHMARK(swapDelta)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();

// What an entry of the history costs on the GUI thread for the journal: its items are written to a
// record, which is queued for the thread that writes to the disk. The floor copies the bytes that
// the entry changed, those before and those after, to memory that was used before.

#include "io/vxscenejournal.h"
#include "recovery/recoverywriter.h"
#include "testing/vxscenebuilder.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstring>
#include <thread>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr int BytesOfAKey = 9;

/// A history with one entry that changes a number of keys on each of some channels.
struct Entry
{
    Entry(int channels, int keys)
    {
        VxSceneBuilder builder(&scene);
        builder.addSkeleton(QStringLiteral("Bone"), (channels + 8) / 9);
        builder.keyChannels(scene.getNodes(), keys);
        VxUndoStackHold hold;
        int left = channels;
        for (VxNode *node : scene.getNodes()) {
            for (VxProperty *property : node->getMadeProperties()) {
                if (property->getNumKeys() == 0 || left-- <= 0)
                    continue;
                auto *number = static_cast<VxFloatProperty *>(property);
                QVector<int> indexes(keys);
                QVector<float> values(keys);
                for (int i = 0; i < keys; ++i) {
                    indexes[i] = i;
                    values[i] = float(i % 7) + 0.5f;
                }
                number->setKeyValues(indexes, values);
            }
        }
        hold.accept(QStringLiteral("Edit"));
    }
    ~Entry() { history.clear(); }

    VxUndoStack history;
    VxScene scene;
};

void record(benchmark::State &state)
{
    Entry entry(int(state.range(0)), int(state.range(1)));
    const QTemporaryDir folder;
    RecoveryWriter writer;
    RecoveryHistory history;
    writer.start(folder.filePath(QStringLiteral("a.vxscene")), QByteArray("scene"),
                 folder.filePath(QStringLiteral("a.journal")), history);
    writer.finish();
    VxSceneJournalWriter items;
    quint64 position = 0;
    qint64 bytes = 0;
    for (auto _ : state) {
        items.exchange({});
        items.text(QStringLiteral("Edit"));
        if (!entry.history.writeEntry(0, items))
            state.SkipWithError("the entry cannot be written");
        const VxJournalRecord made{VxJournalRecord::Entry, items.exchange({})};
        bytes = made.bytes.size();
        const bool isQueued = writer.append(++position, made);
        benchmark::DoNotOptimize(isQueued);
        // Writing to the disk is another thread's work: the queue is emptied outside of the time.
        state.PauseTiming();
        while (writer.synchronized() < position && writer.failure().isEmpty() && bytes > 1000000)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        state.ResumeTiming();
    }
    state.counters["bytes"] = double(bytes);
}

/// Below a fixed cost of some microseconds, which an entry of few keys consists of.
void recordFew(benchmark::State &state)
{
    record(state);
}

void recordMany(benchmark::State &state)
{
    record(state);
}

void floorCopy(benchmark::State &state)
{
    const std::size_t size =
        std::size_t(2 * BytesOfAKey) * std::size_t(state.range(0)) * std::size_t(state.range(1));
    const std::vector<char> from(size, 'x');
    std::vector<char> to(size, 'y');
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), size);
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.counters["bytes"] = double(size);
}

} // namespace

BENCHMARK(recordFew)->Args({1, 1})->Args({9, 300})->Unit(benchmark::kMicrosecond);
BENCHMARK(recordMany)->Args({1530, 300})->Unit(benchmark::kMicrosecond);
BENCHMARK(floorCopy)
    ->Args({1, 1})
    ->Args({9, 300})
    ->Args({1530, 300})
    ->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();

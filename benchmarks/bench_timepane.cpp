// The pane over a scene of 15,300 channels: what a change of the time costs it, as scrubbing and
// playback make them 60 times a second, and the way to the next key over all channels.
//
// Floors: the pane without rows to paint; one plain search in an array for each channel.

#include "allkeytypes.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/keyskip.h"
#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/time/timelineplayback.h"

#include <QApplication>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <memory>
#include <testing/vxscenebuilder.h>
#include <vector>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>

namespace {

constexpr VxTime Step = 160;
constexpr int Frames = 300;

/// A shown pane over scene W, with the keys of all types, and nothing left to be done.
class Fixture
{
public:
    explicit Fixture(VxTimePane::ViewMode mode = VxTimePane::AdvancedView)
    {
        VxSceneBuilder(vxScene).build(VxSceneBuilder::Size::W);
        m_types.addTo(&m_pane);
        m_pane.setViewMode(mode);
        m_pane.resize(1600, 800);
        m_pane.show();
        settle();
    }

    VxTimePane &pane() { return m_pane; }

    static void settle()
    {
        for (int i = 0; i < 20; ++i)
            QCoreApplication::processEvents();
    }

private:
    VxApp m_app;
    AllKeyTypes m_types;
    VxTimePane m_pane;
};

/// One change, with everything that it causes.
void changeTime(VxTime time)
{
    vxScene->setTime(time);
    QCoreApplication::processEvents();
}

void changeTimes(benchmark::State &state)
{
    int frame = 0;
    for (auto _ : state) {
        frame = (frame + 1) % Frames;
        changeTime(frame * Step);
    }
}

void timeChangeWithoutRows(benchmark::State &state)
{
    const Fixture fixture(VxTimePane::BasicView);
    changeTimes(state);
}
BENCHMARK(timeChangeWithoutRows)->Unit(benchmark::kMicrosecond);

void timeChange(benchmark::State &state)
{
    const Fixture fixture;
    changeTimes(state);
}
BENCHMARK(timeChange)->Unit(benchmark::kMicrosecond);

void timeChangeNodesExpanded(benchmark::State &state)
{
    Fixture fixture;
    fixture.pane().getDopeSheetView()->expandToDepth(3);
    Fixture::settle();
    changeTimes(state);
}
BENCHMARK(timeChangeNodesExpanded)->Unit(benchmark::kMicrosecond);

/// The handlers alone: the time until the next change can be made.
void timeChangeUnpainted(benchmark::State &state)
{
    const Fixture fixture;
    int frame = 0;
    for (auto _ : state) {
        frame = (frame + 1) % Frames;
        vxScene->setTime(frame * Step);
    }
}
BENCHMARK(timeChangeUnpainted)->Unit(benchmark::kMicrosecond);

void scrub(benchmark::State &state)
{
    const Fixture fixture;
    int frame = 0;
    for (auto _ : state) {
        frame = (frame + 7) % Frames;
        TimelinePlayback::setTime(frame * Step + 33);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(scrub)->Unit(benchmark::kMicrosecond);

/// Every row selected: the view queries it for each cell.
void timeChangeAllSelected(benchmark::State &state)
{
    Fixture fixture;
    vxScene->selectAllNodes(true);
    fixture.pane().getDopeSheetView()->expandToDepth(3);
    Fixture::settle();
    changeTimes(state);
}
BENCHMARK(timeChangeAllSelected)->Unit(benchmark::kMicrosecond);

/// Every row open and selected, which makes a range for each parent.
void timeChangeAllRowsSelected(benchmark::State &state)
{
    Fixture fixture;
    fixture.pane().getDopeSheetView()->expandAll();
    fixture.pane().getDopeSheetView()->selectAll();
    Fixture::settle();
    changeTimes(state);
}
BENCHMARK(timeChangeAllRowsSelected)->Unit(benchmark::kMicrosecond);

/// The play range as a drag in the time range slider changes it; the time scale follows.
void rangeDrag(benchmark::State &state)
{
    Fixture fixture;
    fixture.pane().getDopeSheetView()->expandToDepth(3);
    Fixture::settle();
    int offset = 0;
    for (auto _ : state) {
        offset = (offset + 37) % 8000;
        vxScene->setPlayRange(VxTimeRange(offset, 40000));
        QCoreApplication::processEvents();
    }
}
BENCHMARK(rangeDrag)->Unit(benchmark::kMicrosecond);

void skipFloor(benchmark::State &state)
{
    const VxApp app;
    VxSceneBuilder(vxScene).build(VxSceneBuilder::Size::W);
    QVector<QVector<VxTime>> tracks;
    for (VxNode *node : vxScene->getNodes()) {
        for (int i = 0; i < node->getNumProperties(); ++i) {
            const VxProperty *property = node->getProperty(i);
            QVector<VxTime> times;
            for (int key = 0; key < property->getNumKeys(); ++key)
                times += property->getKeyTime(key);
            tracks += times;
        }
    }
    int frame = 0;
    for (auto _ : state) {
        frame = (frame + 101) % Frames;
        VxTime best = VxTimeMax;
        for (const QVector<VxTime> &times : qAsConst(tracks)) {
            const auto after = std::upper_bound(times.cbegin(), times.cend(), frame * Step);
            if (after != times.cend())
                best = std::min(best, *after);
        }
        benchmark::DoNotOptimize(best);
    }
    state.counters["channels"] = tracks.size();
}
BENCHMARK(skipFloor)->Unit(benchmark::kMicrosecond);

void skipSearch(benchmark::State &state, bool forward)
{
    const VxApp app;
    VxSceneBuilder(vxScene).build(VxSceneBuilder::Size::W);
    const QVector<VxNode *> nodes = vxScene->getNodes();
    int frame = 0;
    for (auto _ : state) {
        frame = (frame + 101) % Frames;
        benchmark::DoNotOptimize(forward
                                     ? KeySkip::nextKeyTime(nodes, frame * Step, VxTimeMax)
                                     : KeySkip::previousKeyTime(nodes, frame * Step, VxTimeMin));
    }
}
BENCHMARK_CAPTURE(skipSearch, next, true)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(skipSearch, previous, false)->Unit(benchmark::kMicrosecond);

void skipInThePane(benchmark::State &state)
{
    Fixture fixture;
    vxScene->selectAllNodes(true);
    Fixture::settle();
    for (auto _ : state) {
        if (vxScene->getTime() >= (Frames - 1) * Step)
            vxScene->setTime(0);
        fixture.pane().skipToNextKey();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(skipInThePane)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

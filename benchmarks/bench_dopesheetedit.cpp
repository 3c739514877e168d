// Editing 300,000 selected keys in the dope sheet: a figure of 111 bones, nine channels of 300 keys
// each, all of them selected, with a row for every channel and an undo entry for every command.
//
// Floors: a plain loop over arrays of the same size, as many of them as there are channels.
// "a_key" is the time that one selected key takes.

#include "vxtimeline/dopesheet/keydrag.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/selectedkeys.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"
#include "vxtimeline/time/timelinemetrics.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <testing/vxmousedriver.h>
#include <testing/vxscenebuilder.h>
#include <vector>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

namespace {

constexpr int Bones = 111;
constexpr int Channels = Bones * 9;
constexpr int KeysAChannel = 300;
constexpr int Keys = Channels * KeysAChannel;
constexpr VxTime Step = 160;
constexpr VxTime End = 2 * KeysAChannel * Step;

void reportKeys(benchmark::State &state)
{
    using benchmark::Counter;
    state.counters["a_key"] = Counter(Keys, Counter::kIsIterationInvariantRate | Counter::kInvert);
}

// The view with its rows, shown, everything selected.
class Sheet
{
public:
    explicit Sheet(VxSceneBuilder::KeyTypes types = VxSceneBuilder::KeyTypes::Linear)
        : model(7, 2, nullptr)
        , filter(nullptr)
        , view(nullptr)
    {
        VxSceneBuilder builder(vxScene);
        figure = builder.addSkeleton(QStringLiteral("figure"), Bones);
        QVector<VxNode *> bones;
        collect(figure, &bones);
        bones.removeFirst(); // the skeleton itself
        builder.keyChannels(bones, KeysAChannel, Step, types);
        vxScene->setAnimRange(VxTimeRange(0, End));
        vxScene->setPlayRange(VxTimeRange(0, End));
        model.addNode(figure, true);
        filter.setSourceModel(&model);
        view.setFilterModel(&filter);
        view.setModel(&filter);
        view.setColumnWidth(0, 200);
        view.resize(1400, 800);
        view.show();
        QCoreApplication::processEvents();
        selectAll();
        if (model.getRootItem()->keyCount() != KeysAChannel)
            qFatal("the scene has other keys than it should");
    }

    void selectAll()
    {
        const QModelIndex top = filter.index(0, 0);
        view.setKeySelection(true, top, top);
    }
    std::vector<SelectedKeys> selected() const
    {
        SelectedKeysCollector collector;
        gather(model.getRootItem(), &collector);
        return collector.keys();
    }
    // With the repaint.
    void settle()
    {
        view.viewport()->repaint();
        QCoreApplication::processEvents();
    }

    VxApp app;
    VxSkeleton *figure = nullptr;
    VxDopeSheetModel model;
    VxDopeSheetFilterModel filter;
    VxDopeSheetView view;

private:
    static void collect(VxNode *node, QVector<VxNode *> *nodes)
    {
        nodes->append(node);
        for (int i = 0; i < node->getNumNodeChildren(); ++i)
            collect(node->getNodeChild(i), nodes);
    }
    static void gather(VxDopeSheetItem *item, SelectedKeysCollector *collector)
    {
        collector->add(item);
        for (int i = 0; i < item->childCount(); ++i)
            gather(item->child(i), collector);
    }
};

struct Column
{
    std::vector<VxTime> times = std::vector<VxTime>(KeysAChannel, 7);
    std::vector<float> values = std::vector<float>(KeysAChannel, 1.5f);
    std::vector<quint8> types = std::vector<quint8>(KeysAChannel, 0);
};

// Every time of every channel rewritten.
void floorShift(benchmark::State &state)
{
    std::vector<Column> columns(Channels);
    VxTime offset = 0;
    for (auto _ : state) {
        ++offset;
        for (Column &column : columns) {
            for (VxTime &time : column.times)
                time += offset;
            benchmark::DoNotOptimize(column.times.data());
        }
    }
    reportKeys(state);
}
BENCHMARK(floorShift)->Unit(benchmark::kMillisecond);

// Every key of every channel copied into arrays of its own.
void floorCopy(benchmark::State &state)
{
    const std::vector<Column> columns(Channels);
    for (auto _ : state) {
        std::vector<Column> copy = columns;
        benchmark::DoNotOptimize(copy.data());
    }
    reportKeys(state);
}
BENCHMARK(floorCopy)->Unit(benchmark::kMillisecond);

// Every type of every channel rewritten.
void floorRetype(benchmark::State &state)
{
    std::vector<Column> columns(Channels);
    quint8 type = 0;
    for (auto _ : state) {
        type = quint8((type + 1) % 3);
        for (Column &column : columns) {
            std::fill(column.types.begin(), column.types.end(), type);
            benchmark::DoNotOptimize(column.types.data());
        }
    }
    reportKeys(state);
}
BENCHMARK(floorRetype)->Unit(benchmark::kMillisecond);

// One step of a drag, properties and rows; with the picture.
void dragStep(benchmark::State &state)
{
    Sheet sheet;
    KeyDrag drag;
    for (const SelectedKeys &keys : sheet.selected())
        drag.add(keys);
    VxUndoStackHold hold;
    VxTime offset = 0;
    for (auto _ : state) {
        offset = offset % 16000 + Step;
        drag.moveTo(offset, VxCollision::WaitBeside);
        if (state.range(0))
            sheet.settle();
    }
    drag.moveTo(0, VxCollision::WaitBeside);
    hold.cancel();
    reportKeys(state);
}
BENCHMARK(dragStep)->Arg(0)->Arg(1)->ArgName("painted")->Unit(benchmark::kMillisecond);

// Press on a key, one move, release: all that a short drag costs.
void dragByHand(benchmark::State &state)
{
    Sheet sheet;
    const QModelIndex top = sheet.filter.index(0, 0);
    VxMouseDriver hand(sheet.view.viewport());
    const int y = sheet.view.visualRect(top).center().y();
    int left = 0;
    for (auto _ : state) {
        const VxTime first = sheet.model.getRootItem()->keyTime(0);
        const int x = TimelineMetrics::shared().keyLeft(200, first, 0) + 2;
        left = first >= 1600 ? -100 : 100;
        hand.press(QPoint(x, y));
        hand.moveTo(QPoint(x + left / 2, y));
        hand.release(QPoint(x + left, y));
    }
    if (vxApp->getUndoStack()->undoText() != QStringLiteral("Move Keys"))
        state.SkipWithError("nothing moved");
    reportKeys(state);
}
BENCHMARK(dragByHand)->Unit(benchmark::kMillisecond);

// For commands that must be undone before they can be repeated; the undo is not counted.
template <typename Command>
void repeatWithUndo(benchmark::State &state, Sheet &sheet, const Command &command)
{
    for (auto _ : state) {
        VxUndoStackHold hold;
        command();
        hold.accept(QStringLiteral("command"));
        state.PauseTiming();
        if (vxApp->getUndoStack()->count() != 1)
            state.SkipWithError("nothing changed");
        vxApp->getUndoStack()->undo();
        vxApp->getUndoStack()->clear();
        sheet.selectAll();
        state.ResumeTiming();
    }
    reportKeys(state);
}

void deleteKeys(benchmark::State &state)
{
    Sheet sheet;
    repeatWithUndo(state, sheet, [&sheet] { sheet.view.deleteKeys(); });
}
BENCHMARK(deleteKeys)->Unit(benchmark::kMillisecond);

void copyKeys(benchmark::State &state)
{
    Sheet sheet;
    for (auto _ : state)
        sheet.view.copyKeys();
    reportKeys(state);
}
BENCHMARK(copyKeys)->Unit(benchmark::kMillisecond);

void pasteKeys(benchmark::State &state)
{
    Sheet sheet;
    sheet.view.copyKeys();
    vxScene->setTime(KeysAChannel * Step);
    repeatWithUndo(state, sheet, [&sheet] { sheet.view.pasteKeys(); });
}
BENCHMARK(pasteKeys)->Unit(benchmark::kMillisecond);

void retypeKeys(benchmark::State &state)
{
    Sheet sheet;
    repeatWithUndo(state, sheet, [&sheet] { sheet.view.setInterpType(VxKeyInterp::Constant); });
}
BENCHMARK(retypeKeys)->Unit(benchmark::kMillisecond);

void setTcb(benchmark::State &state)
{
    Sheet sheet;
    sheet.view.setInterpType(VxKeyInterp::Tcb);
    repeatWithUndo(state, sheet, [&sheet] { sheet.view.setTCB(0.5f, 0.25f, -1.0f); });
}
BENCHMARK(setTcb)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

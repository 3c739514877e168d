// The rows of the dope sheet over whole scenes, each pass beside a floor: a plain loop over arrays
// of the same size. "a_key" is the time a key of the scene takes. Scenes M and W have 4.6 million
// keys each, on 1,530 and on 15,300 channels; a chain hangs 170 bones one below the other, and
// "apart" gives every channel key times of its own.

#include "testing/vxscenebuilder.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/timelinepropertytypes.h"
#include "vxtimeline/rows/vxdopesheetfiltermodel.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <memory>
#include <random>
#include <vector>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxskeleton.h>

namespace {

enum SceneKind { M, W, ChainM, ApartM };

constexpr int TransformTypes = TimelinePropertyTypes::Translation |
                               TimelinePropertyTypes::Rotation | TimelinePropertyTypes::Scale;

// Key times that no two channels have in common, but for chance.
void scatter(const VxNode *node, std::mt19937 *random)
{
    for (int i = 0; i < node->getNumProperties(); ++i) {
        auto *channel = qobject_cast<VxFloatProperty *>(node->getProperty(i));
        if (!channel || channel->getNumKeys() == 0)
            continue;
        QVector<int> indexes;
        QVector<VxTime> times;
        for (int k = 0; k < channel->getNumKeys(); ++k) {
            indexes.append(k);
            times.append(channel->getKeyTime(k) + VxTime((*random)() % 160));
        }
        channel->moveKeys(indexes, times);
    }
}

void buildFigure(VxScene *scene, SceneKind kind)
{
    VxSceneBuilder builder(scene);
    const VxSkeleton *skeleton = builder.addSkeleton(QStringLiteral("Figure "), 170,
                                                     kind == ChainM ? VxSceneBuilder::Shape::Chain
                                                                    : VxSceneBuilder::Shape::Tree);
    QVector<VxNode *> bones;
    skeleton->getNodeChildren(bones, true);
    builder.keyChannels(bones, 3000);
    std::mt19937 random(1);
    for (const VxNode *bone : qAsConst(bones)) {
        if (kind == ApartM)
            scatter(bone, &random);
    }
}

void collectPropertyRows(VxDopeSheetItem *item, std::vector<VxDopeSheetItem *> *rows)
{
    if (item->property())
        rows->push_back(item);
    for (int i = 0; i < item->childCount(); ++i)
        collectPropertyRows(item->child(i), rows);
}

// A scene and its rows. Only one is kept at a time: they are large.
class Sheet
{
public:
    explicit Sheet(SceneKind sceneKind)
        : kind(sceneKind)
    {
        vxScene->clear();
        if (kind == M || kind == W)
            VxSceneBuilder(vxScene).build(kind == M ? VxSceneBuilder::Size::M
                                                    : VxSceneBuilder::Size::W);
        else
            buildFigure(vxScene, kind);
        makeModel();
    }

    static Sheet &of(SceneKind kind)
    {
        static std::unique_ptr<Sheet> current;
        if (!current || current->kind != kind) {
            current.reset();
            current = std::make_unique<Sheet>(kind);
        }
        return *current;
    }

    void makeModel()
    {
        rows.clear();
        model.reset();
        model = std::make_unique<VxDopeSheetModel>(TransformTypes, 2, nullptr);
        for (VxNodeListIterator nodes = vxScene->nodeListIterator(); nodes.hasNext();)
            model->addNode(nodes.next());
        collectPropertyRows(model->getRootItem(), &rows);
    }

    // Reads the keys of each top-level row.
    qint64 unite() const
    {
        qint64 marks = 0;
        for (int i = 0; i < model->getRootItem()->childCount(); ++i)
            marks += model->getRootItem()->child(i)->keyCount();
        return marks;
    }

    qint64 keyCount() const
    {
        qint64 count = 0;
        for (const VxDopeSheetItem *row : rows)
            count += row->property()->getNumKeys();
        return count;
    }

    void invalidateAll() const
    {
        for (VxDopeSheetItem *row : rows)
            row->invalidateKeys();
    }

    void select(bool yesNo) const
    {
        for (VxDopeSheetItem *row : rows)
            row->setKeysSelected(yesNo, -1, VxTimeMax);
    }

    SceneKind kind;
    std::unique_ptr<VxDopeSheetModel> model;
    std::vector<VxDopeSheetItem *> rows;
};

// An open view with all rows expanded, behind the filter, as the pane sets it up.
class FilteredView
{
public:
    FilteredView()
        : view(nullptr)
    {
        filter.setRecursiveFilteringEnabled(true);
        filter.setDynamicSortFilter(false);
        view.setFilterModel(&filter);
    }

    void show(VxDopeSheetModel *model)
    {
        filter.setSourceModel(model);
        view.setModel(&filter);
        view.resize(600, 800);
        view.expandAll();
        view.show();
        QApplication::processEvents();
    }

    VxDopeSheetFilterModel filter;
    VxDopeSheetView view;
};

Sheet &sheetOf(const benchmark::State &state)
{
    return Sheet::of(SceneKind(state.range(0)));
}

void perKey(benchmark::State &state, const Sheet &sheet)
{
    state.counters["a_key"] =
        benchmark::Counter(double(sheet.keyCount()), benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
}

// The floor of the first union: the times of all keys copied.
void copyTimes(benchmark::State &state)
{
    const Sheet &sheet = sheetOf(state);
    std::vector<VxTime> copy;
    for (auto _ : state) {
        for (const VxDopeSheetItem *row : sheet.rows) {
            const VxTime *times = row->property()->getKeyTimes();
            copy.assign(times, times + row->property()->getNumKeys());
            benchmark::DoNotOptimize(copy.data());
        }
    }
    perKey(state, sheet);
}

void firstUnion(benchmark::State &state)
{
    Sheet &sheet = sheetOf(state);
    qint64 marks = 0;
    for (auto _ : state) {
        state.PauseTiming();
        sheet.makeModel();
        state.ResumeTiming();
        marks = sheet.unite();
    }
    state.counters["marks"] = double(marks);
    perKey(state, sheet);
}

void memoryOfCaches(benchmark::State &state)
{
    Sheet &sheet = sheetOf(state);
    double bytes = 0;
    for (auto _ : state) {
        sheet.makeModel();
        const auto before = mallinfo2();
        sheet.unite();
        const auto after = mallinfo2();
        bytes = double(after.uordblks + after.hblkhd) - double(before.uordblks + before.hblkhd);
    }
    state.counters["bytes_a_key"] = bytes / double(sheet.keyCount());
}

void buildRows(benchmark::State &state)
{
    Sheet &sheet = sheetOf(state);
    for (auto _ : state)
        sheet.makeModel();
    state.counters["rows"] = double(sheet.rows.size());
}

// Every property reports a change, but its key times are the same.
void unionAfterAllValues(benchmark::State &state)
{
    const Sheet &sheet = sheetOf(state);
    sheet.unite();
    for (auto _ : state) {
        sheet.invalidateAll();
        benchmark::DoNotOptimize(sheet.unite());
    }
    perKey(state, sheet);
}

// One key is added and removed between two others, on the row deepest in the tree.
void unionAfterOneKey(benchmark::State &state)
{
    const Sheet &sheet = sheetOf(state);
    if (state.range(1))
        sheet.select(true);
    sheet.unite();
    auto *property = qobject_cast<VxFloatProperty *>(sheet.rows.back()->property());
    bool isThere = false;
    for (auto _ : state) {
        if (isThere)
            property->deleteKeys(VxTimeRange(1601, 1601));
        else
            property->setKey(1601, 1.0f, VxKeyInterp::Linear);
        isThere = !isThere;
        benchmark::DoNotOptimize(sheet.unite());
    }
    if (isThere)
        property->deleteKeys(VxTimeRange(1601, 1601));
    sheet.select(false);
}

// The floor of selecting: an array of flags for each row, filled.
void fillFlags(benchmark::State &state)
{
    const Sheet &sheet = sheetOf(state);
    std::vector<std::vector<quint8>> flags;
    for (const VxDopeSheetItem *row : sheet.rows)
        flags.emplace_back(size_t(row->keyCount()));
    quint8 value = 0;
    for (auto _ : state) {
        value ^= 1;
        for (auto &ofRow : flags) {
            std::fill(ofRow.begin(), ofRow.end(), value);
            benchmark::DoNotOptimize(ofRow.data());
        }
    }
    perKey(state, sheet);
}

// By turns all keys are selected and deselected; with 1, through the model and an open view.
void selectAllAndNone(benchmark::State &state)
{
    Sheet &sheet = sheetOf(state);
    FilteredView shown;
    if (state.range(1))
        shown.show(sheet.model.get());
    sheet.unite();
    bool yesNo = false;
    for (auto _ : state) {
        yesNo = !yesNo;
        sheet.select(yesNo);
        benchmark::DoNotOptimize(sheet.model->hasSelectedKeys());
    }
    sheet.select(false);
    perKey(state, sheet);
    state.counters["a_row"] = benchmark::Counter(double(sheet.rows.size()),
                                                 benchmark::Counter::kIsIterationInvariantRate |
                                                     benchmark::Counter::kInvert);
}

void unionAfterSelecting(benchmark::State &state)
{
    const Sheet &sheet = sheetOf(state);
    sheet.unite();
    bool yesNo = false;
    for (auto _ : state) {
        state.PauseTiming();
        yesNo = !yesNo;
        sheet.select(yesNo);
        state.ResumeTiming();
        benchmark::DoNotOptimize(sheet.unite());
    }
    sheet.select(false);
    perKey(state, sheet);
}

// Every second key of each row, so that flags are really joined.
void unionAfterSelectingSome(benchmark::State &state)
{
    const Sheet &sheet = sheetOf(state);
    QVector<int> indexes;
    for (int i = 0; i < 3000; i += 2)
        indexes.append(i);
    bool yesNo = false;
    sheet.unite();
    for (auto _ : state) {
        state.PauseTiming();
        yesNo = !yesNo;
        for (VxDopeSheetItem *row : sheet.rows)
            row->setKeySelectedAt(indexes, yesNo);
        state.ResumeTiming();
        benchmark::DoNotOptimize(sheet.unite());
    }
    sheet.select(false);
    perKey(state, sheet);
}

// The text filter with every row open: nothing matches, some rows do, all are back.
void filterText(benchmark::State &state)
{
    Sheet &sheet = sheetOf(state);
    FilteredView shown;
    shown.show(sheet.model.get());
    const QStringList texts{QStringLiteral("nowhere"), QStringLiteral("Z Rot"), QString()};
    for (auto _ : state) {
        for (const QString &text : texts) {
            shown.view.applyFilterText(text);
            QApplication::processEvents();
        }
        state.PauseTiming();
        shown.view.expandAll();
        state.ResumeTiming();
    }
}

// The rows made while a text filters them, as they are when the types listed change.
void buildFilteredRows(benchmark::State &state)
{
    Sheet &sheet = sheetOf(state);
    FilteredView shown;
    shown.show(sheet.model.get());
    shown.view.applyFilterText(QStringLiteral("Z Rot"));
    for (auto _ : state) {
        shown.filter.setSourceModel(nullptr);
        sheet.rows.clear();
        sheet.model = std::make_unique<VxDopeSheetModel>(int(TransformTypes), 2, nullptr);
        shown.filter.setSourceModel(sheet.model.get());
        for (VxNodeListIterator nodes = vxScene->nodeListIterator(); nodes.hasNext();)
            sheet.model->addNode(nodes.next());
        shown.filter.invalidate();
        QApplication::processEvents();
    }
    collectPropertyRows(sheet.model->getRootItem(), &sheet.rows);
}

#define ROWS(function) BENCHMARK(function)->Unit(benchmark::kMillisecond)
ROWS(copyTimes)->Arg(M);
ROWS(firstUnion)->Arg(M);
ROWS(memoryOfCaches)->Arg(M)->Iterations(1);
ROWS(buildRows)->Arg(M);
ROWS(unionAfterAllValues)->Arg(M);
ROWS(unionAfterOneKey)->Args({M, 0})->Args({M, 1});
ROWS(fillFlags)->Arg(M);
ROWS(selectAllAndNone)->Args({M, 0})->Args({M, 1});
ROWS(unionAfterSelecting)->Arg(M);
ROWS(unionAfterSelectingSome)->Arg(M);
ROWS(filterText)->Arg(M);
ROWS(buildFilteredRows)->Arg(M);

ROWS(copyTimes)->Arg(W);
ROWS(firstUnion)->Arg(W);
ROWS(memoryOfCaches)->Arg(W)->Iterations(1);
ROWS(buildRows)->Arg(W);
ROWS(unionAfterAllValues)->Arg(W);
ROWS(unionAfterOneKey)->Args({W, 0})->Args({W, 1});
ROWS(fillFlags)->Arg(W);
ROWS(selectAllAndNone)->Args({W, 0})->Args({W, 1});
ROWS(unionAfterSelecting)->Arg(W);
ROWS(filterText)->Arg(W);
ROWS(buildFilteredRows)->Arg(W);

ROWS(firstUnion)->Arg(ChainM);
ROWS(unionAfterOneKey)->Args({ChainM, 0})->Args({ChainM, 1});
ROWS(filterText)->Arg(ChainM);

ROWS(firstUnion)->Arg(ApartM);
ROWS(memoryOfCaches)->Arg(ApartM)->Iterations(1);
ROWS(unionAfterOneKey)->Args({ApartM, 0})->Args({ApartM, 1});
ROWS(unionAfterSelecting)->Arg(ApartM);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    VxApp app;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

// The dope sheet's view over large scenes: repaints beside the drawing of the same marks and lines
// without anything around it, and the selection of keys beside the rows' own share of it.

#include "testing/vxscenebuilder.h"
#include "vxtimeline/dopesheet/dopesheetgeometry.h"
#include "vxtimeline/dopesheet/scenetimes.h"
#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keys/timelinepropertytypes.h"
#include "vxtimeline/keys/vxkeycommunication.h"
#include "vxtimeline/pane/timepanechoice.h"
#include "vxtimeline/pane/vxtimepane.h"
#include "vxtimeline/rows/dopesheetwalk.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtGui/QPainter>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>
#include <benchmark/benchmark.h>
#include <memory>
#include <vxcore/vxapp.h>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>

namespace {

constexpr int AllTransforms = TimelinePropertyTypes::Translation | TimelinePropertyTypes::Rotation |
                              TimelinePropertyTypes::Scale;
constexpr int VisibleRows = 50;

QModelIndexList allRows(const QAbstractItemModel *model)
{
    QModelIndexList rows;
    DopeSheetWalk::all(model, [&rows](const QModelIndex &row) { rows.append(row); });
    return rows;
}

// A view of its own over a scene of one of the sizes.
struct Sheet
{
    VxApp app;
    VxDopeSheetModel model{AllTransforms, 2, nullptr};
    VxDopeSheetView view{nullptr};
    QModelIndexList keyed; // the first rows with keys

    explicit Sheet(VxSceneBuilder::Size size)
    {
        VxSceneBuilder(vxScene).build(size);
        for (VxNode *node : vxScene->getRootNodes())
            model.addNode(node, true);
        auto *header = new VxDopeSheetHeaderView(&view);
        view.setHeader(header);
        view.setModel(&model);
        view.setColumnWidth(VxDopeSheetView::NameColumn, 200);
        view.resize(1250, 28 + 20 * VisibleRows);
        for (const QModelIndex &row : allRows(&model)) {
            const VxDopeSheetItem *item = view.getItem(row);
            if (item->property() && item->hasKeys())
                keyed.append(row);
            if (keyed.size() == VisibleRows)
                break;
        }
    }

    static QRect cell(int row) { return QRect(200, 20 * row, 1050, 20); }
};

void select(Sheet &sheet, int every)
{
    for (int i = 0; i < sheet.keyed.size(); i += every)
        sheet.view.setKeySelection(true, sheet.keyed.at(i), sheet.keyed.at(i), 16000, 160000);
}

// zoom: 0 for the whole play range.
void setZoom(int zoom)
{
    TimelineMetrics &metrics = TimelineMetrics::shared();
    metrics = TimelineMetrics();
    if (zoom == 0)
        metrics.fit(1050, vxScene->getPlayRange().getDuration());
    else
        metrics.zoom = zoom;
}

QImage canvas()
{
    QImage image(1250, 20 * VisibleRows, QImage::Format_RGB32);
    image.fill(Qt::darkGray);
    return image;
}

// The marks that the rows' delegate draws, computed beforehand and drawn by QPainter alone.
struct Drawing
{
    std::vector<QRect> lines;
    std::vector<std::pair<QPoint, const QPixmap *>> marks;
};

Drawing drawingOf(const Sheet &sheet, const QPixmap &plain, const QPixmap &selected)
{
    Drawing drawing;
    const SceneTimes times = SceneTimes::current();
    for (int i = 0; i < sheet.keyed.size(); ++i) {
        const DopeSheetGeometry geometry(Sheet::cell(i), TimelineMetrics::shared(),
                                         times.playRange.getStart());
        const auto keys = DopeSheetRowKeys::of(sheet.view.getItem(sheet.keyed.at(i)));
        drawing.lines.push_back(geometry.baseline(times.duration));
        for (const QRect &rect : geometry.secondTicks(times.duration))
            drawing.lines.push_back(rect);
        for (const QRect &rect : geometry.frameTicks(times.duration, times.step))
            drawing.lines.push_back(rect);
        for (const DopeSheetMark &mark : geometry.marks(keys))
            drawing.marks.push_back(
                {geometry.markRect(mark.left).topLeft(), mark.state & 1 ? &selected : &plain});
    }
    return drawing;
}

QPixmap markPicture(QStyle::State state)
{
    QPixmap pixmap(10, 10);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    VxStyleOptionCustom option;
    option.rect = pixmap.rect();
    option.state = state | QStyle::State_Enabled;
    vxApp->getStyle()->drawPrimitive(static_cast<QStyle::PrimitiveElement>(VxStyle::PE_VxKeyMark),
                                     &option, &painter);
    return pixmap;
}

void rowsDrawnStraight(benchmark::State &state)
{
    Sheet sheet(VxSceneBuilder::Size::M);
    setZoom(int(state.range(0)));
    select(sheet, 2);
    const QPixmap plain = markPicture(QStyle::State_Raised);
    const QPixmap selected = markPicture(QStyle::State_Raised | QStyle::State_Selected);
    const Drawing drawing = drawingOf(sheet, plain, selected);
    QImage image = canvas();
    const QColor color(Qt::black);
    for (auto _ : state) {
        QPainter painter(&image);
        for (const QRect &rect : drawing.lines)
            painter.fillRect(rect, color);
        for (const auto &mark : drawing.marks)
            painter.drawPixmap(mark.first, *mark.second);
    }
    state.counters["marks"] = double(drawing.marks.size());
    state.counters["lines"] = double(drawing.lines.size());
}

void rowsPainted(benchmark::State &state)
{
    Sheet sheet(VxSceneBuilder::Size::M);
    setZoom(int(state.range(0)));
    select(sheet, 2);
    QImage image = canvas();
    const auto *delegate = sheet.view.itemDelegateForColumn(VxDopeSheetView::KeysColumn);
    QStyleOptionViewItem option;
    for (auto _ : state) {
        QPainter painter(&image);
        for (int i = 0; i < sheet.keyed.size(); ++i) {
            option.rect = Sheet::cell(i);
            delegate->paint(&painter, option,
                            sheet.keyed.at(i).sibling(sheet.keyed.at(i).row(), 1));
        }
    }
}

// A whole repaint, names included.
void viewRepainted(benchmark::State &state)
{
    Sheet sheet(VxSceneBuilder::Size::M);
    setZoom(int(state.range(0)));
    for (QModelIndex row = sheet.keyed.last().parent(); row.isValid(); row = row.parent())
        sheet.view.expandRecursively(row, -1);
    sheet.view.show();
    sheet.view.scrollTo(sheet.keyed.first(), QAbstractItemView::PositionAtTop);
    QImage image(sheet.view.viewport()->size(), QImage::Format_RGB32);
    for (auto _ : state)
        sheet.view.viewport()->render(&image);
}

void rulerPainted(benchmark::State &state)
{
    Sheet sheet(VxSceneBuilder::Size::M);
    setZoom(0);
    sheet.view.show();
    QWidget *ruler = sheet.view.header()->viewport();
    QImage image(ruler->size(), QImage::Format_RGB32);
    for (auto _ : state)
        ruler->render(&image);
}

// Each row's own share: its flags set, in the order of the rows, without traversing the model.
void itemsSelected(benchmark::State &state)
{
    Sheet sheet(VxSceneBuilder::Size(state.range(0)));
    std::vector<VxDopeSheetItem *> items;
    for (const QModelIndex &row : allRows(&sheet.model))
        items.push_back(sheet.view.getItem(row));
    sheet.model.blockSignals(true);
    bool select = true;
    for (auto _ : state) {
        for (VxDopeSheetItem *item : items)
            item->setKeysSelected(select, -1, VxTimeMax);
        select = !select;
    }
    state.counters["rows"] = double(items.size());
}

void allSelectedAndDeselected(benchmark::State &state)
{
    Sheet sheet(VxSceneBuilder::Size(state.range(0)));
    VxKeyCommunication bus;
    if (state.range(1))
        QObject::connect(&bus, &VxKeyCommunication::sent, [](const VxKeyMessage &) {});
    sheet.view.setKeyCommunication(&bus);
    const QModelIndex last = sheet.model.index(sheet.model.rowCount() - 1, 0);
    bool select = true;
    for (auto _ : state) {
        sheet.view.setKeySelection(select, sheet.model.index(0, 0), last);
        select = !select;
    }
}

class ChoiceAction : public QAction, public TimePaneChoice
{
public:
    explicit ChoiceAction(int value)
        : m_value(value)
    {
    }
    Family family() const override { return PropertyTypeFamily; }
    int value() const override { return m_value; }

private:
    int m_value;
};

// The whole pane with everything that listens in it.
struct Pane
{
    VxApp app;
    std::vector<std::unique_ptr<ChoiceAction>> choices;
    VxTimePane pane;
    VxDopeSheetView *view = nullptr;

    Pane()
    {
        VxSceneBuilder(vxScene).build(VxSceneBuilder::Size::W);
        for (const int type : {1, 2, 4}) {
            choices.push_back(std::make_unique<ChoiceAction>(type));
            choices.back()->setCheckable(true);
            choices.back()->setChecked(true);
            pane.registerAction(choices.back().get());
        }
        pane.resize(1250, 900);
        pane.show();
        view = pane.findChild<VxDopeSheetView *>();
        QCoreApplication::processEvents();
    }
};

void paneCleared(benchmark::State &state)
{
    Pane pane;
    const QAbstractItemModel *model = pane.view->model();
    const QModelIndex first = model->index(0, 0);
    const QModelIndex last = model->index(model->rowCount() - 1, 0);
    if (state.range(0))
        pane.view->expandAll();
    const QModelIndexList rows = allRows(model);
    int signalCount = 0;
    QObject::connect(pane.view, &VxDopeSheetView::keySelectionChanged,
                     [&signalCount] { ++signalCount; });
    for (auto _ : state) {
        state.PauseTiming();
        pane.view->setKeySelection(true, first, last);
        if (state.range(0))
            pane.view->setKeySelection(true, first, rows.last());
        signalCount = 0;
        state.ResumeTiming();
        pane.view->clearSelectedKeys();
    }
    if (pane.view->hasSelectedKeys())
        state.SkipWithError("keys stayed selected");
    state.counters["rows"] = double(rows.size());
    state.counters["signals"] = signalCount;
}

// A message of the graph about one key.
void messageOfOneKey(benchmark::State &state)
{
    Sheet sheet(VxSceneBuilder::Size::W);
    VxKeyMessage message;
    VxProperty *property = sheet.view.getItem(sheet.keyed.last())->property();
    bool select = true;
    for (auto _ : state) {
        message.selectedKeys.clear();
        message.deselectedKeys.clear();
        (select ? message.selectedKeys : message.deselectedKeys).insert(property, {17});
        sheet.view.handleKeyMessage(message);
        select = !select;
    }
}

void messageThatClears(benchmark::State &state)
{
    Sheet sheet(VxSceneBuilder::Size::W);
    VxKeyMessage message;
    message.clearSelection = true;
    for (auto _ : state)
        sheet.view.handleKeyMessage(message);
}

// Every row opened and selected at once, as Ctrl+A does; the scene follows, and all is painted.
void allRowsSelected(benchmark::State &state)
{
    Pane pane;
    pane.view->expandAll();
    for (auto _ : state) {
        pane.view->selectAll();
        QCoreApplication::processEvents();
        state.PauseTiming();
        pane.view->clearSelection();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}

// Every row of the sheet opened; then a page further, to rows that have never been shown.
void allRowsOpened(benchmark::State &state)
{
    Pane pane;
    for (auto _ : state) {
        pane.view->expandAll();
        QCoreApplication::processEvents();
        state.PauseTiming();
        pane.view->collapseAll();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}

void nextPage(benchmark::State &state)
{
    Pane pane;
    pane.view->expandAll();
    QCoreApplication::processEvents();
    QScrollBar *bar = pane.view->verticalScrollBar();
    for (auto _ : state) {
        bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
        QCoreApplication::processEvents();
    }
    if (bar->value() == bar->maximum())
        state.SkipWithError("the sheet has no more pages");
}

// A frame of playback with all rows open, with everything that it causes in the pane.
void frameOfPlayback(benchmark::State &state)
{
    Pane pane;
    if (state.range(0))
        pane.view->expandAll();
    QCoreApplication::processEvents();
    int frame = 0;
    for (auto _ : state) {
        frame = (frame + 1) % 300;
        vxScene->setTime(frame * 160);
        QCoreApplication::processEvents();
    }
}

BENCHMARK(allRowsOpened)->Unit(benchmark::kMillisecond);
BENCHMARK(nextPage)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(frameOfPlayback)->ArgName("open")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(rowsDrawnStraight)->ArgName("zoom")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(rowsPainted)->ArgName("zoom")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(viewRepainted)->ArgName("zoom")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(rulerPainted)->Unit(benchmark::kMicrosecond);
BENCHMARK(itemsSelected)->ArgName("size")->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(allSelectedAndDeselected)
    ->ArgNames({"size", "heard"})
    ->ArgsProduct({{1, 2}, {0, 1}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(paneCleared)->ArgName("open")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(allRowsSelected)->Unit(benchmark::kMillisecond);
BENCHMARK(messageOfOneKey)->Unit(benchmark::kMicrosecond);
BENCHMARK(messageThatClears)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    QApplication::setFont(font);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

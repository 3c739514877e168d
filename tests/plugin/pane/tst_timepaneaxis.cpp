#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/keygraph/paint/keygraphscale.h"
#include "vxtimeline/keygraph/vxkeygraphview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/widgets/vxplayheadwgt.h"
#include "vxtimeline/widgets/vxtimerangeslider.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxmainwindow.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxtimeaxis.h>

// One time axis: what dope sheet, ruler, playhead and key graph show at one time has the same pixel
// column, read from pictures of the pane; and the gestures that look around along it.
class TestTimePaneAxis : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void oneColumn_data();
    void oneColumn();
    void axisAndItsInverse_data();
    void axisAndItsInverse();
    void axisIsPublished();
    void changesAreReportedOnce();

    void wheel_data();
    void wheel();
    void wheelInAndOutAgain();
    void wheelOverTheSlider();
    void otherUsesOfTheWheelStay();
    void wheelInMidGestureIsIgnored();
    void viewChangesMakeNoEdit();

private:
    QImage picture() const
    {
        for (int i = 0; i < 4; ++i)
            QCoreApplication::processEvents();
        return pane->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    QRect areaOf(const QWidget *widget) const
    {
        return QRect(widget->mapTo(pane.get(), QPoint()), widget->size());
    }
    static int centreOfDifference(const QImage &a, const QImage &b, const QRect &area);
    int lineIn(const QRect &area, VxTime time);
    int paneX(VxTime time) const
    {
        return m_axis->overlayParent()->mapTo(pane.get(), QPoint(m_axis->xOf(time), 0)).x();
    }
    void turnWheel(QWidget *widget, int x, const QPoint &delta, Qt::KeyboardModifiers modifiers,
                   Qt::MouseButtons buttons = Qt::NoButton) const
    {
        const QPoint position(x, 10);
        QWheelEvent event(position, widget->mapToGlobal(position), QPoint(), delta, buttons,
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &event);
    }

    std::unique_ptr<VxMainWindow> m_window;
    VxNode *m_node = nullptr;
    VxDopeSheetView *m_sheet = nullptr;
    VxKeyGraphView *m_graph = nullptr;
    VxTimeAxis *m_axis = nullptr;
    QPersistentModelIndex m_row;
};

void TestTimePaneAxis::init()
{
    setUp();
    m_window = std::make_unique<VxMainWindow>();
    m_window->getPaneMgr()->addPane(pane.get());
    pane->setViewMode(VxTimePane::AdvancedView);
    pane->setKeyGraphOpen(true);
    addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4, 8, 16, 32});
    pane->setFilteredPropertyTypes(VxTimePane::PropTranslate);
    vxApp->start();
    vxScene->setAnimRange(VxTimeRange(0, 160 * 200));
    vxScene->setPlayRange(VxTimeRange(0, 160 * 200));
    m_node = new VxNode(QStringLiteral("Hip"));
    vxScene->addNode(m_node);
    m_node->select(true);
    showPane(1000, 640);
    QCoreApplication::processEvents();
    m_sheet = pane->findChild<VxDopeSheetView *>();
    m_graph = pane->findChild<VxKeyGraphView *>();
    m_axis = VxTimeAxis::of(pane.get());
    QVERIFY(m_axis);
    m_sheet->expandAll();
    VxProperty *const x = m_node->getXPosControl();
    QModelIndex row = m_sheet->model()->index(0, 0);
    while (m_sheet->model()->hasChildren(row))
        row = m_sheet->model()->index(0, 0, row);
    m_row = row;
    QCOMPARE(m_sheet->getItem(row)->property(), x);
    m_sheet->selectionModel()->select(row, QItemSelectionModel::ClearAndSelect |
                                               QItemSelectionModel::Rows);
    QCoreApplication::processEvents();
}

void TestTimePaneAxis::cleanup()
{
    tearDown();
    m_window.reset();
}

// Of the columns in which the pictures differ within an area: (first + last + 1) / 2.
int TestTimePaneAxis::centreOfDifference(const QImage &a, const QImage &b, const QRect &area)
{
    QRect found;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y))
                found |= QRect(x, y, 1, 1);
        }
    }
    return found.isNull() ? -1 : (found.left() + found.right() + 1) / 2;
}

// The centre of what shows the current time in an area.
int TestTimePaneAxis::lineIn(const QRect &area, VxTime time)
{
    vxScene->setTime(vxScene->getPlayRange().getStart() -
                     100 * vxScene->getPlayRange().getDuration());
    const QImage without = picture();
    vxScene->setTime(time);
    return centreOfDifference(without, picture(), area);
}

void TestTimePaneAxis::oneColumn_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("names");
    QTest::addColumn<VxTimeRange>("range");
    QTest::addColumn<int>("step");
    const auto row = [](const char *name, int width, int names, int start, int end,
                        int step = 160) {
        QTest::newRow(name) << width << names << VxTimeRange(start * step, end * step) << step;
    };
    row("the whole animation", 1000, 250, 0, 200);
    row("a narrow window", 700, 250, 0, 200);
    row("a wide window", 1531, 250, 0, 200);
    row("narrow names", 1000, 101, 0, 200);
    row("wide names", 1000, 477, 0, 200);
    row("zoomed in", 1000, 250, 37, 81);
    row("a few frames", 1000, 250, 100, 105);
    row("an uneven width of frames", 997, 233, 3, 190);
    row("120 frames a second", 1000, 250, 10, 777, 40);
    row("hours later", 1000, 250, 800000, 800100, 40);
    row("a range before zero", 1000, 250, -120, 40);
}

void TestTimePaneAxis::oneColumn()
{
    QFETCH(int, width);
    QFETCH(int, names);
    QFETCH(VxTimeRange, range);
    QFETCH(int, step);
    VxFloatProperty *x = m_node->getXPosControl();
    pane->resize(width, 640);
    m_sheet->header()->resizeSection(VxDopeSheetView::NameColumn, names);
    vxScene->setTimeStep(step);
    vxScene->setAnimRange(VxTimeRange(qMin(0, range.getStart()), range.getEnd()));
    vxScene->setPlayRange(range);
    vxScene->setTime(range.getStart() - 100 * range.getDuration());
    const VxTime first = range.getStart();
    x->setKey(first, 5.0f, 0);
    m_graph->frameKeys();
    QRect rowArea = m_sheet->visualRect(m_row).translated(areaOf(m_sheet->viewport()).topLeft());
    rowArea.setLeft(areaOf(m_graph).left() + names);
    rowArea.setRight(areaOf(m_sheet->viewport()).right());
    QRect graphArea = areaOf(m_graph);
    graphArea.setLeft(graphArea.left() + names);
    const QRect rulerArea = areaOf(m_sheet->header()->viewport());

    for (const int i : {1, 9}) {
        const int frames = range.getDuration() / step;
        const VxTime time = first + qMax(1, frames * i / 10) * step;
        const QImage without = picture();
        x->setKey(time, 5.0f, 0);
        const QImage with = picture();
        const int expected = paneX(time);
        QCOMPARE(
            QStringLiteral("key in sheet,  %1").arg(centreOfDifference(without, with, rowArea)),
            QStringLiteral("key in sheet,  %1").arg(expected));
        QCOMPARE(
            QStringLiteral("key in graph,  %1").arg(centreOfDifference(without, with, graphArea)),
            QStringLiteral("key in graph,  %1").arg(expected));
        x->deleteKeys(VxTimeRange(time, time));
        const QRect belowRows = rowArea.translated(0, 4 * rowArea.height());
        QCOMPARE(QStringLiteral("line in sheet,  %1").arg(lineIn(belowRows, time)),
                 QStringLiteral("line in sheet,  %1").arg(expected));
        QCOMPARE(QStringLiteral("line in graph,  %1").arg(lineIn(graphArea, time)),
                 QStringLiteral("line in graph,  %1").arg(expected));
        const QRect playhead = areaOf(pane->findChild<VxPlayheadWgt *>());
        QCOMPARE(playhead.center().x() + 1, expected);
        QCOMPARE(QStringLiteral("marker in ruler,  %1").arg(lineIn(rulerArea, time)),
                 QStringLiteral("marker in ruler,  %1").arg(expected));
    }

    // The ruler's ticks: single columns, at the frames that the axis has there.
    vxScene->setTime(range.getStart() - 100 * range.getDuration());
    const QImage ruler = picture();
    const int y = rulerArea.bottom() - 2;
    int ticks = 0;
    for (VxTime time = first + step; time < range.getEnd(); time += step) {
        const int column = paneX(time);
        const QRgb ground = ruler.pixel(column - 1, y);
        if (ruler.pixel(column, y) == ground || ruler.pixel(column + 1, y) != ground)
            continue;
        ++ticks;
    }
    QVERIFY2(ticks >= 3, qPrintable(QString::number(ticks)));
}

void TestTimePaneAxis::axisAndItsInverse_data()
{
    oneColumn_data();
}

void TestTimePaneAxis::axisAndItsInverse()
{
    QFETCH(int, width);
    QFETCH(int, names);
    QFETCH(VxTimeRange, range);
    QFETCH(int, step);
    pane->resize(width, 640);
    m_sheet->header()->resizeSection(VxDopeSheetView::NameColumn, names);
    vxScene->setTimeStep(step);
    vxScene->setPlayRange(range);
    QCoreApplication::processEvents();
    const VxTimeRange visible = m_axis->visible();
    QVERIFY(visible.getStart() <= range.getStart() && visible.getEnd() >= range.getEnd());
    for (int x = -50; x < width + 50; ++x)
        QVERIFY(qAbs(m_axis->xOf(m_axis->timeAt(x)) - x) <= 1);
    for (VxTime time = range.getStart(); time <= range.getEnd(); time += step) {
        const double ticks = TimelineMetrics::shared().ticksPerPixel();
        QVERIFY(qAbs(m_axis->timeAt(m_axis->xOf(time)) - time) <= ticks + 1);
    }
}

void TestTimePaneAxis::axisIsPublished()
{
    QCOMPARE(VxTimeAxis::of(nullptr), nullptr);
    const QWidget other;
    QCOMPARE(VxTimeAxis::of(&other), nullptr);
    QVERIFY(m_axis->overlayParent()->isAncestorOf(m_sheet));
    QVERIFY(m_axis->overlayParent()->isAncestorOf(m_graph));
    QVERIFY(!m_axis->overlayParent()->isAncestorOf(pane->findChild<VxTimeRangeSlider *>()));
    const KeyGraphScale &scale = m_graph->getScale();
    QCOMPARE(float(m_axis->valuePerPixel()), float(scale.value(0) - scale.value(1)));
    QVERIFY(m_axis->valuePerPixel() > 0);
    m_graph->hide();
    QCOMPARE(m_axis->valuePerPixel(), 0.0);
}

void TestTimePaneAxis::changesAreReportedOnce()
{
    QSignalSpy changed(m_axis, &VxTimeAxis::changed);
    vxScene->setPlayRange(VxTimeRange(1600, 16000));
    QCOMPARE(changed.count(), 1);
    vxScene->setTime(3200);
    QCOMPARE(changed.count(), 1);
    m_sheet->header()->resizeSection(VxDopeSheetView::NameColumn, 300);
    QVERIFY(changed.count() >= 2);
    changed.clear();
    pane->resize(1100, 640);
    QCoreApplication::processEvents();
    QVERIFY(changed.count() >= 1);
}

void TestTimePaneAxis::wheel_data()
{
    QTest::addColumn<QString>("place");
    for (const char *place : {"sheet", "ruler", "graph"})
        QTest::newRow(place) << QString::fromLatin1(place);
}

void TestTimePaneAxis::wheel()
{
    QFETCH(QString, place);
    QWidget *widget = place == QLatin1String("sheet")   ? m_sheet->viewport()
                      : place == QLatin1String("ruler") ? m_sheet->header()->viewport()
                                                        : static_cast<QWidget *>(m_graph);
    vxScene->setPlayRange(VxTimeRange(40 * 160, 160 * 160));
    const VxTime under = 80 * 160;
    const auto x = [&] { return widget->mapFrom(pane.get(), QPoint(paneX(under), 0)).x(); };
    const int column = x();

    turnWheel(widget, column, QPoint(0, 200), Qt::ShiftModifier);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(60 * 160, 120 * 160));
    QVERIFY(qAbs(x() - column) <= 8);
    turnWheel(widget, column, QPoint(0, -200), Qt::ShiftModifier);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(40 * 160, 160 * 160));

    // The contents follow the wheel.
    for (const bool sideways : {true, false}) {
        const int before = x();
        const QPoint delta = sideways ? QPoint(240, 0) : QPoint(0, 240);
        const auto modifiers =
            sideways ? Qt::KeyboardModifiers() : Qt::ShiftModifier | Qt::AltModifier;
        turnWheel(widget, column, delta, modifiers);
        QVERIFY2(qAbs(x() - before - 120) <= 6, qPrintable(QString::number(x() - before)));
        QCOMPARE(vxScene->getPlayRange().getDuration(), 120 * 160);
        turnWheel(widget, column, -delta, modifiers);
        QCOMPARE(vxScene->getPlayRange(), VxTimeRange(40 * 160, 160 * 160));
    }

    turnWheel(widget, column, QPoint(0, 4000), Qt::ShiftModifier | Qt::ControlModifier);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(60 * 160, 120 * 160));
}

void TestTimePaneAxis::wheelInAndOutAgain()
{
    vxScene->setPlayRange(VxTimeRange(11 * 160, 193 * 160));
    for (const int delta : {120, -120}) {
        for (int i = 0; i < 9; ++i)
            turnWheel(m_graph, 700, QPoint(0, delta), Qt::ShiftModifier);
        QVERIFY(delta < 0 || vxScene->getPlayRange().getDuration() < 10 * 160);
    }
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(11 * 160, 193 * 160));
}

// There the mouse is at times of the whole animation.
void TestTimePaneAxis::wheelOverTheSlider()
{
    auto *slider = pane->findChild<VxTimeRangeSlider *>();
    vxScene->setPlayRange(VxTimeRange(0, 200 * 160));
    turnWheel(slider, slider->width() / 4, QPoint(0, 200), Qt::ShiftModifier);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(25 * 160, 125 * 160));
    turnWheel(slider, slider->width() / 4, QPoint(100000, 0), Qt::NoModifier);
    QCOMPARE(vxScene->getPlayRange(), VxTimeRange(0, 100 * 160));
}

void TestTimePaneAxis::otherUsesOfTheWheelStay()
{
    const VxTimeRange before = vxScene->getPlayRange();
    m_node->getXPosControl()->setKey(0, 1.0f, 0);
    m_node->getXPosControl()->setKey(16000, 9.0f, 0);
    m_graph->frameKeys();
    const QImage values = picture();
    turnWheel(m_graph, 700, QPoint(0, 120), Qt::NoModifier);
    const QImage zoomed = picture();
    QVERIFY(zoomed != values);
    turnWheel(m_graph, 700, QPoint(0, 120), Qt::AltModifier);
    const QImage panned = picture();
    QVERIFY(panned != zoomed);
    turnWheel(m_graph, 700, QPoint(120, 0), Qt::AltModifier);
    QVERIFY(picture() != panned);
    for (int i = 0; i < 60; ++i)
        vxScene->addNode(new VxNode(QStringLiteral("Node %1").arg(i)));
    QCoreApplication::processEvents();
    turnWheel(m_sheet->viewport(), 700, QPoint(0, -120), Qt::NoModifier);
    QVERIFY(m_sheet->verticalScrollBar()->value() > 0);
    QCOMPARE(vxScene->getPlayRange(), before);
}

void TestTimePaneAxis::wheelInMidGestureIsIgnored()
{
    const VxTimeRange before = vxScene->getPlayRange();
    turnWheel(m_graph, 700, QPoint(0, 120), Qt::ShiftModifier, Qt::LeftButton);
    turnWheel(m_sheet->viewport(), 700, QPoint(120, 0), Qt::NoModifier, Qt::LeftButton);
    QCOMPARE(vxScene->getPlayRange(), before);
}

void TestTimePaneAxis::viewChangesMakeNoEdit()
{
    vxScene->setTime(150 * 160);
    vxApp->getUndoStack()->setClean();
    turnWheel(m_graph, 300, QPoint(0, 480), Qt::ShiftModifier);
    turnWheel(m_sheet->viewport(), 300, QPoint(48, 0), Qt::NoModifier);
    QVERIFY(!vxScene->getPlayRange().contains(150 * 160));
    QCOMPARE(vxScene->getTime(), 150 * 160);
    QCOMPARE(undoTexts(), QStringList());
    QVERIFY(vxApp->getUndoStack()->isClean());
    // A typed range is an edit.
    pane->setPlayRangeStart(3);
    QCOMPARE(undoTexts(), QStringList{"Set Play Range Start"});
}

VX_TEST_MAIN(TestTimePaneAxis)
#include "tst_timepaneaxis.moc"

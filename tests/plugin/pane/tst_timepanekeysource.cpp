#include "testing/vxtestmain.h"
#include "timepanetestbase.h"
#include "vxtimeline/dopesheet/vxdopesheetheaderview.h"
#include "vxtimeline/dopesheet/vxdopesheetview.h"
#include "vxtimeline/rows/vxdopesheetitem.h"
#include "vxtimeline/rows/vxdopesheetmodel.h"

#include <QtGui/QScreen>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxnode.h>

// Which row's keys the ruler marks: the primary selection's, or everything's.
class TestTimePaneKeySource : public QObject, private TimePaneTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setUp();
        addChoices(TimePaneChoice::PropertyTypeFamily, {1, 2, 4});
        for (const auto &action : actions)
            action->setChecked(true);
        a = addNode("a");
        b = addNode("b");
        header = find<VxDopeSheetHeaderView>("TimelineDopeSheetHeaderWgt");
    }
    void cleanup() { tearDown(); }

    void nothingBeforeTheFirstShow();
    void everythingWithoutASelection();
    void followsTheSelection();
    void followsAClickInTheSheet();
    void nodeWithoutRow();
    void rowAddedLater();
    void rowRemoved();
    void rowRemovedFromTheSheet();
    void anotherModel();
    void clearedScene();
    void hiddenPane();
    void marksAreDrawnAtTheKeys();
    void playheadLeavesNoTrace();
    void columnsPaintedOneByOne();

private:
    static VxNode *addNode(const char *name)
    {
        auto *node = new VxNode(QLatin1String(name));
        vxScene->addNode(node);
        return node;
    }
    const VxNode *sourceNode() const
    {
        return header->getKeySource() ? header->getKeySource()->node() : nullptr;
    }
    // True when the source is the item above all rows of the present model.
    bool isEverything() const
    {
        const VxDopeSheetItem *source = header->getKeySource();
        return source && !source->parentItem() && !source->node() &&
               source->childCount() == pane->getDopeSheetView()->model()->rowCount();
    }
    QImage ruler() const
    {
        const int left = header->sectionSize(0);
        const QImage image = header->viewport()->grab().toImage();
        return image.copy(left, 0, image.width() - left, image.height());
    }

    VxNode *a = nullptr;
    VxNode *b = nullptr;
    VxDopeSheetHeaderView *header = nullptr;
};

void TestTimePaneKeySource::nothingBeforeTheFirstShow()
{
    QVERIFY(!header->getKeySource());
    a->select(true);
    QVERIFY(!header->getKeySource());
    showPane();
    QCOMPARE(sourceNode(), a);
}

void TestTimePaneKeySource::everythingWithoutASelection()
{
    showPane();
    QVERIFY(isEverything());
    a->getXPosControl()->setKey(160, 1, VxKeyInterp::Linear);
    b->getYPosControl()->setKey(320, 1, VxKeyInterp::Linear);
    QCOMPARE(header->getKeySource()->keyCount(), 2);
}

void TestTimePaneKeySource::followsTheSelection()
{
    showPane();
    a->select(true);
    QCOMPARE(sourceNode(), a);
    b->select(true);
    QCOMPARE(sourceNode(), b);
    b->select(false);
    QCOMPARE(sourceNode(), vxScene->getPrimarySelection());
    vxScene->selectAllNodes(false);
    QVERIFY(isEverything());
}

void TestTimePaneKeySource::followsAClickInTheSheet()
{
    showPane();
    VxDopeSheetView *view = pane->getDopeSheetView();
    const QPoint row = view->visualRect(view->findNodeIndex(b)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(60, row.y()));
    QCOMPARE(vxScene->getPrimarySelection(), b);
    QCOMPARE(sourceNode(), b);
}

void TestTimePaneKeySource::nodeWithoutRow()
{
    showPane();
    a->select(true);
    auto *hidden = new VxNode(QStringLiteral("hidden"));
    hidden->setVisible(false);
    vxScene->addNode(hidden);
    hidden->select(true);
    QCOMPARE(vxScene->getPrimarySelection(), hidden);
    QVERIFY(isEverything());
}

void TestTimePaneKeySource::rowAddedLater()
{
    showPane();
    vxScene->beginLoad();
    VxNode *late = addNode("late");
    late->select(true);
    QVERIFY(isEverything());
    vxScene->endLoad();
    QTRY_COMPARE(sourceNode(), late);
}

void TestTimePaneKeySource::rowRemoved()
{
    showPane();
    a->select(true);
    QCOMPARE(sourceNode(), a);
    vxScene->removeNode(a);
    QVERIFY(sourceNode() != a);
    QTRY_VERIFY(isEverything());
    ruler();
    b->select(true);
    delete b;
    ruler();
    QTRY_VERIFY(isEverything());
}

// The node stays, and stays selected.
void TestTimePaneKeySource::rowRemovedFromTheSheet()
{
    showPane();
    a->select(true);
    const auto call = [this](const char *slot) {
        QVERIFY(QMetaObject::invokeMethod(pane.get(), slot, Q_ARG(VxNode *, a)));
    };
    call("removeDopesheetNode");
    QTRY_VERIFY(isEverything());
    call("addDopesheetNode");
    QTRY_COMPARE(sourceNode(), a);
}

void TestTimePaneKeySource::anotherModel()
{
    showPane();
    a->select(true);
    const VxDopeSheetItem *before = header->getKeySource();
    pane->refreshDopesheet();
    QTRY_COMPARE(sourceNode(), a);
    QVERIFY(header->getKeySource() != before);
    vxScene->selectAllNodes(false);
    pane->refreshDopesheet();
    QVERIFY(isEverything());
}

void TestTimePaneKeySource::clearedScene()
{
    showPane();
    a->select(true);
    vxScene->clear();
    QVERIFY(isEverything());
    QCOMPARE(header->getKeySource()->keyCount(), 0);
    // With nothing selected no other signal reports the changed rows.
    addNode("again");
    vxScene->clear();
    QVERIFY(isEverything());
}

void TestTimePaneKeySource::hiddenPane()
{
    showPane();
    pane->hide();
    b->select(true);
    QCOMPARE(sourceNode(), b);
    vxScene->removeNode(b);
    pane->show();
    ruler();
    QTRY_VERIFY(isEverything());
}

// A low band at the bottom; above it nothing changes.
void TestTimePaneKeySource::marksAreDrawnAtTheKeys()
{
    showPane();
    vxScene->setAnimRange(VxTimeRange(0, 100 * 160));
    vxScene->setPlayRange(VxTimeRange(0, 100 * 160));
    vxScene->setTime(160 * 50);
    b->select(true);
    const QImage without = ruler();
    b->getZRotControl()->setKey(160 * 23, 1, VxKeyInterp::Linear);
    a->getZRotControl()->setKey(160 * 29, 1, VxKeyInterp::Linear);
    const QImage with = ruler();
    const TimelineMetrics &metrics = TimelineMetrics::shared();
    const int middle = metrics.keyMiddle(0, 160 * 23, 0);
    QRect changed;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            if (with.pixel(x, y) != without.pixel(x, y))
                changed |= QRect(x, y, 1, 1);
        }
    }
    QCOMPARE(changed.left(), middle - 1);
    QCOMPARE(changed.right(), middle + 1);
    QVERIFY(changed.bottom() >= with.height() - 2);
    QVERIFY(changed.height() <= 5);
    vxScene->selectAllNodes(false);
    QVERIFY(ruler() != with);
}

// What the screen shows after the playhead's way is what painting everything shows.
void TestTimePaneKeySource::playheadLeavesNoTrace()
{
    showPane();
    vxScene->setAnimRange(VxTimeRange(0, 100 * 160));
    vxScene->setPlayRange(VxTimeRange(0, 100 * 160));
    for (int frame = 0; frame < 100; frame += 3)
        a->getXPosControl()->setKey(160 * frame, 1, VxKeyInterp::Linear);
    a->select(true);
    const auto shown = [this] {
        QCoreApplication::processEvents();
        return pane->screen()->grabWindow(pane->winId()).toImage();
    };
    for (const int frame : {0, 1, 10, 50, 51, 100, 99, 20}) {
        vxScene->setTime(160 * frame);
        const QImage partly = shown();
        header->viewport()->update();
        QCOMPARE(partly, shown());
    }
}

// Numbers, ticks and flags reach over more columns than one; each has its part of them.
void TestTimePaneKeySource::columnsPaintedOneByOne()
{
    showPane(700, 300);
    vxScene->setAnimRange(VxTimeRange(0, 100 * 160));
    vxScene->setPlayRange(VxTimeRange(3 * 160, 90 * 160));
    vxScene->setTime(160 * 40);
    a->getXPosControl()->setKey(160 * 12, 1, VxKeyInterp::Linear);
    a->select(true);
    // The rows follow the selection in two turns of the event loop, each of which paints.
    for (int i = 0; i < 6; ++i)
        QCoreApplication::processEvents();
    const QImage whole = pane->screen()->grabWindow(pane->winId()).toImage();
    QWidget *viewport = header->viewport();
    for (int x = header->sectionSize(0) - 20; x < viewport->width(); ++x) {
        viewport->update(x, 0, 1, viewport->height());
        QCoreApplication::processEvents();
    }
    const QImage after = pane->screen()->grabWindow(pane->winId()).toImage();
    // Half transparent edges that are laid over other ones may be rounded otherwise.
    constexpr int Rounding = 2;
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x) {
            const QColor one = after.pixelColor(x, y);
            const QColor other = whole.pixelColor(x, y);
            QVERIFY2(qAbs(one.red() - other.red()) <= Rounding &&
                         qAbs(one.green() - other.green()) <= Rounding &&
                         qAbs(one.blue() - other.blue()) <= Rounding,
                     qPrintable(QStringLiteral("at %1, %2").arg(x).arg(y)));
        }
    }
}

VX_TEST_MAIN(TestTimePaneKeySource)
#include "tst_timepanekeysource.moc"

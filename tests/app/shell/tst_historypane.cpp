#include "shell/historymodel.h"
#include "shell/historystatus.h"
#include "shell/vxhistorypane.h"
#include "studiotestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"

#include <QAbstractItemModelTester>
#include <QListView>
#include <QStatusBar>
#include <vxcore/vxfloatproperty.h>
#include <vxcore/vxundostackhold.h>

/// The list of states and the status line, in the whole program.
class tst_HistoryPane : public QObject, private StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void theWindowMenuShowsThePane();
    void entriesAreListed();
    void aClickRestoresAState();
    void arrowKeysStepThroughStates();
    void aNewEntryReplacesWhatWasUndone();
    void theSavedStateIsMarked();
    void clicksAreIgnoredDuringGestures();
    void openingAFileStartsAnew();
    void theModelIsRight();
    void theStatusLineNamesTheChange();
    void thePaneKeepsItsPlace();

private:
    VxHistoryPane *pane() const
    {
        return qobject_cast<VxHistoryPane *>(window()->getPaneMgr()->findPane("VxHistoryPane"));
    }
    QListView *list() const { return pane()->getListView(); }
    QStringList rows() const;
    int selectedRow() const { return list()->currentIndex().row(); }
    void click(int row) const;
    static void makeEntry(int number);
    static QVector<VxTime> keys();
    QString status() const { return window()->statusBar()->currentMessage(); }
};

void tst_HistoryPane::init()
{
    setUpShared();
    openSample();
    PaneDock *dock = window()->docks()->find("VxHistoryPane");
    dock->raise();
    QTRY_VERIFY(list()->isVisible());
}

QStringList tst_HistoryPane::rows() const
{
    QStringList texts;
    for (int i = 0; i < pane()->getModel()->rowCount(); ++i)
        texts << pane()->getModel()->index(i).data().toString();
    return texts;
}

void tst_HistoryPane::click(int row) const
{
    const QRect place = list()->visualRect(pane()->getModel()->index(row));
    QVERIFY(place.isValid());
    VxMouseDriver(list()->viewport()).click(place.center());
}

/** A key at a frame of its own on the first node. */
void tst_HistoryPane::makeEntry(int number)
{
    VxUndoStackHold hold;
    vxScene->getRootNodes().first()->getXScaleControl()->setKey(number * 1000, 1, 0);
    hold.accept(QStringLiteral("Entry %1").arg(number));
}

QVector<VxTime> tst_HistoryPane::keys()
{
    const VxFloatProperty *scale = vxScene->getRootNodes().first()->getXScaleControl();
    QVector<VxTime> times;
    for (int i = 0; i < scale->getNumKeys(); ++i)
        times << scale->getKeyTime(i);
    return times;
}

void tst_HistoryPane::theWindowMenuShowsThePane()
{
    QAction *toggle = entry("Window", "Undo History");
    QVERIFY(toggle && toggle->isChecked());
    toggle->trigger();
    QTRY_VERIFY(!list()->isVisible());
    toggle->trigger();
    QVERIFY(window()->docks()->find("VxHistoryPane")->isVisible());
}

void tst_HistoryPane::entriesAreListed()
{
    QCOMPARE(rows(), QStringList({"Start"}));
    makeEntry(1);
    makeEntry(2);
    QCOMPARE(rows(), QStringList({"Start", "Entry 1", "Entry 2"}));
    QCOMPARE(selectedRow(), 2);
    vxApp->getUndoStack()->undo();
    QCOMPARE(selectedRow(), 1);
    QVERIFY(pane()->getModel()->index(2).data(Qt::ForegroundRole).isValid()); // undone: dimmed
    QVERIFY(!pane()->getModel()->index(1).data(Qt::ForegroundRole).isValid());
}

void tst_HistoryPane::aClickRestoresAState()
{
    for (int i = 1; i <= 5; ++i)
        makeEntry(i);
    click(2);
    QCOMPARE(vxApp->getUndoStack()->index(), 2);
    QCOMPARE(keys(), QVector<VxTime>({1000, 2000}));
    click(0);
    QCOMPARE(keys(), QVector<VxTime>());
    click(5);
    QCOMPARE(keys().size(), 5);
    QCOMPARE(selectedRow(), 5);
}

void tst_HistoryPane::arrowKeysStepThroughStates()
{
    makeEntry(1);
    makeEntry(2);
    list()->setFocus();
    QTRY_VERIFY(list()->hasFocus());
    type(Qt::Key_Up);
    QCOMPARE(vxApp->getUndoStack()->index(), 1);
    type(Qt::Key_Home);
    QCOMPARE(vxApp->getUndoStack()->index(), 0);
    type(Qt::Key_Down);
    QCOMPARE(vxApp->getUndoStack()->index(), 1);
}

void tst_HistoryPane::aNewEntryReplacesWhatWasUndone()
{
    makeEntry(1);
    makeEntry(2);
    makeEntry(3);
    click(1);
    makeEntry(4);
    QCOMPARE(rows(), QStringList({"Start", "Entry 1", "Entry 4"}));
    QCOMPARE(selectedRow(), 2);
}

void tst_HistoryPane::theSavedStateIsMarked()
{
    const auto marked = [this] {
        QVector<int> found;
        for (int i = 0; i < pane()->getModel()->rowCount(); ++i) {
            if (pane()->getModel()->index(i).data(HistoryModel::CleanRole).toBool())
                found << i;
        }
        return found;
    };
    makeEntry(1);
    QCOMPARE(marked(), QVector<int>({0}));
    const QImage before = list()->grab().toImage();
    QVERIFY(window()->document()->save(folder->filePath("saved.vxscene")));
    QCOMPARE(marked(), QVector<int>({1}));
    QVERIFY(list()->grab().toImage() != before);
    makeEntry(2);
    QVERIFY(window()->isWindowModified());
    click(1);
    QVERIFY(!window()->isWindowModified());
}

void tst_HistoryPane::clicksAreIgnoredDuringGestures()
{
    makeEntry(1);
    makeEntry(2);
    {
        const VxUndoStackHold gesture;
        click(0);
        QCOMPARE(vxApp->getUndoStack()->index(), 2);
        QTRY_COMPARE(selectedRow(), 2);
    }
    click(0);
    QCOMPARE(vxApp->getUndoStack()->index(), 0);
}

void tst_HistoryPane::openingAFileStartsAnew()
{
    makeEntry(1);
    openSample();
    QCOMPARE(rows(), QStringList({"Start"}));
    QCOMPARE(selectedRow(), 0);
}

void tst_HistoryPane::theModelIsRight()
{
    const QAbstractItemModelTester tester(pane()->getModel(),
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (int i = 1; i < 30; ++i) {
        makeEntry(i);
        if (i % 5 == 0)
            vxApp->getUndoStack()->setIndex(vxApp->getUndoStack()->count() / 2);
        QCOMPARE(pane()->getModel()->rowCount(), vxApp->getUndoStack()->count() + 1);
        QCOMPARE(selectedRow(), vxApp->getUndoStack()->index());
    }
    vxApp->getUndoStack()->clear();
    QCOMPARE(rows(), QStringList({"Start"}));
}

void tst_HistoryPane::theStatusLineNamesTheChange()
{
    for (int i = 1; i <= 4; ++i)
        makeEntry(i);
    QCOMPARE(status(), QString("Entry 4"));
    entry("Edit", "Undo Entry 4")->trigger();
    QCOMPARE(status(), QString("Undid Entry 4"));
    entry("Edit", "Redo Entry 4")->trigger();
    QCOMPARE(status(), QString("Redid Entry 4"));
    click(1);
    QCOMPARE(status(), QString("Undid 3 commands"));
    click(3);
    QCOMPARE(status(), QString("Redid 2 commands"));
}

void tst_HistoryPane::thePaneKeepsItsPlace()
{
    PaneDock *dock = window()->docks()->find("VxHistoryPane");
    window()->addDockWidget(Qt::RightDockWidgetArea, dock);
    start();
    dock = window()->docks()->find("VxHistoryPane");
    QCOMPARE(window()->dockWidgetArea(dock), Qt::RightDockWidgetArea);
    QVERIFY(entry("Window", "Default Layout"));
    entry("Window", "Default Layout")->trigger();
    QCOMPARE(window()->dockWidgetArea(dock), Qt::LeftDockWidgetArea);
    // In a tab behind that of the scene.
    PaneDock *scene = window()->docks()->find("VxScenePane");
    QVERIFY(window()->tabifiedDockWidgets(dock).contains(scene));
    QVERIFY(!scene->visibleRegion().isEmpty());
}

VX_TEST_MAIN(tst_HistoryPane)
#include "tst_historypane.moc"

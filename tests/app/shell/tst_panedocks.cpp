// The docks of the panes in the whole window: the height that a pane limits and restores, and
// searches when the document changes.

#include "studiotestbase.h"
#include "testing/vxtestmain.h"

#include <QLineEdit>
#include <QTabBar>

namespace {

constexpr int ControlsHeight = 180; // pixels that ruler and controls need at most
constexpr int AnimationTime = 400;  // milliseconds, longer than docks take to slide

} // namespace

class tst_PaneDocks : public QObject, protected StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void aViewWithoutRowsShrinksItsDock_data();
    void aViewWithoutRowsShrinksItsDock();
    void aFloatingDockShrinksToo();
    void theHeightIsRestoredInALaterRun();
    void anotherDocumentClearsTheSearches_data();
    void anotherDocumentClearsTheSearches();
    void titlesOfTabsAreNotElided();

private:
    PaneDock *dock() const { return window()->findChild<PaneDock *>("DockVxTimePane"); }
    QLineEdit *rowsField() const { return dock()->findChild<QLineEdit *>("PaneSearchField"); }
    void setView(const char *actionClass) const
    {
        action(actionClass)->trigger();
        QCoreApplication::processEvents();
    }
};

void tst_PaneDocks::aViewWithoutRowsShrinksItsDock_data()
{
    QTest::addColumn<QByteArray>("view");
    QTest::newRow("basic") << QByteArray("VxTimePaneBasicViewAction");
    QTest::newRow("intermediate") << QByteArray("VxTimePaneIntermediateViewAction");
}

void tst_PaneDocks::aViewWithoutRowsShrinksItsDock()
{
    QFETCH(QByteArray, view);
    start();
    setView("VxTimePaneAdvancedViewAction");
    const int before = dock()->height();
    const int viewport = window()->viewport()->height();
    QVERIFY(before > 2 * ControlsHeight);
    QVERIFY(rowsField()->isVisible());

    setView(view);
    QTRY_VERIFY2(dock()->height() < ControlsHeight, qPrintable(QString::number(dock()->height())));
    QVERIFY(!rowsField()->isVisible());
    QTRY_COMPARE(dock()->pane()->height(), dock()->pane()->sizeHint().height());
    QTRY_COMPARE(window()->viewport()->height(), viewport + before - dock()->height());

    setView("VxTimePaneAdvancedViewAction");
    QTRY_COMPARE(dock()->height(), before);
    QVERIFY(rowsField()->isVisible());
    window()->resizeDocks({dock()}, {before - 50}, Qt::Vertical); // tabs included
    QTRY_VERIFY(dock()->height() < before - 50);
    QTest::qWait(AnimationTime);
    const int lower = dock()->height();
    setView(view);
    QTRY_VERIFY(dock()->height() < ControlsHeight);
    setView("VxTimePaneAdvancedViewAction");
    QTRY_COMPARE(dock()->height(), lower);
}

void tst_PaneDocks::aFloatingDockShrinksToo()
{
    start();
    setView("VxTimePaneAdvancedViewAction");
    dock()->setFloating(true);
    dock()->resize(1100, 500);
    QTRY_COMPARE(dock()->height(), 500);
    setView("VxTimePaneBasicViewAction");
    QTRY_VERIFY(dock()->height() < ControlsHeight);
    setView("VxTimePaneAdvancedViewAction");
    QTRY_COMPARE(dock()->height(), 500);
}

void tst_PaneDocks::theHeightIsRestoredInALaterRun()
{
    start();
    setView("VxTimePaneAdvancedViewAction");
    const int before = dock()->height();
    setView("VxTimePaneBasicViewAction");
    QTRY_VERIFY(dock()->height() < ControlsHeight);
    start();
    QTRY_VERIFY(dock()->height() < ControlsHeight);
    setView("VxTimePaneAdvancedViewAction");
    QTRY_COMPARE(dock()->height(), before); // the height of the default layout
}

void tst_PaneDocks::anotherDocumentClearsTheSearches_data()
{
    QTest::addColumn<bool>("opens");
    QTest::newRow("new") << false;
    QTest::newRow("open") << true;
}

void tst_PaneDocks::anotherDocumentClearsTheSearches()
{
    QFETCH(bool, opens);
    start();
    setView("VxTimePaneAdvancedViewAction");
    openSample();
    auto *sceneField = window()->findChild<QLineEdit *>("SceneSearchField");
    rowsField()->setText("foot");
    sceneField->setText("foot");
    if (opens)
        openSample();
    else
        entry("File", "New")->trigger();
    QCOMPARE(rowsField()->text(), QString());
    QCOMPARE(sceneField->text(), QString());
}

// In a small window too, with all panes where they are at first.
void tst_PaneDocks::titlesOfTabsAreNotElided()
{
    QFont font("DejaVu Sans");
    font.setPixelSize(13);
    QApplication::setFont(font);
    start({"--size", "1280x800"});
    window()->docks()->applyDefaultLayout();
    QCoreApplication::processEvents();
    int tabs = 0;
    for (const QTabBar *bar :
         window()->findChildren<QTabBar *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!bar->isVisible())
            continue;
        tabs += bar->count();
        QVERIFY2(bar->sizeHint().width() <= bar->width(), qPrintable(bar->tabText(0)));
    }
    QCOMPARE(tabs, window()->docks()->docks().size() - 1); // the strip of markers has no tab
}

VX_TEST_MAIN(tst_PaneDocks)
#include "tst_panedocks.moc"

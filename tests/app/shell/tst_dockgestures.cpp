// Docks that are dragged by the mouse, and docks that the program moves while the mouse drags a
// dock, a tab or a separator: the drag ends, the dock stays where the program has put it, and no
// other dock is lost.

#include "studiotestbase.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"

#include <QRubberBand>
#include <QTabBar>

class tst_DockGestures : public QObject, protected StudioTest
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        // The same window for the rows of a function, which differ in what the program does to it.
        if (studio && m_function != QTest::currentTestFunction())
            endShared();
        m_function = QTest::currentTestFunction();
        setUpShared();
    }
    void cleanup() { tearDownShared(); }
    void cleanupTestCase() { endShared(); }

    void aDraggedDockIsMovedByTheProgram_data();
    void aDraggedDockIsMovedByTheProgram();
    void aPressedTabIsMovedByTheProgram_data() { addChanges(); }
    void aPressedTabIsMovedByTheProgram();
    void tabsAreReorderedByADrag();
    void tabsOutOfUseAreNotDragged();
    void aSeparatorIsDraggedWhileTheProgramMovesDocks_data() { addChanges(); }
    void aSeparatorIsDraggedWhileTheProgramMovesDocks();
    void theCursorShowsHowASeparatorMoves();
    void aSeparatorUnderTheMouseIsRemoved_data() { addChanges(); }
    void aSeparatorUnderTheMouseIsRemoved();
    void aDropPutsTheDockAtTheShownPosition();
    void aDropOutsideLeavesTheDockFloating();
    void controlLeavesTheDockFloating();
    void aLostReleaseEndsTheDrag();
    void aChangeRightAfterADrop();

private:
    static void addChanges();
    void change(const QByteArray &what, PaneDock *dock) const;
    PaneDock *dock(const char *paneClass) const { return window()->docks()->find(paneClass); }
    QPoint titleIn(const PaneDock *dock) const
    {
        return dock->titleBarWidget()->mapTo(window(), dock->titleBarWidget()->rect().center());
    }
    /// A point of a dock beside which another can be dropped.
    static QPoint placeIn(const PaneDock *dock)
    {
        return {dock->geometry().right() - 30, dock->geometry().center().y()};
    }
    static int tabOf(const QTabBar &tabs, const PaneDock *dock);
    QTabBar *tabsOf(const PaneDock *dock) const;
    QPoint tabIn(const PaneDock *dock) const
    {
        const QTabBar *tabs = tabsOf(dock);
        return tabs->mapTo(window(), tabs->tabRect(tabOf(*tabs, dock)).center());
    }
    QWidget *place() const { return window()->findChild<QRubberBand *>("DockPlace"); }
    QPoint nestedSeparator() const;
    void checkAllDocksHavePlaces(const QByteArray &what) const;

    QByteArray m_function;
};

void tst_DockGestures::addChanges()
{
    QTest::addColumn<QByteArray>("what");
    for (const char *what : {"area", "tabs", "split", "removed", "removed and added", "hidden",
                             "closed", "docked", "layout", "other area", "other removed"})
        QTest::newRow(what) << QByteArray(what);
}

void tst_DockGestures::change(const QByteArray &what, PaneDock *dock) const
{
    QMainWindow *window = this->window();
    PaneDock *other = this->dock("VxScenePane");
    if (what == "area") {
        window->addDockWidget(Qt::TopDockWidgetArea, dock);
    } else if (what == "tabs") {
        window->tabifyDockWidget(other, dock);
    } else if (what == "split") {
        window->splitDockWidget(other, dock, Qt::Vertical);
    } else if (what == "hidden") {
        dock->hide();
    } else if (what == "closed") {
        dock->close();
    } else if (what == "docked") {
        dock->setFloating(false);
    } else if (what == "layout") {
        this->window()->applyDefaultLayout();
    } else if (what == "other area") {
        window->addDockWidget(Qt::TopDockWidgetArea, other);
    } else if (what == "other removed") {
        window->removeDockWidget(other);
    } else {
        window->removeDockWidget(dock);
        if (what == "removed and added") {
            window->addDockWidget(Qt::LeftDockWidgetArea, dock);
            dock->show();
        }
    }
}

void tst_DockGestures::checkAllDocksHavePlaces(const QByteArray &what) const
{
    for (PaneDock *each : window()->docks()->docks()) {
        if (!what.endsWith("removed") && !each->isFloating())
            QVERIFY2(window()->dockWidgetArea(each) != Qt::NoDockWidgetArea,
                     qPrintable(each->objectName()));
    }
}

void tst_DockGestures::aDraggedDockIsMovedByTheProgram_data()
{
    QTest::addColumn<QByteArray>("what");
    QTest::addColumn<bool>("overAPlace"); // where a drop would dock
    for (const char *what : {"area", "tabs", "split", "removed", "removed and added", "hidden",
                             "closed", "docked", "layout", "other area", "other removed"}) {
        QTest::addRow("%s", what) << QByteArray(what) << false;
        QTest::addRow("%s, over a place", what) << QByteArray(what) << true;
    }
}

void tst_DockGestures::aDraggedDockIsMovedByTheProgram()
{
    QFETCH(QByteArray, what);
    QFETCH(bool, overAPlace);
    PaneDock *parameters = dock("VxParametersPane");
    parameters->raise();
    VxMouseDriver mouse(window());
    const QPoint title = titleIn(parameters);
    const QPoint over =
        overAPlace ? placeIn(dock("VxTimePane")) : window()->viewport()->geometry().center();
    mouse.press(title);
    mouse.moveTo(title + QPoint(-40, 20));
    mouse.moveTo(over);
    QCOMPARE(QWidget::mouseGrabber(), static_cast<QWidget *>(parameters));
    QTRY_COMPARE(place()->isVisible(), overAPlace);

    change(what, parameters);
    const bool continues = what.startsWith("other");
    for (int i = 0; i < 5; ++i)
        mouse.moveTo(title + QPoint(-100 - 30 * i, 60));
    QCOMPARE(QWidget::mouseGrabber(), continues ? static_cast<QWidget *>(parameters) : nullptr);
    QVERIFY(continues || place()->isHidden());
    mouse.release(over);
    QVERIFY(!QWidget::mouseGrabber());
    QVERIFY(place()->isHidden());
    checkAllDocksHavePlaces(what);
    if (what == "area")
        QCOMPARE(window()->dockWidgetArea(parameters), Qt::TopDockWidgetArea);
    if (what == "tabs")
        QVERIFY(window()->tabifiedDockWidgets(dock("VxScenePane")).contains(parameters));
    if (what == "other area")
        QCOMPARE(window()->dockWidgetArea(dock("VxScenePane")), Qt::TopDockWidgetArea);
    if (continues && overAPlace)
        QCOMPARE(window()->dockWidgetArea(parameters), Qt::BottomDockWidgetArea);
}

/** The index of the dock's tab; -1 when it has none here. */
int tst_DockGestures::tabOf(const QTabBar &tabs, const PaneDock *dock)
{
    for (int i = 0; i < tabs.count(); ++i) {
        if (tabs.tabData(i).toULongLong() == quintptr(dock))
            return i;
    }
    return -1;
}

QTabBar *tst_DockGestures::tabsOf(const PaneDock *dock) const
{
    for (QTabBar *bar : window()->findChildren<QTabBar *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (tabOf(*bar, dock) >= 0)
            return bar;
    }
    return nullptr;
}

void tst_DockGestures::aPressedTabIsMovedByTheProgram()
{
    QFETCH(QByteArray, what);
    PaneDock *parameters = dock("VxParametersPane");
    QVERIFY(tabsOf(dock("VxHistoryPane")));
    VxMouseDriver mouse(window());
    const QPoint at = tabIn(dock("VxHistoryPane"));
    mouse.press(at);
    mouse.moveTo(at + QPoint(3, 0));
    change(what, dock("VxHistoryPane"));
    for (int i = 1; i < 8; ++i)
        mouse.moveTo(at + QPoint(-10 * i, 2));
    mouse.release(at);
    checkAllDocksHavePlaces(what);
    QVERIFY(parameters->pane());
}

void tst_DockGestures::tabsAreReorderedByADrag()
{
    QTabBar *tabs = tabsOf(dock("VxHistoryPane"));
    QVERIFY(tabs);
    QVERIFY(tabs->count() > 1);
    const QString first = tabs->tabText(0);
    const QString second = tabs->tabText(1);
    VxMouseDriver mouse(window());
    const QPoint at = tabs->mapTo(window(), tabs->tabRect(0).center());
    mouse.press(at);
    const QPoint beyond = at + QPoint(tabs->tabRect(1).width(), 0);
    mouse.moveTo(at + QPoint(20, 0));
    mouse.moveTo(beyond);
    mouse.release(beyond);
    QCOMPARE(tabs->tabText(0), second);
    QCOMPARE(tabs->tabText(1), first);
}

/** The toolkit leaves such tabs behind at times, and finds no place for them when they move. */
void tst_DockGestures::tabsOutOfUseAreNotDragged()
{
    QTabBar tabs(window());
    for (const char *paneClass : {"VxScenePane", "VxTimePane"})
        tabs.setTabData(tabs.addTab(paneClass), quintptr(dock(paneClass)));
    tabs.setMovable(true);
    tabs.adjustSize();
    tabs.show();
    QCoreApplication::processEvents();
    VxMouseDriver mouse(&tabs);
    const QPoint at = tabs.tabRect(0).center();
    mouse.press(at);
    const QPoint beyond = at + QPoint(tabs.tabRect(1).width(), 0);
    mouse.moveTo(at + QPoint(20, 0));
    mouse.moveTo(beyond);
    mouse.release(beyond);
    QCOMPARE(tabs.tabText(0), QString("VxScenePane"));
}

void tst_DockGestures::aSeparatorIsDraggedWhileTheProgramMovesDocks()
{
    QFETCH(QByteArray, what);
    PaneDock *scene = dock("VxScenePane");
    VxMouseDriver mouse(window());
    const QPoint separator(scene->geometry().right() + 3, scene->geometry().center().y());
    mouse.press(separator);
    const int width = scene->width();
    mouse.moveTo(separator + QPoint(30, 0));
    QTRY_VERIFY(scene->width() > width);
    change(what, dock("VxParametersPane"));
    for (int i = 0; i < 5; ++i) {
        mouse.moveTo(separator + QPoint(60 + 20 * i, 0));
        QCoreApplication::processEvents();
    }
    mouse.release(separator);
    checkAllDocksHavePlaces(what);
    if (what == "tabs")
        QVERIFY(window()->tabifiedDockWidgets(scene).contains(dock("VxParametersPane")));
}

/** Two docks beside each other below the scene tree: the separator between them. */
QPoint tst_DockGestures::nestedSeparator() const
{
    PaneDock *left = dock("VxParametersPane");
    window()->addDockWidget(Qt::LeftDockWidgetArea, left, Qt::Vertical);
    window()->splitDockWidget(left, dock("VxConsolePane"), Qt::Horizontal);
    QCoreApplication::processEvents();
    return {left->geometry().right() + 3, left->geometry().center().y()};
}

void tst_DockGestures::theCursorShowsHowASeparatorMoves()
{
    const QPoint separator = nestedSeparator();
    const QRect below = dock("VxParametersPane")->geometry();
    VxMouseDriver mouse(window());
    mouse.moveTo(separator);
    QCOMPARE(window()->cursor().shape(), Qt::SplitHCursor);
    mouse.moveTo(below.center());
    QCOMPARE(window()->cursor().shape(), Qt::ArrowCursor);
    mouse.moveTo(QPoint(below.center().x(), below.top() - 3));
    QCOMPARE(window()->cursor().shape(), Qt::SplitVCursor);
}

/** The toolkit reads what it kept of the separator at the next movement of the mouse. */
void tst_DockGestures::aSeparatorUnderTheMouseIsRemoved()
{
    QFETCH(QByteArray, what);
    const QPoint separator = nestedSeparator();
    QVERIFY(window()->isSeparator(separator));
    VxMouseDriver mouse(window());
    mouse.moveTo(separator);
    change(what, dock("VxParametersPane"));
    QCoreApplication::processEvents();
    mouse.moveTo(dock("VxScenePane")->geometry().center());
    mouse.moveTo(separator);
    checkAllDocksHavePlaces(what);
}

/** The user's own drop moves a dock as well, and is no reason to end anything. */
void tst_DockGestures::aDropPutsTheDockAtTheShownPosition()
{
    PaneDock *scene = dock("VxScenePane");
    VxMouseDriver mouse(window());
    const QPoint title = titleIn(scene);
    const QPoint over = placeIn(dock("VxTimePane"));
    mouse.press(title);
    mouse.moveTo(title + QPoint(20, 20));
    mouse.moveTo(over);
    QVERIFY(scene->isFloating());
    QVERIFY(QRect(scene->mapToGlobal({0, 0}), scene->size()).contains(window()->mapToGlobal(over)));
    QCOMPARE(QWidget::mouseGrabber(), static_cast<QWidget *>(scene));
    QTRY_VERIFY(place()->isVisible());
    const QRect shown = place()->geometry();
    QCOMPARE(QWidget::mouseGrabber(), static_cast<QWidget *>(scene));
    mouse.release(over);
    QVERIFY(!QWidget::mouseGrabber());
    QVERIFY(place()->isHidden());
    QVERIFY(scene->isVisible());
    QVERIFY(!scene->isFloating());
    QCOMPARE(window()->dockWidgetArea(scene), Qt::BottomDockWidgetArea);
    QCOMPARE(scene->geometry().bottomRight(), shown.bottomRight());
    const QSize difference = scene->size() - shown.size(); // a separator's width at most
    QVERIFY(qMax(qAbs(difference.width()), qAbs(difference.height())) <= 6);
}

void tst_DockGestures::aDropOutsideLeavesTheDockFloating()
{
    PaneDock *scene = dock("VxScenePane");
    VxMouseDriver mouse(window());
    const QPoint title = titleIn(scene);
    const QSize size = scene->size();
    mouse.press(title);
    mouse.moveTo(title + QPoint(20, 20));
    mouse.moveTo(title + QPoint(-600, -300));
    mouse.release(title + QPoint(-600, -300));
    QVERIFY(scene->isFloating());
    QVERIFY(scene->isVisible());
    QCOMPARE(scene->size(), size);
}

void tst_DockGestures::controlLeavesTheDockFloating()
{
    PaneDock *scene = dock("VxScenePane");
    VxMouseDriver mouse(window());
    const QPoint title = titleIn(scene);
    const QPoint over = placeIn(dock("VxTimePane"));
    mouse.press(title);
    mouse.moveTo(over);
    QTRY_VERIFY(place()->isVisible());
    mouse.moveTo(over + QPoint(1, 0), Qt::ControlModifier);
    QTRY_VERIFY(place()->isHidden());
    mouse.release(over, Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(scene->isFloating());
}

void tst_DockGestures::aLostReleaseEndsTheDrag()
{
    PaneDock *scene = dock("VxScenePane");
    VxMouseDriver mouse(window());
    const QPoint title = titleIn(scene);
    mouse.press(title);
    mouse.moveTo(title + QPoint(20, 20));
    const QPoint at = scene->pos();
    VxMouseDriver(window()).moveTo(title + QPoint(80, 80)); // with no button held
    QVERIFY(!QWidget::mouseGrabber());
    QCOMPARE(scene->pos(), at);
}

/** A drop is done when the mouse is released: what follows finds a layout that obeys. */
void tst_DockGestures::aChangeRightAfterADrop()
{
    PaneDock *scene = dock("VxScenePane");
    VxMouseDriver mouse(window());
    const QPoint title = titleIn(scene);
    const QPoint over = placeIn(dock("VxTimePane"));
    mouse.press(title);
    mouse.moveTo(title + QPoint(20, 20));
    mouse.moveTo(over);
    mouse.release(over);
    change("removed and added", scene);
    QCoreApplication::processEvents();
    const int width = window()->viewport()->width();
    window()->resize(window()->size() + QSize(100, 0));
    QTRY_COMPARE(window()->viewport()->width(), width + 100);
}

VX_TEST_MAIN(tst_DockGestures)
#include "tst_dockgestures.moc"

#include "boxanswer.h"
#include "document/documentcontroller.h"
#include "shell/commandline.h"
#include "shell/panedock.h"
#include "shell/panedocks.h"
#include "shell/studio.h"
#include "shell/studioclasses.h"
#include "shell/studiowindow.h"
#include "smallmotion.h"
#include "testing/vxmousedriver.h"
#include "testing/vxtestmain.h"
#include "testing/vxwarningguard.h"
#include "viewport/viewportwidget.h"

#include <QAbstractButton>
#include <QMenuBar>
#include <QMessageBox>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <QtTest>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxclassfactory.h>
#include <vxcore/vxnode.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxpanemgr.h>
#include <vxcore/vxpluginmgr.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxstyle.h>
#include <vxcore/vxundostack.h>
#include <vxcore/vxundostackhold.h>

/// The whole window, with the module loaded from the plug-in folder.
class tst_StudioWindow : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void everyPaneHasADock();
    void defaultLayout();
    void defaultLayoutOfALargeWindow();
    void firstLayoutHasRoomToWork();
    void bottomOfASmallWindow();
    void firstSize_data();
    void firstSize();
    void panesOfOneAreaAreNeverSideBySide();
    void menus();
    void dockTogglesAndPaneActions();
    void optionsMenu();
    void optionsButtonOpensTheMenu();
    void closedDockIsShownOnRequest();
    void openFile();
    void brokenFileKeepsTheScene();
    void titleShowsChanges();
    void undoIsRefusedDuringOpenHolds();
    void newAsksForChanges_data();
    void newAsksForChanges();
    void savesAndReopens();
    void shortcutsWork();
    void paletteMenu();
    void layoutIsKept();
    void layoutOfAnotherSize();
    void layoutOfLikeSizes();
    void windowNeverShownKeepsNoLayout();
    void viewportDrags();
    void viewportFramesTheFigure();
    void shutDownWhilePlaying();

private:
    void start(const QStringList &arguments = {});
    QString write(const char *name, const QByteArray &bytes) const;
    void makeChange() const;
    QMenu *menu(const QString &title) const;
    QAction *entry(const QString &menuTitle, const QString &text) const;
    StudioWindow *window() const { return m_studio->window(); }

    QScopedPointer<VxWarningGuard> m_guard;
    QScopedPointer<QTemporaryDir> m_dir;
    QScopedPointer<Studio> m_studio;
};

void tst_StudioWindow::init()
{
    m_guard.reset(new VxWarningGuard);
    m_dir.reset(new QTemporaryDir);
    start();
}

void tst_StudioWindow::cleanup()
{
    m_studio.reset();
    m_dir.reset();
    m_guard.reset();
}

void tst_StudioWindow::start(const QStringList &arguments)
{
    m_studio.reset();
    const CommandLine line =
        CommandLine::parse(QStringList{"vxstudio", "--settings", m_dir->filePath("settings.json"),
                                       "--plugin-path", VX_PLUGIN_DIR} +
                           arguments);
    QVERIFY2(line.action == CommandLine::Action::Run, qPrintable(line.errorText));
    m_studio.reset(new Studio(line));
    window()->show();
    QVERIFY(QTest::qWaitForWindowExposed(window()));
}

QString tst_StudioWindow::write(const char *name, const QByteArray &bytes) const
{
    QFile file(m_dir->filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", name);
    return file.fileName();
}

/** One undo entry, "Change". */
void tst_StudioWindow::makeChange() const
{
    VxUndoStackHold hold;
    vxScene->setTimeStep(vxScene->getTimeStep() + 1);
    hold.accept(QStringLiteral("Change"));
}

QMenu *tst_StudioWindow::menu(const QString &title) const
{
    for (const QAction *action : window()->menuBar()->actions()) {
        if (action->text().remove('&') == title)
            return action->menu();
    }
    return nullptr;
}

QAction *tst_StudioWindow::entry(const QString &menuTitle, const QString &text) const
{
    const QMenu *found = menu(menuTitle);
    for (QAction *action : found ? found->actions() : QList<QAction *>()) {
        if (action->text().remove('&') == text)
            return action;
    }
    return nullptr;
}

void tst_StudioWindow::everyPaneHasADock()
{
    QCOMPARE(vxApp->getPluginMgr()->getPlugins().size(), 2);
    const QVector<VxPane *> panes = window()->getPaneMgr()->getPanes();
    QCOMPARE(window()->docks()->docks().size(), panes.size());
    for (const char *name : {"VxTimePane", "VxScenePane", "VxParametersPane"}) {
        const PaneDock *dock = window()->docks()->find(QLatin1String(name));
        QVERIFY2(dock, name);
        QCOMPARE(dock->objectName(), QStringLiteral("Dock") + QLatin1String(name));
        QCOMPARE(dock->windowTitle(), dock->pane()->getTitle());
        QVERIFY(dock->isVisible());
    }
    QCOMPARE(window()->docks()->find("VxTimePane")->windowTitle(), QString("Timeline"));
}

void tst_StudioWindow::defaultLayout()
{
    QCOMPARE(window()->size(), QSize(1280, 800));
    const PaneDock *time = window()->docks()->find("VxTimePane");
    const PaneDock *tree = window()->docks()->find("VxScenePane");
    const PaneDock *parameters = window()->docks()->find("VxParametersPane");
    QTRY_VERIFY(std::abs(tree->width() - 220) < 20);
    QVERIFY(std::abs(parameters->width() - 260) < 20);
    QVERIFY(std::abs(time->height() - 430) < 20);
    QVERIFY(time->width() > 1250); // below everything
    const QPoint middle =
        window()->viewport()->mapTo(window(), window()->viewport()->rect().center());
    QVERIFY(tree->geometry().right() < middle.x());
    QVERIFY(parameters->x() > middle.x());
    QVERIFY(time->y() > middle.y());
}

void tst_StudioWindow::defaultLayoutOfALargeWindow()
{
    m_studio.reset();
    QVERIFY(QFile::remove(m_dir->filePath("settings.json"))); // the first start of all
    start({"--size", "2560x1440"});
    QCOMPARE(window()->size(), QSize(2560, 1440));
    const auto dock = [this](const char *name) {
        return window()->docks()->find(QLatin1String(name));
    };
    // Not quite half, of which the tabs below take some.
    const auto height = [&] { return dock("VxTimePane")->height(); };
    QTRY_VERIFY2(height() > 600 && height() < 650, qPrintable(QString::number(height())));
    QVERIFY(std::abs(dock("VxScenePane")->width() - 320) < 20);
    QVERIFY(std::abs(dock("VxParametersPane")->width() - 320) < 20);
    QVERIFY(window()->viewport()->height() > 700);
}

/// The sheet, the curves and the figure are all of use in a window of the first size.
void tst_StudioWindow::firstLayoutHasRoomToWork()
{
    const auto *sheet = window()->findChild<QTreeView *>("TimelineDopeSheetTView");
    const auto *graph = window()->findChild<QWidget *>("TimelineKeyGraphView");
    QVERIFY(sheet && graph);
    QVERIFY(window()->document()->open(write("walk.bvh", smallMotion)));
    QTRY_VERIFY(sheet->model() && sheet->model()->rowCount() > 0);
    const int row = sheet->visualRect(sheet->model()->index(0, 0)).height();
    QVERIFY(row > 0);
    QTRY_VERIFY2(sheet->viewport()->height() >= 10 * row,
                 qPrintable(QString::number(sheet->viewport()->height())));
    QVERIFY2(graph->height() >= 90, qPrintable(QString::number(graph->height())));
    QVERIFY2(window()->viewport()->height() >= 256,
             qPrintable(QString::number(window()->viewport()->height())));
}

void tst_StudioWindow::bottomOfASmallWindow()
{
    m_studio.reset();
    QVERIFY(QFile::remove(m_dir->filePath("settings.json")));
    start({"--size", "1100x640"});
    QTRY_VERIFY(window()->docks()->find("VxTimePane")->height() > 300);
    QVERIFY2(window()->viewport()->height() > 180,
             qPrintable(QString::number(window()->viewport()->height())));
}

void tst_StudioWindow::firstSize_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<QSize>("window");
    QTest::newRow("of 4:3 and small") << QSize(1024, 768) << QSize(1008, 720);
    QTest::newRow("of a laptop") << QSize(1366, 768) << QSize(1280, 720);
    QTest::newRow("common") << QSize(1920, 1080) << QSize(1536, 864);
    QTest::newRow("large") << QSize(2560, 1440) << QSize(2048, 1152);
    QTest::newRow("none") << QSize(0, 0) << QSize(1, 1);
}

void tst_StudioWindow::firstSize()
{
    QFETCH(QSize, screen);
    QTEST(StudioWindow::firstSize(screen), "window");
}

/// Two of them beside each other would make a first window wider than it should be, for good.
void tst_StudioWindow::panesOfOneAreaAreNeverSideBySide()
{
    m_studio.reset();
    QVERIFY(QFile::remove(m_dir->filePath("settings.json")));
    m_studio.reset(
        new Studio(CommandLine::parse({"vxstudio", "--settings", m_dir->filePath("settings.json"),
                                       "--plugin-path", VX_PLUGIN_DIR})));
    PaneDock *time = window()->docks()->find("VxTimePane");
    PaneDock *console = window()->docks()->find("VxConsolePane");
    QVERIFY(window()->tabifiedDockWidgets(time).contains(console)); // before it is shown
    window()->show();
    QVERIFY(QTest::qWaitForWindowExposed(window()));
    QCOMPARE(window()->size(), QSize(1280, 800));
    window()->applyDefaultLayout();
    QCoreApplication::processEvents();
    QVERIFY(window()->tabifiedDockWidgets(time).contains(console));
    QVERIFY(!time->visibleRegion().isEmpty());
    QVERIFY(console->visibleRegion().isEmpty());
    QCOMPARE(window()->size(), QSize(1280, 800));
}

void tst_StudioWindow::menus()
{
    QStringList titles;
    for (const QAction *action : window()->menuBar()->actions())
        titles.append(action->text().remove('&'));
    QCOMPARE(titles, QStringList({"File", "Edit", "View", "Create", "Pose", "Animation", "Keys",
                                  "Window", "Help"}));
    QVERIFY(!menu("Animation")->actions().isEmpty());
    for (const char *text : {"New", "Open...", "Save", "Save As...", "Quit"})
        QVERIFY2(entry("File", QLatin1String(text)), text);
    // Every action with a menu path is in some menu.
    for (const VxAction *action : window()->getActionMgr()->getActions()) {
        if (!action->getDefaultMenuPath().isEmpty())
            QVERIFY2(action->associatedWidgets().size() > 1, qPrintable(action->objectName()));
    }
    // The 56 actions of the Timeline, those of the key tools, six of the library and the
    // host's own.
    int own = 0;
    for (const VxClassFactory *factory : studioClassFactories())
        own += factory->metaObject()->inherits(&VxAction::staticMetaObject) ? 1 : 0;
    QCOMPARE(window()->getActionMgr()->getActions().size(), 56 + 41 + 6 + own);
}

void tst_StudioWindow::dockTogglesAndPaneActions()
{
    PaneDock *dock = window()->docks()->find("VxScenePane");
    QAction *toggle = entry("Window", dock->windowTitle());
    QCOMPARE(toggle, dock->toggleViewAction());
    toggle->trigger();
    QVERIFY(!dock->isVisible());
    toggle->trigger();
    QVERIFY(dock->isVisible());
    QVERIFY(entry("Window", "Default Layout"));
    const QAction *panes = entry("Window", "Panes");
    QVERIFY(panes && panes->menu());
    QCOMPARE(panes->menu()->actions().value(0)->text(), QString("Timeline"));
}

void tst_StudioWindow::optionsMenu()
{
    const PaneDock *time = window()->docks()->find("VxTimePane");
    QVERIFY(time->findChild<QAbstractButton *>("PaneOptionsBtn"));
    const PaneDock *tree = window()->docks()->find("VxScenePane");
    QVERIFY(!tree->findChild<QAbstractButton *>("PaneOptionsBtn"));
    QVERIFY(tree->findChild<QAbstractButton *>("PaneCloseBtn"));
}

void tst_StudioWindow::optionsButtonOpensTheMenu()
{
    const PaneDock *time = window()->docks()->find("VxTimePane");
    auto *button = time->findChild<QAbstractButton *>("PaneOptionsBtn");
    QVERIFY(button);
    VxMouseDriver(button).click(button->rect().center());
    QTRY_VERIFY(QApplication::activePopupWidget());
    auto *popup = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(popup);
    QCOMPARE(popup->actions().value(0)->text(), QString("Preferences"));
    QVERIFY(popup->actions().size() > 20);
    popup->close();
}

void tst_StudioWindow::closedDockIsShownOnRequest()
{
    PaneDock *dock = window()->docks()->find("VxTimePane");
    auto *button = dock->findChild<QAbstractButton *>("PaneCloseBtn");
    VxMouseDriver(button).click(button->rect().center());
    QTRY_VERIFY(!dock->isVisible());
    window()->getActionMgr()->findAction("VxTimePaneAction")->trigger();
    QTRY_VERIFY(dock->isVisible());
}

void tst_StudioWindow::openFile()
{
    QCOMPARE(window()->windowTitle(), QString("Untitled[*] - VxStudio"));
    QVERIFY(window()->document()->open(write("walk.bvh", smallMotion)));
    QCOMPARE(window()->windowTitle(), QString("walk.bvh[*] - VxStudio"));
    QVERIFY(!window()->isWindowModified());
    QCOMPARE(vxScene->getNumNodes(), 2);
    QCOMPARE(vxApp->getUndoStack()->count(), 0);
    // Source rate and scene rate.
    QVERIFY2(window()->statusBar()->currentMessage().contains("40 frames per second"),
             qPrintable(window()->statusBar()->currentMessage()));
    makeChange();
    QVERIFY(window()->document()->open(write("run.bvh", smallMotion)));
    QCOMPARE(vxScene->getNumNodes(), 2);
    QVERIFY(!window()->isWindowModified());
}

void tst_StudioWindow::brokenFileKeepsTheScene()
{
    QVERIFY(window()->document()->open(write("walk.bvh", smallMotion)));
    makeChange();
    QByteArray broken = smallMotion;
    broken.replace("2\n3\n", "2\nthree\n");
    const QString file = write("broken.bvh", broken);
    const BoxAnswer box(QMessageBox::Ok);
    QVERIFY(!window()->document()->open(file));
    QVERIFY2(box.text().contains("broken.bvh, line 16"), qPrintable(box.text()));
    QCOMPARE(vxScene->getNumNodes(), 2);
    QCOMPARE(vxApp->getUndoStack()->count(), 1);
    QCOMPARE(window()->windowTitle(), QString("walk.bvh[*] - VxStudio"));
    QVERIFY(window()->isWindowModified());
}

void tst_StudioWindow::titleShowsChanges()
{
    QVERIFY(!window()->isWindowModified());
    makeChange();
    QVERIFY(window()->isWindowModified());
    QAction *undo = entry("Edit", "Undo Change");
    QVERIFY(undo && undo->isEnabled());
    undo->trigger();
    QVERIFY(!window()->isWindowModified());
    QVERIFY(!undo->isEnabled());
    QAction *redo = entry("Edit", "Redo Change");
    QVERIFY(redo);
    redo->trigger();
    QVERIFY(window()->isWindowModified());
    vxApp->getUndoStack()->setClean();
    QVERIFY(!window()->isWindowModified());
}

void tst_StudioWindow::undoIsRefusedDuringOpenHolds()
{
    makeChange();
    const VxTime step = vxScene->getTimeStep();
    const VxUndoStackHold gesture;
    entry("Edit", "Undo Change")->trigger();
    QCOMPARE(vxScene->getTimeStep(), step);
    QCOMPARE(vxApp->getUndoStack()->index(), 1);
}

void tst_StudioWindow::newAsksForChanges_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("isNew");
    QTest::newRow("discard") << int(QMessageBox::Discard) << true;
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << false;
}

void tst_StudioWindow::newAsksForChanges()
{
    QFETCH(int, answer);
    QFETCH(bool, isNew);
    QVERIFY(window()->document()->open(write("walk.bvh", smallMotion)));
    makeChange();
    const BoxAnswer box(static_cast<QMessageBox::StandardButton>(answer));
    entry("File", "New")->trigger();
    QVERIFY(box.text().contains("walk.bvh"));
    QCOMPARE(vxScene->getNumNodes() == 0, isNew);
    QCOMPARE(window()->windowTitle().startsWith("Untitled"), isNew);
    vxApp->getUndoStack()->setClean();
}

void tst_StudioWindow::savesAndReopens()
{
    QVERIFY(window()->document()->open(write("walk.bvh", smallMotion)));
    QVERIFY(!window()->document()->hasWritableFile()); // motion is only read
    makeChange();
    const VxTime step = vxScene->getTimeStep();
    const QString file = m_dir->filePath("walk.vxscene");
    QVERIFY(window()->document()->save(file));
    QVERIFY(!window()->isWindowModified());
    QCOMPARE(window()->windowTitle(), QString("walk.vxscene[*] - VxStudio"));
    makeChange();
    QVERIFY(window()->save()); // without a dialog now
    window()->document()->clear();
    QVERIFY(window()->document()->open(file));
    QCOMPARE(vxScene->getTimeStep(), step + 1);
    QCOMPARE(vxScene->getNumNodes(), 2);
}

void tst_StudioWindow::shortcutsWork()
{
    VxActionMgr *actions = window()->getActionMgr();
    QVERIFY(actions->setShortcut("VxNextFrameAction", QKeySequence(Qt::Key_F9)));
    window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window()));
    window()->viewport()->setFocus();
    const VxTime before = vxScene->getTime();
    QTest::keyClick(window()->windowHandle(), Qt::Key_F9);
    QCOMPARE(vxScene->getTime(), before + vxScene->getTimeStep());
}

void tst_StudioWindow::paletteMenu()
{
    QVERIFY(entry("View", "Dark Palette")->isChecked());
    entry("View", "Light Palette")->trigger();
    QVERIFY(vxApp->getStyle()->colorScheme() == VxStyle::ColorScheme::Light);
    QVERIFY(entry("View", "Light Palette")->isChecked());
    start();
    QVERIFY(vxApp->getStyle()->colorScheme() == VxStyle::ColorScheme::Light); // kept
    start({"--palette", "dark"});
    QVERIFY(vxApp->getStyle()->colorScheme() == VxStyle::ColorScheme::Dark);
}

void tst_StudioWindow::layoutIsKept()
{
    window()->resize(1100, 700);
    window()->docks()->find("VxParametersPane")->hide();
    start();
    QCOMPARE(window()->size(), QSize(1100, 700));
    QVERIFY(!window()->docks()->find("VxParametersPane")->isVisible());
    QVERIFY(window()->docks()->find("VxTimePane")->isVisible());
    entry("Window", "Default Layout")->trigger();
    QVERIFY(window()->docks()->find("VxParametersPane")->isVisible());
}

void tst_StudioWindow::windowNeverShownKeepsNoLayout()
{
    // A first run whose file cannot be opened ends before there is a window.
    m_studio.reset();
    const QString settings = m_dir->filePath("other.json");
    const QStringList arguments{"vxstudio", "--settings", settings, "--plugin-path", VX_PLUGIN_DIR};
    {
        const Studio unseen(CommandLine::parse(arguments));
    }
    QVERIFY(QFileInfo::exists(settings));
    start({"--settings", settings});
    const QByteArray first = window()->saveState();
    m_studio.reset(); // writes its settings
    m_dir.reset(new QTemporaryDir);
    start();
    QCOMPARE(first, window()->saveState());
    QVERIFY(!window()->docks()->find("VxTimePane")->visibleRegion().isEmpty());
}

/// What was arranged on a large screen leaves the figure no room on a small one.
void tst_StudioWindow::layoutOfAnotherSize()
{
    start({"--size", "2560x1440"});
    PaneDock *time = window()->docks()->find("VxTimePane");
    window()->resizeDocks({time}, {900}, Qt::Vertical);
    window()->docks()->find("VxHistoryPane")->hide();
    start({"--size", "1280x800"});
    QCOMPARE(window()->size(), QSize(1280, 800));
    QTRY_VERIFY2(window()->viewport()->height() > 250,
                 qPrintable(QString::number(window()->viewport()->height())));
    QVERIFY(!window()->docks()->find("VxHistoryPane")->isVisible()); // arranged as it was
}

void tst_StudioWindow::layoutOfLikeSizes()
{
    window()->resizeDocks({window()->docks()->find("VxTimePane")}, {300}, Qt::Vertical);
    QCoreApplication::processEvents();
    const int height = window()->docks()->find("VxTimePane")->height();
    QVERIFY(height < 350);
    start({"--size", "1240x780"});
    QCoreApplication::processEvents();
    QVERIFY2(std::abs(window()->docks()->find("VxTimePane")->height() - height) < 30,
             qPrintable(QString::number(window()->docks()->find("VxTimePane")->height())));
}

void tst_StudioWindow::viewportDrags()
{
    ViewportWidget *view = window()->viewport();
    VxMouseDriver mouse(view);
    const QPoint middle = view->rect().center();
    vxScene->addNode(new VxNode(QStringLiteral("node"))); // an empty scene has buttons there
    QCoreApplication::processEvents();
    const ViewportCamera first = view->camera();
    mouse.drag(middle, middle + QPoint(40, 10));
    QCOMPARE(view->camera().target(), first.target()); // left: orbit
    QVERIFY(view->camera().eye() != first.eye());

    const ViewportCamera second = view->camera();
    mouse.drag(middle, middle + QPoint(40, 10), Qt::MiddleButton);
    QVERIFY(view->camera().target() != second.target()); // middle: pan
    QCOMPARE(view->camera().distance(), second.distance());

    const ViewportCamera third = view->camera();
    mouse.drag(middle, middle + QPoint(0, -40), Qt::MiddleButton, Qt::ControlModifier);
    QVERIFY(view->camera().distance() < third.distance()); // Ctrl and middle: zoom
    QCOMPARE(view->camera().target(), third.target());

    const ViewportCamera fourth = view->camera();
    mouse.moveTo(middle + QPoint(100, 0)); // no button, nothing happens
    QVERIFY(view->camera() == fourth);
}

void tst_StudioWindow::viewportFramesTheFigure()
{
    QByteArray far = smallMotion;
    far.replace("1\n2\n3\n", "1000\n1002\n1004\n");
    QVERIFY(window()->document()->open(write("far.bvh", far)));
    const auto point = window()->viewport()->camera().project(QVector3D(1000, 1, 0));
    QVERIFY(point);
    QVERIFY(QRectF(window()->viewport()->rect()).contains(*point));
}

void tst_StudioWindow::shutDownWhilePlaying()
{
    QVERIFY(window()->document()->open(write("walk.bvh", smallMotion)));
    vxScene->loopPlayback(true);
    vxScene->play();
    const QSignalSpy moved(vxScene, &VxScene::timeChanged);
    QTRY_VERIFY(moved.count() > 2);
    m_studio.reset(); // no crash, no warning
    QVERIFY(!vxApp);
}

static int runTests(int argc, char **argv)
{
    // Heights in rows are heights of text: the same on every screen.
    qputenv("QT_FONT_DPI", "96");
    QApplication application(argc, argv);
    tst_StudioWindow test;
    return QTest::qExec(&test, argc, argv);
}

VX_TEST_UNIT(&runTests)

#include "tst_studiowindow.moc"

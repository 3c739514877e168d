#include "shell/studiomenus.h"

#include "document/recentfilesmenu.h"
#include "recovery/recoverycontroller.h"
#include "recovery/recoverymenu.h"
#include "shell/menutypeahead.h"
#include "shell/panedock.h"
#include "shell/panedocks.h"
#include "shell/studiowindow.h"
#include "shell/timeview.h"
#include "viewport/viewportwidget.h"
#include "widgets/menumnemonics.h"

#include <QActionGroup>
#include <QMenuBar>
#include <QUndoStack>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxpane.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxscenetimedisplay.h>
#include <vxcore/vxsceneviews.h>
#include <vxcore/vxtimeaxis.h>
#include <vxcore/vxundostack.h>

namespace {

// The parts of the paths of the program's actions.
[[maybe_unused]] const char *const partsOfPaths[] = {
    QT_TRANSLATE_NOOP("VxMenuPath", "Create"),
    QT_TRANSLATE_NOOP("VxMenuPath", "Pose"),
    QT_TRANSLATE_NOOP("VxMenuPath", "View"),
    QT_TRANSLATE_NOOP("VxMenuPath", "Camera"),
    QT_TRANSLATE_NOOP("VxMenuPath", "Markers"),
    QT_TRANSLATE_NOOP("VxMenuPath", "Gizmo Orientation"),
};

/** Makes an entry checkable, and checks it whenever its state, which a signal reports, is true. */
template <class Sender, class Signal, class State>
void showChecked(QAction *entry, Sender *sender, Signal changed, State state)
{
    entry->setCheckable(true);
    const auto show = [entry, state] { entry->setChecked(state()); };
    QObject::connect(sender, changed, entry, show);
    show();
}

} // namespace

StudioMenus::StudioMenus(StudioWindow *window)
    : QObject(window)
    , m_window(window)
{
    new MenuTypeAhead(this);
    buildFileMenu();
    buildEditMenu();
    buildViewMenu();
    // Filled by the actions.
    addBarMenu("Create", tr("&Create"));
    addBarMenu("Pose", tr("&Pose"));
    buildHelpMenu();
    m_defaultLayout = new QAction(this);
    adopt(m_defaultLayout,
          {"StudioDefaultLayout", tr("Default &Layout"), tr("Restores the default pane layout.")});
    connect(m_defaultLayout, &QAction::triggered, m_window, &StudioWindow::restoreDefaultLayout);
}

template <typename Slot> QAction *StudioMenus::addEntry(QMenu *menu, const Entry &entry, Slot slot)
{
    auto *action = new QAction(menu);
    adopt(action, entry);
    connect(action, &QAction::triggered, m_window, slot);
    menu->addAction(action);
    return action;
}

/** Sets an action's texts and its default shortcut, which the user can change. */
void StudioMenus::adopt(QAction *action, const Entry &entry)
{
    action->setObjectName(QLatin1String(entry.name));
    if (!entry.text.isEmpty())
        action->setText(entry.text);
    action->setStatusTip(entry.help);
    action->setShortcut(entry.shortcut);
    m_window->getActionMgr()->addCommand(action->objectName(), action);
}

void StudioMenus::buildFileMenu()
{
    QMenu *menu = addBarMenu("File", tr("&File"));
    addEntry(menu, {"StudioNew", tr("&New"), tr("Creates an empty scene."), QKeySequence::New},
             &StudioWindow::newDocument);
    addEntry(
        menu,
        {"StudioOpen", tr("&Open..."), tr("Opens a scene or motion file."), QKeySequence::Open},
        &StudioWindow::openWithDialog);
    addEntry(menu,
             {"StudioOpenSample", tr("Open Sa&mple"), tr("Opens a sample with a walking figure.")},
             &StudioWindow::openSample);
    auto *recent = new RecentFilesMenu(tr("Open &Recent"), m_window->recentFiles(), menu);
    connect(recent, &RecentFilesMenu::openRequested, m_window, &StudioWindow::openAfterAsking);
    menu->addMenu(recent);
    menu->addSeparator();
    addEntry(menu,
             {"StudioSave", tr("&Save"), tr("Saves the scene to its file."), QKeySequence::Save},
             &StudioWindow::save);
    addEntry(menu,
             {"StudioSaveAs", tr("Save &As..."), tr("Saves the scene to another file."),
              QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
             &StudioWindow::saveWithDialog);
    m_revert = addEntry(menu,
                        {"StudioRevert", tr("Re&vert"),
                         tr("Opens the file again and discards all unsaved changes.")},
                        &StudioWindow::revert);
    m_revert->setEnabled(false);
    menu->addSeparator();
    addEntry(menu,
             {"StudioImportMotion", tr("&Import Motion..."),
              tr("Adds the figure of a motion file to the scene.")},
             &StudioWindow::importMotion);
    addEntry(menu,
             {"StudioExportMotion", tr("&Export Motion..."),
              tr("Saves the motion of a figure to a file.")},
             &StudioWindow::exportMotion);
    addEntry(menu,
             {"StudioImportReport", tr("Import Repor&t..."),
              tr("Shows what was found in the motion file that was read last.")},
             &StudioWindow::showImportReport);
    menu->addSeparator();
    addEntry(menu,
             {"StudioImportMarkers", tr("Import Mar&kers..."),
              tr("Adds the markers of a CSV file to the scene.")},
             &StudioWindow::importMarkers);
    addEntry(menu,
             {"StudioExportMarkers", tr("E&xport Markers..."),
              tr("Saves the markers of the scene to a CSV file.")},
             &StudioWindow::exportMarkers);
    menu->addSeparator();
    addRecovery(menu);
    menu->addSeparator();
    QAction *quit = addEntry(
        menu, {"StudioQuit", tr("&Quit"), tr("Quits the program."), QKeySequence("Ctrl+Q")},
        &QWidget::close);
    quit->setMenuRole(QAction::QuitRole);
}

void StudioMenus::addRecovery(QMenu *menu)
{
    RecoveryController *recovery = m_window->recovery();
    auto *recover = new QAction(this);
    adopt(recover, {"StudioRecover", tr("&Recover Documents..."),
                    tr("Shows recovery copies of unsaved documents from earlier sessions.")});
    connect(recover, &QAction::triggered, recovery, &RecoveryController::offerOnDemand);
    menu->addMenu(new RecoveryMenu(tr("Recovery &Copies"), recovery->autoSave(), recover, menu));
}

void StudioMenus::buildEditMenu()
{
    QMenu *menu = addBarMenu("Edit", tr("&Edit"));
    addHistory(menu);
    menu->addSeparator();
    QAction *preferences =
        addEntry(menu,
                 {"StudioPreferences", tr("&Preferences..."),
                  tr("Shows and changes the preferences."), QKeySequence("Ctrl+,")},
                 [this] { Q_EMIT m_window->preferencesRequested(QString()); });
    preferences->setMenuRole(QAction::PreferencesRole);
    addEntry(menu,
             {"StudioShortcuts", tr("&Keyboard Shortcuts..."),
              tr("Shows and changes the shortcuts of all commands.")},
             &StudioWindow::requestShortcuts);
}

/** Undo and redo, with the texts of the history's entries. */
void StudioMenus::addHistory(QMenu *menu)
{
    VxUndoStack *undoStack = vxApp->getUndoStack();
    QUndoStack *stack = undoStack->qtStack();
    QAction *undo = stack->createUndoAction(this, tr("&Undo"));
    QAction *redo = stack->createRedoAction(this, tr("&Redo"));
    undo->setToolTip(tr("Undo"));
    redo->setToolTip(tr("Redo"));
    adopt(undo, {"StudioUndo", QString(), tr("Undoes the last change."), QKeySequence::Undo});
    adopt(redo,
          {"StudioRedo", QString(), tr("Redoes the last undone change."), QKeySequence::Redo});
    // The toolkit's stack supplies text and state; the trigger calls the host's, which does nothing
    // during a gesture.
    disconnect(undo, nullptr, stack, nullptr);
    disconnect(redo, nullptr, stack, nullptr);
    // After the toolkit, which takes an ampersand in a node's name or a script for a mnemonic.
    const auto showEntry = [](QAction *action, const QString &verb) {
        return [action, verb](QString entry) {
            if (entry.contains(QLatin1Char('&')))
                action->setText(verb + QLatin1Char(' ') +
                                entry.replace(QLatin1Char('&'), QLatin1String("&&")));
        };
    };
    connect(stack, &QUndoStack::undoTextChanged, undo, showEntry(undo, tr("&Undo")));
    connect(stack, &QUndoStack::redoTextChanged, redo, showEntry(redo, tr("&Redo")));
    connect(undo, &QAction::triggered, undoStack, &VxUndoStack::undo);
    connect(redo, &QAction::triggered, undoStack, &VxUndoStack::redo);
    menu->addActions({undo, redo});
}

void StudioMenus::setRevertEnabled(bool enabled)
{
    m_revert->setEnabled(enabled);
}

void StudioMenus::buildViewMenu()
{
    QMenu *menu = addBarMenu("View", tr("&View"));
    // Filled by the actions.
    QMenu *camera = menu->addMenu(tr("&Camera"));
    camera->setObjectName(QStringLiteral("Camera"));
    QAction *frameSelection = m_window->viewport()->frameSelectionAction();
    frameSelection->setStatusTip(tr("Frames the selected nodes in the viewport."));
    camera->addAction(frameSelection);
    menu->addSeparator();
    addTimeViews(menu);
    addGraphViews(menu->addMenu(tr("Key &Graph")));
    m_timeDisplayMenu = menu->addMenu(tr("Time D&isplay"));
    addTimeDisplay(m_timeDisplayMenu);
    menu->addSeparator();
    addPaletteChoice(menu);
}

/** Commands for the visible time range. */
void StudioMenus::addTimeViews(QMenu *menu)
{
    const auto report = [this](const QString &reason) {
        if (!reason.isEmpty())
            m_window->showStatusMessage(reason);
    };
    addEntry(menu,
             {"StudioShowAllTime", tr("Show &All Frames"),
              tr("Shows the whole animation in the timeline.")},
             [] { TimeView::showAll(vxScene); });
    addEntry(menu,
             {"StudioZoomToKeys", tr("&Zoom to Selected Keys"),
              tr("Shows the selected keys in the timeline.")},
             [report] { report(TimeView::zoomToKeys(vxScene, *vxApp->getKeySelection())); });
    QMenu *views = menu->addMenu(tr("Stored &Views"));
    static const char *const showNames[] = {"StudioShowView1", "StudioShowView2",
                                            "StudioShowView3"};
    static const char *const storeNames[] = {"StudioStoreView1", "StudioStoreView2",
                                             "StudioStoreView3"};
    for (int i = 0; i < VxSceneViews::Count; ++i) {
        addEntry(views,
                 {showNames[i], tr("Show View &%1").arg(i + 1),
                  tr("Shows the stored view %1 in the timeline.").arg(i + 1)},
                 [report, i] { report(TimeView::showView(vxScene, i + 1)); });
    }
    views->addSeparator();
    const QString storeTexts[] = {tr("&Store View 1"), tr("S&tore View 2"), tr("St&ore View 3")};
    for (int i = 0; i < VxSceneViews::Count; ++i) {
        addEntry(views,
                 {storeNames[i], storeTexts[i],
                  tr("Stores what the timeline shows as view %1 of the document.").arg(i + 1)},
                 [i] { TimeView::storeView(vxScene, i + 1); });
    }
}

/** What the buttons of the key graph do, for the keyboard. */
void StudioMenus::addGraphViews(QMenu *menu)
{
    const auto run = [this](bool (VxTimeAxis::*step)(int), int steps) {
        return [this, step, steps] {
            VxTimeAxis *axis = VxTimeAxis::of(vxFindPane(QStringLiteral("VxTimePane")));
            if (!axis || !(axis->*step)(steps))
                m_window->showStatusMessage(tr("The key graph is not visible."));
        };
    };
    addEntry(menu,
             {"StudioGraphHigher", tr("Show &Higher Values"),
              tr("Moves the curves of the key graph down."), QKeySequence("Ctrl+Alt+Up")},
             run(&VxTimeAxis::panValues, 1));
    addEntry(menu,
             {"StudioGraphLower", tr("Show &Lower Values"),
              tr("Moves the curves of the key graph up."), QKeySequence("Ctrl+Alt+Down")},
             run(&VxTimeAxis::panValues, -1));
    addEntry(menu,
             {"StudioGraphZoomIn", tr("Zoom &In"), tr("Enlarges the values of the key graph."),
              QKeySequence("Ctrl+Alt+PgUp")},
             run(&VxTimeAxis::zoomValues, 1));
    addEntry(menu,
             {"StudioGraphZoomOut", tr("Zoom &Out"), tr("Reduces the values of the key graph."),
              QKeySequence("Ctrl+Alt+PgDown")},
             run(&VxTimeAxis::zoomValues, -1));
}

/** An entry that changes the scene's time display, checked when it would change nothing. */
void StudioMenus::addTimeChoice(QMenu *menu, QActionGroup *group, const Entry &entry,
                                const std::function<void(VxTimeDisplay *)> &change)
{
    VxSceneTimeDisplay *shown = VxSceneTimeDisplay::of(vxScene);
    const auto changed = [shown, change] {
        VxTimeDisplay display = shown->display();
        change(&display);
        return display;
    };
    QAction *action =
        addEntry(menu, entry, [changed] { TimeView::setDisplay(vxScene, changed()); });
    group->addAction(action);
    showChecked(action, shown, &VxSceneTimeDisplay::changed,
                [shown, changed] { return changed() == shown->display(); });
}

void StudioMenus::addTimeDisplay(QMenu *menu)
{
    auto *units = new QActionGroup(this);
    const auto addUnit = [&](const char *name, const QString &text, const QString &help,
                             VxTimeDisplay::Unit unit) {
        addTimeChoice(menu, units, {name, text, help},
                      [unit](VxTimeDisplay *display) { display->unit = unit; });
    };
    addUnit("StudioTimeInFrames", tr("&Frames"), tr("Shows times in frames."),
            VxTimeDisplay::Frames);
    addUnit("StudioTimeInSeconds", tr("&Seconds"), tr("Shows times in seconds of playback."),
            VxTimeDisplay::Seconds);
    addUnit("StudioTimeInTicks", tr("Tic&ks"), tr("Shows times in ticks, 4800 a second."),
            VxTimeDisplay::Ticks);
    addUnit("StudioTimecode", tr("&Timecode"),
            tr("Shows times as hours, minutes, seconds and frames."), VxTimeDisplay::Timecode);
    menu->addSeparator();
    auto *rates = new QActionGroup(this);
    const struct
    {
        const char *name;
        VxFrameRate rate;
        bool dropsFrames;
    } choices[] = {{"StudioRateOfStep", {}, true},
                   {"StudioRate23976", {24000, 1001}, true},
                   {"StudioRate24", {24, 1}, true},
                   {"StudioRate25", {25, 1}, true},
                   {"StudioRate2997Drop", {30000, 1001}, true},
                   {"StudioRate2997", {30000, 1001}, false},
                   {"StudioRate30", {30, 1}, true},
                   {"StudioRate50", {50, 1}, true},
                   {"StudioRate5994Drop", {60000, 1001}, true},
                   {"StudioRate5994", {60000, 1001}, false},
                   {"StudioRate60", {60, 1}, true}};
    for (const auto &choice : choices) {
        const QString rate = choice.rate.text();
        const bool canDrop = choice.rate.isValid() && choice.rate.canDropFrames();
        const QString text = !choice.rate.isValid() ? tr("Rate of the Time Step")
                             : !canDrop             ? rate
                             : choice.dropsFrames   ? tr("%1 Drop-Frame").arg(rate)
                                                    : tr("%1 Non-Drop").arg(rate);
        addTimeChoice(menu, rates,
                      {choice.name, text, tr("The rate at which timecodes count frames.")},
                      [choice](VxTimeDisplay *display) {
                          display->rate = choice.rate;
                          display->dropsFrames = choice.dropsFrames;
                      });
    }
}

void StudioMenus::addPaletteChoice(QMenu *menu)
{
    VxStyle *style = vxApp->getStyle();
    auto *group = new QActionGroup(this);
    const auto add = [&](const Entry &entry, VxStyle::ColorScheme scheme) {
        QAction *action = addEntry(menu, entry, [style, scheme] { style->setColorScheme(scheme); });
        group->addAction(action);
        showChecked(action, style, &VxStyle::colorSchemeChanged,
                    [style, scheme] { return style->colorScheme() == scheme; });
    };
    add({"StudioDarkPalette", tr("&Dark Palette"), tr("Light text on a dark background.")},
        VxStyle::ColorScheme::Dark);
    add({"StudioLightPalette", tr("&Light Palette"), tr("Dark text on a light background.")},
        VxStyle::ColorScheme::Light);
    add({"StudioContrastPalette", tr("&High-Contrast Palette"),
         tr("White text on a black background.")},
        VxStyle::ColorScheme::Contrast);
    addCurveColors(menu);
}

void StudioMenus::addCurveColors(QMenu *menu)
{
    VxStyle *style = vxApp->getStyle();
    auto *action = addEntry(menu,
                            {"StudioSafeCurveColors", tr("Colour-&Blind Safe Curves"),
                             tr("Shows the axes in colours that everybody can distinguish.")},
                            [style](bool isSafe) {
                                style->setCurveColors(isSafe ? VxStyle::CurveColors::Safe
                                                             : VxStyle::CurveColors::Standard);
                            });
    showChecked(action, style, &VxStyle::curveColorsChanged,
                [style] { return style->curveColors() == VxStyle::CurveColors::Safe; });
}

/** Created with the others, because its shortcuts are needed; inserted last. */
void StudioMenus::buildHelpMenu()
{
    m_helpMenu = new QMenu(tr("&Help"), m_window->menuBar());
    addEntry(m_helpMenu,
             {"StudioKeyOverview", tr("&Keyboard and Mouse"),
              tr("Shows help for the keyboard and the mouse."), QKeySequence(Qt::Key_F1)},
             &StudioWindow::showKeyOverview);
    m_helpMenu->addSeparator();
    addEntry(m_helpMenu,
             {"StudioAbout", tr("&About %1").arg(VxApp::getAppName()),
              tr("Shows version information for the program and its plug-ins.")},
             &StudioWindow::showAbout);
}

void StudioMenus::addActionsAndPanes(const PaneDocks &docks)
{
    QMenuBar *bar = m_window->menuBar();
    const VxActionMgr *actions = m_window->getActionMgr();
    actions->populateMenuBar(bar);
    // In the window too, so that shortcuts of actions without a menu work.
    for (VxAction *action : actions->getActions())
        m_window->addAction(action);

    buildWindowMenu(docks);
    bar->addMenu(m_helpMenu);
    MenuMnemonics::add(bar);
    MenuMnemonics::add(m_windowMenu);
}

void StudioMenus::buildWindowMenu(const PaneDocks &docks)
{
    // Last in the bar, wherever the actions have inserted it.
    QMenuBar *bar = m_window->menuBar();
    m_windowMenu = bar->findChild<QMenu *>(QStringLiteral("Window"));
    if (!m_windowMenu) {
        m_windowMenu = new QMenu(tr("Window"), bar);
        m_windowMenu->setObjectName(QStringLiteral("Window"));
    }
    bar->removeAction(m_windowMenu->menuAction());
    bar->addMenu(m_windowMenu);

    QAction *first = m_windowMenu->actions().value(0);
    for (const PaneDock *dock : docks.docks())
        m_windowMenu->insertAction(first, dock->toggleViewAction());
    m_windowMenu->insertSeparator(first);
    m_windowMenu->insertAction(first, m_defaultLayout);
    if (first)
        m_windowMenu->insertSeparator(first);
    connect(&docks, &PaneDocks::dockAdded, this, [this](const PaneDock *dock) {
        m_windowMenu->insertAction(m_windowMenu->actions().value(0), dock->toggleViewAction());
    });
}

/** A menu of the bar with its name in the paths of actions. */
QMenu *StudioMenus::addBarMenu(const char *part, const QString &title)
{
    QMenu *menu = m_window->menuBar()->addMenu(title);
    menu->setObjectName(QLatin1String(part));
    return menu;
}

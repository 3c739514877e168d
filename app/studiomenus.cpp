#include "studiomenus.h"

#include "panedock.h"
#include "panedocks.h"
#include "recentfilesmenu.h"
#include "studiowindow.h"
#include "viewportwidget.h"

#include <QActionGroup>
#include <QMenuBar>
#include <QUndoStack>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxundostack.h>

StudioMenus::StudioMenus(StudioWindow *window)
    : QObject(window)
    , m_window(window)
{
    buildFileMenu();
    m_editMenu = window->menuBar()->addMenu(tr("&Edit"));
    buildViewMenu();
}

void StudioMenus::buildFileMenu()
{
    QMenu *menu = m_window->menuBar()->addMenu(tr("&File"));
    m_fileMenu = menu;
    menu->addAction(tr("&New"), this, &StudioMenus::newRequested, QKeySequence::New);
    menu->addAction(tr("&Open..."), this, &StudioMenus::openRequested, QKeySequence::Open);
    QAction *below = menu->addSeparator();
    below->setObjectName(QStringLiteral("BelowOpenSeparator"));
    menu->addAction(tr("&Save"), this, &StudioMenus::saveRequested, QKeySequence::Save);
    menu->addAction(tr("Save &As..."), this, &StudioMenus::saveAsRequested,
                    QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    m_revert = menu->addAction(tr("Re&vert"), this, &StudioMenus::revertRequested);
    m_revert->setEnabled(false);
    menu->addSeparator();
    QAction *quit = menu->addAction(tr("&Quit"), this, &StudioMenus::quitRequested);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setMenuRole(QAction::QuitRole);
}

void StudioMenus::addRecentFiles(RecentFiles *files)
{
    auto *recent = new RecentFilesMenu(tr("Open &Recent"), files, m_fileMenu);
    connect(recent, &RecentFilesMenu::openRequested, this, &StudioMenus::recentFileRequested);
    for (QAction *entry : m_fileMenu->actions()) {
        if (entry->objectName() == QLatin1String("BelowOpenSeparator"))
            m_fileMenu->insertMenu(entry, recent);
    }
}

void StudioMenus::setRevertEnabled(bool enabled)
{
    m_revert->setEnabled(enabled);
}

void StudioMenus::buildViewMenu()
{
    QMenu *menu = m_window->menuBar()->addMenu(tr("&View"));
    menu->addAction(tr("&Frame All"), this, &StudioMenus::frameAllRequested,
                    QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
    menu->addAction(m_window->viewport()->frameSelectionAction());
    menu->addSeparator();
    addPaletteChoice(menu);
}

void StudioMenus::addPaletteChoice(QMenu *menu)
{
    VxStyle *style = vxApp->getStyle();
    auto *group = new QActionGroup(this);
    const auto add = [&](const QString &text, VxStyle::ColorScheme scheme) {
        QAction *action =
            menu->addAction(text, this, [this, scheme] { Q_EMIT paletteRequested(scheme); });
        action->setCheckable(true);
        group->addAction(action);
        const auto show = [action, style, scheme] {
            action->setChecked(style->colorScheme() == scheme);
        };
        connect(style, &VxStyle::colorSchemeChanged, action, show);
        show();
    };
    add(tr("&Dark Palette"), VxStyle::ColorScheme::Dark);
    add(tr("&Light Palette"), VxStyle::ColorScheme::Light);
}

void StudioMenus::addHistory(VxUndoStack *undoStack)
{
    QUndoStack *stack = undoStack->qtStack();
    QAction *undo = stack->createUndoAction(this, tr("&Undo"));
    QAction *redo = stack->createRedoAction(this, tr("&Redo"));
    undo->setShortcut(QKeySequence::Undo);
    redo->setShortcut(QKeySequence::Redo);
    // Text and state come from the toolkit's stack; the trigger goes through the host's, which
    // waits while a gesture is under way.
    disconnect(undo, nullptr, stack, nullptr);
    disconnect(redo, nullptr, stack, nullptr);
    connect(undo, &QAction::triggered, undoStack, &VxUndoStack::undo);
    connect(redo, &QAction::triggered, undoStack, &VxUndoStack::redo);
    m_editMenu->addActions({undo, redo});
    m_editMenu->addSeparator();
    m_editMenu->addAction(tr("&Keyboard Shortcuts..."), this, &StudioMenus::shortcutsRequested);
}

void StudioMenus::addActionsAndPanes(const PaneDocks &docks)
{
    QMenuBar *bar = m_window->menuBar();
    const VxActionMgr *actions = m_window->getActionMgr();
    actions->populateMenuBar(bar);
    // In the window too, so that shortcuts of actions without a menu work.
    for (VxAction *action : actions->getActions())
        m_window->addAction(action);

    // Last in the bar, wherever the actions have put it.
    m_windowMenu = findMenu(tr("Window"));
    if (!m_windowMenu)
        m_windowMenu = new QMenu(tr("Window"), bar);
    bar->removeAction(m_windowMenu->menuAction());
    bar->addMenu(m_windowMenu);

    QAction *first = m_windowMenu->actions().value(0);
    for (const PaneDock *dock : docks.docks())
        m_windowMenu->insertAction(first, dock->toggleViewAction());
    auto *layout = new QAction(tr("Default Layout"), this);
    connect(layout, &QAction::triggered, this, &StudioMenus::defaultLayoutRequested);
    m_windowMenu->insertSeparator(first);
    m_windowMenu->insertAction(first, layout);
    if (first)
        m_windowMenu->insertSeparator(first);
    connect(&docks, &PaneDocks::dockAdded, this, [this](const PaneDock *dock) {
        m_windowMenu->insertAction(m_windowMenu->actions().value(0), dock->toggleViewAction());
    });
}

QMenu *StudioMenus::findMenu(const QString &title) const
{
    for (const QAction *entry : m_window->menuBar()->actions()) {
        if (entry->menu() && entry->text().remove(QLatin1Char('&')) == title)
            return entry->menu();
    }
    return nullptr;
}

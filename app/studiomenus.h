#ifndef STUDIOMENUS_H
#define STUDIOMENUS_H

#include <QObject>
#include <vxcore/vxstyle.h>

class PaneDocks;
class QAction;
class QMenu;
class RecentFiles;
class StudioWindow;
class VxUndoStack;

/// The menu bar: what the program itself offers, and between it the menus of all actions.
class StudioMenus : public QObject
{
    Q_OBJECT
public:
    explicit StudioMenus(StudioWindow *window);

    /// The sub-menu of files opened last, below "Open...".
    void addRecentFiles(RecentFiles *files);
    void setRevertEnabled(bool enabled);
    /// Undo and redo of a history, with the entries' texts.
    void addHistory(VxUndoStack *undoStack);
    /// Adds the actions of the action manager and the docks. Once, when all of them exist.
    void addActionsAndPanes(const PaneDocks &docks);

Q_SIGNALS:
    void newRequested();
    void openRequested();
    void recentFileRequested(const QString &fileName);
    void revertRequested();
    void saveRequested();
    void saveAsRequested();
    void quitRequested();
    void frameAllRequested();
    void defaultLayoutRequested();
    void shortcutsRequested();
    void paletteRequested(VxStyle::ColorScheme scheme);

private:
    void buildFileMenu();
    void buildViewMenu();
    void addPaletteChoice(QMenu *menu);
    QMenu *findMenu(const QString &title) const;

    StudioWindow *const m_window;
    QMenu *m_fileMenu = nullptr;
    QAction *m_revert = nullptr;
    QMenu *m_editMenu = nullptr;
    QMenu *m_windowMenu = nullptr;
};

#endif

#ifndef STUDIOMENUS_H
#define STUDIOMENUS_H

#include <QKeySequence>
#include <QObject>
#include <functional>
#include <vxcore/vxstyle.h>
#include <vxcore/vxtimedisplay.h>

class PaneDocks;
class QAction;
class QActionGroup;
class QMenu;
class StudioWindow;

/// The menu bar: the program's own menus, and between them the menus of all actions.
///
/// Each entry of the program's own has a name under which the action manager stores its shortcut,
/// so that the user can change it like that of any action.
class StudioMenus : public QObject
{
    Q_OBJECT
public:
    explicit StudioMenus(StudioWindow *window);

    void setRevertEnabled(bool enabled);
    /// The sub-menu of units and rates of times.
    QMenu *timeDisplayMenu() const { return m_timeDisplayMenu; }
    /// Adds the actions of the action manager and the docks. Call it once, when all of them exist.
    void addActionsAndPanes(const PaneDocks &docks);

private:
    /// The texts of an entry in a menu and in a list of shortcuts.
    struct Entry
    {
        const char *name; ///< persistent in the settings: must not change
        QString text;
        QString help; ///< a sentence for the status line
        QKeySequence shortcut = {};
    };
    /// slot: of the window, or a function.
    template <typename Slot> QAction *addEntry(QMenu *menu, const Entry &entry, Slot slot);
    void adopt(QAction *action, const Entry &entry);

    void buildFileMenu();
    void addRecovery(QMenu *menu);
    void buildEditMenu();
    void addHistory(QMenu *menu);
    void buildViewMenu();
    void buildHelpMenu();
    void buildWindowMenu(const PaneDocks &docks);
    void addTimeViews(QMenu *menu);
    void addGraphViews(QMenu *menu);
    void addTimeDisplay(QMenu *menu);
    void addTimeChoice(QMenu *menu, QActionGroup *group, const Entry &entry,
                       const std::function<void(VxTimeDisplay *)> &change);
    void addPaletteChoice(QMenu *menu);
    void addCurveColors(QMenu *menu);
    QMenu *addBarMenu(const char *part, const QString &title);

    StudioWindow *const m_window;
    QAction *m_revert = nullptr;
    QMenu *m_timeDisplayMenu = nullptr;
    QMenu *m_windowMenu = nullptr;
    QMenu *m_helpMenu = nullptr;
    QAction *m_defaultLayout = nullptr;
};

#endif

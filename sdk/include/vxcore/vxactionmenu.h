#ifndef VXCORE_VXACTIONMENU_H
#define VXCORE_VXACTIONMENU_H

#include <QtCore/QObject>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxsignalguard.h>

class QMenu;

/// A menu described by class names: entries that name actions, separators and sub-menus.
///
/// The description is independent of any QMenu; it is turned into one on demand. Actions are
/// looked up by class name at that time, and those that the action manager does not know are left
/// out without a word, as are sub-menus in which nothing is left and separators that would stand
/// first, last or beside another.
class VXCORE_EXPORT VxActionMenu : public VxSignalGuard<QObject>
{
    Q_OBJECT
public:
    enum class EntryKind { Action, Separator, SubMenu };

    explicit VxActionMenu(const QString &title = QString(), QObject *parent = nullptr);
    ~VxActionMenu() override;

    QString getTitle() const;

    int getNumEntries() const;
    /// Separator for an index outside 0 .. getNumEntries() - 1.
    EntryKind getEntryKind(int index) const;
    /// The class name of an action entry or the title of a sub-menu; empty for a separator.
    QString getEntryName(int index) const;
    /// The sub-menu at index, or null when the entry is none.
    VxActionMenu *getSubMenu(int index) const;

    /// A QMenu filled from the description, made at the first call and owned by this object; it
    /// is filled anew each time it is about to be shown.
    QMenu *getMenu();
    /// Hands over a menu to be filled instead of the one that getMenu() would make; this object
    /// takes ownership, and destroys the menu it had. For menus with a behaviour of their own.
    /// Null is ignored.
    void setMenu(QMenu *menu);

    /// Appends the entries to another menu, sub-menus as new menus owned by it. With clearFirst,
    /// that menu is emptied before, and sub-menus that it owns are destroyed.
    void copyToMenu(QMenu *menu, bool clearFirst) const;

public Q_SLOTS:
    /// Inserts an action by class name before the entry at index; an index outside
    /// 0 .. getNumEntries() appends. A class name that this menu holds already is not doubled: it
    /// is moved to index, and stays where it is when it would be appended.
    void insertAction(const QString &className, int index = -1);
    /// Inserts a separator before the entry at index (append as above). Nothing is inserted
    /// beside another separator, nor when the entry that was appended last was there already and
    /// has a separator behind it: so a menu built twice stays as it was.
    void insertSeparator(int index = -1);
    /// The sub-menu of that title, appended when there is none and create is true; else null.
    /// Owned by this menu.
    VxActionMenu *findOrCreateSubMenu(const QString &title, bool create = true);
    void clear();

Q_SIGNALS:
    /// The QMenu is about to be filled: the last moment to change the description.
    void aboutToFill();

private:
    void adoptMenu(QMenu *menu, bool handedOver);
    void refillMenu();

    class Private;
    std::unique_ptr<Private> d;
};

#endif

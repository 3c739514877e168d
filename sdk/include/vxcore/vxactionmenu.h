#ifndef VXACTIONMENU_H
#define VXACTIONMENU_H

#include <QtCore/QObject>
#include <memory>
#include <vxcore/vxcoreglobal.h>
#include <vxcore/vxsignalguard.h>

class QMenu;

/// A menu described by class names: entries that name actions, separators and sub-menus.
///
/// The description is independent of any QMenu, which is filled from it on demand. Actions are
/// looked up by class name at that time; unknown ones are silently left out, as are empty sub-menus
/// and separators that are first, last or adjacent to another.
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
    /// The sub-menu at index, or null when the entry is not one.
    VxActionMenu *getSubMenu(int index) const;

    /// A QMenu filled from the description, made at the first call and owned by this object; it
    /// is refilled each time it is about to be shown.
    QMenu *getMenu();
    /// Sets the menu to fill in place of the one that getMenu() would make; this object takes
    /// ownership, and destroys the former menu. For menus with their own behaviour. Null is
    /// ignored.
    void setMenu(QMenu *menu);

    /// Appends the entries to another menu, sub-menus as new menus owned by it. With clearFirst,
    /// that menu is emptied before, and sub-menus that it owns are destroyed.
    void copyToMenu(QMenu *menu, bool clearFirst) const;

public Q_SLOTS:
    /// Inserts an action by class name before the entry at index; an index outside
    /// 0 .. getNumEntries() appends. A class name already in this menu is not duplicated: its entry
    /// moves to index, or stays in place when it would be appended.
    void insertAction(const QString &className, int index = -1);
    /// Inserts a separator before the entry at index (append as above). Nothing is inserted
    /// beside another separator, nor when the last appended entry existed already and has a
    /// separator after it: building a menu twice changes nothing.
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

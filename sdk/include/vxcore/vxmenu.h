#ifndef VXMENU_H
#define VXMENU_H

#include <QtWidgets/QMenu>
#include <memory>
#include <vxcore/vxcoreglobal.h>

/// A menu built at once from action class names and plain items, for modal use: the context menus
/// of the panes.
class VXCORE_EXPORT VxMenu : public QMenu
{
    Q_OBJECT
public:
    explicit VxMenu(QWidget *parent = nullptr);
    explicit VxMenu(const QString &title, QWidget *parent = nullptr);
    ~VxMenu() override;

    /// Adds the action of a class before the entry at index (-1 appends). Returns null and adds
    /// nothing when the action manager has no such class.
    QAction *addAction(const QString &className, int index = -1);
    /// Adds a plain entry with an identifier that exec() returns.
    QAction *addItem(const QString &text, int id = -1);
    /// Adds a sub-menu, owned by this menu. One that stays empty is not shown.
    VxMenu *addSubMenu(const QString &title);
    /// Adds a separator, unless the menu is empty or ends in one.
    void addSeparator();
    /// True when all entries are separators and empty sub-menus.
    bool isEmpty() const;

    /// Shows the menu modally at a global position. Returns the identifier of the chosen plain
    /// entry (of this menu or of one below it), or -1 for an action or none.
    int exec(const QPoint &globalPosition);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif

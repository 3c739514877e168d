#include <vxcore/vxmenu.h>

#include "menu/vxmenulookup.h"

#include <QtCore/QVariant>
#include <vxcore/vxaction.h>

class VxMenu::Private
{
public:
    // Not in QAction::data(), which belongs to the action's creator.
    QHash<const QAction *, int> itemIds;
    QVector<VxMenu *> subMenus;

    int itemId(const QAction *chosen) const
    {
        if (itemIds.contains(chosen))
            return itemIds.value(chosen);
        for (const VxMenu *subMenu : subMenus) {
            const int id = subMenu->d->itemId(chosen);
            if (id != -1)
                return id;
        }
        return -1;
    }

    void hideEmptySubMenus() const
    {
        for (VxMenu *subMenu : subMenus) {
            subMenu->menuAction()->setVisible(!subMenu->isEmpty());
            subMenu->d->hideEmptySubMenus();
        }
    }
};

VxMenu::VxMenu(QWidget *parent)
    : QMenu(parent)
    , d(new Private)
{
}

VxMenu::VxMenu(const QString &title, QWidget *parent)
    : QMenu(title, parent)
    , d(new Private)
{
}

VxMenu::~VxMenu() = default;

QAction *VxMenu::addAction(const QString &className, int index)
{
    VxAction *action = vxFindMenuAction(className);
    if (action)
        insertAction(actions().value(index, nullptr), action);
    return action;
}

QAction *VxMenu::addItem(const QString &text, int id)
{
    QAction *item = QMenu::addAction(text);
    d->itemIds.insert(item, id);
    return item;
}

VxMenu *VxMenu::addSubMenu(const QString &title)
{
    VxMenu *subMenu = new VxMenu(title, this);
    d->subMenus.append(subMenu);
    addMenu(subMenu);
    return subMenu;
}

void VxMenu::addSeparator()
{
    const QList<QAction *> entries = actions();
    if (!entries.isEmpty() && !entries.constLast()->isSeparator())
        QMenu::addSeparator();
}

bool VxMenu::isEmpty() const
{
    for (const QAction *entry : actions()) {
        const VxMenu *subMenu = qobject_cast<const VxMenu *>(entry->menu());
        const bool counts = subMenu ? !subMenu->isEmpty() : !entry->isSeparator();
        if (counts)
            return false;
    }
    return true;
}

int VxMenu::exec(const QPoint &globalPosition)
{
    d->hideEmptySubMenus();
    const QAction *chosen = QMenu::exec(globalPosition);
    return chosen ? d->itemId(chosen) : -1;
}

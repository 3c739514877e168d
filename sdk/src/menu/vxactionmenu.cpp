#include <vxcore/vxactionmenu.h>

#include "menu/vxmenulookup.h"

#include <QtCore/QPointer>
#include <QtWidgets/QMenu>
#include <vxcore/vxaction.h>

namespace {

struct Entry
{
    VxActionMenu::EntryKind kind = VxActionMenu::EntryKind::Separator;
    QString name;
    VxActionMenu *subMenu = nullptr;
};

/** Empties a menu, and destroys its own sub-menus, which are no longer shown. */
void clearMenu(QMenu *menu)
{
    QVector<QMenu *> owned;
    for (const QAction *action : menu->actions()) {
        if (action->menu() && action->menu()->parent() == menu)
            owned.append(action->menu());
    }
    menu->clear();
    qDeleteAll(owned);
}

} // namespace

class VxActionMenu::Private
{
public:
    QString title;
    QVector<Entry> entries;
    // The entry that the last insertion made or found, or a separator found after it by a further
    // insertion, so that building a menu twice changes nothing.
    int lastTouched = -1;
    QPointer<QMenu> menu;
    bool menuWasHandedOver = false;

    bool isInside(int index) const { return index >= 0 && index <= entries.size(); }

    int find(EntryKind kind, const QString &name) const
    {
        for (int i = 0; i < entries.size(); ++i) {
            if (entries.at(i).kind == kind && entries.at(i).name == name)
                return i;
        }
        return -1;
    }

    bool isSeparator(int index) const
    {
        return index >= 0 && index < entries.size() &&
               entries.at(index).kind == EntryKind::Separator;
    }

    void insert(int index, const Entry &entry)
    {
        lastTouched = isInside(index) ? index : entries.size();
        entries.insert(lastTouched, entry);
    }

    void fill(QMenu *target) const;
    bool addEntry(const Entry &entry, QMenu *target) const;
    bool addSubMenu(const Entry &entry, QMenu *target) const;
    bool hasContents() const;
};

void VxActionMenu::Private::fill(QMenu *target) const
{
    bool separatorIsDue = false;
    for (const Entry &entry : entries) {
        if (entry.kind == EntryKind::Separator) {
            separatorIsDue = true;
            continue;
        }
        QAction *separator = nullptr;
        if (separatorIsDue && !target->isEmpty() && !target->actions().constLast()->isSeparator())
            separator = target->addSeparator();
        if (addEntry(entry, target))
            separatorIsDue = false;
        else
            delete separator;
    }
}

bool VxActionMenu::Private::addEntry(const Entry &entry, QMenu *target) const
{
    if (entry.kind == EntryKind::SubMenu)
        return addSubMenu(entry, target);
    VxAction *action = vxFindMenuAction(entry.name);
    if (action)
        target->addAction(action);
    return action;
}

bool VxActionMenu::Private::addSubMenu(const Entry &entry, QMenu *target) const
{
    if (!entry.subMenu->d->hasContents())
        return false;
    if (entry.subMenu->d->menuWasHandedOver) {
        target->addMenu(entry.subMenu->getMenu());
    } else {
        // A child of the menu, so that it is destroyed with it.
        QMenu *made = new QMenu(entry.name, target);
        entry.subMenu->d->fill(made);
        target->addMenu(made);
    }
    return true;
}

bool VxActionMenu::Private::hasContents() const
{
    for (const Entry &entry : entries) {
        if (entry.kind == EntryKind::SubMenu ? entry.subMenu->d->hasContents()
                                             : vxFindMenuAction(entry.name) != nullptr)
            return true;
    }
    return false;
}

VxActionMenu::VxActionMenu(const QString &title, QObject *parent)
    : VxSignalGuard(parent)
    , d(new Private)
{
    d->title = title;
}

VxActionMenu::~VxActionMenu()
{
    delete d->menu;
}

QString VxActionMenu::getTitle() const
{
    return d->title;
}

int VxActionMenu::getNumEntries() const
{
    return d->entries.size();
}

VxActionMenu::EntryKind VxActionMenu::getEntryKind(int index) const
{
    return d->entries.value(index).kind;
}

QString VxActionMenu::getEntryName(int index) const
{
    return d->entries.value(index).name;
}

VxActionMenu *VxActionMenu::getSubMenu(int index) const
{
    return d->entries.value(index).subMenu;
}

QMenu *VxActionMenu::getMenu()
{
    if (!d->menu)
        adoptMenu(new QMenu(d->title), false);
    return d->menu;
}

void VxActionMenu::setMenu(QMenu *menu)
{
    if (!menu || menu == d->menu)
        return;
    delete d->menu;
    adoptMenu(menu, true);
}

void VxActionMenu::copyToMenu(QMenu *menu, bool clearFirst) const
{
    if (!menu)
        return;
    if (clearFirst)
        clearMenu(menu);
    d->fill(menu);
}

void VxActionMenu::insertAction(const QString &className, int index)
{
    if (className.isEmpty())
        return;
    const bool append = !d->isInside(index);
    const int present = d->find(EntryKind::Action, className);
    if (present >= 0) {
        d->lastTouched = present;
        if (append)
            return;
        d->entries.remove(present);
        if (index > present)
            --index;
    }
    d->insert(index, {EntryKind::Action, className, nullptr});
}

void VxActionMenu::insertSeparator(int index)
{
    if (!d->isInside(index)) {
        if (d->isSeparator(d->lastTouched + 1)) {
            ++d->lastTouched;
            return;
        }
        index = d->entries.size();
    }
    if (d->isSeparator(index - 1) || d->isSeparator(index))
        return;
    d->insert(index, {EntryKind::Separator, QString(), nullptr});
}

VxActionMenu *VxActionMenu::findOrCreateSubMenu(const QString &title, bool create)
{
    const int present = d->find(EntryKind::SubMenu, title);
    if (present >= 0) {
        d->lastTouched = present;
        return d->entries.at(present).subMenu;
    }
    if (!create)
        return nullptr;
    VxActionMenu *made = new VxActionMenu(title, this);
    d->insert(-1, {EntryKind::SubMenu, title, made});
    return made;
}

void VxActionMenu::clear()
{
    const QVector<Entry> entries = d->entries;
    d->entries.clear();
    d->lastTouched = -1;
    for (const Entry &entry : entries)
        delete entry.subMenu;
}

void VxActionMenu::adoptMenu(QMenu *menu, bool handedOver)
{
    d->menu = menu;
    d->menuWasHandedOver = handedOver;
    connect(menu, &QMenu::aboutToShow, this, &VxActionMenu::refillMenu);
    refillMenu();
}

void VxActionMenu::refillMenu()
{
    Q_EMIT aboutToFill();
    copyToMenu(d->menu, true);
}

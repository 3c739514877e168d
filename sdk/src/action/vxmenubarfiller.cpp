#include "action/vxmenubarfiller.h"

#include "action/vxactiontext.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QVariant>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <algorithm>
#include <vxcore/vxaction.h>

namespace {

// A sub-menu's entry is no VxAction: its group and section are stored as properties.
constexpr char subMenuGroupProperty[] = "vxMenuGroup";
constexpr char subMenuSectionProperty[] = "vxMenuSection";

// The parts of the paths of this library's actions; plug-ins and the program mark theirs.
[[maybe_unused]] const char *const partsOfPaths[] = {
    QT_TRANSLATE_NOOP("VxMenuPath", "Animation"),
    QT_TRANSLATE_NOOP("VxMenuPath", "Clear Animation"),
    QT_TRANSLATE_NOOP("VxMenuPath", "Window"),
    QT_TRANSLATE_NOOP("VxMenuPath", "Panes"),
};

/** What the user reads for a part of a menu path, which is the same in every language. */
QString titleOf(const QString &part)
{
    return QCoreApplication::translate("VxMenuPath", qUtf8Printable(part));
}

/** The menu of a part of a path, by its object name, or by its title when others made it. */
QMenu *findMenu(const QWidget *parent, const QString &part)
{
    const QString title = titleOf(part);
    for (QAction *entry : parent->actions()) {
        if (entry->menu() && (entry->menu()->objectName() == part ||
                              VxActionText::withoutMnemonics(entry->text()) == title))
            return entry->menu();
    }
    return nullptr;
}

/** The group of an entry added here; a null string for other entries. */
QString groupOf(const QAction *entry)
{
    if (const VxAction *action = qobject_cast<const VxAction *>(entry))
        return VxMenuBarFiller::groupName(action->getActionGroup());
    return entry->property(subMenuGroupProperty).toString();
}

int sectionOf(const VxAction *action)
{
    return action->getMenuOrder() / 100;
}

/** The section of an entry within its group; sub-menus of paths are in the first. */
int sectionOf(const QAction *entry)
{
    const VxAction *action = qobject_cast<const VxAction *>(entry);
    return action ? sectionOf(action) : entry->property(subMenuSectionProperty).toInt();
}

/** The index of the group's last entry in the menu; -1 when there is none. */
int findLastOfGroup(const QMenu *menu, const QString &group)
{
    const QList<QAction *> entries = menu->actions();
    for (int i = entries.size() - 1; i >= 0; --i) {
        const QString other = groupOf(entries.at(i));
        if (!other.isNull() && other == group)
            return i;
    }
    return -1;
}

void insertIntoGroup(QMenu *menu, QAction *entry, const QString &group)
{
    const QList<QAction *> entries = menu->actions();
    const int last = findLastOfGroup(menu, group);
    if (last < 0) {
        if (!entries.isEmpty() && !entries.constLast()->isSeparator())
            menu->addSeparator();
        menu->addAction(entry);
        return;
    }
    QAction *next = entries.value(last + 1, nullptr);
    if (sectionOf(entries.at(last)) != sectionOf(entry))
        menu->insertSeparator(next);
    menu->insertAction(next, entry);
}

QMenu *subMenu(QMenu *menu, const QString &part, const QString &group, int section = 0)
{
    if (QMenu *existing = findMenu(menu, part))
        return existing;
    QMenu *made = new QMenu(titleOf(part), menu);
    made->setObjectName(part);
    made->menuAction()->setProperty(subMenuGroupProperty, group);
    made->menuAction()->setProperty(subMenuSectionProperty, section);
    insertIntoGroup(menu, made->menuAction(), group);
    return made;
}

} // namespace

void VxMenuBarFiller::addActions(const QVector<VxAction *> &actions) const
{
    QVector<VxAction *> ordered = actions;
    std::stable_sort(ordered.begin(), ordered.end(), [](const VxAction *a, const VxAction *b) {
        return a->getMenuOrder() < b->getMenuOrder();
    });
    for (VxAction *action : qAsConst(ordered)) {
        if (!pathParts(action->getDefaultMenuPath()).isEmpty())
            addAction(action);
    }
}

QStringList VxMenuBarFiller::pathParts(const QString &path)
{
    return path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

QString VxMenuBarFiller::groupName(const QString &actionGroup)
{
    // Never null: a null string marks entries without any group.
    const QString name = actionGroup.section(QLatin1Char('/'), 0, 0);
    return name.isEmpty() ? QStringLiteral("") : name;
}

QString VxMenuBarFiller::groupPath(const QString &actionGroup)
{
    return actionGroup.section(QLatin1Char('/'), 1);
}

void VxMenuBarFiller::addAction(VxAction *action) const
{
    QStringList path = pathParts(action->getDefaultMenuPath());
    QMenu *menu = barMenu(path.takeFirst());
    for (const QString &title : qAsConst(path))
        menu = subMenu(menu, title, QStringLiteral(""));
    const QString group = groupName(action->getActionGroup());
    for (const QString &title : pathParts(groupPath(action->getActionGroup())))
        menu = subMenu(menu, title, group);
    if (!action->getMenuFolder().isEmpty())
        menu = subMenu(menu, action->getMenuFolder(), group, sectionOf(action));
    if (!menu->actions().contains(action))
        insertIntoGroup(menu, action, group);
}

QMenu *VxMenuBarFiller::barMenu(const QString &part) const
{
    if (QMenu *existing = findMenu(m_menuBar, part))
        return existing;
    QMenu *made = m_menuBar->addMenu(titleOf(part));
    made->setObjectName(part);
    return made;
}

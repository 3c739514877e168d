#include "shortcutcatalogue.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>

namespace {

/// A menu's text without mnemonics and without the dots that announce a dialog.
QString plainText(QString text)
{
    text.replace(QLatin1String("&&"), QString(QChar(0)));
    text.remove(QLatin1Char('&'));
    text.replace(QChar(0), QLatin1Char('&'));
    while (text.endsWith(QLatin1Char('.')) || text.endsWith(QChar(0x2026)))
        text.chop(1);
    return text;
}

/// A command of one widget shares its key with one of the window: who has the focus decides.
bool isLocal(const QAction *entry)
{
    return entry->shortcutContext() == Qt::WidgetShortcut ||
           entry->shortcutContext() == Qt::WidgetWithChildrenShortcut;
}

class Collector
{
public:
    explicit Collector(const VxActionMgr &actions)
        : m_actions(actions)
    {
    }

    void addMenu(const QWidget *menu, const QStringList &path);
    void addOthers();
    ShortcutList list() const { return m_list; }

private:
    void addEntry(const QAction *entry, const QString &group);
    void addAction(const VxAction *action, const QString &group);

    const VxActionMgr &m_actions;
    ShortcutList m_list;
    QSet<const QAction *> m_seen;
};

void Collector::addMenu(const QWidget *menu, const QStringList &path)
{
    // Entries first, so that a group's commands are not torn apart by the menus below it.
    const QString group = path.join(QStringLiteral(" %1 ").arg(QChar(0x203a)));
    for (const QAction *entry : menu->actions()) {
        if (!entry->menu() && !entry->isSeparator())
            addEntry(entry, group);
    }
    for (const QAction *entry : menu->actions()) {
        if (entry->menu())
            addMenu(entry->menu(), path + QStringList(plainText(entry->text())));
    }
}

void Collector::addEntry(const QAction *entry, const QString &group)
{
    if (m_seen.contains(entry))
        return;
    m_seen.insert(entry);
    const auto *action = qobject_cast<const VxAction *>(entry);
    if (action && m_actions.findAction(action->objectName()) == action) {
        addAction(action, group);
        return;
    }
    if (isLocal(entry))
        return;
    for (const QKeySequence &shortcut : entry->shortcuts())
        m_list.add({QString(), group, plainText(entry->text()), QString(), shortcut, shortcut});
}

void Collector::addAction(const VxAction *action, const QString &group)
{
    const QString className = action->objectName();
    m_list.add({className, group, plainText(action->text()), action->getDescription(),
                m_actions.getDefaultShortcut(className), m_actions.getShortcut(className)});
}

void Collector::addOthers()
{
    for (const VxAction *action : m_actions.getActions()) {
        if (!m_seen.contains(action))
            addAction(action, QCoreApplication::translate("ShortcutCatalogue", "Other"));
    }
}

} // namespace

ShortcutList ShortcutCatalogue::collect(const QMenuBar &menuBar, const VxActionMgr &actions)
{
    Collector collector(actions);
    collector.addMenu(&menuBar, {});
    collector.addOthers();
    return collector.list();
}

void ShortcutCatalogue::apply(const ShortcutList &list, VxActionMgr *actions)
{
    const QHash<QString, QKeySequence> changes = list.changes();
    for (auto change = changes.begin(); change != changes.end(); ++change)
        actions->setShortcut(change.key(), change.value());
}

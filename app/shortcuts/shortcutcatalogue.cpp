#include "shortcuts/shortcutcatalogue.h"

#include "widgets/studiotext.h"

#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxsettings.h>

namespace {

/// A menu's text without mnemonics and the dots of a dialog.
QString plainText(QString text)
{
    text.replace(QLatin1String("&&"), QString(QChar(0)));
    text.remove(QLatin1Char('&'));
    text.replace(QChar(0), QLatin1Char('&'));
    while (text.endsWith(QLatin1Char('.')) || text.endsWith(QChar(0x2026)))
        text.chop(1);
    return text;
}

/// A command's name in a list. The text of an entry may change, as that of undo does with the next
/// entry; its tool tip is derived from the text unless the entry has its own.
QString titleOf(const QAction *command)
{
    return plainText(qobject_cast<const VxAction *>(command) ? command->text()
                                                             : command->toolTip());
}

QString descriptionOf(const QAction *command)
{
    const auto *action = qobject_cast<const VxAction *>(command);
    return action ? action->getDescription() : command->statusTip();
}

/// A command of one widget can share its key with one of the window: the focus decides.
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
    void addCommand(const QString &name, const QAction *command, const QString &group);

    const VxActionMgr &m_actions;
    ShortcutList m_list;
    QSet<const QAction *> m_seen;
};

void Collector::addMenu(const QWidget *menu, const QStringList &path)
{
    // Entries first, so that sub-menus do not split a group's commands.
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
    const QString name = m_actions.getCommandName(entry);
    if (!name.isEmpty()) {
        addCommand(name, entry, group);
        return;
    }
    if (isLocal(entry))
        return;
    for (const QKeySequence &shortcut : entry->shortcuts())
        m_list.add({QString(), group, plainText(entry->text()), QString(), shortcut, shortcut});
}

void Collector::addCommand(const QString &name, const QAction *command, const QString &group)
{
    m_list.add({name, group, titleOf(command), descriptionOf(command),
                m_actions.getDefaultShortcut(name), m_actions.getShortcut(name)});
}

void Collector::addOthers()
{
    for (const VxAction *action : m_actions.getActions()) {
        if (!m_seen.contains(action))
            addCommand(m_actions.getCommandName(action), action, StudioText::tr("Other"));
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

QString ShortcutCatalogue::refusalText(const QStringList &refused, const VxSettings &stored,
                                       const VxActionMgr &actions)
{
    QStringList sentences;
    for (const QString &name : refused) {
        const auto shortcut =
            QKeySequence::fromString(stored.getStringValue(name), QKeySequence::PortableText);
        const QAction *holder = actions.findCommand(actions.findShortcut(shortcut));
        const QAction *loser = actions.findCommand(name);
        if (holder && loser)
            sentences.append(
                StudioText::tr("The shortcut %1 stored for \"%2\" is already assigned to \"%3\".")
                    .arg(shortcut.toString(QKeySequence::NativeText), titleOf(loser),
                         titleOf(holder)));
    }
    return sentences.join(QLatin1Char(' '));
}

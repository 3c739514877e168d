#include "shell/actionlist.h"

#include "shortcuts/shortcutcatalogue.h"

#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>

namespace {

// The page is a file of the sources, in one language whatever the user's is.
const char introduction[] =
    "# Actions\n"
    "\n"
    "Every action of the program and its plug-ins, by the menu in which it stands. This page is\n"
    "what `vxstudio --list-actions` prints.\n"
    "\n"
    "The shortcuts are those that a fresh installation has; *Edit > Keyboard Shortcuts* changes\n"
    "them. A plain key such as an arrow stays with a text field, list or slider that has the "
    "focus.\n"
    "An action with a check mark has its state in `checked`; triggering flips it, or, where it is\n"
    "one of several, chooses it.";

QString cell(QString text)
{
    return text.trimmed().replace(QLatin1Char('|'), QLatin1String("\\|"));
}

QString code(const QString &text)
{
    return text.isEmpty() ? QString() : QStringLiteral("`%1`").arg(text);
}

QString row(const ShortcutCommand &command, const VxAction &action)
{
    const QString mark = action.isCheckable() ? QStringLiteral(" (check mark)") : QString();
    return QStringLiteral("\n| %1%2 | %3 | %4 | %5 |")
        .arg(cell(command.text), mark, code(command.standard.toString(QKeySequence::PortableText)),
             code(QStringLiteral("App.action(\"%1\").trigger()").arg(command.className)),
             cell(command.description));
}

} // namespace

QString actionListPage(const QMenuBar &menuBar, const VxActionMgr &actions)
{
    const ShortcutList list = ShortcutCatalogue::collect(menuBar, actions);
    QString page = QString::fromUtf8(introduction);
    QString group;
    for (int i = 0; i < list.count(); ++i) {
        const ShortcutCommand &command = list.at(i);
        const VxAction *action = actions.findAction(command.className);
        if (!action)
            continue; // a command of the window alone, of no use to a script
        if (command.group != group) {
            group = command.group;
            page += QStringLiteral("\n\n## %1\n\n| command | shortcut | script | what it does |\n"
                                   "| --- | --- | --- | --- |")
                        .arg(QString(group).replace(QChar(0x203a), QLatin1Char('>')));
        }
        page += row(command, *action);
    }
    return page;
}

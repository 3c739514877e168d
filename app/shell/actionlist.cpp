#include "shell/actionlist.h"

#include "shortcuts/shortcutcatalogue.h"

#include <vxcore/vxaction.h>
#include <vxcore/vxactionmgr.h>

namespace {

// The page is a file of the sources, so it is not translated.
const char introduction[] =
    "# Actions\n"
    "\n"
    "Every action of the program and its plug-ins, grouped by menu. `vxstudio --list-actions`\n"
    "prints this page.\n"
    "\n"
    "The shortcuts are the defaults; *Edit > Keyboard Shortcuts* changes them. A plain key such\n"
    "as an arrow is handled by a text field, list or slider that has the focus. An action with a\n"
    "check mark has its state in `checked`; triggering toggles it, or, in a group of which one is\n"
    "checked, checks it.";

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
            continue; // a command of the window alone, unusable in a script
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

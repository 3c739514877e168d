#include "shell/keyoverview.h"

#include "shortcuts/shortcutlist.h"

#include <QCoreApplication>

namespace {

struct Row
{
    const char *gesture;
    const char *effect;
};

struct Section
{
    const char *title;
    QVector<Row> rows;
};

const QVector<Section> &mouseSections()
{
    static const QVector<Section> sections = {
        {QT_TRANSLATE_NOOP("KeyOverview", "Viewport"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "Click"),
           QT_TRANSLATE_NOOP("KeyOverview", "selects a node; with Ctrl takes it in or out")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag"),
           QT_TRANSLATE_NOOP("KeyOverview", "turns the view")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag with the middle button"),
           QT_TRANSLATE_NOOP("KeyOverview", "moves the view; with Ctrl zooms")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Wheel"),
           QT_TRANSLATE_NOOP("KeyOverview", "zooms about what lies under the mouse")},
          {QT_TRANSLATE_NOOP("KeyOverview", "F"),
           QT_TRANSLATE_NOOP("KeyOverview", "brings the selected nodes into view")}}},
        {QT_TRANSLATE_NOOP("KeyOverview", "Scene"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "F2 or double click"),
           QT_TRANSLATE_NOOP("KeyOverview", "renames a node")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Del"),
           QT_TRANSLATE_NOOP("KeyOverview", "deletes the selected nodes")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Click on the eye"),
           QT_TRANSLATE_NOOP("KeyOverview", "hides or shows a node with all that is below it")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag"),
           QT_TRANSLATE_NOOP("KeyOverview", "puts nodes below another one; they stay in place, "
                                            "with Shift they keep their values")}}},
        {QT_TRANSLATE_NOOP("KeyOverview", "Parameters"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "Drag a value sideways"),
           QT_TRANSLATE_NOOP("KeyOverview",
                             "changes it and makes a key; Ctrl: ten times as far, Shift: a tenth")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Click a value"),
           QT_TRANSLATE_NOOP("KeyOverview", "opens it for typing, also of 24/5, +=5 or *=2")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Click the mark beside it"),
           QT_TRANSLATE_NOOP("KeyOverview", "sets or deletes the key at the current time")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Ctrl+C, Ctrl+V in the list"),
           QT_TRANSLATE_NOOP("KeyOverview", "copy and paste values")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Escape"),
           QT_TRANSLATE_NOOP("KeyOverview", "puts back what is being dragged")}}},
        {QT_TRANSLATE_NOOP("KeyOverview", "Timeline: rows and keys"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "Click a property's row"),
           QT_TRANSLATE_NOOP("KeyOverview", "shows its curve in the key graph")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Click a key"),
           QT_TRANSLATE_NOOP("KeyOverview", "selects it; Ctrl: as well, Alt: no longer")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag a key"),
           QT_TRANSLATE_NOOP("KeyOverview",
                             "moves all selected ones from frame to frame; Ctrl: between frames")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag beside the keys"),
           QT_TRANSLATE_NOOP("KeyOverview", "selects the keys in the box")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Double click"),
           QT_TRANSLATE_NOOP("KeyOverview", "goes to that time")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Right click"),
           QT_TRANSLATE_NOOP("KeyOverview", "opens the menu of what is there")}}},
        {QT_TRANSLATE_NOOP("KeyOverview", "Timeline: time"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "Click or drag in the ruler"),
           QT_TRANSLATE_NOOP("KeyOverview", "sets the current time")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag an end of the bar below"),
           QT_TRANSLATE_NOOP("KeyOverview", "changes the play range; its middle moves it")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Double click the bar"),
           QT_TRANSLATE_NOOP("KeyOverview", "plays all, or the range that was there before")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Double click the names' right edge"),
           QT_TRANSLATE_NOOP("KeyOverview", "makes their column as wide as they are")}}},
        {QT_TRANSLATE_NOOP("KeyOverview", "Key graph"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "Drag a key"),
           QT_TRANSLATE_NOOP("KeyOverview", "moves the selected ones in time and value; Shift: in "
                                            "one of both, Ctrl: between frames")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag beside the keys"),
           QT_TRANSLATE_NOOP("KeyOverview", "selects the keys in the box")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Wheel"),
           QT_TRANSLATE_NOOP("KeyOverview", "zooms the values; Shift: the times, Alt: moves")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag with the middle button"),
           QT_TRANSLATE_NOOP("KeyOverview", "moves the values")}}},
    };
    return sections;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("KeyOverview", text);
}

QString heading(const QString &title)
{
    return QStringLiteral("<tr><td colspan=\"2\" style=\"padding-top: 12px; "
                          "padding-bottom: 3px\"><b>%1</b></td></tr>")
        .arg(title.toHtmlEscaped());
}

QString row(const QString &gesture, const QString &effect)
{
    return QStringLiteral("<tr><td style=\"padding-right: 18px; padding-bottom: 2px\">%1</td>"
                          "<td style=\"padding-bottom: 2px\">%2</td></tr>")
        .arg(gesture.toHtmlEscaped(), effect.toHtmlEscaped());
}

QString mouseRows()
{
    QString rows;
    for (const Section &section : mouseSections()) {
        rows += heading(translated(section.title));
        for (const Row &entry : section.rows)
            rows += row(translated(entry.gesture), translated(entry.effect));
    }
    return rows;
}

QString keyRows(const ShortcutList &shortcuts)
{
    QString rows;
    QString group;
    for (int i = 0; i < shortcuts.count(); ++i) {
        const ShortcutCommand &command = shortcuts.at(i);
        if (command.current.isEmpty())
            continue;
        if (command.group != group) {
            group = command.group;
            rows += heading(QCoreApplication::translate("KeyOverview", "Keys: %1").arg(group));
        }
        rows += row(command.current.toString(QKeySequence::NativeText), command.text);
    }
    return rows;
}

} // namespace

QString keyOverviewPage(const ShortcutList &shortcuts)
{
    return QStringLiteral("<table cellspacing=\"0\">%1%2</table>")
        .arg(mouseRows(), keyRows(shortcuts));
}

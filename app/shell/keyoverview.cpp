#include "shell/keyoverview.h"

#include "shortcuts/shortcutlist.h"
#include "widgets/studiotext.h"

namespace {

struct OverviewRow
{
    const char *gesture;
    const char *effect;
};

struct Section
{
    const char *title;
    QVector<OverviewRow> rows;
};

const QVector<Section> &mouseSections()
{
    static const QVector<Section> sections = {
        {QT_TRANSLATE_NOOP("KeyOverview", "Viewport"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "Click"),
           QT_TRANSLATE_NOOP("KeyOverview", "selects a node; Ctrl: adds or removes it")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag"),
           QT_TRANSLATE_NOOP("KeyOverview", "orbits the view")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag an arrow, ring or handle"),
           QT_TRANSLATE_NOOP("KeyOverview", "moves, rotates or scales the selected nodes; Shift: "
                                            "in steps, Ctrl: a tenth as fast")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Type a number during the drag"),
           QT_TRANSLATE_NOOP("KeyOverview",
                             "sets the exact amount; Enter ends the drag, Escape cancels it")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag a hand or foot with the IK tool"),
           QT_TRANSLATE_NOOP("KeyOverview", "rotates the two bones above it so that it follows")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag with the middle button"),
           QT_TRANSLATE_NOOP("KeyOverview", "pans the view; Ctrl: zooms")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Wheel"),
           QT_TRANSLATE_NOOP("KeyOverview", "zooms at the mouse position")},
          {QT_TRANSLATE_NOOP("KeyOverview", "F"),
           QT_TRANSLATE_NOOP("KeyOverview", "frames the selected nodes")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Right click"),
           QT_TRANSLATE_NOOP("KeyOverview", "opens the context menu of the node")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Click, while Bone Chain is active"),
           QT_TRANSLATE_NOOP("KeyOverview", "adds a bone; Backspace takes it back, Return, Escape "
                                            "or a double click ends the chain")},
          {QT_TRANSLATE_NOOP("KeyOverview", "T"),
           QT_TRANSLATE_NOOP("KeyOverview", "shows motion trails of the selected nodes; a click on "
                                            "a dot sets the current time")},
          {QT_TRANSLATE_NOOP("KeyOverview", "1, 3, 7 on the number pad"),
           QT_TRANSLATE_NOOP("KeyOverview", "front, side and top view; Ctrl: from the opposite "
                                            "side. 5 toggles perspective")}}},
        {QT_TRANSLATE_NOOP("KeyOverview", "Scene"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "F2 or double click"),
           QT_TRANSLATE_NOOP("KeyOverview", "renames a node")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Del"),
           QT_TRANSLATE_NOOP("KeyOverview", "deletes the selected nodes")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Click on the eye"),
           QT_TRANSLATE_NOOP("KeyOverview", "hides or shows a node and all nodes below it")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag"),
           QT_TRANSLATE_NOOP(
               "KeyOverview",
               "reparents the nodes and keeps their world positions; Shift: keeps their values")}}},
        {QT_TRANSLATE_NOOP("KeyOverview", "Parameters"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "Drag a value sideways"),
           QT_TRANSLATE_NOOP("KeyOverview",
                             "changes it and sets a key; Ctrl: ten times as fast, Shift: a tenth")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Click a value"),
           QT_TRANSLATE_NOOP("KeyOverview", "edits it; 24/5, +=5 and *=2 work too")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Click the mark beside it"),
           QT_TRANSLATE_NOOP("KeyOverview", "sets or deletes the key at the current time")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Ctrl+C, Ctrl+V in the list"),
           QT_TRANSLATE_NOOP("KeyOverview", "copy and paste values")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Escape"),
           QT_TRANSLATE_NOOP("KeyOverview", "cancels a drag")}}},
        {QT_TRANSLATE_NOOP("KeyOverview", "Timeline: rows and keys"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "Click a property's row"),
           QT_TRANSLATE_NOOP("KeyOverview", "shows its curve in the key graph")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Click a key"),
           QT_TRANSLATE_NOOP("KeyOverview", "selects it; Ctrl: adds it, Alt: removes it")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag a key"),
           QT_TRANSLATE_NOOP("KeyOverview",
                             "moves the selected keys by whole frames; Ctrl: freely")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag in an empty area"),
           QT_TRANSLATE_NOOP("KeyOverview", "selects the keys in the box")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Double click"),
           QT_TRANSLATE_NOOP("KeyOverview", "sets the current time")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Right click"),
           QT_TRANSLATE_NOOP("KeyOverview", "opens the context menu")}}},
        {QT_TRANSLATE_NOOP("KeyOverview", "Timeline: key cursor (Keys > Select > Key Cursor)"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "Arrows, Home, End, Page Up, Page Down"),
           QT_TRANSLATE_NOOP("KeyOverview",
                             "move among keys and rows; Shift: extends the selection")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Space, Return"),
           QT_TRANSLATE_NOOP("KeyOverview", "adds or removes the key, selects it alone")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Ctrl+Return"),
           QT_TRANSLATE_NOOP("KeyOverview", "sets the current time to the key")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Arrows during a drag of keys"),
           QT_TRANSLATE_NOOP("KeyOverview",
                             "move by a frame or a round value; Return accepts, Escape restores")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Alt+Right, Alt+Left"),
           QT_TRANSLATE_NOOP("KeyOverview", "opens and closes the row")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Tab"),
           QT_TRANSLATE_NOOP("KeyOverview", "leads to the key graph and back")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Escape"),
           QT_TRANSLATE_NOOP("KeyOverview", "ends the key cursor")}}},
        {QT_TRANSLATE_NOOP("KeyOverview", "Timeline: time"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "Click or drag in the ruler"),
           QT_TRANSLATE_NOOP("KeyOverview", "sets the current time")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Shift and the wheel"),
           QT_TRANSLATE_NOOP("KeyOverview", "zooms the time at the mouse position in rows, ruler, "
                                            "graph and slider; Ctrl: in small steps")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Horizontal wheel, or Shift, Alt and the wheel"),
           QT_TRANSLATE_NOOP("KeyOverview", "shifts the time")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag an end of the time range slider"),
           QT_TRANSLATE_NOOP("KeyOverview",
                             "changes the play range; dragging its middle moves it")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Double click the slider"),
           QT_TRANSLATE_NOOP("KeyOverview",
                             "switches between the whole animation and the previous range")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Double click the edge of the names column"),
           QT_TRANSLATE_NOOP("KeyOverview", "fits the column to the names")}}},
        {QT_TRANSLATE_NOOP("KeyOverview", "Markers"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "Double click"),
           QT_TRANSLATE_NOOP("KeyOverview", "adds a marker, or renames the one below the mouse")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag a marker, or an end of a span"),
           QT_TRANSLATE_NOOP("KeyOverview", "moves it; it snaps to the playhead, other markers and "
                                            "frames. Ctrl: freely")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Click in the marker list"),
           QT_TRANSLATE_NOOP("KeyOverview", "sets the current time to the marker; a double click "
                                            "edits a cell")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Left, Right, F2, Del in the strip"),
           QT_TRANSLATE_NOOP("KeyOverview", "select, rename and delete a marker")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Right click"),
           QT_TRANSLATE_NOOP("KeyOverview", "opens the menu of a marker: colour, span, delete")}}},
        {QT_TRANSLATE_NOOP("KeyOverview", "Key graph"),
         {{QT_TRANSLATE_NOOP("KeyOverview", "Drag a key"),
           QT_TRANSLATE_NOOP("KeyOverview", "moves the selected keys in time and value; Shift: in "
                                            "one direction, Ctrl: between frames")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag in an empty area"),
           QT_TRANSLATE_NOOP("KeyOverview", "selects the keys in the box")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Wheel"),
           QT_TRANSLATE_NOOP("KeyOverview", "zooms the values; Alt: pans them")},
          {QT_TRANSLATE_NOOP("KeyOverview", "Drag with the middle button"),
           QT_TRANSLATE_NOOP("KeyOverview", "pans the values")}}},
    };
    return sections;
}

QString translated(const char *text)
{
    return StudioText::tr(text);
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
        for (const OverviewRow &entry : section.rows)
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
            rows += heading(StudioText::tr("Shortcuts: %1").arg(group));
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

#include "shell/keyoverview.h"

#include "shortcuts/shortcutlist.h"
#include "widgets/studiotext.h"

namespace {

struct OverviewRow
{
    QString gesture;
    QString effect;
};

struct Section
{
    QString title;
    QVector<OverviewRow> rows;
};

QVector<Section> mouseSections()
{
    return {
        {StudioText::tr("Viewport"),
         {{StudioText::tr("Click"), StudioText::tr("selects a node; Ctrl: adds or removes it")},
          {StudioText::tr("Drag"), StudioText::tr("orbits the view")},
          {StudioText::tr("Drag an arrow, ring or handle"),
           StudioText::tr("moves, rotates or scales the selected nodes; Shift: "
                          "in steps, Ctrl: a tenth as fast")},
          {StudioText::tr("Type a number during the drag"),
           StudioText::tr("sets the exact amount; Enter ends the drag, Escape cancels it")},
          {StudioText::tr("Drag a hand or foot with the IK tool"),
           StudioText::tr("rotates the two bones above it so that it follows")},
          {StudioText::tr("Drag with the middle button"),
           StudioText::tr("pans the view; Ctrl: zooms")},
          {StudioText::tr("Wheel"), StudioText::tr("zooms at the mouse position")},
          {StudioText::tr("F"), StudioText::tr("frames the selected nodes")},
          {StudioText::tr("Right click"), StudioText::tr("opens the context menu of the node")},
          {StudioText::tr("Click, while Bone Chain is active"),
           StudioText::tr("adds a bone; Backspace takes it back, Return, Escape "
                          "or a double click ends the chain")},
          {StudioText::tr("T"),
           StudioText::tr("shows motion trails of the selected nodes; a click on "
                          "a dot sets the current time")},
          {StudioText::tr("1, 3, 7 on the number pad"),
           StudioText::tr("front, side and top view; Ctrl: from the opposite "
                          "side. 5 toggles perspective")}}},
        {StudioText::tr("Scene"),
         {{StudioText::tr("F2 or double click"), StudioText::tr("renames a node")},
          {StudioText::tr("Del"), StudioText::tr("deletes the selected nodes")},
          {StudioText::tr("Click on the eye"),
           StudioText::tr("hides or shows a node and all nodes below it")},
          {StudioText::tr("Drag"),
           StudioText::tr(
               "reparents the nodes and keeps their world positions; Shift: keeps their values")}}},
        {StudioText::tr("Parameters"),
         {{StudioText::tr("Drag a value sideways"),
           StudioText::tr("changes it and sets a key; Ctrl: ten times as fast, Shift: a tenth")},
          {StudioText::tr("Click a value"), StudioText::tr("edits it; 24/5, +=5 and *=2 work too")},
          {StudioText::tr("Click the mark beside it"),
           StudioText::tr("sets or deletes the key at the current time")},
          {StudioText::tr("Ctrl+C, Ctrl+V in the list"), StudioText::tr("copy and paste values")},
          {StudioText::tr("Escape"), StudioText::tr("cancels a drag")}}},
        {StudioText::tr("Timeline: rows and keys"),
         {{StudioText::tr("Click a property's row"),
           StudioText::tr("shows its curve in the key graph")},
          {StudioText::tr("Click a key"),
           StudioText::tr("selects it; Ctrl: adds it, Alt: removes it")},
          {StudioText::tr("Drag a key"),
           StudioText::tr("moves the selected keys by whole frames; Ctrl: freely")},
          {StudioText::tr("Drag in an empty area"), StudioText::tr("selects the keys in the box")},
          {StudioText::tr("Double click"), StudioText::tr("sets the current time")},
          {StudioText::tr("Right click"), StudioText::tr("opens the context menu")}}},
        {StudioText::tr("Timeline: key cursor (Keys > Select > Key Cursor)"),
         {{StudioText::tr("Arrows, Home, End, Page Up, Page Down"),
           StudioText::tr("move among keys and rows; Shift: extends the selection")},
          {StudioText::tr("Space, Return"),
           StudioText::tr("adds or removes the key, selects it alone")},
          {StudioText::tr("Ctrl+Return"), StudioText::tr("sets the current time to the key")},
          {StudioText::tr("Arrows during a drag of keys"),
           StudioText::tr("move by a frame or a round value; Return accepts, Escape restores")},
          {StudioText::tr("Alt+Right, Alt+Left"), StudioText::tr("opens and closes the row")},
          {StudioText::tr("Tab"), StudioText::tr("leads to the key graph and back")},
          {StudioText::tr("Escape"), StudioText::tr("ends the key cursor")}}},
        {StudioText::tr("Timeline: time"),
         {{StudioText::tr("Click or drag in the ruler"), StudioText::tr("sets the current time")},
          {StudioText::tr("Shift and the wheel"),
           StudioText::tr("zooms the time at the mouse position in rows, ruler, "
                          "graph and slider; Ctrl: in small steps")},
          {StudioText::tr("Horizontal wheel, or Shift, Alt and the wheel"),
           StudioText::tr("shifts the time")},
          {StudioText::tr("Drag an end of the time range slider"),
           StudioText::tr("changes the play range; dragging its middle moves it")},
          {StudioText::tr("Double click the slider"),
           StudioText::tr("switches between the whole animation and the previous range")},
          {StudioText::tr("Double click the edge of the names column"),
           StudioText::tr("fits the column to the names")}}},
        {StudioText::tr("Markers"),
         {{StudioText::tr("Double click"),
           StudioText::tr("adds a marker, or renames the one below the mouse")},
          {StudioText::tr("Drag a marker, or an end of a span"),
           StudioText::tr("moves it; it snaps to the playhead, other markers and "
                          "frames. Ctrl: freely")},
          {StudioText::tr("Click in the marker list"),
           StudioText::tr("sets the current time to the marker; a double click "
                          "edits a cell")},
          {StudioText::tr("Left, Right, F2, Del in the strip"),
           StudioText::tr("select, rename and delete a marker")},
          {StudioText::tr("Right click"),
           StudioText::tr("opens the menu of a marker: colour, span, delete")}}},
        {StudioText::tr("Key graph"),
         {{StudioText::tr("Drag a key"),
           StudioText::tr("moves the selected keys in time and value; Shift: in "
                          "one direction, Ctrl: between frames")},
          {StudioText::tr("Drag in an empty area"), StudioText::tr("selects the keys in the box")},
          {StudioText::tr("Wheel"), StudioText::tr("zooms the values; Alt: pans them")},
          {StudioText::tr("Drag with the middle button"), StudioText::tr("pans the values")}}},
    };
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
        rows += heading(section.title);
        for (const OverviewRow &entry : section.rows)
            rows += row(entry.gesture, entry.effect);
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

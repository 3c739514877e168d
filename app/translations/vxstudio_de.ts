<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AutoKeyMark</name>
    <message>
        <source>Auto Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto Key is on: changed values become keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto Key is off: no keys are made.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AutoSave</name>
    <message>
        <source>Cannot make a recovery copy: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BatchDialogs</name>
    <message>
        <source>vxstudio: cancelled, no user to answer: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BoneChainTool</name>
    <message>
        <source>Click the joints of the bones. Return ends the chain, Backspace takes the last one back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bones created: %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BoneDialog</name>
    <message>
        <source>Child nodes at the end &amp;follow it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;End (X, Y, Z)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Origin (X, Y, Z)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rest &amp;translation (X, Y, Z)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rest &amp;rotation (X, Y, Z)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>°</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Bone</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BreakdownDialog</name>
    <message>
        <source>Breakdown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Between the previous and the next pose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toward the rest pose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toward the average of the neighbours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Pose</source>
        <translation type="unfinished">&amp;Pose</translation>
    </message>
    <message>
        <source>The selected nodes have no keys before or after this frame.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nodes: %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ConsoleInput</name>
    <message>
        <source>Script</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type a script; Return runs it, Tab completes names</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ConsoleOutput</name>
    <message>
        <source>Output of Scripts</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ConsoleRunner</name>
    <message>
        <source>Script: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>CycleDialog</name>
    <message>
        <source>Offset of the &amp;root</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cycle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Each cycle starts where the previous one ends.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Cycles</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DocumentController</name>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>Opening %1...</source>
        <translation>%1 wird geöffnet …</translation>
    </message>
    <message>
        <source>Opening was cancelled.</source>
        <translation>Das Öffnen wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Opened %1.</source>
        <translation>%1 geöffnet.</translation>
    </message>
    <message>
        <source>Saving %1...</source>
        <translation>%1 wird gespeichert …</translation>
    </message>
    <message>
        <source>Saving was cancelled.</source>
        <translation>Das Speichern wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 gespeichert.</translation>
    </message>
    <message>
        <source>Opened the sample.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recovering %1...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Recovered %1. It has not been saved yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Importing %1...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The import was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exporting %1...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The export was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exported %1. %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The last save was interrupted and has been completed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 It was not saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saved %1, but its backup could not be made. %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; was changed by another program since it was opened or saved here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; was removed or renamed by another program since it was opened or saved here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The version before the last save is %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A save was interrupted; rename %1 to open what it saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A save was interrupted; rename %1 to open the former file.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EmptySceneOffer</name>
    <message>
        <source>The scene is empty.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ExportDialog</name>
    <message>
        <source>%1 (frames %2 to %3)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2 to %3)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Whole scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Animation range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Play range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>One row per key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>One row per frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose File...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Range:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CSV files:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>GeneralPage</name>
    <message>
        <source>System (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Used from the next start on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Palette:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High contrast</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Text size:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>As on the desktop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> points</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Curve colours:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Red, green and blue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour-blind safe</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Animation:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Always</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Never</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Backups of a file:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Recovery copies every:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> minutes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo steps in a copy:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The steps that can be undone after a recovery, at least.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HistoryModel</name>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The saved state</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HistoryStatus</name>
    <message>
        <source>Undid %1</source>
        <translation>Rückgängig gemacht: %1</translation>
    </message>
    <message>
        <source>Redid %1</source>
        <translation>Wiederholt: %1</translation>
    </message>
    <message numerus="yes">
        <source>Undid %n commands</source>
        <translation>
            <numerusform>%Ln Befehl rückgängig gemacht</numerusform>
            <numerusform>%Ln Befehle rückgängig gemacht</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redid %n commands</source>
        <translation>
            <numerusform>%Ln Befehl wiederholt</numerusform>
            <numerusform>%Ln Befehle wiederholt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportDialog</name>
    <message>
        <source>Import Report</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Animation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All animations, one after another</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move the first key to time 0</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snap keys to frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set the scene to the file&apos;s frame rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotations only</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file&apos;s frame rate is unknown.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Several animations always begin at time 0.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The first key is at time 0 already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n keys, %1 of them between frames.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Keys move by up to %n ticks.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys are dropped because another key is on the same frame.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys are left out.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KeyOverviewDialog</name>
    <message>
        <source>Keyboard and Mouse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change &amp;Shortcuts...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KeysPage</name>
    <message>
        <source>Keys</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MarkerStrip</name>
    <message>
        <source>Markers</source>
        <translation type="unfinished">Marken</translation>
    </message>
    <message>
        <source>Name of the marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No marker is selected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Markers: double click to add one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resize Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add Marker Here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Go to Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make &amp;Span</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make &amp;Point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Other...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Marker Colour</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MarkerTableModel</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a colour such as #e0a030.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a time.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MotionCommands</name>
    <message>
        <source>Import Motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No motion has been imported yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing to export: the scene is empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion files (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing was exported: the figure was removed from the scene.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PaneDock</name>
    <message>
        <source>Pane options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Float or dock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PaneDocks</name>
    <message>
        <source>Panes</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PaneSearchField</name>
    <message>
        <source>Search rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows only rows whose names contain the text. Prefix rx:: for a regular expression (rx::ci:: ignores case) or wc:: for a wildcard pattern.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PluginsPage</name>
    <message>
        <source>Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skipped</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Disabled</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loaded</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The program ended while it was loading this plug-in. Check it to load it again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plug-ins</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plug-in</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>State</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only checked plug-ins are loaded at the next start.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PoseToolBar</name>
    <message>
        <source>Local</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>World</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orientation of the gizmo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Common pivot: rotates all selected nodes about their middle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Common pivot</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pages</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RecentFilesMenu</name>
    <message>
        <source>Remove Missing Files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (missing)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RecoveryController</name>
    <message>
        <source>There are no documents to recover.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The copy of &quot;%1&quot; cannot be read: %2

The copy is kept as %3.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RecoveryDialog</name>
    <message>
        <source>Recover Documents</source>
        <translation>Dokumente wiederherstellen</translation>
    </message>
    <message>
        <source>The program ended before these documents were saved. Recovery copies were made at the times shown below.</source>
        <translation>Das Programm wurde beendet, bevor diese Dokumente gespeichert waren. Sicherungskopien entstanden zu den unten gezeigten Zeiten.</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Dokument</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>not saved yet</source>
        <translation>noch nicht gespeichert</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Opens the copy; saving it replaces the document</source>
        <translation>Öffnet die Kopie; Speichern ersetzt das Dokument</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>Deletes the copy; the document itself stays as last saved</source>
        <translation>Löscht die Kopie; das Dokument selbst bleibt, wie es zuletzt gespeichert wurde</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>Keeps all copies and asks again at the next start</source>
        <translation>Behält alle Kopien und fragt beim nächsten Start erneut</translation>
    </message>
</context>
<context>
    <name>RecoveryMenu</name>
    <message>
        <source>&amp;Never</source>
        <translation>&amp;Nie</translation>
    </message>
    <message numerus="yes">
        <source>Every %n Minutes</source>
        <translation>
            <numerusform>Jede Minute</numerusform>
            <numerusform>Alle %Ln Minuten</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SceneEdits</name>
    <message>
        <source>Delete &quot;%1&quot;</source>
        <translation>„%1“ löschen</translation>
    </message>
    <message>
        <source>Show &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reorder &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reparent &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Nodes</source>
        <translation>
            <numerusform>%Ln Knoten löschen</numerusform>
            <numerusform>%Ln Knoten löschen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n Nodes</source>
        <translation>
            <numerusform>%Ln Knoten zeigen</numerusform>
            <numerusform>%Ln Knoten zeigen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Hide %n Nodes</source>
        <translation>
            <numerusform>%Ln Knoten verbergen</numerusform>
            <numerusform>%Ln Knoten verbergen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reorder %n Nodes</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reparent %n Nodes</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SceneTreeModel</name>
    <message>
        <source>Visible: click to hide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hidden: click to show</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not visible because &quot;%1&quot; is hidden</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hidden</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>visible</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>visible, but inside a hidden node</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SceneTreeView</name>
    <message>
        <source>Rename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create</source>
        <translation type="unfinished">Erstellen</translation>
    </message>
    <message>
        <source>Select Children</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expand All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Collapse All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drop to reparent. Keeps the world position; with Shift, keeps the values.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not keep its world position: values are locked or linked, or a parent is scaled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n nodes could not keep their world positions below their new parent.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ShortcutEditor</name>
    <message>
        <source>Search by name, description or shortcut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Commands</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No matching commands.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Shortcut:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Reassign</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restores the default shortcuts of all commands.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a command to change its shortcut.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The shortcut of this command cannot be changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press a key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Default: none</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Default: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is assigned to &quot;%2&quot; (%3).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It cannot be reassigned.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reassigning it leaves that command without a shortcut.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ShortcutField</name>
    <message>
        <source>Shortcut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Press a key</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ShortcutModel</name>
    <message>
        <source>Command</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StudioMenus</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Create</source>
        <translation>&amp;Erstellen</translation>
    </message>
    <message>
        <source>&amp;Pose</source>
        <translation>&amp;Pose</translation>
    </message>
    <message>
        <source>Default &amp;Layout</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Restores the default pane layout.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>Creates an empty scene.</source>
        <translation>Legt eine leere Szene an.</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>Opens a scene or motion file.</source>
        <translation>Öffnet eine Szene oder eine Bewegungsdatei.</translation>
    </message>
    <message>
        <source>Open Sa&amp;mple</source>
        <translation>&amp;Beispiel öffnen</translation>
    </message>
    <message>
        <source>Opens a sample with a walking figure.</source>
        <translation>Öffnet ein Beispiel mit einer gehenden Figur.</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Saves the scene to its file.</source>
        <translation>Speichert die Szene in ihre Datei.</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter …</translation>
    </message>
    <message>
        <source>Saves the scene to another file.</source>
        <translation>Speichert die Szene in eine andere Datei.</translation>
    </message>
    <message>
        <source>Re&amp;vert</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>Opens the file again and discards all unsaved changes.</source>
        <translation>Öffnet die Datei erneut und verwirft alle nicht gespeicherten Änderungen.</translation>
    </message>
    <message>
        <source>&amp;Import Motion...</source>
        <translation>Bewegung &amp;importieren …</translation>
    </message>
    <message>
        <source>Adds the figure of a motion file to the scene.</source>
        <translation>Fügt die Figur einer Bewegungsdatei zur Szene hinzu.</translation>
    </message>
    <message>
        <source>&amp;Export Motion...</source>
        <translation>Bewegung &amp;exportieren …</translation>
    </message>
    <message>
        <source>Saves the motion of a figure to a file.</source>
        <translation>Speichert die Bewegung einer Figur in eine Datei.</translation>
    </message>
    <message>
        <source>Import Repor&amp;t...</source>
        <translation>Impor&amp;tbericht …</translation>
    </message>
    <message>
        <source>Shows what was found in the motion file that was read last.</source>
        <translation>Zeigt, was in der zuletzt gelesenen Bewegungsdatei gefunden wurde.</translation>
    </message>
    <message>
        <source>Import Mar&amp;kers...</source>
        <translation>Mar&amp;ken importieren …</translation>
    </message>
    <message>
        <source>Adds the markers of a CSV file to the scene.</source>
        <translation>Fügt die Marken einer CSV-Datei zur Szene hinzu.</translation>
    </message>
    <message>
        <source>E&amp;xport Markers...</source>
        <translation>Marken e&amp;xportieren …</translation>
    </message>
    <message>
        <source>Saves the markers of the scene to a CSV file.</source>
        <translation>Speichert die Marken der Szene in eine CSV-Datei.</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>Been&amp;den</translation>
    </message>
    <message>
        <source>Quits the program.</source>
        <translation>Beendet das Programm.</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>Zu&amp;letzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Recover Documents...</source>
        <translation>Dokumente &amp;wiederherstellen …</translation>
    </message>
    <message>
        <source>Shows recovery copies of unsaved documents from earlier sessions.</source>
        <translation>Zeigt Sicherungskopien nicht gespeicherter Dokumente aus früheren Sitzungen.</translation>
    </message>
    <message>
        <source>Recovery &amp;Copies</source>
        <translation>Si&amp;cherungskopien</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Camera</source>
        <translation>&amp;Kamera</translation>
    </message>
    <message>
        <source>Frames the selected nodes in the viewport.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time D&amp;isplay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show &amp;All Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the whole animation in the timeline.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Zoom to Selected Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the selected keys in the timeline.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stored &amp;Views</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show View &amp;%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the stored view %1 in the timeline.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Store View 1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>S&amp;tore View 2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>St&amp;ore View 3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stores what the timeline shows as view %1 of the document.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows times in frames.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Seconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows times in seconds of playback.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tic&amp;ks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows times in ticks, 4800 a second.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Timecode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows times as hours, minutes, seconds and frames.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rate of the Time Step</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 Drop-Frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 Non-Drop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The rate at which timecodes count frames.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Dark Palette</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Light text on a dark background.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Light Palette</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dark text on a light background.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Keyboard and Mouse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows help for the keyboard and the mouse.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows version information for the program and its plug-ins.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Undoes the last change.</source>
        <translation>Macht die letzte Änderung rückgängig.</translation>
    </message>
    <message>
        <source>Redoes the last undone change.</source>
        <translation>Wiederholt die zuletzt rückgängig gemachte Änderung.</translation>
    </message>
    <message>
        <source>&amp;Keyboard Shortcuts...</source>
        <translation>&amp;Tastenkürzel …</translation>
    </message>
    <message>
        <source>Shows and changes the shortcuts of all commands.</source>
        <translation>Zeigt und ändert die Tastenkürzel aller Befehle.</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>&amp;High-Contrast Palette</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>White text on a black background.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Colour-&amp;Blind Safe Curves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the axes in colours that everybody can distinguish.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key &amp;Graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show &amp;Higher Values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves the curves of the key graph down.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show &amp;Lower Values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves the curves of the key graph up.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enlarges the values of the key graph.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reduces the values of the key graph.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Preferences...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows and changes the preferences.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The key graph is not visible.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StudioText</name>
    <message>
        <source>The length of a bone must be a number from 0.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bone Length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bones of that length: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the bones whose length is to be changed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nodes cannot be nested deeper than %1 levels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The node could not be added.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the bone or skeleton that the new bone is a child of.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is scaled to nothing: a bone below it has no position.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the nodes to duplicate.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the nodes to group.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Group &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not keep its world position.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orange</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Red</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Green</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blue</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Violet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Grey</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Markers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Marker Colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make Marker a Span</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Make Marker a Point</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no marker after the playhead.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no marker before the playhead.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file cannot be read: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is too large for a list of markers.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Markers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Markers imported: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1; already there: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file cannot be written: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, frame %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, frames %2 to %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2 to %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Locked channels: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The selected nodes have no keys before or after this frame.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Breakdown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Breakdown at %1 %. Nodes: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No channel to hold: there are no keys before the playhead.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The number of cycles must be from 2 to %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The play range is too short or too long to be repeated.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The selected nodes have no keys within the play range.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The cycles would make more than %1 keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cycle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Match First and Last Pose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First and last pose agree already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Not found: %1 and %2 more.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Not found: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No node of the figure matches the pose.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the nodes of a figure first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select nodes of one figure only to copy a pose.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The selected node has no joints below it to copy the pose of.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No pose was copied yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste Pose Mirrored</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste Pose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mirror to Other Side</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset to Rest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Rest Pose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The selected nodes have no other side.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The selected nodes have no parents.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Channels at their limits: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Channels not changed (locked, linked, or no key there while Auto Key is off): %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>IK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Out of reach.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag a joint with two bones above it, such as a hand or a foot.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The bone %1 has no length; its limb cannot be solved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The rotation of %1 is locked or linked.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scale</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pin in IK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unpin in IK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select hands or feet first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pinned in IK: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No longer pinned in IK: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Auto Key is off: no keys are made; animated channels return to their keys when the time changes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> At the limit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Channels not changed: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Pins out of reach: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot write to the folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation type="unfinished">Unbenannt</translation>
    </message>
    <message>
        <source>No recovery copy has been started.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rename &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Composes and animates scenes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Host library %1, Qt %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No plug-ins are loaded.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run without a display and without dialogs.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Run a script after the file is opened. Arguments after &quot;--&quot; are passed to the script.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Animation to read from a motion file that has several, by name or number. Without this option all are read, one after another.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print what was found in the motion file as JSON.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End a run without a window when its script takes longer. Default: no limit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop the script when it takes more memory; 0 for no limit. Default: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save a picture of the window and exit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print a page about all actions and exit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Window size in pixels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame to show.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Language of all texts, such as de.</source>
        <translation>Sprache aller Texte, etwa de.</translation>
    </message>
    <message>
        <source>Store the settings in this file, and recovery copies in a folder next to it. Without this option, --headless and --screenshot neither read nor write settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Additional plug-in folder; may be repeated.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enable plug-ins again that are skipped because the program ended while it was loading them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Write messages of these categories to standard error, such as plugins,scripts; &quot;all&quot; for every one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print versions, plug-ins, settings and screens, and exit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show version information.</source>
        <translation>Zeigt die Version.</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>Zeigt diese Hilfe.</translation>
    </message>
    <message>
        <source>The scene or motion file to open.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid size &quot;%1&quot;: expected WIDTHxHEIGHT such as 1280x800, each from %2 to %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid frame &quot;%1&quot;: expected a whole number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown language &quot;%1&quot;: expected one of %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid --%1 &quot;%2&quot;: expected a whole number, 0 or more.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown log category &quot;%1&quot;: expected all, or some of %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only one file can be opened; unexpected argument &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Option --%1 requires a name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>
Exit codes:
  0  success
  1  a file, a script or a picture failed
  2  invalid command line
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2 (host library %3)
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Viewport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>selects a node; Ctrl: adds or removes it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>orbits the view</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag an arrow, ring or handle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>moves, rotates or scales the selected nodes; Shift: in steps, Ctrl: a tenth as fast</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type a number during the drag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sets the exact amount; Enter ends the drag, Escape cancels it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag a hand or foot with the IK tool</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>rotates the two bones above it so that it follows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag with the middle button</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pans the view; Ctrl: zooms</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wheel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>zooms at the mouse position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>frames the selected nodes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right click</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>opens the context menu of the node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click, while Bone Chain is active</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>adds a bone; Backspace takes it back, Return, Escape or a double click ends the chain</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>T</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>shows motion trails of the selected nodes; a click on a dot sets the current time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1, 3, 7 on the number pad</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>front, side and top view; Ctrl: from the opposite side. 5 toggles perspective</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>F2 or double click</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>renames a node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Del</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>deletes the selected nodes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click on the eye</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hides or shows a node and all nodes below it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>reparents the nodes and keeps their world positions; Shift: keeps their values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag a value sideways</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>changes it and sets a key; Ctrl: ten times as fast, Shift: a tenth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click a value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>edits it; 24/5, +=5 and *=2 work too</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click the mark beside it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sets or deletes the key at the current time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ctrl+C, Ctrl+V in the list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>copy and paste values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Escape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cancels a drag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Timeline: rows and keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click a property&apos;s row</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>shows its curve in the key graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click a key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>selects it; Ctrl: adds it, Alt: removes it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag a key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>moves the selected keys by whole frames; Ctrl: freely</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag in an empty area</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>selects the keys in the box</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Double click</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sets the current time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>opens the context menu</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Timeline: key cursor (Keys &gt; Select &gt; Key Cursor)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arrows, Home, End, Page Up, Page Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>move among keys and rows; Shift: extends the selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space, Return</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>adds or removes the key, selects it alone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sets the current time to the key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arrows during a drag of keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>move by a frame or a round value; Return accepts, Escape restores</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alt+Right, Alt+Left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>opens and closes the row</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tab</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>leads to the key graph and back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ends the key cursor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Timeline: time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click or drag in the ruler</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift and the wheel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>zooms the time at the mouse position in rows, ruler, graph and slider; Ctrl: in small steps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Horizontal wheel, or Shift, Alt and the wheel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>shifts the time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag an end of the time range slider</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>changes the play range; dragging its middle moves it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Double click the slider</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>switches between the whole animation and the previous range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Double click the edge of the names column</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>fits the column to the names</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Markers</source>
        <translation type="unfinished">Marken</translation>
    </message>
    <message>
        <source>adds a marker, or renames the one below the mouse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag a marker, or an end of a span</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>moves it; it snaps to the playhead, other markers and frames. Ctrl: freely</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Click in the marker list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sets the current time to the marker; a double click edits a cell</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left, Right, F2, Del in the strip</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>select, rename and delete a marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>opens the menu of a marker: colour, span, delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>moves the selected keys in time and value; Shift: in one direction, Ctrl: between frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>zooms the values; Alt: pans them</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pans the values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shortcuts: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The plug-in folder %1 does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was skipped, because the program ended while loading it. Start it with --enable-plugins to load it again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no option &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>argument 1 must be the name of a file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>argument 2 must be an object with options</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>there is no node &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Script: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings will not be used or saved: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot create the folder %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings could not be saved: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No keys are selected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Store View %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>View %1 is empty. Store it first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Time Display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot write the picture %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The shortcut %1 stored for &quot;%2&quot; is already assigned to &quot;%3&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; has unsaved changes. Save them?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Revert &quot;%1&quot; to its saved version? All unsaved changes will be lost and cannot be redone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 already exists. Do you want to replace it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete the recovery copy of &quot;%1&quot;? Its unsaved changes will be lost permanently.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import the motion &quot;%1&quot; into this scene, or replace the scene with it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Create %n Bones</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Duplicate %n Nodes</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Group %n Nodes</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n nodes could not keep their world positions.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n nodes</source>
        <translation>
            <numerusform>%Ln Knoten</numerusform>
            <numerusform>%Ln Knoten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keyed properties</source>
        <translation>
            <numerusform>%Ln Eigenschaft mit Schlüsseln</numerusform>
            <numerusform>%Ln Eigenschaften mit Schlüsseln</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys</source>
        <translation>
            <numerusform>%Ln Schlüssel</numerusform>
            <numerusform>%Ln Schlüssel</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Held the pose on %n channels.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Repeated the play range: %n cycles.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> First and last pose differ in %n channels.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>First and last pose agree now: %n channels changed.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copied the pose of %n nodes.</source>
        <translation>
            <numerusform>Die Pose eines Knotens wurde kopiert.</numerusform>
            <numerusform>Die Pose von %Ln Knoten wurde kopiert.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pasted the pose to %1 of %n nodes.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Mirrored the pose of %n nodes.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reset %n nodes to rest.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The present pose is the rest pose of %n nodes.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selected %n nodes.</source>
        <translation>
            <numerusform>%Ln Knoten ausgewählt.</numerusform>
            <numerusform>%Ln Knoten ausgewählt.</numerusform>
        </translation>
    </message>
    <message>
        <source>breakdown() expects a finite number as argument 1 (percent)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>breakdown() expects neighbours, rest or average as argument 2 (toward)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cycle() expects a whole number as argument 1 (count)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>setBoneLength() expects a finite number as argument 1 (length)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the former journal cannot be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: the script has exceeded its time limit of %2 s
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: the script has exceeded its memory limit of %2 MB
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>set() expects an array of three finite numbers as target</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>set() expects true or false as orthographic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>set() expects a finite number as %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>set() expects an object with target, distance, yaw, pitch, fieldOfView or orthographic, not %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>set() expects an object as argument 1 (camera)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The camera can frame nodes in a window only.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Palette: dark, light or contrast.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text size from %1 to %2 points; 0 for that of the desktop.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown palette &quot;%1&quot;: expected dark, light or contrast.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid text size &quot;%1&quot;: expected %2 to %3 points, or 0.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save &amp;Anyway</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save A&amp;s...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2, %3, frames %4 to %5 at %L6 frames per second</source>
        <comment>nodes, keyed properties and keys, each with its number</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StudioWindow</name>
    <message>
        <source>The default pane layout has been restored.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create Figure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create Skeleton</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save As</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import Markers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tables of markers (*.csv)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Markers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Markers</source>
        <translation type="unfinished">Marken</translation>
    </message>
    <message>
        <source>The markers have been saved.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimeLabel</name>
    <message>
        <source>Current time; click to choose the unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current time: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimelinePage</name>
    <message>
        <source>&amp;View mode:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Controls &amp;position:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Key creation scope:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Properties:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Behaviour:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The timeline&apos;s plug-in is not loaded.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Timeline</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ViewportMenu</name>
    <message>
        <source>Create</source>
        <translation type="unfinished">Erstellen</translation>
    </message>
    <message>
        <source>Bone Ending Here</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pose</source>
        <translation type="unfinished">Pose</translation>
    </message>
    <message>
        <source>View</source>
        <translation type="unfinished">Ansicht</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ViewportWidget</name>
    <message>
        <source>Perspective</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Top</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Front</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Side (+X)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Side (-X)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Orthographic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame &amp;Selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>3D Viewport</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1   Grid: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxAddMarkerAction</name>
    <message>
        <source>Add Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adds a marker at the current time.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxAutoKeyAction</name>
    <message>
        <source>Auto Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toggles whether changed values become keys at the current time. Off, the viewport&apos;s tools set values without keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto Key is on: changed values become keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Auto Key is off: no keys are made.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxBackViewAction</name>
    <message>
        <source>Back View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the scene from -Z, without perspective.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxBoneChainAction</name>
    <message>
        <source>Bone Chain</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Creates bones from click to click in the viewport. Return, Escape or a double click ends the chain, Backspace takes the last click back.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxBottomViewAction</name>
    <message>
        <source>Bottom View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the scene from below, without perspective.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxBreakdownAction</name>
    <message>
        <source>Breakdown...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the selected nodes to a pose between the previous and the next one.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxCommonPivotAction</name>
    <message>
        <source>Common Pivot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rotates all selected nodes about the middle of their origins instead of each about its own.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxConsolePane</name>
    <message>
        <source>Script Console</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop the running script (Escape)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear the output</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another script is still running.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxCopyPoseAction</name>
    <message>
        <source>Copy Pose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copies the pose of the selected nodes and everything below them at the current time.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxCreateBoneAction</name>
    <message>
        <source>Bone</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Creates a bone below the primary selection, at the end of the bone that is selected.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxCreateFigureAction</name>
    <message>
        <source>Figure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Creates a human figure of 21 bones in a T pose, with joint limits.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxCreateNodeAction</name>
    <message>
        <source>Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Creates a node below the primary selection, or at the top level without a selection.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxCreateSkeletonAction</name>
    <message>
        <source>Skeleton</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Creates a skeleton, the root of a figure.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxCyclePosesAction</name>
    <message>
        <source>Cycle...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Repeats the keys of the play range, with or without an offset of the root.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxDuplicateNodesAction</name>
    <message>
        <source>Duplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copies the selected nodes with their keys and everything below them.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxEditBoneAction</name>
    <message>
        <source>Edit Bone...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the length, the position and the rest pose of the primary selection.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select the bone to edit.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxFbxScene</name>
    <message>
        <source>mesh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>skin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>texture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>camera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>constraint</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sound</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxFieldOfViewAction</name>
    <message>
        <source>Field of View...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the angle that the shorter side of the viewport shows.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Field of View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Degrees over the shorter side of the viewport:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxFileText</name>
    <message>
        <source>Elements are nested more than %1 levels deep.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid XML: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a COLLADA document.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are too many nodes or levels of nodes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has no nodes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>channel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its node does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another channel has the same target.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are more than %1 keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COLLADA</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>COLLADA %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has smooth segments; their keys are joined by straight ones.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only nodes and their motion are imported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mesh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>camera</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>light</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The document cannot be read: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a regular file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is larger than 1 GB.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file cannot be read: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unsupported file type.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file needs more memory than is reasonable for its size.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The scene is empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The motion is too long: %1 frames of %2 properties.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The export was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file could not be written: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A &quot;\&quot; in a name must be followed by &quot;\&quot; or a number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are more than %1 nodes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The parent &quot;%1&quot; does not occur before the node.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The node has another parent already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown kind &quot;%1&quot;. Supported: node, figure, bone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The kind of the node was %1 in an earlier row.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown rotation order &quot;%1&quot;. Expected one such as XYZ.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The rotation order of the node was %1 in an earlier row.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown property &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The property has a value or a key already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The end of a bone cannot be animated.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The visibility cannot be animated.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The property has a value without a time already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The times of a property&apos;s keys must ascend.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The import was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown column &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The column &quot;%1&quot; occurs twice.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The column &quot;%1&quot; is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown interpolation &quot;%1&quot;. Supported: linear, constant, tcb.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The row has too many cells.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The node is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The property is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The value is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown row &quot;%1&quot;. Supported: node:, parent:, kind:, order:, time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The header must have one row &quot;node:&quot;, as its first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The row &quot;time&quot; with the properties is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The header&apos;s rows have different lengths.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The property has a column already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The times must ascend.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CSV, one row a frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CSV, one row a key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The quotation mark of this cell is not closed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A comma is missing after the quotation mark.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A quotation mark within an unquoted cell.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is not text.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The text is not UTF-8.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The number &quot;%1&quot; is out of range.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown column &quot;%1&quot;; expected name, start, end and colour.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The column &quot;start&quot; is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The time &quot;%1&quot; is out of range.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The row has more cells than the first row.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The start is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The end is before the start.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a colour such as #e0a030.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The arrays of this file are too large for its size.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A value of an array is not a number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown array encoding %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not enough memory for an array.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A compressed array is larger than declared.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A compressed array is damaged.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An array declares more values than the rest of the text can hold.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An array has more values than declared.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An array has fewer values than declared.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file ends within its header.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The header is damaged.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Big-endian files are not supported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The end of a record is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unexpected bytes after the last record of &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file ends within a record.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A record ends before its nested records.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A record extends beyond the end of the file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A record extends beyond its parent record.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A record ends before it begins.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The values of a record are larger than the record.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A record declares more values than it has bytes for.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Records are nested more than %1 levels deep.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has more than %1 records.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The values of a record are shorter than declared.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A value extends beyond the values of its record.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has more than %1 values.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unknown value type %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A curve has %1 key times and %2 key values.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A curve has a key more than %1 seconds away from time 0.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A curve has %1 key flags, %2 shape values and %3 run lengths, which do not fit each other.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The run lengths of a curve&apos;s key shapes do not add up to its %1 keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Curves whose keys were out of order and have been sorted: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys left out because a later one has the same time: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys left out because their value is not a number: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The ancestors of the node &quot;%1&quot; form a cycle.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skeleton</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The hierarchy has more than %1 levels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has more than %1 nodes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nodes with a spheric or unknown rotation order, which rotate about X, Y and Z instead: %1. The first is &quot;%2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nodes with a geometric transform, which places their mesh only and was left out: %1. The first is &quot;%2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The section &quot;Objects&quot; is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Objects with a duplicate number were left out: %1. The first is &quot;%2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FBX version %1 is not supported. Supported: 7.0 to 7.9.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not an FBX file: the version is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FBX %1 (binary)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FBX %1 (text)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file&apos;s axes were converted to Y up.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 animations of %2 nodes are more than can be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has too many nodes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only nodes, morphs and their keys are read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>animation of &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>animation of a morph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The scene has no corresponding property.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Helper nodes for pivots, below the nodes that move about them: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Helper nodes for scales that children do not inherit: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Values combined from layers that had to be sampled: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Of these, values that change too fast to be sampled exactly: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Curves that the file continues outside of their keys, where the scene holds the end value: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file&apos;s frame rate is invalid; 30 frames per second are used.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file&apos;s axes are invalid; Y up is used.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file&apos;s unit of length is invalid; centimetres are used.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>animation layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is muted in the file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file ends inside the record &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unexpected &quot;{&quot;: no record precedes it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unexpected &quot;,&quot;: no value precedes it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not an FBX text file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unmatched &quot;}&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A string is not closed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;{&quot; expected after the size of an array.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An array is not closed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A value is outside of all records.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accessor %1 does not contain times.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the time of a key is not a number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>key %1 at %2 s follows a key at %3 s.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another key has the same time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sampler %1 does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown interpolation &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a value of accessor %1 is not a number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>rotation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A quaternion of length 0; the previous rotation is kept.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its target is not a node.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It has no target.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the target node of a channel does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its target is neither a transform nor morph weights.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It has no keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The node has no morphs.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the channel &quot;%1&quot; of &quot;%2&quot; has %3 numbers per key instead of %4.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Animation &quot;%1&quot;, channel %2: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Buffer view %1 does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Buffer view %1 is compressed (EXT_meshopt_compression), which cannot be read. Export the file without compression.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid description of buffer view %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Buffer view %1 extends beyond the end of buffer %2, which has %3 bytes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid description of buffer %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Buffer %1 has no data.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The data of buffer %1 is damaged.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has more data than can be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The data file is outside the folder of the glTF file: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The data file &quot;%1&quot; does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The data file &quot;%1&quot; cannot be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>glTF version %1 is not supported. Supported: 2.0.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The header declares %1 bytes, but the file has %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The first chunk is not JSON.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid JSON: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a glTF file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a glTF file: the version is missing.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Buffer view %1 has a stride of %2 bytes for elements of %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Buffer view %1 has %2 bytes, too few for %3 elements.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid description of sparse values.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The index of a sparse value is out of range.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accessor %1 does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invalid description of accessor %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accessor %1 declares %2 values; the file has more than can be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accessor %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The motion is too long: %1 frames of %2 nodes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The motion is moved so that it starts at time 0.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Node %1 has a child that does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Node %1 is a child of the nodes %2 and %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Node %1 has more than %2 ancestors.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Node %1 is its own ancestor.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skin %1 has a joint that does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The bind pose of skin %1 cannot be read. %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skin %1 has %2 joints but %3 bind matrices.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Morph %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The transform of node %1 (%2) has values that are not numbers.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has %1 nodes; at most %2 are supported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>glTF 2.0 (binary)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>glTF 2.0 (text)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>extension</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Required by the file, but not supported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animation &quot;%1&quot; ends before it starts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animation &quot;%1&quot; has a channel whose node, morph or property does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animation &quot;%1&quot; has keys out of order or numbers that are not finite for the node &quot;%2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animation &quot;%1&quot; has two channels with the same target.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The node &quot;%1&quot; has a parent that follows it or a number that is not finite.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has %1 frames per second, the scene %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 frames per second.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left out: %1; see the import report.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Format</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Written by</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not stated</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame rate of the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unknown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (by its keys)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame rate of the scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2 ticks per frame); the file&apos;s rate is kept with the figure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2 ticks per frame)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, turned to Y by a node above</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Y</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit of length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 m; lengths are kept as they are</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>not stated; lengths are kept as they are</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (frames %2 to %3)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Animations</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 s, moved to 0</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 s, kept</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nodes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Morphs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Animated channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys in the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys in the scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys between frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys at the time of another one, merged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Largest error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 degrees, %2 % of a channel&apos;s range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 × %2. %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 × %2, first &quot;%4&quot;. %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Note</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The node &quot;%1&quot; is deeper than %2 levels, which a scene does not allow.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has no animation named &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file has no animation named &quot;%1&quot;. It has: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animation &quot;%1&quot; has a key at %2 s; a scene holds times of up to %3 s.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animation &quot;%1&quot; is too long.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animations are too long to follow one another. Choose one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The animations need more keys than can be imported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left out, because the format does not support them: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot export this file type. Supported: *.%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A BVH file holds the motion of one figure with a skeleton. Choose a figure, or another file type.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BVH motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>glTF</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FBX</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CSV table of motion</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Z up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>X up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bone %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Node %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BVH</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys were snapped to frames: moved by up to %1 ticks; %2 were dropped because another key is on the same frame.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is nothing to import.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The figure could not be added to the scene.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A joint cannot be named &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joint &quot;%1&quot; has a duplicate channel.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joint &quot;%1&quot; has an offset that is not finite.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The skeleton has no joints.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joint &quot;%1&quot; is not below its parent in the list of joints.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joint &quot;%1&quot; is nested too deeply.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The frame time must be greater than 0.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The motion has frames but no channels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The number of values does not equal channels times frames.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A value is not finite.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no bones to export.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The motion is too long: %1 frames of %2 bones. Shorten the animation range.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The motion of &quot;%1&quot; has %2 frames at %3 frames per second.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a text file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 must be finite, not &quot;%2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is out of range: &quot;%2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is missing: the file ends here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 must be a number, not &quot;%2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the end of the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a BVH file: &quot;HIERARCHY&quot; expected, found %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The hierarchy has no ROOT: the file ends here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;ROOT&quot; expected, found %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;MOTION&quot; is missing: the file ends here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;ROOT&quot; or &quot;MOTION&quot; expected, found %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joint &quot;%1&quot; (line %2) is not closed with &quot;}&quot;: found %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;OFFSET&quot;, &quot;CHANNELS&quot;, &quot;JOINT&quot;, &quot;End Site&quot; or &quot;}&quot; expected, found %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joints are nested more than %1 levels deep.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A joint has no name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unexpected &quot;{&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>joint &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;OFFSET&quot; of joint &quot;%1&quot; expected, found %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joint &quot;%1&quot; has a second &quot;OFFSET&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joint &quot;%1&quot; has a second &quot;CHANNELS&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;CHANNELS&quot; of joint &quot;%1&quot; must precede its children.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The number of channels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joint &quot;%1&quot; cannot have %2 channels; the maximum is %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A channel of joint &quot;%1&quot; is missing: the file ends here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A channel of joint &quot;%1&quot; expected (%2 are declared), found %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Joint &quot;%1&quot; lists channel %2 twice.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;End Site&quot; expected, found &quot;End&quot; and %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the end site of joint &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;OFFSET&quot; of %1 is missing: the file ends here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;OFFSET&quot; of %1 expected, found %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The offset of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; of %2 expected, found %3.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;Frames:&quot; is missing: the file ends here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;Frames:&quot; expected, found %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The number of frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Too many frames: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;Frame Time:&quot; is missing: the file ends here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;Frame Time:&quot; expected, found %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The frame time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The frame time must be greater than 0, not %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 must be a whole number, not %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be negative: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is too large: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 frames of %2 values are declared, but the rest of the file can hold at most %3 values.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value %1 of frame %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 frames are declared, but the file ends after %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file ends within frame %1 of %2, after %3 of its %4 values.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There are more values than the %1 frames of %2 declared in line %3: found %4.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The motion has %1 frames per second; at most %2 are supported.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The motion is too long: %1 frames of %2 seconds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The motion has %1 frames at %2 frames per second.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The scene has the same frame rate.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The scene has %1 frames per second (%2 ticks per frame);</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>keys are placed at the nearest tick, so some are between frames.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The scene keeps its %1 frames per second.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The scene keeps its %1 frames per second; some keys are between frames.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Writing was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file cannot be written: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is damaged or truncated: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expected %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is nested too deeply.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The member &quot;%1&quot; occurs twice.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is out of range (%2 to %3).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expected %1 numbers.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An array declares more bytes than the file contains.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An array has %1 bytes, which is not a multiple of %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unsupported file type: %1. Supported: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot save this file type: %1. Supported: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All motion files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All scene files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The property &quot;%1&quot; has an unknown kind.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The groups of the property &quot;%1&quot; are nested too deeply.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The member &quot;%1&quot; of the property &quot;%2&quot; is %3, outside of %4 to %5.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The key arrays of &quot;%1&quot; differ in length.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The property &quot;%1&quot; cannot be added to &quot;%2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The keys of &quot;%1&quot; are not in time order, or have a value that is not a finite number.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The property &quot;%1&quot; has an invalid reference to property %2: a different kind, a cycle, or a chain of more than %3 references.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A time range exceeds the supported times.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is not a scene file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file uses version %1 of the scene format; this program reads versions up to %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The marker &quot;%1&quot; has no start.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The marker &quot;%1&quot; ends before it starts.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A node has an unknown kind: &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A node does not begin with its kind and name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A node has no name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The node &quot;%1&quot; is nested deeper than %2 levels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>An object does not begin with its name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A sub-element does not begin with its name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The scene holds a number that is not finite: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A property refers to one that is not among the nodes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The importer program is missing: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The importer program could not be started: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The importer could not read the file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The answer of the importer is invalid.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading was stopped: the file takes more processor time than is reasonable for its size.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The importer crashed while reading the file (signal %1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The importer ended without a result (code %1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading was stopped: the importer has not responded for %1 seconds.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The answer of the importer is invalid. %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>The rest transforms of %n nodes have a shear, which is left out.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>vxstudio-import reads motion files for vxstudio, which starts it.
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, %2.</source>
        <comment>nodes and frames or keys, each with its number</comment>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n nodes</source>
        <translation>
            <numerusform>%Ln Knoten</numerusform>
            <numerusform>%Ln Knoten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n frames</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys</source>
        <translation>
            <numerusform>%Ln Schlüssel</numerusform>
            <numerusform>%Ln Schlüssel</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n linked properties were sampled once a frame.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>An array declares %n values, more than its bytes can hold.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>A chunk of %n bytes extends beyond the end of the file.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2; rotations deviate by up to %3 degrees between keys.</source>
        <comment>nodes and keys, each with its number</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2), %3, %4.</source>
        <comment>nodes, bones, animated channels and keys, each with its number</comment>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n bones</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n animated channels</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, of which %n bones</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n other properties</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n morphs</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Rotations only: %n keys of other properties were left out.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scales and other values that the format does not support were converted to positions and rotations for %n bones.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n frames are declared, but no joint has a channel.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>This row does not have the %n values of one frame, and values are missing at the end of the file.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>This row does not have the %n values of one frame, and the end of the file has extra values.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The file has %n more frames than the %1 it declares; the extra frames were ignored.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>each frame of the motion is %n ticks long.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>a readable container</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a complete container</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a map</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an array</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a text string</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a complete text string</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>true or false</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a finite number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a number within single precision</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a typed array</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a complete array</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n more</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>unit &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>rate %1/%2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of &quot;%2&quot;</source>
        <comment>a number of a property</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The oldest backup cannot be removed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file contains data that this version does not support: %1. Saving keeps it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file contains data that this version does not support: %1. Saving loses: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The key column &quot;%1&quot; of the property &quot;%2&quot; of &quot;%3&quot; is damaged: its checksum differs.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxFrameAllAction</name>
    <message>
        <source>Frame All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frames the whole scene in the viewport.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxFrontViewAction</name>
    <message>
        <source>Front View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the scene from +Z, without perspective.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxGroupNodesAction</name>
    <message>
        <source>Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Puts the selected nodes below a new node; they keep their world positions.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxHistoryPane</name>
    <message>
        <source>saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Undo History</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxHoldPoseAction</name>
    <message>
        <source>Hold</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Holds the pose of the keys before the playhead until the playhead.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxIkToolAction</name>
    <message>
        <source>Drags a hand or a foot; the two bones above it follow.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxLocalOrientationAction</name>
    <message>
        <source>Local Axes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aligns gizmos with the axes of the node.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxMarkerListPane</name>
    <message>
        <source>Marker List</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Markers</source>
        <translation type="unfinished">Marken</translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adds a marker at the current time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deletes the selected markers.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adds the markers of a CSV file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Saves all markers to a CSV file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The scene has no markers.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxMarkersPane</name>
    <message>
        <source>Markers</source>
        <translation type="unfinished">Marken</translation>
    </message>
</context>
<context>
    <name>VxMatchEndsAction</name>
    <message>
        <source>Match First and Last Pose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the pose at the end of the play range to the one at its start.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxMenuPath</name>
    <message>
        <source>Create</source>
        <translation>Erstellen</translation>
    </message>
    <message>
        <source>Pose</source>
        <translation>Pose</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Markers</source>
        <translation>Marken</translation>
    </message>
    <message>
        <source>Gizmo Orientation</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxMirrorPoseAction</name>
    <message>
        <source>Mirror Selected to Other Side</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Gives the pose of the selected nodes and everything below them to the other side. When both sides are selected they are swapped.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxMotionTrailsAction</name>
    <message>
        <source>Motion Trails</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the paths of the selected nodes over the play range; a click on a dot sets the current time.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxMoveToolAction</name>
    <message>
        <source>Moves the selected nodes. Shift snaps to the grid, Ctrl drags finely, typed numbers are exact.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxNextMarkerAction</name>
    <message>
        <source>Next Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the current time to the next start or end of a marker.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxOppositeSideViewAction</name>
    <message>
        <source>Opposite Side View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the scene from -X, without perspective.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxParentOrientationAction</name>
    <message>
        <source>Parent Axes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aligns gizmos with the axes of the node&apos;s parent.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxPastePoseAction</name>
    <message>
        <source>Paste Pose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pastes the copied pose to the nodes of the same names in the selected figure.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxPastePoseMirroredAction</name>
    <message>
        <source>Paste Pose Mirrored</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pastes the mirror image of the copied pose: left becomes right.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxPerspectiveAction</name>
    <message>
        <source>Perspective</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toggles between a view with perspective and one in which parallel lines are parallel.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxPinInIkAction</name>
    <message>
        <source>Pin in IK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pins the selected hands and feet: they stay where they are while nodes above their limbs are posed in the viewport.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxPreviousMarkerAction</name>
    <message>
        <source>Previous Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the current time to the previous start or end of a marker.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxResetPoseAction</name>
    <message>
        <source>Reset to Rest</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the selected nodes to the rest pose; a skeleton includes all its nodes.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxRotateToolAction</name>
    <message>
        <source>Rotates the selected nodes. Shift snaps to 15 degrees, Ctrl drags finely, typed angles are exact.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxScaleToolAction</name>
    <message>
        <source>Scales the selected nodes along their own axes, or along all of them.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxScenePane</name>
    <message>
        <source>Scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search nodes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nodes of the Scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows only nodes whose names contain the text, with the nodes above them. Return selects the matches.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The scene has no nodes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No node name contains the search text.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSelectChildrenAction</name>
    <message>
        <source>Select Children</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adds everything below the selected nodes to the selection.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSelectMirrorAction</name>
    <message>
        <source>Select Mirror</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selects the nodes of the other side instead of the selected ones.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSelectParentsAction</name>
    <message>
        <source>Select Parents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selects the parents of the selected nodes instead of them.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSelectToolAction</name>
    <message>
        <source>Selects nodes in the viewport, without a gizmo.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSetRestPoseAction</name>
    <message>
        <source>Set Rest Pose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Makes the present pose the rest pose of the selected nodes; a skeleton includes all its nodes.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSideViewAction</name>
    <message>
        <source>Side View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the scene from +X, without perspective.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxToolAction</name>
    <message>
        <source>%1 Tool</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTopViewAction</name>
    <message>
        <source>Top View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the scene from above, without perspective.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxWorldOrientationAction</name>
    <message>
        <source>World Axes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aligns gizmos with the axes of the world.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>

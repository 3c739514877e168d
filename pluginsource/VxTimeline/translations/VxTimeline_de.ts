<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AccessibleKeys</name>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Key Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deselect Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Go to Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>key at the current time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>previous key at %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>next key at %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Linear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Constant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TCB</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n keys</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n selected</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>AccessibleRow</name>
    <message>
        <source>Keys of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Level %1, %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AccessibleTimeline</name>
    <message>
        <source>Playhead</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Play Range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimePaneFieldHelp</name>
    <message>
        <source>Length of the animation in frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>First frame of the play range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Last frame of the play range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current frame, at which keys are created</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frames per second</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Property types shown as rows: Translation, Rotation, Scale, Other, Alias, Hidden</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scope in which keys are created at the current frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tension of the selected TCB keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continuity of the selected TCB keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bias of the selected TCB keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Play range. Drag it or its ends; double click switches between the whole animation and the previous range.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimePaneGraphHint</name>
    <message>
        <source>Select property rows to see their curves.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimePaneKeyCursor</name>
    <message>
        <source>Key Cursor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key Cursor: no rows are shown</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>out of view</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>open: its keys are in the rows below</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1   |   Arrows: move, Shift: extend, Space: add or remove, Enter: select only, Tab: other view, Esc: end</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxAddKeysAction</name>
    <message>
        <source>Create Keys (Selected Nodes)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Creates a key, at the current time, for the current value on each property of the selected node(s).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxDeleteKeysAction</name>
    <message>
        <source>Delete Keys (Selected Nodes)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deletes keys, at the current time, from each property of the selected node(s).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxDopeSheetModel</name>
    <message>
        <source>Properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxDopeSheetView</name>
    <message>
        <source>Select</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deselect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Property Types</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key Creation Scope</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Key Interpolation</source>
        <translation type="unfinished">Interpolation der Schlüssel</translation>
    </message>
    <message>
        <source>Move Root Item</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Expand</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Collapse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No rows match the search text.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The scene has no nodes with rows to show.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxKeyGraphView</name>
    <message>
        <source>Drag to Pan the Values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag to Zoom the Values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frame the Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key Creation Scope</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Key Interpolation</source>
        <translation type="unfinished">Interpolation der Schlüssel</translation>
    </message>
    <message>
        <source>Move Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No Selection</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxLoopToggleAction</name>
    <message>
        <source>Toggle Looping</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toggles whether or not animation playback is looped.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxMenuPath</name>
    <message>
        <source>Set Key Interpolation</source>
        <translation>Interpolation der Schlüssel</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Controls Position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key Creation Scope</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Property Types</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>View Mode</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>Select Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rows</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxNextFrameAction</name>
    <message>
        <source>Step to Next Frame</source>
        <translation type="unfinished">Ein Bild vor</translation>
    </message>
    <message>
        <source>Sets the current time to the time of the next frame.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxPlayToggleAction</name>
    <message>
        <source>Play / Pause</source>
        <translation type="unfinished">Abspielen / Anhalten</translation>
    </message>
    <message>
        <source>Toggles animation playback on/off.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxPrevFrameAction</name>
    <message>
        <source>Step to Previous Frame</source>
        <translation type="unfinished">Ein Bild zurück</translation>
    </message>
    <message>
        <source>Sets the current time to the time of the previous frame.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSkipToNextKeyAction</name>
    <message>
        <source>Skip to Next Key</source>
        <translation type="unfinished">Zum nächsten Schlüssel</translation>
    </message>
    <message>
        <source>Sets the current time to the time of the next key, regardless of whether or not the key is currently displayed in the Timeline pane.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSkipToPlayrangeEndAction</name>
    <message>
        <source>Skip to Play Range End</source>
        <translation type="unfinished">Zum Ende des Abspielbereichs</translation>
    </message>
    <message>
        <source>Sets the current time to the end of the play range.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSkipToPlayrangeStartAction</name>
    <message>
        <source>Skip to Play Range Start</source>
        <translation type="unfinished">Zum Anfang des Abspielbereichs</translation>
    </message>
    <message>
        <source>Sets the current time to the beginning of the play range.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSkipToPrevKeyAction</name>
    <message>
        <source>Skip to Previous Key</source>
        <translation type="unfinished">Zum vorherigen Schlüssel</translation>
    </message>
    <message>
        <source>Sets the current time to the time of the previous key, regardless of whether or not the key is currently displayed in the Timeline pane.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePane</name>
    <message>
        <source>Set Key Interpolation</source>
        <translation type="unfinished">Interpolation der Schlüssel</translation>
    </message>
    <message>
        <source>Keys :</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Key Graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Selected Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Selected Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Types :</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>T</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>R</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>S</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>O</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>H</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>T:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>C:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>B:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set TCB Parameters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Total:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FPS:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Play Range Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Play Range End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Range:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Total Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Play Range Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Play Range End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set FPS</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Node Recursive</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selection Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A node in the scene must be selected to continue.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create # Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Number of keys:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create Filtered Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No keys are selected.</source>
        <translation>Es sind keine Schlüssel ausgewählt.</translation>
    </message>
    <message>
        <source>The selected keys are in rows that the filter hides.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The selected keys belong to locked properties.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No keys have been copied.</source>
        <translation>Es wurden keine Schlüssel kopiert.</translation>
    </message>
    <message>
        <source>No row matches the copied keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Linear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Constant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TCB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Interpolation Type </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key Graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Property Types</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key Creation Scope</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Controls Position</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>View Mode</source>
        <translation type="unfinished">Darstellung</translation>
    </message>
    <message>
        <source>Clear Animation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation type="unfinished">Einstellungen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dope Sheet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>Skip to Play Range Start</source>
        <translation>Zum Anfang des Abspielbereichs</translation>
    </message>
    <message>
        <source>Skip to Previous Key</source>
        <translation>Zum vorherigen Schlüssel</translation>
    </message>
    <message>
        <source>Step to Previous Frame</source>
        <translation>Ein Bild zurück</translation>
    </message>
    <message>
        <source>Play / Pause</source>
        <translation>Abspielen / Anhalten</translation>
    </message>
    <message>
        <source>Step to Next Frame</source>
        <translation>Ein Bild vor</translation>
    </message>
    <message>
        <source>Skip to Next Key</source>
        <translation>Zum nächsten Schlüssel</translation>
    </message>
    <message>
        <source>Skip to Play Range End</source>
        <translation>Zum Ende des Abspielbereichs</translation>
    </message>
    <message>
        <source>Skip to Previous Filtered Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Skip to Next Filtered Key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Timeline</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Copied %n keys.</source>
        <translation>
            <numerusform>%Ln Schlüssel kopiert.</numerusform>
            <numerusform>%Ln Schlüssel kopiert.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>VxTimePaneAdvancedViewAction</name>
    <message>
        <source>Advanced View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the view of the Timeline pane to &quot;Advanced&quot; mode.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneBasicViewAction</name>
    <message>
        <source>Basic View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the view of the Timeline pane to &quot;Basic&quot; mode.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneCollapseAllItemsAction</name>
    <message>
        <source>Collapse All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set all items in the Timeline pane to be collapsed, hiding all their children </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneCollapseFromItemAction</name>
    <message>
        <source>Collapse from Item</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set the context item in the Timeline pane to be collapsed, hiding all their children </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneCollapseItemAction</name>
    <message>
        <source>Collapse Item</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set the context item in the Timeline pane to be collapsed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneCollapseNonKeyedFromItemAction</name>
    <message>
        <source>Collapse Non-Keyed from Item</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set the context item in the Timeline pane to be collapsed, hiding all their children </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneControlsBottomAction</name>
    <message>
        <source>Controls Bottom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the controls of the Timeline pane to be below the dopesheet/keygraph.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneControlsTopAction</name>
    <message>
        <source>Controls Top</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the controls of the Timeline pane to be above the dopesheet/keygraph.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneCopySelectedKeysAction</name>
    <message>
        <source>Copy Selected Key(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copies the values and relative positional offsets (from one another) of the selected keys, for each of the respective properties, to the clipboard.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneCreateKeysAction</name>
    <message>
        <source>Create Keys (Filtered)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Creates a key, at the current time, for the current value on each property associated with the nodes specified using the scope selector in the Timeline pane. If the Ctrl/Cmd button on the keyboard is pressed, additional options are displayed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneDeleteSelectedKeysAction</name>
    <message>
        <source>Delete Selected Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deletes the selected keys from their respective properties.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneDeselectItemAnimRangeKeysAction</name>
    <message>
        <source>Deselect All Item Keys (Filtered)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deselects all keys in the entire animation range for the properties associated with the currently selected item(s) in the navigation column of the Timeline pane dopesheet view. If a selected item is collapsible and is currently collapsed, all keys that are represented by the collapsed key will become selected.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneDeselectItemPlayRangeKeysAction</name>
    <message>
        <source>Deselect Item Keys (Filtered)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deselects keys within the play range for the properties associated with the currently selected item(s) in the navigation column of the Timeline pane dopesheet view. If a selected item is collapsible and is currently collapsed, all keys that are represented by the collapsed key will become selected.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneExpandAllItemsAction</name>
    <message>
        <source>Expand All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set all items in the Timeline pane to be open, making all their children visible</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneExpandFromItemAction</name>
    <message>
        <source>Expand from Item</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set the context item in the Timeline pane to be open, making all their children visible</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneExpandItemAction</name>
    <message>
        <source>Expand Item</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set the context item in the Timeline pane to be open</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneExpandKeyedFromItemAction</name>
    <message>
        <source>Expand Keyed from Item</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set the context item in the Timeline pane to be open, making all their keyed children visible</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneFrameGraphKeysAction</name>
    <message>
        <source>Frame Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Causes the keys displayed in the Timeline pane key graph to be framed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneIntermediateViewAction</name>
    <message>
        <source>Intermediate View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the view of the Timeline pane to &quot;Intermediate&quot; mode.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneKeyGraphToggleAction</name>
    <message>
        <source>Show Key Graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toggles whether or not the Key Graph is displayed in Advanced Mode.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneMonitorParametersPaneAction</name>
    <message>
        <source>Monitor Parameters Pane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toggles whether or not to monitor property selection in the Parameters pane.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneMoveRootNodeDownAction</name>
    <message>
        <source>Move Root Node Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves the root node of an item in the Timeline pane dopesheet down in the list.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneMoveRootNodeToBottomAction</name>
    <message>
        <source>Move Root Node to Bottom</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves the root node of an item in the Timeline pane dopesheet to the bottom of the list.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneMoveRootNodeToTopAction</name>
    <message>
        <source>Move Root Node to Top</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves the root node of an item in the Timeline pane dopesheet to the top of the list.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneMoveRootNodeUpAction</name>
    <message>
        <source>Move Root Node Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves the root node of an item in the Timeline pane dopesheet up in the list.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneNextKeyAction</name>
    <message>
        <source>Skip to Next Key (Filtered)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the current time to the time of the next displayed key.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePanePasteKeysAction</name>
    <message>
        <source>Paste Key(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pastes the copied keys to their respective properties, with their respective position offsets from one another, at the current time.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePanePlayAllFramesAction</name>
    <message>
        <source>Play All Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Toggles whether or not to force all frames in the play range to cause the viewport to update or to allow updates to be skipped in order to achieve the desired Frames Per Second (FPS).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePanePrevKeyAction</name>
    <message>
        <source>Skip to Previous Key (Filtered)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the current time to the time of the previous displayed key.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneRefreshDopesheetAction</name>
    <message>
        <source>Refresh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Causes the data displayed in the Timeline pane dopesheet to be refreshed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSelectItemAnimRangeKeysAction</name>
    <message>
        <source>Select All Item Keys (Filtered)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selects all keys in the entire animation range for the properties associated with the currently selected item(s) in the navigation column of the Timeline pane dopesheet view. If a selected item is collapsible and is currently collapsed, all keys that are represented by the collapsed key will become selected.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSelectItemPlayRangeKeysAction</name>
    <message>
        <source>Select Item Keys (Filtered)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selects keys within the play range for the properties associated with the currently selected item(s) in the navigation column of the Timeline pane dopesheet view. If a selected item is collapsible and is currently collapsed, all keys that are represented by the collapsed key will become selected.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetInterpConstantAction</name>
    <message>
        <source>Constant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the interpolation type on the selected key(s) to the &quot;Constant&quot; type.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetInterpLinearAction</name>
    <message>
        <source>Linear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the interpolation type on the selected key(s) to the &quot;Linear&quot; type.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetInterpTcbAction</name>
    <message>
        <source>TCB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the interpolation type on the selected key(s) to the &quot;TCB&quot; type.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetKeyScopeNodeAction</name>
    <message>
        <source>Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the key creation scope for the Timeline pane to &quot;Node&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetKeyScopeNodeRecurseAction</name>
    <message>
        <source>Node Recurse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the key creation scope for the Timeline pane to &quot;Node Recurse&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetKeyScopeObjectAction</name>
    <message>
        <source>Object</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the key creation scope for the Timeline pane to &quot;Object&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetKeyScopePropertiesAction</name>
    <message>
        <source>Properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the key creation scope for the Timeline pane to &quot;Properties&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetPropertyTypeAliasAction</name>
    <message>
        <source>Alias (A)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the visible property types for the Timeline pane to include &quot;Alias&quot; properties.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetPropertyTypeHiddenAction</name>
    <message>
        <source>Hidden (H)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the visible property types for the Timeline pane to include &quot;Hidden&quot; properties.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetPropertyTypeOtherAction</name>
    <message>
        <source>Other (O)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the visible property types for the Timeline pane to include &quot;Other&quot; properties.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetPropertyTypeRotationAction</name>
    <message>
        <source>Rotation (R)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the visible property types for the Timeline pane to include &quot;Rotation&quot; properties.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetPropertyTypeScaleAction</name>
    <message>
        <source>Scale (S)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the visible property types for the Timeline pane to include &quot;Scale&quot; properties.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxTimePaneSetPropertyTypeTranslationAction</name>
    <message>
        <source>Translation (T)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the visible property types for the Timeline pane to include &quot;Translation&quot; properties.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>

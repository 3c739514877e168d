<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>KeyToolText</name>
    <message>
        <source>Euler Filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Smooth (Gaussian)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Smooth (Butterworth)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Spikes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Figure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All of the scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reduce Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Flat Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; a span is too long to bake</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bake Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Convert Keys</source>
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
        <source>Error (unit or degrees)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replaces the angles of rotations with the equivalent ones nearest to the previous key.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Smooths values with a Gaussian window of the given width.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Width (frames)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removes motion above the cut-off frequency without a delay.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cut-off (Hz)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replaces values that are far from the median of their neighbours.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Window (frames)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removes keys as long as the curve stays within the error, or until a percentage of them is left. The three angles of a rotation are reduced together.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Error, or percentage of keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>To</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys</source>
        <translation type="unfinished">Schlüssel</translation>
    </message>
    <message>
        <source>Removes keys in flat segments, where they do not change the curve.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tolerance</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Puts a linear key on every nth frame.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Every (frames)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changes the interpolation type of keys and keeps the curve within the error.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: not possible now</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: select keys, or nodes with keys in the play range</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1   |   %2   |   Mouse or arrows: change, Enter or click: accept, Esc: cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, S: next pivot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, V: next pivot</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Change Values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 about %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; cells set: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Edit Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Property</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tension</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Continuity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bias</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be used for %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Row %1, %2: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The text has more rows than the table below the current row</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Row %1: the text has more columns than the table</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not &quot;%2&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the property is locked or linked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be used</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>only TCB keys have one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; cannot be used for %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 has no parameter %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>select a joint with two joints above it</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the rotation of %1 cannot be keyed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>select nodes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>copy keys first</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; not found: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; nodes: %1 to the other side, %2 in place</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; properties not found: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste Mirrored</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the copied keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copied nodes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected nodes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Merge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace span</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ripple</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pastes copied keys at the playhead, by the names of properties.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Other keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pastes copied keys at the playhead, mirrored, to the nodes of the other side.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the keys of the two bones above %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no joint: select one</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the end is before the start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the span has too many frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pin Joint: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pin Joint</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keeps the primary selected joint in place by rotating the two bones above it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start (frame)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End (frame)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Falloff (frames)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: select keys, or nodes with keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Before Playhead</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select After Playhead</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Same Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select Every Nth</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Invert Selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select by Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select by Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selects the keys from one frame to another, both included.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selects the keys before the playhead.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selects the keys after the playhead.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selects every key on the frames of the selected keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keeps every nth of the selected keys of each channel selected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>n</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selects the keys that are not selected, and no others.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selects the keys of one interpolation type.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selects the keys whose value is in a range, both ends included.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scale Times: the factor must be a number or a percentage</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scale Times</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retime: the start must be a time or an offset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retime: the end is before the start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retime Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Insert Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snap Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space Keys Evenly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverse Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate Keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>None</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Later keys of the rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>By (frames)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves keys by a number of frames.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scales the distances of keys from a pivot.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Factor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Playhead</source>
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
        <source>Middle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Retime</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves and scales keys to a start and an end.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start (frame or +offset)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End (frame, +offset or percent)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves the keys at and after the playhead later.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deletes frames and their keys from the playhead on and moves later keys earlier.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Snap to Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves keys to the nearest frames.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space Evenly</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Spaces the keys of each channel evenly in time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reverses the order of keys in time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copies keys by a number of frames and selects the copies.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Zero</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mean</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scale Values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mirror Values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Offset With Falloff</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sets the values of keys, or changes them: 5, +5, 150%, *2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scales the values of keys about a pivot.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mirrors the values of keys about a pivot.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adds an amount to the keys of a span, with a falloff before and after it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Amount</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; %1 changed on %2</source>
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
        <source>%n rotations</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n rotations skipped, because their three angles do not have the same keys</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n spikes</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys of the selected nodes in the play range, on %1</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys of the figure in the play range, on %1</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys of the scene, on %1</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n selected keys on %1</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n channels</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> (%n locked or linked, read-only)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> (%n locked or linked skipped)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n overwritten</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>KeyTools.%1: the argument must be an object with the parameters</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>the keys are of %n nodes; select as many</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %2 on %n channels</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> and %n more</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; out of reach on %n frames</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %2 selected on %n channels</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>%L1 %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>; now %L1, largest error %L2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pin Joint: %1, largest distance %L2 % of the limb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (invalid amount)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: no property accepts the keys</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxKeyTableAction</name>
    <message>
        <source>Key Table</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows the selected keys as a table.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxKeyTablePane</name>
    <message>
        <source>Key Table</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter by node or property</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>As in the Scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Seconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ticks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Timecode</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit of times</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keys</source>
        <translation type="unfinished">Schlüssel</translation>
    </message>
    <message>
        <source>Times</source>
        <translation type="unfinished">Zeiten</translation>
    </message>
    <message>
        <source>Shows %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The keys have changed meanwhile; nothing was set.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxKeyToolsDuplicateGestureAction</name>
    <message>
        <source>Duplicate and Drag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copies keys and moves the copies in time with the mouse or by typed frames.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxKeyToolsIsolateAction</name>
    <message>
        <source>Isolate Selected Nodes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Isolate: select nodes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows only the rows and curves of the selected nodes. The same command or Escape shows all. Alt with a click in the viewport isolates a node.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxKeyToolsKeyCursorAction</name>
    <message>
        <source>Key Cursor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves among the keys and rows of the timeline with the arrow keys. Space selects, Escape ends it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Key Cursor: no pane shows keys</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxKeyToolsMoveGestureAction</name>
    <message>
        <source>Drag in Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Moves keys in time with the mouse or by typed frames. A click or Enter accepts, Escape restores.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxKeyToolsMoveValuesGestureAction</name>
    <message>
        <source>Drag Values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changes the values of keys with the mouse or by a typed number: 5, =5, 150%.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxKeyToolsPane</name>
    <message>
        <source>Key Tools</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tool</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Works on %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxKeyToolsScaleTimesGestureAction</name>
    <message>
        <source>Scale in Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scales the distances of keys from the playhead with the mouse or by a typed factor. S again: other pivots.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxKeyToolsScaleTimesInSelectionGestureAction</name>
    <message>
        <source>Scale in Time about Selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scales the distances of keys from the start of the selection. S again: its end, its middle.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxKeyToolsScaleValuesGestureAction</name>
    <message>
        <source>Scale Values with the Mouse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scales the values of keys about zero with the mouse or by a typed factor. V again: about their mean, the playhead&apos;s value.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxMenuPath</name>
    <message>
        <source>Keys</source>
        <translation>Schlüssel</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>With the Mouse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Times</source>
        <translation>Zeiten</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>Clean Up</source>
        <translation>Aufräumen</translation>
    </message>
    <message>
        <source>Pose</source>
        <translation>Pose</translation>
    </message>
</context>
<context>
    <name>VxPlugin</name>
    <message>
        <source>Retimes, cleans and edits keys numerically.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>

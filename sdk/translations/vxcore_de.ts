<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ElfFile</name>
    <message>
        <source>it is not a module</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is truncated</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ScriptText</name>
    <message>
        <source>%1 cannot be constructed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1.%2 is a signal: it can be connected, but not called</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>true or false</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a string</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an array</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>an object with whole numbers as start and end</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>expects %1 as argument %2 (%3), not %4</source>
        <translation>erwartet %1 als Argument %2 (%3), nicht %4</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>eine ganze Zahl</translation>
    </message>
    <message>
        <source>a finite number</source>
        <translation>eine endliche Zahl</translation>
    </message>
    <message>
        <source>is called on an object that is not a %1 or no longer exists</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects ascending spans of keys, first &lt; last &lt;= %1, in entry %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects a property as holder and an array as spans of entry %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>has an outdated entry %1: the keys of %2 have changed since</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects an object with name, start, end and colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects a string as name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of marker %2</source>
        <comment>what is expected</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects a whole number as %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects an end that is not before the start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects a colour such as &quot;#e0a030&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects a whole number as start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>has no marker with id %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>accepts at most %1 groups, one in another, as argument 2 (path)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot use the name &quot;%1&quot;: it is in use</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects a finite number as %1 of key %2, not %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects whole ticks as time of key %1, not %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects 0, 1 or 2 as type of key %1, not %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects 0, 1 or 2 as argument 3 (type), not %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot nest nodes deeper than %1 levels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>cannot add a node below one that is not in the scene</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects frames, seconds, ticks or timecode, not %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>expects a rate up to %1 frames a second, or 0 for that of the time step</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxBarButton</name>
    <message>
        <source>%1 (%2)</source>
        <comment>name of a command and its shortcut</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxClearKeysFigureAction</name>
    <message>
        <source>Clear Figure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removes all animation from the figure(s) of the selected item(s).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxClearKeysFigurePoseAction</name>
    <message>
        <source>Clear Figure Pose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removes the animation of translation, rotation and scale from the figure(s) of the selected item(s).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxClearKeysFigureShapeAction</name>
    <message>
        <source>Clear Figure Shape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removes the animation of everything but translation, rotation and scale from the figure(s) of the selected item(s).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxClearKeysPoseAction</name>
    <message>
        <source>Clear Selected Item(s) Pose</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removes the animation of translation, rotation and scale from the selected item(s).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxClearKeysSelectedItemsAction</name>
    <message>
        <source>Clear Selected Item(s)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removes all animation from the selected item(s).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxClearKeysShapeAction</name>
    <message>
        <source>Clear Selected Item(s) Shape</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Removes the animation of everything but translation, rotation and scale from the selected item(s).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxMenuPath</name>
    <message>
        <source>Animation</source>
        <translation>Animation</translation>
    </message>
    <message>
        <source>Clear Animation</source>
        <translation>Animation löschen</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Panes</source>
        <translation>Bereiche</translation>
    </message>
</context>
<context>
    <name>VxPaneAction</name>
    <message>
        <source>Opens the pane &quot;%1&quot; and brings it to the front.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no pane &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxParametersPane</name>
    <message>
        <source>Nothing selected</source>
        <translation>Nichts ausgewählt</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 und %n weiterer</numerusform>
            <numerusform>%1 und %n weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 only: %n more are too many to edit together</source>
        <translation>
            <numerusform>Nur %1: Einer mehr ist zu viel, um gemeinsam bearbeitet zu werden</numerusform>
            <numerusform>Nur %1: %n weitere sind zu viele, um gemeinsam bearbeitet zu werden</numerusform>
        </translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>%1 values cannot be pasted into %2 rows.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste Value</source>
        <translation type="unfinished">Wert einfügen</translation>
    </message>
    <message>
        <source>Alias of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Controlled by %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adds %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Follows %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No keys. Click to set one here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No keys.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyed, but not at this time. Click to set a key here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyed, but not at this time.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On a key. Click to delete it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On a key.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyed on some of the nodes. Click to set the missing keys here.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyed on some of the nodes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Locked</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot be keyed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Values from %1 to %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was not changed on %2 of %3 nodes, where it is locked or follows another value.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be changed: it is locked or follows another value.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be set: it has no key at this time, and creating keys automatically is off.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 must be a whole number. The nearest one was set.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 must be from %2 to %3. The nearest value was set.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” is not a valid value.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set Key</source>
        <translation type="unfinished">Schlüssel setzen</translation>
    </message>
    <message>
        <source>Delete Key</source>
        <translation type="unfinished">Schlüssel löschen</translation>
    </message>
    <message>
        <source>Delete All Keys</source>
        <translation type="unfinished">Alle Schlüssel löschen</translation>
    </message>
    <message>
        <source>Reset Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mixed values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keyed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>On a key</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mixed keys</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Changes apply to %n nodes.</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
</context>
<context>
    <name>VxPluginMgr</name>
    <message>
        <source>its plug-in record has no name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>a plug-in named &quot;%1&quot; is already loaded (version %2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was not loaded: %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxPluginModule</name>
    <message>
        <source>%1 returned no plug-in record.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 does not exist or is not a file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be loaded: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was built for SDK version %2, which is not compatible with SDK version %3 of this program.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a plug-in: it has no entry point &quot;%2&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxPropertyEdit</name>
    <message>
        <source>Set %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxPropertyListItemModel</name>
    <message>
        <source>Mixed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Set %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Property</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxPropertyMenu</name>
    <message>
        <source>Set Key</source>
        <translation>Schlüssel setzen</translation>
    </message>
    <message>
        <source>Delete Key</source>
        <translation>Schlüssel löschen</translation>
    </message>
    <message>
        <source>Delete All Keys</source>
        <translation>Alle Schlüssel löschen</translation>
    </message>
    <message>
        <source>Previous Key</source>
        <translation>Vorheriger Schlüssel</translation>
    </message>
    <message>
        <source>Next Key</source>
        <translation>Nächster Schlüssel</translation>
    </message>
    <message>
        <source>Copy Value</source>
        <translation>Wert kopieren</translation>
    </message>
    <message>
        <source>Paste Value</source>
        <translation>Wert einfügen</translation>
    </message>
    <message>
        <source>Reset to Default</source>
        <translation>Auf Vorgabe zurücksetzen</translation>
    </message>
</context>
<context>
    <name>VxPropertySpinBox</name>
    <message>
        <source>Only numbers and + - * / ( ) are allowed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mixed</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxPropertyValue</name>
    <message>
        <source>On</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Off</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSafeFile</name>
    <message>
        <source>%1. The former file is %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the name refers to a directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the name refers to a device or pipe</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is read-only</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSceneTimeDisplay</name>
    <message>
        <source>Frame %1</source>
        <translation>Bild %1</translation>
    </message>
</context>
<context>
    <name>VxScriptEngine</name>
    <message>
        <source>Syntax error: unexpected end of the script</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Syntax error: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Script</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>script</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stopped: the program has exceeded its memory limit of %1 MB</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file cannot be read: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSettingsFile</name>
    <message>
        <source>%1 cannot be read: it is not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: &quot;%2...&quot; has more than %3 groups inside each other</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is damaged at byte %2: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is damaged</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VxSideNavPropertyListView</name>
    <message>
        <source>Parameters</source>
        <translation type="unfinished">Parameter</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>HistoryStatus</name>
    <message numerus="yes">
        <source>Undid %n commands</source>
        <translation>
            <numerusform>Undid %Ln command</numerusform>
            <numerusform>Undid %Ln commands</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Redid %n commands</source>
        <translation>
            <numerusform>Redid %Ln command</numerusform>
            <numerusform>Redid %Ln commands</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ImportDialog</name>
    <message numerus="yes">
        <source>%n keys, %1 of them between frames.</source>
        <translation>
            <numerusform>%Ln key, %1 of them between frames.</numerusform>
            <numerusform>%Ln keys, %1 of them between frames.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Keys move by up to %n ticks.</source>
        <translation>
            <numerusform>Keys move by up to %Ln tick.</numerusform>
            <numerusform>Keys move by up to %Ln ticks.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys are dropped because another key is on the same frame.</source>
        <translation>
            <numerusform>%Ln key is dropped because another key is on the same frame.</numerusform>
            <numerusform>%Ln keys are dropped because another key is on the same frame.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys are left out.</source>
        <translation>
            <numerusform>%Ln key is left out.</numerusform>
            <numerusform>%Ln keys are left out.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecoveryMenu</name>
    <message numerus="yes">
        <source>Every %n Minutes</source>
        <translation>
            <numerusform>Every Minute</numerusform>
            <numerusform>Every %Ln Minutes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SceneEdits</name>
    <message numerus="yes">
        <source>Delete %n Nodes</source>
        <translation>
            <numerusform>Delete %Ln Node</numerusform>
            <numerusform>Delete %Ln Nodes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n Nodes</source>
        <translation>
            <numerusform>Show %Ln Node</numerusform>
            <numerusform>Show %Ln Nodes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Hide %n Nodes</source>
        <translation>
            <numerusform>Hide %Ln Node</numerusform>
            <numerusform>Hide %Ln Nodes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reorder %n Nodes</source>
        <translation>
            <numerusform>Reorder %Ln Node</numerusform>
            <numerusform>Reorder %Ln Nodes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reparent %n Nodes</source>
        <translation>
            <numerusform>Reparent %Ln Node</numerusform>
            <numerusform>Reparent %Ln Nodes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SceneTreeView</name>
    <message numerus="yes">
        <source>%n nodes could not keep their world positions below their new parent.</source>
        <translation>
            <numerusform>%Ln node could not keep its world position below its new parent.</numerusform>
            <numerusform>%Ln nodes could not keep their world positions below their new parent.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StudioText</name>
    <message numerus="yes">
        <source>Create %n Bones</source>
        <translation>
            <numerusform>Create %Ln Bone</numerusform>
            <numerusform>Create %Ln Bones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Duplicate %n Nodes</source>
        <translation>
            <numerusform>Duplicate %Ln Node</numerusform>
            <numerusform>Duplicate %Ln Nodes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Group %n Nodes</source>
        <translation>
            <numerusform>Group %Ln Node</numerusform>
            <numerusform>Group %Ln Nodes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n nodes could not keep their world positions.</source>
        <translation>
            <numerusform>%Ln node could not keep its world position.</numerusform>
            <numerusform>%Ln nodes could not keep their world positions.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n nodes</source>
        <translation>
            <numerusform>%Ln node</numerusform>
            <numerusform>%Ln nodes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keyed properties</source>
        <translation>
            <numerusform>%Ln keyed property</numerusform>
            <numerusform>%Ln keyed properties</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys</source>
        <translation>
            <numerusform>%Ln key</numerusform>
            <numerusform>%Ln keys</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Held the pose on %n channels.</source>
        <translation>
            <numerusform>Held the pose on %Ln channel.</numerusform>
            <numerusform>Held the pose on %Ln channels.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Repeated the play range: %n cycles.</source>
        <translation>
            <numerusform>Repeated the play range: %Ln cycle.</numerusform>
            <numerusform>Repeated the play range: %Ln cycles.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> First and last pose differ in %n channels.</source>
        <translation>
            <numerusform> First and last pose differ in %Ln channel.</numerusform>
            <numerusform> First and last pose differ in %Ln channels.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>First and last pose agree now: %n channels changed.</source>
        <translation>
            <numerusform>First and last pose agree now: %Ln channel changed.</numerusform>
            <numerusform>First and last pose agree now: %Ln channels changed.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copied the pose of %n nodes.</source>
        <translation>
            <numerusform>Copied the pose of %Ln node.</numerusform>
            <numerusform>Copied the pose of %Ln nodes.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pasted the pose to %1 of %n nodes.</source>
        <translation>
            <numerusform>Pasted the pose to %1 of %Ln node.</numerusform>
            <numerusform>Pasted the pose to %1 of %Ln nodes.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Mirrored the pose of %n nodes.</source>
        <translation>
            <numerusform>Mirrored the pose of %Ln node.</numerusform>
            <numerusform>Mirrored the pose of %Ln nodes.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reset %n nodes to rest.</source>
        <translation>
            <numerusform>Reset %Ln node to rest.</numerusform>
            <numerusform>Reset %Ln nodes to rest.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The present pose is the rest pose of %n nodes.</source>
        <translation>
            <numerusform>The present pose is the rest pose of %Ln node.</numerusform>
            <numerusform>The present pose is the rest pose of %Ln nodes.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Selected %n nodes.</source>
        <translation>
            <numerusform>Selected %Ln node.</numerusform>
            <numerusform>Selected %Ln nodes.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>VxFileText</name>
    <message numerus="yes">
        <source>The rest transforms of %n nodes have a shear, which is left out.</source>
        <translation>
            <numerusform>The rest transform of %Ln node has a shear, which is left out.</numerusform>
            <numerusform>The rest transforms of %Ln nodes have a shear, which is left out.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n nodes</source>
        <translation>
            <numerusform>%Ln node</numerusform>
            <numerusform>%Ln nodes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n frames</source>
        <translation>
            <numerusform>%Ln frame</numerusform>
            <numerusform>%Ln frames</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys</source>
        <translation>
            <numerusform>%Ln key</numerusform>
            <numerusform>%Ln keys</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n linked properties were sampled once a frame.</source>
        <translation>
            <numerusform>%Ln linked property was sampled once a frame.</numerusform>
            <numerusform>%Ln linked properties were sampled once a frame.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>An array declares %n values, more than its bytes can hold.</source>
        <translation>
            <numerusform>An array declares %Ln value, more than its bytes can hold.</numerusform>
            <numerusform>An array declares %Ln values, more than its bytes can hold.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>A chunk of %n bytes extends beyond the end of the file.</source>
        <translation>
            <numerusform>A chunk of %Ln byte extends beyond the end of the file.</numerusform>
            <numerusform>A chunk of %Ln bytes extends beyond the end of the file.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n bones</source>
        <translation>
            <numerusform>%Ln bone</numerusform>
            <numerusform>%Ln bones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n animated channels</source>
        <translation>
            <numerusform>%Ln animated channel</numerusform>
            <numerusform>%Ln animated channels</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, of which %n bones</source>
        <translation>
            <numerusform>%1, of which %Ln bone</numerusform>
            <numerusform>%1, of which %Ln bones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n other properties</source>
        <translation>
            <numerusform>%Ln other property</numerusform>
            <numerusform>%Ln other properties</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n morphs</source>
        <translation>
            <numerusform>%Ln morph</numerusform>
            <numerusform>%Ln morphs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Rotations only: %n keys of other properties were left out.</source>
        <translation>
            <numerusform>Rotations only: %Ln key of other properties was left out.</numerusform>
            <numerusform>Rotations only: %Ln keys of other properties were left out.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scales and other values that the format does not support were converted to positions and rotations for %n bones.</source>
        <translation>
            <numerusform>Scales and other values that the format does not support were converted to positions and rotations for %Ln bone.</numerusform>
            <numerusform>Scales and other values that the format does not support were converted to positions and rotations for %Ln bones.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n frames are declared, but no joint has a channel.</source>
        <translation>
            <numerusform>%Ln frame is declared, but no joint has a channel.</numerusform>
            <numerusform>%Ln frames are declared, but no joint has a channel.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>This row does not have the %n values of one frame, and values are missing at the end of the file.</source>
        <translation>
            <numerusform>This row does not have the one value of a frame, and values are missing at the end of the file.</numerusform>
            <numerusform>This row does not have the %Ln values of one frame, and values are missing at the end of the file.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>This row does not have the %n values of one frame, and the end of the file has extra values.</source>
        <translation>
            <numerusform>This row does not have the one value of a frame, and the end of the file has extra values.</numerusform>
            <numerusform>This row does not have the %Ln values of one frame, and the end of the file has extra values.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The file has %n more frames than the %1 it declares; the extra frames were ignored.</source>
        <translation>
            <numerusform>The file has %Ln more frame than the %1 it declares; the extra frame was ignored.</numerusform>
            <numerusform>The file has %Ln more frames than the %1 it declares; the extra frames were ignored.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>each frame of the motion is %n ticks long.</source>
        <translation>
            <numerusform>each frame of the motion is %Ln tick long.</numerusform>
            <numerusform>each frame of the motion is %Ln ticks long.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n more</source>
        <translation>
            <numerusform>%Ln more</numerusform>
            <numerusform>%Ln more</numerusform>
        </translation>
    </message>
</context>
</TS>

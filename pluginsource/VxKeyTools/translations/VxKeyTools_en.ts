<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>KeyToolText</name>
    <message numerus="yes">
        <source>%n keys</source>
        <translation>
            <numerusform>%Ln key</numerusform>
            <numerusform>%Ln keys</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n rotations</source>
        <translation>
            <numerusform>%Ln rotation</numerusform>
            <numerusform>%Ln rotations</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n rotations skipped, because their three angles do not have the same keys</source>
        <translation>
            <numerusform>; %Ln rotation skipped, because its three angles do not have the same keys</numerusform>
            <numerusform>; %Ln rotations skipped, because their three angles do not have the same keys</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n spikes</source>
        <translation>
            <numerusform>; %Ln spike</numerusform>
            <numerusform>; %Ln spikes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys of the selected nodes in the play range, on %1</source>
        <translation>
            <numerusform>%Ln key of the selected nodes in the play range, on %1</numerusform>
            <numerusform>%Ln keys of the selected nodes in the play range, on %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys of the figure in the play range, on %1</source>
        <translation>
            <numerusform>%Ln key of the figure in the play range, on %1</numerusform>
            <numerusform>%Ln keys of the figure in the play range, on %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n keys of the scene, on %1</source>
        <translation>
            <numerusform>%Ln key of the scene, on %1</numerusform>
            <numerusform>%Ln keys of the scene, on %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n selected keys on %1</source>
        <translation>
            <numerusform>%Ln selected key on %1</numerusform>
            <numerusform>%Ln selected keys on %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n channels</source>
        <translation>
            <numerusform>%Ln channel</numerusform>
            <numerusform>%Ln channels</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> (%n locked or linked, read-only)</source>
        <translation>
            <numerusform> (%Ln locked or linked, read-only)</numerusform>
            <numerusform> (%Ln locked or linked, read-only)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> (%n locked or linked skipped)</source>
        <translation>
            <numerusform> (%Ln locked or linked skipped)</numerusform>
            <numerusform> (%Ln locked or linked skipped)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n overwritten</source>
        <translation>
            <numerusform>; %Ln overwritten</numerusform>
            <numerusform>; %Ln overwritten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the keys are of %n nodes; select as many</source>
        <translation>
            <numerusform>the keys are of %Ln node; select as many</numerusform>
            <numerusform>the keys are of %Ln nodes; select as many</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %2 on %n channels</source>
        <translation>
            <numerusform>%1: %2 on %Ln channel</numerusform>
            <numerusform>%1: %2 on %Ln channels</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> and %n more</source>
        <translation>
            <numerusform> and %Ln more</numerusform>
            <numerusform> and %Ln more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; out of reach on %n frames</source>
        <translation>
            <numerusform>; out of reach on %Ln frame</numerusform>
            <numerusform>; out of reach on %Ln frames</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %2 selected on %n channels</source>
        <translation>
            <numerusform>%1: %2 selected on %Ln channel</numerusform>
            <numerusform>%1: %2 selected on %Ln channels</numerusform>
        </translation>
    </message>
</context>
</TS>

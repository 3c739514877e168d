<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AccessibleKeys</name>
    <message numerus="yes">
        <source>%n keys</source>
        <translation>
            <numerusform>%Ln key</numerusform>
            <numerusform>%Ln keys</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n selected</source>
        <translation>
            <numerusform>%Ln selected</numerusform>
            <numerusform>%Ln selected</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>VxTimePane</name>
    <message numerus="yes">
        <source>Copied %n keys.</source>
        <translation>
            <numerusform>Copied %Ln key.</numerusform>
            <numerusform>Copied %Ln keys.</numerusform>
        </translation>
    </message>
</context>
</TS>

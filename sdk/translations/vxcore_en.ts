<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>VxParametersPane</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 and %Ln more</numerusform>
            <numerusform>%1 and %Ln more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 only: %n more are too many to edit together</source>
        <translation>
            <numerusform>%1 only: %Ln more is too many to edit together</numerusform>
            <numerusform>%1 only: %Ln more are too many to edit together</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Changes apply to %n nodes.</source>
        <translation>
            <numerusform>Changes apply to %Ln node.</numerusform>
            <numerusform>Changes apply to %Ln nodes.</numerusform>
        </translation>
    </message>
</context>
</TS>

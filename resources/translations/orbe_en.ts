<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>DocumentFiles</name>
    <message numerus="yes">
        <source>%n files could not be opened:</source>
        <translation>
            <numerusform>%n file could not be opened:</numerusform>
            <numerusform>%n files could not be opened:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The same goes for %n more.</source>
        <translation>
            <numerusform>The same goes for %n more.</numerusform>
            <numerusform>The same goes for %n more.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n files</source>
        <translation>
            <numerusform>Open %n file</numerusform>
            <numerusform>Open %n files</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Exported %n files.</source>
        <translation>
            <numerusform>Exported %n file.</numerusform>
            <numerusform>Exported %n files.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ExportDialog</name>
    <message numerus="yes">
        <source>Export %n Parts</source>
        <translation>
            <numerusform>Export %n Part</numerusform>
            <numerusform>Export %n Parts</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Freecut::MissedParts</name>
    <message numerus="yes">
        <source>The plane does not meet %1 and %n more.</source>
        <translation>
            <numerusform>The plane does not meet %1 and %n more.</numerusform>
            <numerusform>The plane does not meet %1 and %n more.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HeightCutDialog</name>
    <message numerus="yes">
        <source>%n heights go through the parts.</source>
        <translation>
            <numerusform>%n height goes through the parts.</numerusform>
            <numerusform>%n heights go through the parts.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HeightWarning</name>
    <message numerus="yes">
        <source>A cut at this height does not meet %1 and %n more.</source>
        <translation>
            <numerusform>A cut at this height does not meet %1 and %n more.</numerusform>
            <numerusform>A cut at this height does not meet %1 and %n more.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PartTreeModel</name>
    <message numerus="yes">
        <source>open: %n open edges</source>
        <translation>
            <numerusform>open: %n open edge</numerusform>
            <numerusform>open: %n open edges</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RecoveryDialog</name>
    <message numerus="yes">
        <source>%n parts</source>
        <translation>
            <numerusform>%n part</numerusform>
            <numerusform>%n parts</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UnitDialog</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 and %n more</numerusform>
            <numerusform>%1 and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>WindowFileQuestions</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n files exist already. Replace them?</source>
        <translation>
            <numerusform>%n file exists already. Replace it?</numerusform>
            <numerusform>%n files exist already. Replace them?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FarParts</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 and %n more</numerusform>
            <numerusform>%1 and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>DropHighlight</name>
    <message numerus="yes">
        <source>Let go to open %n files</source>
        <translation>
            <numerusform>Let go to open %n file</numerusform>
            <numerusform>Let go to open %n files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StepText</name>
    <message numerus="yes">
        <source>%n part(s)</source>
        <translation>
            <numerusform>%n part</numerusform>
            <numerusform>%n parts</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>at %n height(s)</source>
        <translation>
            <numerusform>at %n height</numerusform>
            <numerusform>at %n heights</numerusform>
        </translation>
    </message>
</context>
</TS>

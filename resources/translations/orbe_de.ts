<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CmdFreecutCuboid</name>
    <message>
        <source>Cuboid</source>
        <translation>Quader</translation>
    </message>
    <message>
        <source>Create a rectangle by click any point on part(s).</source>
        <translation>Rechteck durch Klicken auf einen Punkt eines Bauteils zeichnen.</translation>
    </message>
</context>
<context>
    <name>CmdFreecutCylinder</name>
    <message>
        <source>Cylinder</source>
        <translation>Zylinder</translation>
    </message>
    <message>
        <source>Create a circle by clicking any point on part(s).</source>
        <translation>Kreis durch Klicken auf einen Punkt eines Bauteils zeichnen.</translation>
    </message>
</context>
<context>
    <name>CmdFreecutPlane3Pts</name>
    <message>
        <source>3 points plane</source>
        <translation>Ebene durch 3 Punkte</translation>
    </message>
    <message>
        <source>Create a cutting plane by clicking 3 points on part(s).</source>
        <translation>Schnittebene durch Klicken auf 3 Punkte der Bauteile festlegen.</translation>
    </message>
</context>
<context>
    <name>CmdFreecutPlaneTangent</name>
    <message>
        <source>Tangent plane</source>
        <translation>Tangentialebene</translation>
    </message>
    <message>
        <source>Create a cutting plane tangential to surface by clicking any point on part(s).</source>
        <translation>Schnittebene tangential zur Oberfläche durch Klicken auf einen Punkt eines Bauteils festlegen.</translation>
    </message>
</context>
<context>
    <name>CmdFreecutPlaneVertical</name>
    <message>
        <source>Vertical plane</source>
        <translation>Senkrechte Ebene</translation>
    </message>
    <message>
        <source>Create a cutting plane vertical to surface by clicking any point on part(s).</source>
        <translation>Schnittebene senkrecht zur Oberfläche durch Klicken auf einen Punkt eines Bauteils festlegen.</translation>
    </message>
</context>
<context>
    <name>CmdFreecutPlaneXYPlane</name>
    <message>
        <source>XY plane</source>
        <translation>XY-Ebene</translation>
    </message>
    <message>
        <source>Create a cutting plane parallel to XY plane by clicking any point on part(s).</source>
        <translation>Schnittebene parallel zur XY-Ebene durch Klicken auf einen Punkt eines Bauteils festlegen.</translation>
    </message>
</context>
<context>
    <name>CmdFreecutPlaneXZPlane</name>
    <message>
        <source>XZ plane</source>
        <translation>XZ-Ebene</translation>
    </message>
    <message>
        <source>Create a cutting plane parallel to XZ plane by clicking any point on part(s).</source>
        <translation>Schnittebene parallel zur XZ-Ebene durch Klicken auf einen Punkt eines Bauteils festlegen.</translation>
    </message>
</context>
<context>
    <name>CmdFreecutPlaneYZPlane</name>
    <message>
        <source>YZ plane</source>
        <translation>YZ-Ebene</translation>
    </message>
    <message>
        <source>Create a cutting plane parallel to YZ plane by clicking any point on part(s).</source>
        <translation>Schnittebene parallel zur YZ-Ebene durch Klicken auf einen Punkt eines Bauteils festlegen.</translation>
    </message>
</context>
<context>
    <name>CmdFreecutPolygon</name>
    <message>
        <source>Polygon</source>
        <translation>Polygon</translation>
    </message>
    <message>
        <source>Create a polygon by clicking 3 or more points on part(s).</source>
        <translation>Polygon durch Klicken auf 3 oder mehr Punkte der Bauteile zeichnen.</translation>
    </message>
</context>
<context>
    <name>CmdPlanecut</name>
    <message>
        <source>Section Cut</source>
        <translation>Ebenenschnitt</translation>
    </message>
    <message>
        <source>Section cut the selected part(s) or all parts.</source>
        <translation>Die ausgewählten oder alle Bauteile mit einer Ebene schneiden.</translation>
    </message>
</context>
<context>
    <name>CmdPolygonCutDeleteAllTeeth</name>
    <message>
        <source>Delete all teeth</source>
        <translation>Alle Zähne löschen</translation>
    </message>
</context>
<context>
    <name>CmdPolygonCutDeletePoint</name>
    <message>
        <source>Remove Point</source>
        <translation>Punkt entfernen</translation>
    </message>
</context>
<context>
    <name>CmdPolygonCutDeleteSelectedTeeth</name>
    <message>
        <source>Delete selected teeth</source>
        <translation>Ausgewählte Zähne löschen</translation>
    </message>
</context>
<context>
    <name>CmdPolygonCutPreview</name>
    <message>
        <source>Start preview</source>
        <translation>Vorschau starten</translation>
    </message>
    <message>
        <source>Start the preview of cutting part.</source>
        <translation>Die Vorschau des Schnitts starten.</translation>
    </message>
</context>
<context>
    <name>CmdPolygonCutReset</name>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Clear all cutting lines in the part(s).</source>
        <translation>Alle Schnittlinien auf den Bauteilen löschen.</translation>
    </message>
</context>
<context>
    <name>CmdPolygonCutStopPreview</name>
    <message>
        <source>Stop preview</source>
        <translation>Vorschau beenden</translation>
    </message>
    <message>
        <source>Stop the preview of cutting part.</source>
        <translation>Die Vorschau des Schnitts beenden.</translation>
    </message>
</context>
<context>
    <name>CmdPolygoncut</name>
    <message>
        <source>Polygon Cut</source>
        <translation>Polygonschnitt</translation>
    </message>
    <message>
        <source>Polygon cut the selected part(s) or all parts.</source>
        <translation>Die ausgewählten oder alle Bauteile mit einem Polygon schneiden.</translation>
    </message>
    <message>
        <source>Polygon cut</source>
        <translation>Polygonschnitt</translation>
    </message>
</context>
<context>
    <name>MellCommons</name>
    <message>
        <source>Attention</source>
        <translation>Achtung</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>OrbeCmdZcut</name>
    <message>
        <source>&amp;Section Cut</source>
        <translation>&amp;Ebenenschnitt</translation>
    </message>
    <message>
        <source>Section cut the selected part(s) or all parts.</source>
        <translation>Die ausgewählten oder alle Bauteile mit einer Ebene schneiden.</translation>
    </message>
    <message>
        <source>Section Cut</source>
        <translation>Ebenenschnitt</translation>
    </message>
</context>
<context>
    <name>StatusBarMessage</name>
    <message>
        <source>Section Cut</source>
        <translation>Ebenenschnitt</translation>
    </message>
</context>
<context>
    <name>UndoRedoName</name>
    <message>
        <source>Section Cut</source>
        <translation>Ebenenschnitt</translation>
    </message>
</context>
</TS>

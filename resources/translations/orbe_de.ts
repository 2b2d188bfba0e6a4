<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ApartSlider</name>
    <message>
        <source>Draw apart</source>
        <translation>Auseinanderziehen</translation>
    </message>
    <message>
        <source>Draws the parts apart from each other. They stay where they are.</source>
        <translation>Zeichnet die Bauteile auseinandergezogen. Sie bleiben, wo sie sind.</translation>
    </message>
    <message>
        <source>End the tool first: it goes by where the parts are.</source>
        <translation>Beenden Sie zuerst das Werkzeug: Es richtet sich danach, wo die Bauteile sind.</translation>
    </message>
</context>
<context>
    <name>AutoSave</name>
    <message>
        <source>Unsaved changes cannot be kept for recovery; save the project soon.</source>
        <translation>Nicht gespeicherte Änderungen können nicht für eine Wiederherstellung aufgehoben werden; speichern Sie das Projekt bald.</translation>
    </message>
</context>
<context>
    <name>CheckReport</name>
    <message>
        <source>1 open edge</source>
        <translation>1 offene Kante</translation>
    </message>
    <message>
        <source>%1 open edges</source>
        <translation>%1 offene Kanten</translation>
    </message>
    <message>
        <source>1 edge with more than two triangles</source>
        <translation>1 Kante mit mehr als zwei Dreiecken</translation>
    </message>
    <message>
        <source>%1 edges with more than two triangles</source>
        <translation>%1 Kanten mit mehr als zwei Dreiecken</translation>
    </message>
    <message>
        <source>1 edge between triangles that face different ways</source>
        <translation>1 Kante zwischen Dreiecken, die verschieden ausgerichtet sind</translation>
    </message>
    <message>
        <source>%1 edges between triangles that face different ways</source>
        <translation>%1 Kanten zwischen Dreiecken, die verschieden ausgerichtet sind</translation>
    </message>
    <message>
        <source>1 triangle without area</source>
        <translation>1 Dreieck ohne Fläche</translation>
    </message>
    <message>
        <source>%1 triangles without area</source>
        <translation>%1 Dreiecke ohne Fläche</translation>
    </message>
    <message>
        <source>1 triangle that is there twice</source>
        <translation>1 doppeltes Dreieck</translation>
    </message>
    <message>
        <source>%1 triangles that are there twice</source>
        <translation>%1 doppelte Dreiecke</translation>
    </message>
    <message>
        <source>1 pair of triangles that cross</source>
        <translation>1 Paar von Dreiecken, die sich schneiden</translation>
    </message>
    <message>
        <source>%1 pairs of triangles that cross</source>
        <translation>%1 Paare von Dreiecken, die sich schneiden</translation>
    </message>
    <message>
        <source>1 shell that is inside out</source>
        <translation>1 umgestülpte Hülle</translation>
    </message>
    <message>
        <source>%1 shells that are inside out</source>
        <translation>%1 umgestülpte Hüllen</translation>
    </message>
    <message>
        <source>Shells that cross are no error for most printers; cut or unite them to be sure.</source>
        <translation>Hüllen, die sich durchdringen, stören die meisten Drucker nicht; zur Sicherheit schneiden oder vereinigen.</translation>
    </message>
    <message>
        <source>Mend the rest in the program that the part comes from.</source>
        <translation>Den Rest in dem Programm beheben, aus dem das Bauteil stammt.</translation>
    </message>
    <message>
        <source>no errors, nothing to repair.</source>
        <translation>keine Fehler, nichts zu reparieren.</translation>
    </message>
    <message>
        <source>could not be repaired: %1. %2</source>
        <translation>konnte nicht repariert werden: %1. %2</translation>
    </message>
    <message>
        <source>mended: %1.</source>
        <translation>behoben: %1.</translation>
    </message>
    <message>
        <source>No error is left.</source>
        <translation>Kein Fehler ist übrig.</translation>
    </message>
    <message>
        <source>Left: %1. %2</source>
        <translation>Übrig: %1. %2</translation>
    </message>
    <message>
        <source>no errors.</source>
        <translation>keine Fehler.</translation>
    </message>
</context>
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
    <name>CombinationDialog</name>
    <message>
        <source>Keep the other parts</source>
        <translation>Die anderen Bauteile behalten</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>ConnectorPreset</name>
    <message>
        <source>&quot;%1&quot; must be one of: %2.</source>
        <translation>„%1“ muss eines von diesen sein: %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be true or false.</source>
        <translation>„%1“ muss true oder false sein.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be from %2 to %3 mm, but is %4.</source>
        <translation>„%1“ muss zwischen %2 und %3 mm liegen, ist aber %4.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be a number of millimetres.</source>
        <translation>„%1“ muss eine Zahl in Millimetern sein.</translation>
    </message>
    <message>
        <source>There is no value called &quot;%1&quot;.</source>
        <translation>Es gibt keinen Wert namens „%1“.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be a record in braces.</source>
        <translation>„%1“ muss ein Datensatz in geschweiften Klammern sein.</translation>
    </message>
    <message>
        <source>There are no values under &quot;%1&quot;.</source>
        <translation>Unter „%1“ stehen keine Werte.</translation>
    </message>
    <message>
        <source>It is not JSON: %1 at character %2.</source>
        <translation>Das ist kein JSON: %1 bei Zeichen %2.</translation>
    </message>
    <message>
        <source>The file must hold one record in %1.</source>
        <translation>Die Datei muss einen Datensatz in %1 enthalten.</translation>
    </message>
    <message>
        <source>The preset %1 cannot be read: %2.</source>
        <translation>Die Voreinstellung %1 lässt sich nicht lesen: %2.</translation>
    </message>
    <message>
        <source>The preset %1 cannot be used. %2</source>
        <translation>Die Voreinstellung %1 lässt sich nicht verwenden. %2</translation>
    </message>
    <message>
        <source>The preset cannot be written to %1: %2.</source>
        <translation>Die Voreinstellung lässt sich nicht nach %1 schreiben: %2.</translation>
    </message>
</context>
<context>
    <name>ConnectorPreview</name>
    <message>
        <source>Connectors: %1</source>
        <translation>Verbinder: %1</translation>
    </message>
    <message>
        <source>Connectors: %1 of %2</source>
        <translation>Verbinder: %1 von %2</translation>
    </message>
    <message>
        <source>X %1  Y %2  Z %3 mm</source>
        <translation>X %1  Y %2  Z %3 mm</translation>
    </message>
    <message>
        <source>There is no section of a part at that place.</source>
        <translation>An dieser Stelle ist kein Schnitt durch ein Teil.</translation>
    </message>
    <message>
        <source>Another connector stands too near; leave that one out first.</source>
        <translation>Ein anderer Verbinder steht zu nah; lassen Sie zuerst jenen weg.</translation>
    </message>
    <message>
        <source>Connectors must be %1 mm apart.</source>
        <translation>Verbinder müssen %1 mm Abstand haben.</translation>
    </message>
    <message>
        <source>Place connectors by hand</source>
        <translation>Verbinder von Hand setzen</translation>
    </message>
    <message>
        <source>A click on a connector leaves it out or brings it back; a click on a free place of the section adds one. With Shift it snaps to contours and centre lines.</source>
        <translation>Ein Klick auf einen Verbinder lässt ihn weg oder holt ihn zurück; ein Klick auf eine freie Stelle des Schnitts setzt einen dazu. Mit der Umschalttaste rastet er an Konturen und Mittellinien ein.</translation>
    </message>
    <message>
        <source>Place anew</source>
        <translation>Neu verteilen</translation>
    </message>
    <message>
        <source>Forgets all that was changed by hand.</source>
        <translation>Verwirft alles, was von Hand geändert wurde.</translation>
    </message>
</context>
<context>
    <name>Connectors</name>
    <message>
        <source>The cutting plane is not complete. Place it again.</source>
        <translation>Die Schnittebene ist nicht vollständig. Sie neu setzen.</translation>
    </message>
    <message>
        <source>The connectors at %1 and %2 mm overlap. Leave one of them out, or keep them %3 mm apart.</source>
        <translation>Die Verbinder bei %1 und %2 mm überschneiden sich. Lassen Sie einen davon weg, oder halten Sie %3 mm Abstand.</translation>
    </message>
</context>
<context>
    <name>CutFaceCommand</name>
    <message>
        <source>%1 has no face of a cut to stand on; it lies on its largest flat face.</source>
        <translation>%1 hat keine Schnittfläche, auf der es stehen kann; es liegt auf seiner größten ebenen Fläche.</translation>
    </message>
    <message>
        <source>%1 parts have no face of a cut to stand on; they lie on their largest flat faces.</source>
        <translation>%1 Bauteile haben keine Schnittfläche, auf der sie stehen können; sie liegen auf ihren größten ebenen Flächen.</translation>
    </message>
    <message>
        <source>%1 has no flat face to stand on and stays as it is.</source>
        <translation>%1 hat keine ebene Fläche, auf der es stehen kann, und bleibt, wie es ist.</translation>
    </message>
    <message>
        <source>%1 parts have no flat face to stand on and stay as they are.</source>
        <translation>%1 Bauteile haben keine ebene Fläche, auf der sie stehen können, und bleiben, wie sie sind.</translation>
    </message>
</context>
<context>
    <name>CutJobs</name>
    <message>
        <source>A piece would be open near (%1, %2, %3), so it is not made. Move the cut a little.</source>
        <translation>Ein Teilstück wäre nahe (%1, %2, %3) offen und entsteht deshalb nicht. Den Schnitt etwas verschieben.</translation>
    </message>
    <message>
        <source>There is no tool to cut with. Draw one first.</source>
        <translation>Es gibt kein Werkzeug zum Schneiden. Zuerst eines zeichnen.</translation>
    </message>
    <message>
        <source>There is no cutting plane. Place one first.</source>
        <translation>Es gibt keine Schnittebene. Zuerst eine setzen.</translation>
    </message>
</context>
<context>
    <name>CutRemarks</name>
    <message>
        <source>Nothing was cut: no section of the part lies within the plane&apos;s rectangle.</source>
        <translation>Es wurde nichts geschnitten: Kein Schnitt des Teils liegt im Rechteck der Ebene.</translation>
    </message>
    <message>
        <source>Nothing was cut: the plane misses the part.</source>
        <translation>Es wurde nichts geschnitten: Die Ebene trifft das Teil nicht.</translation>
    </message>
    <message>
        <source>Nothing was cut: the tool misses the part.</source>
        <translation>Es wurde nichts geschnitten: Das Werkzeug trifft das Teil nicht.</translation>
    </message>
    <message>
        <source>Nothing was cut: the whole part lies within the tool.</source>
        <translation>Es wurde nichts geschnitten: Das ganze Teil liegt im Werkzeug.</translation>
    </message>
    <message>
        <source>The whole part lies within the gap: nothing is left.</source>
        <translation>Das ganze Teil liegt im Spalt: Es bleibt nichts übrig.</translation>
    </message>
    <message>
        <source>What lies within the tool lies within the gap: that piece is missing.</source>
        <translation>Was im Werkzeug liegt, liegt im Spalt: Dieses Teilstück fehlt.</translation>
    </message>
    <message>
        <source>What lies outside the tool lies within the gap: that piece is missing.</source>
        <translation>Was außerhalb des Werkzeugs liegt, liegt im Spalt: Dieses Teilstück fehlt.</translation>
    </message>
    <message>
        <source>What lies above the plane lies within the gap between the faces: the upper piece is missing.</source>
        <translation>Was über der Ebene liegt, liegt im Spalt zwischen den Flächen: Das obere Teilstück fehlt.</translation>
    </message>
    <message>
        <source>The part&apos;s lower end lies within the gap between the faces: it is missing.</source>
        <translation>Das untere Ende des Teils liegt im Spalt zwischen den Flächen: Es fehlt.</translation>
    </message>
    <message>
        <source>The section has no room for a connector, so its halves are plain.</source>
        <translation>Der Schnitt hat keinen Platz für einen Verbinder, daher sind seine Hälften glatt.</translation>
    </message>
    <message>
        <source>The section has no room for a lap joint, so its halves are plain.</source>
        <translation>Der Schnitt hat keinen Platz für eine Überlappung, daher sind seine Hälften glatt.</translation>
    </message>
    <message>
        <source>The lower piece consists of %1 shells; without connectors it would be %2.</source>
        <translation>Das untere Teilstück besteht aus %1 Schalen; ohne Verbinder wären es %2.</translation>
    </message>
    <message>
        <source>The upper piece consists of %1 shells; without connectors it would be %2.</source>
        <translation>Das obere Teilstück besteht aus %1 Schalen; ohne Verbinder wären es %2.</translation>
    </message>
    <message>
        <source>%1 of %2 pins leave the part: at one of them it goes on for only %3 mm above the plane.</source>
        <translation>%1 von %2 Stiften treten aus dem Teil aus: Bei einem davon reicht es nur %3 mm über die Ebene.</translation>
    </message>
    <message>
        <source>%1 of %2 holes open to the outside or into a cavity: at one of them the part goes on for only %3 mm.</source>
        <translation>%1 von %2 Löchern öffnen sich nach außen oder in einen Hohlraum: Bei einem davon reicht das Teil nur %3 mm weit.</translation>
    </message>
    <message>
        <source>The faces never meet: the pins reach the ends of their holes before, for the gap between the faces is wider than the one above the pins.</source>
        <translation>Die Flächen berühren sich nie: Die Stifte erreichen vorher die Enden ihrer Löcher, denn der Spalt zwischen den Flächen ist breiter als der über den Stiften.</translation>
    </message>
    <message>
        <source>The tongue leaves the part: at one place it goes on for only %1 mm above the plane.</source>
        <translation>Die Zunge tritt aus dem Teil aus: An einer Stelle reicht sie nur %1 mm über die Ebene.</translation>
    </message>
    <message>
        <source>The notch opens to the outside or into a cavity: at one place the part goes on for only %1 mm above the plane.</source>
        <translation>Die Nut öffnet sich nach außen oder in einen Hohlraum: An einer Stelle reicht das Teil nur %1 mm über die Ebene.</translation>
    </message>
    <message>
        <source>The faces never meet: the tongue reaches the end of its notch before, for the gap between the faces is wider than the one above the tongue.</source>
        <translation>Die Flächen berühren sich nie: Die Zunge erreicht vorher das Ende ihrer Nut, denn der Spalt zwischen den Flächen ist breiter als der über der Zunge.</translation>
    </message>
    <message>
        <source>Triangles at the plane faced the other way than those around them; they were turned.</source>
        <translation>Dreiecke an der Ebene zeigten in die andere Richtung als die um sie herum; sie wurden gewendet.</translation>
    </message>
    <message>
        <source>Triangles at the plane lay there more than once; what was too much was left out.</source>
        <translation>Dreiecke an der Ebene waren mehrfach vorhanden; die überzähligen wurden weggelassen.</translation>
    </message>
    <message>
        <source>A piece crosses itself where coordinates had to be rounded.</source>
        <translation>Ein Teilstück schneidet sich selbst, wo Koordinaten gerundet werden mussten.</translation>
    </message>
</context>
<context>
    <name>CutView</name>
    <message>
        <source>Live cut view</source>
        <translation>Schnittansicht</translation>
    </message>
    <message>
        <source>Cuts the parts open in the view. The parts stay whole.</source>
        <translation>Schneidet die Bauteile in der Ansicht auf. Die Bauteile bleiben ganz.</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Frei</translation>
    </message>
    <message>
        <source>Direction along X</source>
        <translation>Richtung entlang X</translation>
    </message>
    <message>
        <source>Direction along Y</source>
        <translation>Richtung entlang Y</translation>
    </message>
    <message>
        <source>Direction along Z</source>
        <translation>Richtung entlang Z</translation>
    </message>
    <message>
        <source>Enter a direction other than 0, 0, 0.</source>
        <translation>Eine andere Richtung als 0, 0, 0 eingeben.</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Moves the cut along its direction.</source>
        <translation>Verschiebt den Schnitt entlang seiner Richtung.</translation>
    </message>
    <message>
        <source>The distance of the cut from the origin along its direction.</source>
        <translation>Der Abstand des Schnitts vom Ursprung entlang seiner Richtung.</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Umdrehen</translation>
    </message>
    <message>
        <source>Cuts away the other side.</source>
        <translation>Schneidet die andere Seite weg.</translation>
    </message>
    <message>
        <source>Fill the cut</source>
        <translation>Schnitt füllen</translation>
    </message>
    <message>
        <source>Shows the parts solid where they are cut.</source>
        <translation>Zeigt die Bauteile massiv, wo sie geschnitten sind.</translation>
    </message>
</context>
<context>
    <name>DialogFreeCut</name>
    <message>
        <source>Notch depth</source>
        <translation>Nuttiefe</translation>
    </message>
    <message>
        <source>Side distance</source>
        <translation>Randabstand</translation>
    </message>
    <message>
        <source>Side contours</source>
        <translation>Konturen</translation>
    </message>
    <message>
        <source>Outer contours</source>
        <translation>Außenkonturen</translation>
    </message>
    <message>
        <source>Inner contours</source>
        <translation>Innenkonturen</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Notch clearance</source>
        <translation>Nutspiel</translation>
    </message>
    <message>
        <source>Front clearance</source>
        <translation>Spiel vorn</translation>
    </message>
    <message>
        <source>Back clearance</source>
        <translation>Spiel hinten</translation>
    </message>
    <message>
        <source>Clearance</source>
        <translation>Spiel</translation>
    </message>
    <message>
        <source>Pins/Holes Setting</source>
        <translation>Einstellung der Stifte/Löcher</translation>
    </message>
    <message>
        <source>Pins</source>
        <translation>Stifte</translation>
    </message>
    <message>
        <source>Holes</source>
        <translation>Löcher</translation>
    </message>
    <message>
        <source>Connector type</source>
        <translation>Art der Verbinder</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>Radius</translation>
    </message>
    <message>
        <source>Cylinder</source>
        <translation>Zylinder</translation>
    </message>
    <message>
        <source>Top clearance</source>
        <translation>Spiel oben</translation>
    </message>
    <message>
        <source>Side clearance</source>
        <translation>Spiel seitlich</translation>
    </message>
    <message>
        <source>Face clearance</source>
        <translation>Spiel der Schnittflächen</translation>
    </message>
    <message>
        <source>Clearance and spacing</source>
        <translation>Spiel und Abstand</translation>
    </message>
    <message>
        <source>One or more parts have support(s).The support(s) will be deleted. Do you want to continue your operation?</source>
        <translation>Ein oder mehrere Teile haben Stützen.Die Stützen werden gelöscht. Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>Plane</source>
        <translation>Ebene</translation>
    </message>
    <message>
        <source>Advanced Section Cut</source>
        <translation>Erweiterter Ebenenschnitt</translation>
    </message>
    <message>
        <source>Indicate Plane</source>
        <translation>Ebene zeigen</translation>
    </message>
    <message>
        <source>Plane Normal</source>
        <translation>Normale der Ebene</translation>
    </message>
    <message>
        <source>Plane Center</source>
        <translation>Mitte der Ebene</translation>
    </message>
    <message>
        <source>Plane Size</source>
        <translation>Größe der Ebene</translation>
    </message>
    <message>
        <source>Remove original part(s)</source>
        <translation>Ursprüngliche Teile entfernen</translation>
    </message>
    <message>
        <source>Use plane boundary</source>
        <translation>Nur innerhalb der Ebene schneiden</translation>
    </message>
    <message>
        <source>Use advanced cut</source>
        <translation>Erweiterten Schnitt verwenden</translation>
    </message>
    <message>
        <source>Section cut type</source>
        <translation>Art des Schnitts</translation>
    </message>
    <message>
        <source>Connector Pins/Holes</source>
        <translation>Stifte/Löcher</translation>
    </message>
    <message>
        <source>Lap Joint</source>
        <translation>Überblattung</translation>
    </message>
    <message>
        <source>Upper width(W1) or lower width(W2) are too large.</source>
        <translation>Die obere Breite(W1) oder die untere Breite(W2) ist zu groß.</translation>
    </message>
    <message>
        <source>Width(W) is too large.</source>
        <translation>Die Breite(W) ist zu groß.</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>Round corners</source>
        <translation>Ecken abrunden</translation>
    </message>
    <message>
        <source>Tolerance</source>
        <translation>Toleranz</translation>
    </message>
    <message>
        <source>Use Notch</source>
        <translation>Mit Nase</translation>
    </message>
    <message>
        <source>Add Teeth</source>
        <translation>Zähne hinzufügen</translation>
    </message>
    <message>
        <source>Jagged</source>
        <translation>Gezackt</translation>
    </message>
    <message>
        <source>Dove Tailed</source>
        <translation>Schwalbenschwanz</translation>
    </message>
    <message>
        <source>Puzzle</source>
        <translation>Puzzle</translation>
    </message>
    <message>
        <source>Teeth Style</source>
        <translation>Form der Zähne</translation>
    </message>
    <message>
        <source>Teeth setting method</source>
        <translation>Verteilung der Zähne</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Upper width</source>
        <translation>Obere Breite</translation>
    </message>
    <message>
        <source>Lower width</source>
        <translation>Untere Breite</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Distance</source>
        <translation>Abstand</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>Versatz</translation>
    </message>
    <message>
        <source>Apply to all edges</source>
        <translation>Auf alle Kanten anwenden</translation>
    </message>
    <message>
        <source>Flip Teeth</source>
        <translation>Zähne umklappen</translation>
    </message>
    <message>
        <source>Coordinates</source>
        <translation>Koordinaten</translation>
    </message>
    <message>
        <source>Cut till</source>
        <translation>Schneiden bis</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Cutting options</source>
        <translation>Schnittoptionen</translation>
    </message>
    <message>
        <source>Advanced standard view options</source>
        <translation>Weitere Optionen für Standardansichten</translation>
    </message>
    <message>
        <source>Remove original parts</source>
        <translation>Originalteile entfernen</translation>
    </message>
    <message>
        <source>Add Point</source>
        <translation>Punkt hinzufügen</translation>
    </message>
    <message>
        <source>Show coordinate</source>
        <translation>Koordinaten anzeigen</translation>
    </message>
    <message>
        <source>Move selected point to</source>
        <translation>Gewählten Punkt verschieben nach</translation>
    </message>
    <message>
        <source>Clearance Direction</source>
        <translation>Richtung des Spiels</translation>
    </message>
    <message>
        <source>Inside</source>
        <translation>Innen</translation>
    </message>
    <message>
        <source>Outside</source>
        <translation>Außen</translation>
    </message>
    <message>
        <source>Both sides</source>
        <translation>Beide Seiten</translation>
    </message>
    <message>
        <source>%1 (%2 more in the log)</source>
        <extracomment>The first remark, and how many others there are.</extracomment>
        <translation>%1 (%2 weitere im Protokoll)</translation>
    </message>
    <message>
        <source>Show in View</source>
        <translation>In der Ansicht zeigen</translation>
    </message>
    <message>
        <source>Repair and Cut Again</source>
        <translation>Reparieren und noch einmal schneiden</translation>
    </message>
    <message>
        <source>The repair could not mend the part, which stays as it is. Move the cut, or mend the part in the program that it comes from.</source>
        <translation>Die Reparatur konnte das Bauteil nicht verbessern; es bleibt, wie es ist. Den Schnitt verschieben oder das Bauteil in dem Programm verbessern, aus dem es kommt.</translation>
    </message>
</context>
<context>
    <name>DialogLabel</name>
    <message>
        <source>Step</source>
        <translation>Schritt</translation>
    </message>
</context>
<context>
    <name>DialogPolygoncut</name>
    <message>
        <source>The outline encloses nothing. Move its points apart.</source>
        <translation>Der Umriss umschließt nichts. Rücken Sie seine Punkte auseinander.</translation>
    </message>
    <message>
        <source>The clearance leaves nothing inside the outline, so that the parts would be cut without a gap. Choose a smaller clearance or a larger outline.</source>
        <translation>Das Spiel lässt innerhalb des Umrisses nichts übrig, sodass die Teile ohne Spalt geschnitten würden. Wählen Sie ein kleineres Spiel oder einen größeren Umriss.</translation>
    </message>
    <message>
        <source>The tool has no solid to cut with. Draw it anew.</source>
        <translation>Das Werkzeug hat keinen Körper, mit dem sich schneiden lässt. Zeichnen Sie es neu.</translation>
    </message>
</context>
<context>
    <name>DialogRemesh</name>
    <message>
        <source>Tolerance</source>
        <translation>Toleranz</translation>
    </message>
</context>
<context>
    <name>DialogStructure</name>
    <message>
        <source>Spacing</source>
        <translation>Abstand</translation>
    </message>
</context>
<context>
    <name>DialogTitleBar</name>
    <message>
        <source>Keep open</source>
        <translation>Offen halten</translation>
    </message>
    <message>
        <source>Unfold</source>
        <translation>Aufklappen</translation>
    </message>
    <message>
        <source>Fold</source>
        <translation>Zuklappen</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>DialogZcut</name>
    <message>
        <source>Section Cut</source>
        <translation>Ebenenschnitt</translation>
    </message>
    <message>
        <source>Cut parameters</source>
        <translation>Schnittparameter</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Schneiden</translation>
    </message>
</context>
<context>
    <name>DockWidgetPerf</name>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
</context>
<context>
    <name>Document</name>
    <message>
        <source>&quot;%1&quot; is in another document; take it out of there first.</source>
        <translation>„%1“ gehört zu einem anderen Dokument; es zuerst dort herausnehmen.</translation>
    </message>
    <message>
        <source>Add the group &quot;%1&quot; to a document before parts are added to it.</source>
        <translation>Die Gruppe „%1“ in ein Dokument aufnehmen, bevor Bauteile hinzugefügt werden.</translation>
    </message>
    <message>
        <source>Scale &quot;%1&quot; by factors other than zero.</source>
        <translation>„%1“ mit anderen Faktoren als null skalieren.</translation>
    </message>
</context>
<context>
    <name>DocumentFiles</name>
    <message>
        <source>&quot;%1&quot; is open in another window too. Who saves second is asked before anything is replaced.</source>
        <translation>&quot;%1&quot; ist auch in einem anderen Fenster geöffnet. Wer als Zweiter speichert, wird gefragt, bevor etwas ersetzt wird.</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; is not there any more; it is taken off the list.</source>
        <translation>Die Datei „%1“ gibt es nicht mehr; sie wird aus der Liste entfernt.</translation>
    </message>
    <message numerus="yes">
        <source>%n files could not be opened:</source>
        <translation>
            <numerusform>%n Datei konnte nicht geöffnet werden:</numerusform>
            <numerusform>%n Dateien konnten nicht geöffnet werden:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The same goes for %n more.</source>
        <translation>
            <numerusform>Das gilt auch für %n weitere.</numerusform>
            <numerusform>Das gilt auch für %n weitere.</numerusform>
        </translation>
    </message>
    <message>
        <source>Open %1</source>
        <translation>%1 öffnen</translation>
    </message>
    <message numerus="yes">
        <source>Open %n files</source>
        <translation>
            <numerusform>%n Datei öffnen</numerusform>
            <numerusform>%n Dateien öffnen</numerusform>
        </translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>The project was not saved.</source>
        <translation>Das Projekt wurde nicht gespeichert.</translation>
    </message>
    <message>
        <source>These parts have no triangles to export; choose others.</source>
        <translation>Diese Bauteile haben keine Dreiecke zum Exportieren; andere auswählen.</translation>
    </message>
    <message>
        <source>Not all parts were exported.</source>
        <translation>Nicht alle Bauteile wurden exportiert.</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 gespeichert.</translation>
    </message>
    <message>
        <source>Exported %1.</source>
        <translation>%1 exportiert.</translation>
    </message>
    <message>
        <source>Left out as hidden: %1.</source>
        <translation>Weil ausgeblendet, ausgelassen: %1.</translation>
    </message>
    <message numerus="yes">
        <source>Exported %n files.</source>
        <translation>
            <numerusform>%n Datei exportiert.</numerusform>
            <numerusform>%n Dateien exportiert.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Drawings</name>
    <message>
        <source>The drawing is larger than a kilometre. Choose another unit.</source>
        <translation>Die Zeichnung ist größer als ein Kilometer. Wählen Sie eine andere Einheit.</translation>
    </message>
    <message>
        <source>A path has more than 20,000 points. Simplify it, or draw it smaller.</source>
        <translation>Ein Pfad hat mehr als 20.000 Punkte. Vereinfachen Sie ihn oder zeichnen Sie ihn kleiner.</translation>
    </message>
    <message>
        <source>The drawing %1 cannot be read: %2.</source>
        <translation>Die Zeichnung %1 lässt sich nicht lesen: %2.</translation>
    </message>
    <message>
        <source>It is too large. Save the outline alone.</source>
        <translation>Sie ist zu groß. Speichern Sie nur den Umriss.</translation>
    </message>
    <message>
        <source>Only SVG and DXF are read. Save it as one of them.</source>
        <translation>Gelesen werden nur SVG und DXF. Speichern Sie sie als eines davon.</translation>
    </message>
    <message>
        <source>The drawing %1 cannot be used. %2</source>
        <translation>Die Zeichnung %1 lässt sich nicht verwenden. %2</translation>
    </message>
    <message>
        <source>The drawing has no path. Draw one, or turn texts and objects into paths first.</source>
        <translation>Die Zeichnung hat keinen Pfad. Zeichnen Sie einen, oder wandeln Sie Texte und Objekte erst in Pfade um.</translation>
    </message>
    <message>
        <source>There is no path %1. Choose one from 1 to %2.</source>
        <translation>Es gibt keinen Pfad %1. Wählen Sie einen von 1 bis %2.</translation>
    </message>
    <message>
        <source>Path %1 is open: it begins at %2 and ends at %3. Close it in the drawing, or choose another path by its number.</source>
        <translation>Pfad %1 ist offen: Er beginnt bei %2 und endet bei %3. Schließen Sie ihn in der Zeichnung, oder wählen Sie einen anderen Pfad nach seiner Nummer.</translation>
    </message>
    <message>
        <source>Path %1 encloses nothing. Choose another path by its number.</source>
        <translation>Pfad %1 umschließt nichts. Wählen Sie einen anderen Pfad nach seiner Nummer.</translation>
    </message>
    <message>
        <source>It is damaged. Save it anew as DXF.</source>
        <translation>Sie ist beschädigt. Speichern Sie sie neu als DXF.</translation>
    </message>
    <message>
        <source>It has shapes that stand upright on its plane. Lay them flat.</source>
        <translation>Sie hat Formen, die aufrecht auf ihrer Ebene stehen. Legen Sie sie flach.</translation>
    </message>
    <message>
        <source>It has a spline without control points. Turn it into arcs or polylines.</source>
        <translation>Sie hat einen Spline ohne Kontrollpunkte. Wandeln Sie ihn in Bögen oder Polylinien um.</translation>
    </message>
    <message>
        <source>Its unit of number %1 is not known. Name the unit yourself.</source>
        <translation>Ihre Einheit mit der Nummer %1 ist nicht bekannt. Geben Sie die Einheit selbst an.</translation>
    </message>
    <message>
        <source>It has inserted blocks, which are not read. Explode them first.</source>
        <translation>Sie hat eingefügte Blöcke, die nicht gelesen werden. Lösen Sie sie erst auf.</translation>
    </message>
    <message>
        <source>It is no SVG at line %1, column %2: %3. Save it anew.</source>
        <translation>Sie ist in Zeile %1, Spalte %2 kein SVG: %3. Speichern Sie sie neu.</translation>
    </message>
    <message>
        <source>It is no SVG. Save it as SVG.</source>
        <translation>Sie ist kein SVG. Speichern Sie sie als SVG.</translation>
    </message>
    <message>
        <source>It has a clone or a drawing within the drawing at line %1, which are not read. Turn them into paths in the drawing program.</source>
        <translation>Sie hat in Zeile %1 einen Klon oder eine Zeichnung in der Zeichnung, die nicht gelesen werden. Wandeln Sie sie im Zeichenprogramm in Pfade um.</translation>
    </message>
    <message>
        <source>It moves a shape by its style at line %1, which is not read. Turn its shapes into paths in the drawing program.</source>
        <translation>Sie verschiebt in Zeile %1 eine Form durch ihren Stil, was nicht gelesen wird. Wandeln Sie ihre Formen im Zeichenprogramm in Pfade um.</translation>
    </message>
    <message>
        <source>Its page has no size. Save it with a width and a height.</source>
        <translation>Ihre Seite hat keine Größe. Speichern Sie sie mit Breite und Höhe.</translation>
    </message>
    <message>
        <source>The length &quot;%1&quot; cannot be read. Give it in px, mm, cm, in, pt or pc.</source>
        <translation>Die Länge „%1“ lässt sich nicht lesen. Geben Sie sie in px, mm, cm, in, pt oder pc an.</translation>
    </message>
    <message>
        <source>The transform &quot;%1&quot; cannot be read. Apply it in the drawing program.</source>
        <translation>Die Transformation „%1“ lässt sich nicht lesen. Wenden Sie sie im Zeichenprogramm an.</translation>
    </message>
</context>
<context>
    <name>ExportDialog</name>
    <message>
        <source>All parts in one file</source>
        <translation>Alle Bauteile in einer Datei</translation>
    </message>
    <message>
        <source>One file for each part</source>
        <translation>Eine Datei je Bauteil</translation>
    </message>
    <message>
        <source>Export Part</source>
        <translation>Bauteil exportieren</translation>
    </message>
    <message numerus="yes">
        <source>Export %n Parts</source>
        <translation>
            <numerusform>%n Bauteil exportieren</numerusform>
            <numerusform>%n Bauteile exportieren</numerusform>
        </translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exportieren...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Hidden parts too: %1</source>
        <translation>Auch ausgeblendete Bauteile: %1</translation>
    </message>
</context>
<context>
    <name>FileError</name>
    <message>
        <source>it announces %1 vertices and %2 faces, for which the file is too short; it is truncated.</source>
        <translation>sie kündigt %1 Ecken und %2 Flächen an, für die die Datei zu kurz ist; sie ist abgeschnitten.</translation>
    </message>
    <message>
        <source>the file ends before all of its vertices and faces; it is truncated.</source>
        <translation>die Datei endet vor dem letzten ihrer Punkte und Flächen; sie ist abgeschnitten.</translation>
    </message>
    <message>
        <source>it is binary; only OFF files that are text can be read.</source>
        <translation>sie ist binär; nur OFF-Dateien in Textform können gelesen werden.</translation>
    </message>
    <message>
        <source>a number of vertices or faces</source>
        <translation>eine Anzahl von Ecken oder Flächen</translation>
    </message>
    <message>
        <source>the number of a vertex</source>
        <translation>die Nummer einer Ecke</translation>
    </message>
    <message>
        <source>it is not whole, and cannot be read.</source>
        <translation>sie ist nicht vollständig und kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>&apos;facet&apos; or &apos;endsolid&apos;</source>
        <translation>&apos;facet&apos; oder &apos;endsolid&apos;</translation>
    </message>
    <message>
        <source>a coordinate</source>
        <translation>eine Koordinate</translation>
    </message>
    <message>
        <source>the file has no facet; a mesh was expected.</source>
        <translation>Die Datei enthält keine Facette; erwartet wurde ein Netz.</translation>
    </message>
    <message>
        <source>&apos;solid&apos; or the end of the file</source>
        <translation>&apos;solid&apos; oder das Ende der Datei</translation>
    </message>
    <message>
        <source>the normal&apos;s number</source>
        <translation>eine Zahl der Normalen</translation>
    </message>
    <message>
        <source>a coordinate is not a finite number in the range of single precision.</source>
        <translation>Eine Koordinate ist keine endliche Zahl im Bereich einfacher Genauigkeit.</translation>
    </message>
    <message>
        <source>the file ends here, where %1 was expected; it is truncated.</source>
        <translation>Die Datei endet hier, wo %1 erwartet wurde; sie ist abgeschnitten.</translation>
    </message>
    <message>
        <source>%1 was expected, but there is %2.</source>
        <translation>Erwartet wurde %1, aber hier steht %2.</translation>
    </message>
    <message>
        <source>%1 triangles need %2 MiB of memory, but only %3 MiB are free; close other programs or reduce the mesh first.</source>
        <translation>%1 Dreiecke brauchen %2 MiB Speicher, aber nur %3 MiB sind frei; andere Programme schließen oder zuerst das Netz verkleinern.</translation>
    </message>
    <message>
        <source>the file ends within the 84 bytes of a binary STL header; it is truncated or no STL file.</source>
        <translation>Die Datei endet innerhalb der 84 Bytes eines binären STL-Kopfs; sie ist abgeschnitten oder keine STL-Datei.</translation>
    </message>
    <message>
        <source>the file ends here, but its header announces %1 triangles, which end at byte %2; it is truncated or no STL file.</source>
        <translation>Die Datei endet hier, aber ihr Kopf kündigt %1 Dreiecke an, die bei Byte %2 enden; sie ist abgeschnitten oder keine STL-Datei.</translation>
    </message>
    <message>
        <source>the header announces no triangles, but a mesh was expected.</source>
        <translation>Der Kopf kündigt keine Dreiecke an, aber erwartet wurde ein Netz.</translation>
    </message>
    <message>
        <source>a coordinate is not a finite number; three coordinates of a corner were expected.</source>
        <translation>Eine Koordinate ist keine endliche Zahl; erwartet wurden drei Koordinaten einer Ecke.</translation>
    </message>
    <message>
        <source>it cannot be cut while it is read: %1</source>
        <translation>Sie kann nicht beim Lesen geschnitten werden: %1</translation>
    </message>
    <message>
        <source>its vertices have lists.</source>
        <translation>Ihre Eckpunkte haben Listen.</translation>
    </message>
    <message>
        <source>its vertices have no x, y and z of type float or double.</source>
        <translation>Ihre Eckpunkte haben kein x, y und z vom Typ float oder double.</translation>
    </message>
    <message>
        <source>a face has %1 corners, but only triangles can be cut while they are read.</source>
        <translation>Eine Fläche hat %1 Ecken, aber nur Dreiecke können beim Lesen geschnitten werden.</translation>
    </message>
    <message>
        <source>it is a PLY file of text.</source>
        <translation>Sie ist eine PLY-Datei aus Text.</translation>
    </message>
    <message>
        <source>it does not begin with vertices and, behind them, faces.</source>
        <translation>Sie beginnt nicht mit Eckpunkten und Flächen dahinter.</translation>
    </message>
    <message>
        <source>a coordinate of triangle %1 is not a finite number.</source>
        <translation>Eine Koordinate des Dreiecks %1 ist keine endliche Zahl.</translation>
    </message>
    <message>
        <source>it cannot be cut while it is read: only STL and binary PLY files can.</source>
        <translation>Sie kann nicht beim Lesen geschnitten werden: das geht nur mit STL- und binären PLY-Dateien.</translation>
    </message>
    <message>
        <source>no triangle has three different corners; a mesh was expected.</source>
        <translation>Kein Dreieck hat drei verschiedene Ecken; erwartet wurde ein Netz.</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>Der zugeteilte Speicherplatz ist erschöpft</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>Der Dateiname ist zu lang</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>Die Datei ist zu groß</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Eingabe-/Ausgabefehler</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>Es ist ein Ordner</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>Auf dem Gerät ist kein Speicherplatz mehr frei</translation>
    </message>
    <message>
        <source>No such device or address</source>
        <translation>Gerät oder Adresse nicht vorhanden</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Datei oder Ordner nicht vorhanden</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>Es ist kein Ordner</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>Der Vorgang ist nicht erlaubt</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Keine Berechtigung</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>Das Dateisystem ist nur lesbar</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>Die Verbindung zur Datei besteht nicht mehr</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>Zu viele Dateien sind geöffnet</translation>
    </message>
    <message>
        <source>File &apos;%1&apos;: %2</source>
        <translation>Datei „%1“: %2</translation>
    </message>
    <message>
        <source>byte %1: %2</source>
        <translation>Byte %1: %2</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>its extension names no format; use one of %1.</source>
        <translation>Die Endung bezeichnet kein Format; eine von %1 verwenden.</translation>
    </message>
    <message>
        <source>its content is in no known format; %1 were expected.</source>
        <translation>Der Inhalt hat kein bekanntes Format; erwartet wurde %1.</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 oder %2</translation>
    </message>
    <message>
        <source>there is no such file; check the name and the folder.</source>
        <translation>Diese Datei gibt es nicht; Namen und Ordner prüfen.</translation>
    </message>
    <message>
        <source>there is no permission to read it; ask its owner or change its permissions.</source>
        <translation>Die Berechtigung zum Lesen fehlt; den Besitzer fragen oder die Berechtigungen ändern.</translation>
    </message>
    <message>
        <source>it cannot be opened: %1.</source>
        <translation>Sie kann nicht geöffnet werden: %1.</translation>
    </message>
    <message>
        <source>it is a folder, but a mesh file was expected.</source>
        <translation>Das ist ein Ordner, aber erwartet wurde eine Netzdatei.</translation>
    </message>
    <message>
        <source>it is not a regular file, but a mesh file was expected.</source>
        <translation>Das ist keine gewöhnliche Datei, aber erwartet wurde eine Netzdatei.</translation>
    </message>
    <message>
        <source>it is empty, but a mesh was expected.</source>
        <translation>Sie ist leer, aber erwartet wurde ein Netz.</translation>
    </message>
    <message>
        <source>it cannot be read on: %1.</source>
        <translation>Sie kann nicht weiter gelesen werden: %1.</translation>
    </message>
    <message>
        <source>it has no end within 64 MiB; a text file was expected.</source>
        <translation>Sie hat innerhalb von 64 MiB kein Ende; erwartet wurde eine Textdatei.</translation>
    </message>
    <message>
        <source>the file ends without a position or a face; a mesh was expected.</source>
        <translation>Die Datei endet ohne eine Position oder Fläche; erwartet wurde ein Netz.</translation>
    </message>
    <message>
        <source>the file ends without a face of three different corners; a mesh was expected.</source>
        <translation>Die Datei endet ohne eine Fläche mit drei verschiedenen Ecken; erwartet wurde ein Netz.</translation>
    </message>
    <message>
        <source>a face of three or more corners was expected, but there are %1.</source>
        <translation>Erwartet wurde eine Fläche mit drei oder mehr Ecken, aber ihre Anzahl ist %1.</translation>
    </message>
    <message>
        <source>a corner such as 7 or 7/1/3</source>
        <translation>eine Ecke wie 7 oder 7/1/3</translation>
    </message>
    <message>
        <source>the face refers to position %1, but there are %2 positions above it.</source>
        <translation>Die Fläche verweist auf Position %1, aber die Anzahl der Positionen darüber ist %2.</translation>
    </message>
    <message>
        <source>it exists already and is not replaced; choose another name or allow overwriting.</source>
        <translation>Es gibt sie schon, und sie wird nicht ersetzt; einen anderen Namen wählen oder das Überschreiben erlauben.</translation>
    </message>
    <message>
        <source>it cannot be written: %1.</source>
        <translation>Sie kann nicht geschrieben werden: %1.</translation>
    </message>
    <message>
        <source>it is a folder, but a file name was expected.</source>
        <translation>Das ist ein Ordner, aber erwartet wurde ein Dateiname.</translation>
    </message>
    <message>
        <source>no file can be made in the folder &apos;%1&apos;: %2.</source>
        <translation>Im Ordner „%1“ kann keine Datei angelegt werden: %2.</translation>
    </message>
    <message>
        <source>it cannot be given its name: %1.</source>
        <translation>Sie kann ihren Namen nicht erhalten: %1.</translation>
    </message>
    <message>
        <source>its mesh needs more memory than is free; close other programs or reduce the mesh first.</source>
        <translation>Ihr Netz braucht mehr Speicher, als frei ist; andere Programme schließen oder zuerst das Netz verkleinern.</translation>
    </message>
    <message>
        <source>the part &apos;%1&apos; has no triangles to write.</source>
        <translation>Das Bauteil „%1“ hat keine Dreiecke zum Schreiben.</translation>
    </message>
    <message>
        <source>there is no part to write.</source>
        <translation>Es gibt kein Bauteil zum Schreiben.</translation>
    </message>
    <message>
        <source>writing it needs more memory than is free; close other programs.</source>
        <translation>Das Schreiben braucht mehr Speicher, als frei ist; andere Programme schließen.</translation>
    </message>
    <message>
        <source>&apos;ply&apos; was expected.</source>
        <translation>Erwartet wurde &apos;ply&apos;.</translation>
    </message>
    <message>
        <source>a header line or &apos;end_header&apos;</source>
        <translation>eine Zeile des Kopfs oder &apos;end_header&apos;</translation>
    </message>
    <message>
        <source>the header ends without a &apos;format&apos; line.</source>
        <translation>Der Kopf endet ohne eine Zeile &apos;format&apos;.</translation>
    </message>
    <message>
        <source>ascii, binary_little_endian or binary_big_endian</source>
        <translation>ascii, binary_little_endian oder binary_big_endian</translation>
    </message>
    <message>
        <source>a number of &apos;%1&apos; elements was expected, but there is %2.</source>
        <translation>Erwartet wurde eine Anzahl der Elemente &apos;%1&apos;, aber hier steht %2.</translation>
    </message>
    <message>
        <source>an &apos;element&apos; line was expected before the first &apos;property&apos;.</source>
        <translation>Erwartet wurde eine Zeile &apos;element&apos; vor der ersten &apos;property&apos;.</translation>
    </message>
    <message>
        <source>a type such as float or uchar</source>
        <translation>ein Typ wie float oder uchar</translation>
    </message>
    <message>
        <source>no face has three different corners; a mesh was expected.</source>
        <translation>Keine Fläche hat drei verschiedene Ecken; erwartet wurde ein Netz.</translation>
    </message>
    <message>
        <source>the header ends without an element &apos;vertex&apos; with the properties x, y and z.</source>
        <translation>Der Kopf endet ohne ein Element &apos;vertex&apos; mit den Eigenschaften x, y und z.</translation>
    </message>
    <message>
        <source>the header ends without an element &apos;face&apos; with a list &apos;vertex_indices&apos;; a mesh was expected.</source>
        <translation>Der Kopf endet ohne ein Element &apos;face&apos; mit einer Liste &apos;vertex_indices&apos;; erwartet wurde ein Netz.</translation>
    </message>
    <message>
        <source>the header has &apos;face&apos; before &apos;vertex&apos;; the other order was expected.</source>
        <translation>Im Kopf steht &apos;face&apos; vor &apos;vertex&apos;; erwartet wurde die umgekehrte Reihenfolge.</translation>
    </message>
    <message>
        <source>the header announces no vertices or no faces; a mesh was expected.</source>
        <translation>Der Kopf kündigt keine Eckpunkte oder keine Flächen an; erwartet wurde ein Netz.</translation>
    </message>
    <message>
        <source>a coordinate of vertex %1 is not a finite number in the range of single precision.</source>
        <translation>Eine Koordinate von Eckpunkt %1 ist keine endliche Zahl im Bereich einfacher Genauigkeit.</translation>
    </message>
    <message>
        <source>the face refers to vertex %1, but there are %2 vertices, counted from 0.</source>
        <translation>Die Fläche verweist auf Eckpunkt %1, aber die Anzahl der Eckpunkte, gezählt ab 0, ist %2.</translation>
    </message>
    <message>
        <source>the length of the list &apos;%1&apos; is negative or longer than the file.</source>
        <translation>Die Länge der Liste &apos;%1&apos; ist negativ oder größer als die Datei.</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>eine Zahl</translation>
    </message>
    <message>
        <source>the file ends here, where more numbers were expected; it is truncated.</source>
        <translation>Die Datei endet hier, wo weitere Zahlen erwartet wurden; sie ist abgeschnitten.</translation>
    </message>
    <message>
        <source>its list of objects is larger than 256 MiB.</source>
        <translation>Ihre Objektliste ist größer als 256 MiB.</translation>
    </message>
    <message>
        <source>it needs more memory than is free; close other programs to open it.</source>
        <translation>Sie braucht mehr Speicher, als frei ist; zum Öffnen andere Programme schließen.</translation>
    </message>
    <message>
        <source>it was saved by a newer version of this program; update the program to open it.</source>
        <translation>Sie wurde mit einer neueren Version dieses Programms gespeichert; zum Öffnen das Programm aktualisieren.</translation>
    </message>
    <message>
        <source>its list of objects, %1, is damaged in line %2: %3</source>
        <translation>Ihre Objektliste, %1, ist in Zeile %2 beschädigt: %3</translation>
    </message>
    <message>
        <source>binary STL holds at most 4294967295 triangles; use another format.</source>
        <translation>Binäres STL fasst höchstens 4294967295 Dreiecke; ein anderes Format verwenden.</translation>
    </message>
    <message>
        <source>error %1.</source>
        <translation>Fehler %1.</translation>
    </message>
    <message>
        <source>its build places no mesh; at least one was expected.</source>
        <translation>Ihr Bauauftrag platziert kein Netz; erwartet wurde mindestens eines.</translation>
    </message>
    <message>
        <source>a coordinate of vertex %1 is not a finite number.</source>
        <translation>Eine Koordinate von Eckpunkt %1 ist keine endliche Zahl.</translation>
    </message>
    <message>
        <source>a complete 3MF package was expected, but the 3MF library reports: %1</source>
        <translation>Erwartet wurde ein vollständiges 3MF-Paket, aber die 3MF-Bibliothek meldet: %1</translation>
    </message>
    <message>
        <source>its components are nested more than 64 deep.</source>
        <translation>Ihre Komponenten sind mehr als 64-fach verschachtelt.</translation>
    </message>
    <message>
        <source>its build places more than 100000 meshes.</source>
        <translation>Ihr Bauauftrag platziert mehr als 100000 Netze.</translation>
    </message>
    <message>
        <source>a coordinate of vertex %1 of the object &apos;%2&apos; is not a finite number in the range of single precision.</source>
        <translation>Eine Koordinate von Eckpunkt %1 des Objekts „%2“ ist keine endliche Zahl im Bereich einfacher Genauigkeit.</translation>
    </message>
    <message>
        <source>triangle %1 of the object &apos;%4&apos; refers to vertex %2, but there are %3.</source>
        <translation>Dreieck %1 des Objekts „%4“ verweist auf Eckpunkt %2, aber die Anzahl der Eckpunkte ist %3.</translation>
    </message>
    <message>
        <source>the 3MF library reports: %1</source>
        <translation>Die 3MF-Bibliothek meldet: %1</translation>
    </message>
    <message>
        <source>a coordinate of the part &apos;%1&apos; is not a number up to 1000000000 mm; repair the part or remove it.</source>
        <translation>Eine Koordinate des Bauteils „%1“ ist keine Zahl bis 1000000000 mm; das Bauteil reparieren oder entfernen.</translation>
    </message>
    <message>
        <source>the content of &apos;%1&apos; in it is damaged; use another copy of the file.</source>
        <translation>Der Inhalt von „%1“ darin ist beschädigt; eine andere Kopie der Datei verwenden.</translation>
    </message>
    <message>
        <source>the file ends here, but what its header announces takes at least %1 bytes behind the header; it is truncated.</source>
        <translation>Die Datei endet hier, aber was ihr Kopf ankündigt, braucht dahinter mindestens %1 Bytes; sie ist abgeschnitten.</translation>
    </message>
    <message>
        <source>the header announces %1 triangles, but the file holds %2; one of the two is damaged. Export the part again.</source>
        <translation>der Kopf kündigt %1 Dreiecke an, die Datei enthält aber %2; eines von beiden ist beschädigt. Das Teil erneut exportieren.</translation>
    </message>
</context>
<context>
    <name>FitText</name>
    <message>
        <source>fits</source>
        <translation>passt</translation>
    </message>
    <message>
        <source>%1 too wide</source>
        <translation>%1 zu breit</translation>
    </message>
    <message>
        <source>%1 too deep</source>
        <translation>%1 zu tief</translation>
    </message>
    <message>
        <source>%1 too high</source>
        <translation>%1 zu hoch</translation>
    </message>
    <message>
        <source>fits, but reaches beyond the plate</source>
        <translation>passt, ragt aber über die Platte hinaus</translation>
    </message>
    <message>
        <source>%1 beyond the plate at the left</source>
        <translation>%1 links über die Platte hinaus</translation>
    </message>
    <message>
        <source>%1 beyond the plate at the right</source>
        <translation>%1 rechts über die Platte hinaus</translation>
    </message>
    <message>
        <source>%1 beyond the plate at the front</source>
        <translation>%1 vorn über die Platte hinaus</translation>
    </message>
    <message>
        <source>%1 beyond the plate at the back</source>
        <translation>%1 hinten über die Platte hinaus</translation>
    </message>
    <message>
        <source>%1 below the plate</source>
        <translation>%1 unter der Platte</translation>
    </message>
    <message>
        <source>%1 above the build volume</source>
        <translation>%1 über dem Bauraum</translation>
    </message>
</context>
<context>
    <name>FlawList</name>
    <message>
        <source>Places of errors: %1. Choose one to see it.</source>
        <translation>Fehlerstellen: %1. Wählen Sie eine aus, um sie zu sehen.</translation>
    </message>
    <message>
        <source>Places of errors</source>
        <translation>Fehlerstellen</translation>
    </message>
</context>
<context>
    <name>Formats</name>
    <message>
        <source>PLY, binary</source>
        <translation>PLY, binär</translation>
    </message>
    <message>
        <source>PLY, ASCII</source>
        <translation>PLY, ASCII</translation>
    </message>
    <message>
        <source>STL, binary</source>
        <translation>STL, binär</translation>
    </message>
    <message>
        <source>STL, ASCII</source>
        <translation>STL, ASCII</translation>
    </message>
</context>
<context>
    <name>Freecut::CutForecast</name>
    <message>
        <source>Pieces: %1 (inside the tool %2, outside %3)</source>
        <translation>Teilstücke: %1 (im Werkzeug %2, außerhalb %3)</translation>
    </message>
    <message>
        <source>Further parts: %1</source>
        <translation>Weitere Teile: %1</translation>
    </message>
    <message>
        <source>Gap between the pieces: at least %1</source>
        <translation>Spalt zwischen den Teilstücken: mindestens %1</translation>
    </message>
    <message>
        <source>Smallest gap between teeth: %1</source>
        <translation>Kleinste Lücke zwischen Zähnen: %1</translation>
    </message>
    <message>
        <source>The clearance closes a neck inside the outline: what lies beyond it comes off or is lost. Choose a smaller clearance.</source>
        <translation>Das Spiel schließt eine Engstelle im Umriss: Was dahinter liegt, löst sich oder geht verloren. Wählen Sie ein kleineres Spiel.</translation>
    </message>
    <message>
        <source>A tooth is too narrow for the clearance and is lost. Choose a smaller clearance or wider teeth.</source>
        <translation>Ein Zahn ist zu schmal für das Spiel und geht verloren. Wählen Sie ein kleineres Spiel oder breitere Zähne.</translation>
    </message>
    <message>
        <source>The clearance closes the room between two teeth or a bay of the outline. Choose a smaller clearance or more room.</source>
        <translation>Das Spiel schließt den Raum zwischen zwei Zähnen oder eine Bucht des Umrisses. Wählen Sie ein kleineres Spiel oder mehr Raum.</translation>
    </message>
    <message>
        <source>The part stays whole: the tool misses it.</source>
        <translation>Das Teil bleibt ganz: Das Werkzeug trifft es nicht.</translation>
    </message>
    <message>
        <source>The part stays whole: it lies within the tool.</source>
        <translation>Das Teil bleibt ganz: Es liegt im Werkzeug.</translation>
    </message>
    <message>
        <source>Parts that stay whole: %1</source>
        <translation>Teile, die ganz bleiben: %1</translation>
    </message>
</context>
<context>
    <name>Freecut::EditHistory</name>
    <message>
        <source>All edits of the tool have been taken back. Press Esc to end the tool, and then undo goes on with the parts.</source>
        <translation>Alle Änderungen am Werkzeug sind zurückgenommen. Drücken Sie Esc, um das Werkzeug zu beenden; danach nimmt Rückgängig Schritte an den Teilen zurück.</translation>
    </message>
    <message>
        <source>No edit of the tool has been taken back.</source>
        <translation>Keine Änderung am Werkzeug ist zurückgenommen.</translation>
    </message>
    <message>
        <source>Stop the preview before you edit the tool.</source>
        <translation>Beenden Sie die Vorschau, bevor Sie das Werkzeug ändern.</translation>
    </message>
</context>
<context>
    <name>Freecut::JsonPlace</name>
    <message>
        <source>line %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>It is not JSON at %1 (%2). Mend it there.</source>
        <translation>Das ist in %1 kein JSON (%2). Berichtigen Sie es dort.</translation>
    </message>
    <message>
        <source>The text</source>
        <translation>Der Text</translation>
    </message>
    <message>
        <source>must be a record in braces, { }.</source>
        <translation>muss ein Satz von Werten in geschweiften Klammern sein, { }.</translation>
    </message>
    <message>
        <source>is missing. Add it.</source>
        <translation>fehlt. Ergänzen Sie es.</translation>
    </message>
    <message>
        <source>has no meaning here. Remove it.</source>
        <translation>hat hier keine Bedeutung. Entfernen Sie es.</translation>
    </message>
    <message>
        <source>must be a list of %1 to %2 values in brackets, [ ].</source>
        <translation>muss eine Liste von %1 bis %2 Werten in eckigen Klammern sein, [ ].</translation>
    </message>
    <message>
        <source>must be a number from %1 to %2. Change it.</source>
        <translation>muss eine Zahl von %1 bis %2 sein. Ändern Sie den Wert.</translation>
    </message>
    <message>
        <source>must be a whole number from %1 to %2. Change it.</source>
        <translation>muss eine ganze Zahl von %1 bis %2 sein. Ändern Sie den Wert.</translation>
    </message>
    <message>
        <source>must be a text in quotes.</source>
        <translation>muss ein Text in Anführungszeichen sein.</translation>
    </message>
    <message>
        <source>must be one of %1. Change it.</source>
        <translation>muss eines von diesen sein: %1. Ändern Sie den Wert.</translation>
    </message>
</context>
<context>
    <name>Freecut::MissedParts</name>
    <message>
        <source>The plane does not meet %1.</source>
        <extracomment>%1 is the name of a part.</extracomment>
        <translation>Die Ebene trifft %1 nicht.</translation>
    </message>
    <message numerus="yes">
        <source>The plane does not meet %1 and %n more.</source>
        <translation>
            <numerusform>Die Ebene trifft %1 und %n weiteres nicht.</numerusform>
            <numerusform>Die Ebene trifft %1 und %n weitere nicht.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Freecut::PictureTip</name>
    <message>
        <source>Radius of the pins. Their holes are wider by the side clearance.</source>
        <translation>Radius der Stifte. Ihre Löcher sind um das seitliche Spiel weiter.</translation>
    </message>
    <message>
        <source>Radius of the rod that you will put in. The holes are wider by the side clearance.</source>
        <translation>Radius des Stabs, der eingesetzt wird. Die Löcher sind um das seitliche Spiel weiter.</translation>
    </message>
    <message>
        <source>How far a flat facet may lie within the true circle. Small values make rounder shapes of more triangles.</source>
        <translation>Wie weit eine ebene Facette innerhalb des wahren Kreises liegen darf. Kleine Werte ergeben rundere Formen aus mehr Dreiecken.</translation>
    </message>
    <message>
        <source>How far a pin stands out of the face of its piece.</source>
        <translation>Wie weit ein Stift aus der Fläche seines Teilstücks ragt.</translation>
    </message>
    <message>
        <source>How far the rod reaches into each piece.</source>
        <translation>Wie weit der Stab in jedes Teilstück reicht.</translation>
    </message>
    <message>
        <source>Distance from the contour of the section to the centres of pins or holes. Without the tick they follow the middle of the section.</source>
        <translation>Abstand der Mitten von Stiften oder Löchern von der Kontur des Schnitts. Ohne das Häkchen folgen sie der Mitte des Schnitts.</translation>
    </message>
    <message>
        <source>How much deeper a hole is than its pin is high.</source>
        <translation>Um wie viel ein Loch tiefer ist, als sein Stift hoch ist.</translation>
    </message>
    <message>
        <source>How much deeper each hole is than the rod reaches into it.</source>
        <translation>Um wie viel jedes Loch tiefer ist, als der Stab hineinreicht.</translation>
    </message>
    <message>
        <source>Least distance of two centres of pins or holes.</source>
        <translation>Kleinster Abstand der Mitten zweier Stifte oder Löcher.</translation>
    </message>
    <message>
        <source>How much wider a hole is than its pin, all round. 0.1 to 0.2 mm suit most printers.</source>
        <translation>Um wie viel ein Loch ringsum weiter ist als sein Stift. 0,1 bis 0,2 mm passen für die meisten Drucker.</translation>
    </message>
    <message>
        <source>How much wider a hole is than the rod, all round. 0.1 to 0.2 mm suit most printers.</source>
        <translation>Um wie viel ein Loch ringsum weiter ist als der Stab. 0,1 bis 0,2 mm passen für die meisten Drucker.</translation>
    </message>
    <message>
        <source>Gap between the faces of the two pieces.</source>
        <translation>Spalt zwischen den Flächen der beiden Teilstücke.</translation>
    </message>
    <message>
        <source>How far the tongue stands out of the face of its piece.</source>
        <translation>Wie weit die Zunge aus der Fläche ihres Teilstücks ragt.</translation>
    </message>
    <message>
        <source>Distance from the contour of the section to the tongue.</source>
        <translation>Abstand der Feder von der Kontur des Schnitts.</translation>
    </message>
    <message>
        <source>The tongue keeps its distance from outer contours alone.</source>
        <translation>Die Zunge hält nur von äußeren Konturen Abstand.</translation>
    </message>
    <message>
        <source>The tongue keeps its distance from the contours of openings alone.</source>
        <translation>Die Zunge hält nur von den Konturen der Öffnungen Abstand.</translation>
    </message>
    <message>
        <source>The tongue keeps its distance from all contours.</source>
        <translation>Die Zunge hält von allen Konturen Abstand.</translation>
    </message>
    <message>
        <source>How much wider the notch is than the tongue, on each side. At most the side distance.</source>
        <translation>Um wie viel die Nut auf jeder Seite breiter ist als die Zunge. Höchstens der Randabstand.</translation>
    </message>
    <message>
        <source>Gap between the faces of the two pieces. At most the notch depth.</source>
        <translation>Spalt zwischen den Flächen der beiden Teilstücke. Höchstens die Nuttiefe.</translation>
    </message>
    <message>
        <source>How much deeper the notch is than the tongue is high. At most the notch depth.</source>
        <translation>Um wie viel die Nut tiefer ist, als die Zunge hoch ist. Höchstens die Nuttiefe.</translation>
    </message>
    <message>
        <source>Width of a tooth at the edge.</source>
        <translation>Breite eines Zahns an der Kante.</translation>
    </message>
    <message>
        <source>How far a tooth stands out of the edge.</source>
        <translation>Wie weit ein Zahn aus der Kante herausragt.</translation>
    </message>
    <message>
        <source>Width of a tooth away from the edge. Where it is larger than the lower width, the pieces cannot be pulled apart.</source>
        <translation>Breite eines Zahns abseits der Kante. Ist sie größer als die untere Breite, lassen sich die Teile nicht auseinanderziehen.</translation>
    </message>
    <message>
        <source>Width of a dovetail at the edge.</source>
        <translation>Breite eines Schwalbenschwanzes an der Kante.</translation>
    </message>
    <message>
        <source>How far a dovetail stands out of the edge.</source>
        <translation>Wie weit ein Schwalbenschwanz aus der Kante herausragt.</translation>
    </message>
    <message>
        <source>Width of a tab at its head. Its neck is narrower by the height.</source>
        <translation>Breite eines Puzzlezahns am Kopf. Sein Hals ist um die Höhe schmaler.</translation>
    </message>
    <message>
        <source>How far a tab stands out of the edge; at most its width.</source>
        <translation>Wie weit ein Puzzlezahn aus der Kante herausragt; höchstens seine Breite.</translation>
    </message>
    <message>
        <source>So many teeth are spread over the whole edge, less the offset.</source>
        <translation>So viele Zähne werden über die ganze Kante abzüglich des Versatzes verteilt.</translation>
    </message>
    <message>
        <source>From the middle of one tooth to the next.</source>
        <translation>Von der Mitte eines Zahns zum nächsten.</translation>
    </message>
    <message>
        <source>Length that is left without teeth at the start of the edge.</source>
        <translation>Länge, die am Anfang der Kante ohne Zähne bleibt.</translation>
    </message>
    <message>
        <source>Every edge of the outline gets these teeth.</source>
        <translation>Jede Kante des Umrisses bekommt diese Zähne.</translation>
    </message>
    <message>
        <source>Puts the teeth on the other side of the edge.</source>
        <translation>Setzt die Zähne auf die andere Seite der Kante.</translation>
    </message>
    <message>
        <source>Radius with which the corners of the outline are rounded. A corner whose edges are too short for it stays sharp.</source>
        <translation>Radius, mit dem die Ecken des Umrisses gerundet werden. Eine Ecke, deren Kanten dafür zu kurz sind, bleibt scharf.</translation>
    </message>
    <message>
        <source>Gap between the two pieces, all along the outline. 0.1 to 0.2 mm suit most printers.</source>
        <translation>Spalt zwischen den beiden Teilen entlang des ganzen Umrisses. 0,1 bis 0,2 mm passen für die meisten Drucker.</translation>
    </message>
    <message>
        <source>The gap is taken from the piece within the outline.</source>
        <translation>Der Spalt geht vom Teil innerhalb des Umrisses ab.</translation>
    </message>
    <message>
        <source>The gap is taken from the rest of the part.</source>
        <translation>Der Spalt geht vom Rest des Teils ab.</translation>
    </message>
    <message>
        <source>The gap is taken from both, so that it is twice as wide.</source>
        <translation>Der Spalt geht von beiden ab und ist daher doppelt so breit.</translation>
    </message>
</context>
<context>
    <name>Freecut::PlanecutSelection</name>
    <message>
        <source>Drag the middle square to move the plane, a corner to turn it, the middle of an edge to tilt it. With Ctrl the size changes. OK cuts.</source>
        <translation>Das mittlere Quadrat verschiebt die Ebene, eine Ecke dreht sie, die Mitte einer Kante neigt sie. Mit Strg ändert sich die Größe. OK schneidet.</translation>
    </message>
</context>
<context>
    <name>Freecut::PolygoncutSelection</name>
    <message>
        <source>Invalid point.</source>
        <translation>Ungültiger Punkt.</translation>
    </message>
    <message>
        <source>This point already exists.</source>
        <translation>Dieser Punkt ist schon vorhanden.</translation>
    </message>
    <message>
        <source>You can not move this point, because one of the edges contain this point has teeth.</source>
        <translation>Dieser Punkt lässt sich nicht verschieben, weil eine seiner Kanten Zähne hat.</translation>
    </message>
    <message>
        <source>Do you want to split an edge with teeth?</source>
        <translation>Möchten Sie eine Kante mit Zähnen teilen?</translation>
    </message>
    <message>
        <source>Width(W) must be larger or equal to Height(H).</source>
        <translation>Die Breite(W) muss mindestens so groß wie die Höhe(H) sein.</translation>
    </message>
    <message>
        <source>Offset(O) is too large for some edge.</source>
        <translation>Der Versatz(O) ist für eine Kante zu groß.</translation>
    </message>
    <message>
        <source>There would be too many teeth on some edge. Choose a larger distance(D).</source>
        <translation>Auf einer Kante gäbe es zu viele Zähne. Wählen Sie einen größeren Abstand(D).</translation>
    </message>
    <message>
        <source>Edge: %1</source>
        <translation>Kante: %1</translation>
    </message>
    <message>
        <source>Edge: %1. Next edge: %2</source>
        <translation>Kante: %1. Nächste Kante: %2</translation>
    </message>
    <message>
        <source>Shift: 15 degrees. Ctrl: points, edges, section. Both: drag it all.</source>
        <translation>Umschalt: 15 Grad. Strg: Punkte, Kanten, Schnitt. Beide: alles ziehen.</translation>
    </message>
</context>
<context>
    <name>Freecut::StoredTool</name>
    <message>
        <source>The teeth of edge %1 do not fit it. Choose fewer, smaller or other ones.</source>
        <translation>Die Zähne von Kante %1 passen nicht darauf. Wählen Sie weniger, kleinere oder andere.</translation>
    </message>
</context>
<context>
    <name>Freecut::ToolFile</name>
    <message>
        <source>must have a length of about 1, for it is a direction.</source>
        <translation>muss etwa die Länge 1 haben, denn es ist eine Richtung.</translation>
    </message>
    <message>
        <source>must not point along the direction. Change it.</source>
        <translation>darf nicht entlang der Richtung zeigen. Ändern Sie den Wert.</translation>
    </message>
    <message>
        <source>is for dovetails alone. Remove it.</source>
        <translation>gilt nur für Schwalbenschwänze. Entfernen Sie es.</translation>
    </message>
    <message>
        <source>needs either &quot;count&quot; or &quot;distance&quot;, and not both.</source>
        <translation>braucht entweder „count“ oder „distance“, aber nicht beides.</translation>
    </message>
    <message>
        <source>has teeth already. Name each edge once.</source>
        <translation>hat schon Zähne. Nennen Sie jede Kante einmal.</translation>
    </message>
    <message>
        <source>is for standard views alone. Remove it.</source>
        <translation>gilt nur für Standardansichten. Entfernen Sie es.</translation>
    </message>
    <message>
        <source>must be &quot;%1&quot;. Choose a file with a drawn tool.</source>
        <translation>muss „%1“ sein. Wählen Sie eine Datei mit einem gezeichneten Werkzeug.</translation>
    </message>
    <message>
        <source>is %1, but only version %2 can be read. Use a newer program for it.</source>
        <translation>ist %1, gelesen werden kann aber nur Version %2. Verwenden Sie dafür ein neueres Programm.</translation>
    </message>
    <message>
        <source>The tool file %1 cannot be read: %2.</source>
        <translation>Die Werkzeugdatei %1 lässt sich nicht lesen: %2.</translation>
    </message>
    <message>
        <source>The file %1 is too large for a tool. Choose a file with a tool.</source>
        <translation>Die Datei %1 ist zu groß für ein Werkzeug. Wählen Sie eine Datei mit einem Werkzeug.</translation>
    </message>
    <message>
        <source>The tool file %1 cannot be used. %2</source>
        <translation>Die Werkzeugdatei %1 lässt sich nicht verwenden. %2</translation>
    </message>
    <message>
        <source>The tool cannot be written to %1: %2.</source>
        <translation>Das Werkzeug lässt sich nicht nach %1 schreiben: %2.</translation>
    </message>
</context>
<context>
    <name>GLView</name>
    <message>
        <source>There is not enough free memory to show a part. Close other programs, then hide the part and show it again.</source>
        <translation>Der freie Speicher reicht nicht, um ein Bauteil zu zeigen. Andere Programme schließen, dann das Bauteil aus- und wieder einblenden.</translation>
    </message>
    <message>
        <source>There is no picture to save: show the view first.</source>
        <translation>Es gibt kein Bild zum Speichern: zuerst die Ansicht zeigen.</translation>
    </message>
    <message>
        <source>The picture could not be saved as %1: %2. Choose another folder.</source>
        <translation>Das Bild konnte nicht als %1 gespeichert werden: %2. Einen anderen Ordner wählen.</translation>
    </message>
    <message>
        <source>The picture is too large for this computer: choose a smaller one.</source>
        <translation>Das Bild ist zu groß für diesen Rechner: ein kleineres wählen.</translation>
    </message>
</context>
<context>
    <name>HandlesTool</name>
    <message>
        <source>Let go of the handle first.</source>
        <translation>Lassen Sie zuerst den Griff los.</translation>
    </message>
</context>
<context>
    <name>SoundPieces</name>
    <message>
        <source>The pieces would not be sound. Repair the part, or cut it a little elsewhere.</source>
        <translation>Die Stücke wären nicht einwandfrei. Reparieren Sie das Bauteil oder schneiden Sie es ein wenig daneben.</translation>
    </message>
</context>
<context>
    <name>HeightCut</name>
    <message>
        <source>Repair the part and cut again.</source>
        <translation>Das Bauteil reparieren und noch einmal schneiden.</translation>
    </message>
</context>
<context>
    <name>HeightCutDialog</name>
    <message>
        <source>Cut at Heights</source>
        <translation>In Höhen schneiden</translation>
    </message>
    <message>
        <source>At these heights</source>
        <translation>In diesen Höhen</translation>
    </message>
    <message>
        <source>From the bottom, every</source>
        <translation>Von unten, alle</translation>
    </message>
    <message>
        <source>Numbers with blanks or semicolons between them.</source>
        <translation>Zahlen mit Leerzeichen oder Strichpunkten dazwischen.</translation>
    </message>
    <message>
        <source>All pieces</source>
        <translation>Alle Stücke</translation>
    </message>
    <message>
        <source>The uppermost piece alone</source>
        <translation>Nur das oberste Stück</translation>
    </message>
    <message>
        <source>The lowest piece alone</source>
        <translation>Nur das unterste Stück</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Schneiden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no number.</source>
        <translation>&quot;%1&quot; ist keine Zahl.</translation>
    </message>
    <message>
        <source>These are too many cuts at once. Take a larger distance.</source>
        <translation>Das sind zu viele Schnitte auf einmal. Nehmen Sie einen größeren Abstand.</translation>
    </message>
    <message>
        <source>No height goes through the parts.</source>
        <translation>Keine Höhe geht durch die Bauteile.</translation>
    </message>
    <message numerus="yes">
        <source>%n heights go through the parts.</source>
        <translation>
            <numerusform>%n Höhe geht durch die Bauteile.</numerusform>
            <numerusform>%n Höhen gehen durch die Bauteile.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HeightSlider</name>
    <message>
        <source>The height at which a horizontal cut is made.</source>
        <translation>Die Höhe, in der waagrecht geschnitten wird.</translation>
    </message>
    <message>
        <source>Drag, or press Up and Down, to set the height of the cut.</source>
        <translation>Ziehen oder die Pfeiltasten auf und ab drücken, um die Schnitthöhe einzustellen.</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Linie</translation>
    </message>
    <message>
        <source>Shows on the parts where they would be cut.</source>
        <translation>Zeigt auf den Bauteilen, wo sie geschnitten würden.</translation>
    </message>
</context>
<context>
    <name>HeightWarning</name>
    <message>
        <source>meets no part</source>
        <extracomment>Beside the height, in a narrow column.</extracomment>
        <translation>trifft kein Bauteil</translation>
    </message>
    <message>
        <source>misses the selection</source>
        <extracomment>Beside the height, in a narrow column.</extracomment>
        <translation>verfehlt die Auswahl</translation>
    </message>
    <message>
        <source>misses %1 of %2</source>
        <translation>trifft %1 von %2 nicht</translation>
    </message>
    <message>
        <source>A cut at this height does not meet %1.</source>
        <translation>Ein Schnitt in dieser Höhe trifft %1 nicht.</translation>
    </message>
    <message numerus="yes">
        <source>A cut at this height does not meet %1 and %n more.</source>
        <translation>
            <numerusform>Ein Schnitt in dieser Höhe trifft %1 und %n weiteres nicht.</numerusform>
            <numerusform>Ein Schnitt in dieser Höhe trifft %1 und %n weitere nicht.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HistoryList</name>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Click a step to go back or forth to it.</source>
        <translation>Einen Schritt anklicken, um zu ihm zurück- oder vorzugehen.</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Anfang</translation>
    </message>
</context>
<context>
    <name>HostCommand</name>
    <message>
        <source>&amp;Keep This View...</source>
        <translation>Ansicht &amp;merken...</translation>
    </message>
    <message>
        <source>Keep where you look from by a name, with the project.</source>
        <translation>Merken, von wo Sie blicken, unter einem Namen und mit dem Projekt.</translation>
    </message>
    <message>
        <source>There are nine views: remove one first.</source>
        <translation>Es gibt neun Ansichten: zuerst eine entfernen.</translation>
    </message>
    <message>
        <source>Keep This View</source>
        <translation>Ansicht merken</translation>
    </message>
    <message>
        <source>Name of the view:</source>
        <translation>Name der Ansicht:</translation>
    </message>
    <message>
        <source>&amp;Remove a View...</source>
        <translation>Ansicht &amp;entfernen...</translation>
    </message>
    <message>
        <source>Forget a view that was kept.</source>
        <translation>Eine gemerkte Ansicht vergessen.</translation>
    </message>
    <message>
        <source>No view was kept.</source>
        <translation>Es ist keine Ansicht gemerkt.</translation>
    </message>
    <message>
        <source>Remove a View</source>
        <translation>Ansicht entfernen</translation>
    </message>
    <message>
        <source>View to remove:</source>
        <translation>Zu entfernende Ansicht:</translation>
    </message>
    <message>
        <source>Look from where you kept a view.</source>
        <translation>Wieder von dort blicken, wo eine Ansicht gemerkt wurde.</translation>
    </message>
    <message>
        <source>So many views were not kept yet.</source>
        <translation>So viele Ansichten sind noch nicht gemerkt.</translation>
    </message>
    <message>
        <source>&amp;Kept Views</source>
        <translation>&amp;Gemerkte Ansichten</translation>
    </message>
    <message>
        <source>Kept View 1</source>
        <translation>Gemerkte Ansicht 1</translation>
    </message>
    <message>
        <source>Kept View 2</source>
        <translation>Gemerkte Ansicht 2</translation>
    </message>
    <message>
        <source>Kept View 3</source>
        <translation>Gemerkte Ansicht 3</translation>
    </message>
    <message>
        <source>Kept View 4</source>
        <translation>Gemerkte Ansicht 4</translation>
    </message>
    <message>
        <source>Kept View 5</source>
        <translation>Gemerkte Ansicht 5</translation>
    </message>
    <message>
        <source>Kept View 6</source>
        <translation>Gemerkte Ansicht 6</translation>
    </message>
    <message>
        <source>Kept View 7</source>
        <translation>Gemerkte Ansicht 7</translation>
    </message>
    <message>
        <source>Kept View 8</source>
        <translation>Gemerkte Ansicht 8</translation>
    </message>
    <message>
        <source>Kept View 9</source>
        <translation>Gemerkte Ansicht 9</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Take back the last step.</source>
        <translation>Den letzten Schritt zurücknehmen.</translation>
    </message>
    <message>
        <source>There is nothing to undo yet.</source>
        <translation>Noch gibt es nichts rückgängig zu machen.</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Do again what was taken back.</source>
        <translation>Das Zurückgenommene noch einmal ausführen.</translation>
    </message>
    <message>
        <source>Undo a step first.</source>
        <translation>Zuerst einen Schritt rückgängig machen.</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Wiederherstellen: %1</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Delete the selected parts.</source>
        <translation>Die ausgewählten Bauteile löschen.</translation>
    </message>
    <message>
        <source>Duplica&amp;te</source>
        <translation>&amp;Duplizieren</translation>
    </message>
    <message>
        <source>Put copies of the selected parts beside them.</source>
        <translation>Kopien der ausgewählten Bauteile daneben legen.</translation>
    </message>
    <message>
        <source>&amp;Group</source>
        <translation>&amp;Gruppieren</translation>
    </message>
    <message>
        <source>Put the selected parts into a group.</source>
        <translation>Die ausgewählten Bauteile zu einer Gruppe zusammenfassen.</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>&amp;Ungroup</source>
        <translation>Gruppierung au&amp;fheben</translation>
    </message>
    <message>
        <source>Dissolve the groups of the selected parts.</source>
        <translation>Die Gruppen der ausgewählten Bauteile auflösen.</translation>
    </message>
    <message>
        <source>Select a part of a group first.</source>
        <translation>Zuerst ein Bauteil einer Gruppe auswählen.</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>&amp;Ausblenden</translation>
    </message>
    <message>
        <source>Hide the selected parts.</source>
        <translation>Die ausgewählten Bauteile ausblenden.</translation>
    </message>
    <message>
        <source>&amp;Show</source>
        <translation>&amp;Einblenden</translation>
    </message>
    <message>
        <source>Show the selected parts that are hidden.</source>
        <translation>Die ausgewählten Bauteile einblenden, die ausgeblendet sind.</translation>
    </message>
    <message>
        <source>Select a hidden part in the part list first.</source>
        <translation>Zuerst in der Bauteilliste ein ausgeblendetes Bauteil auswählen.</translation>
    </message>
    <message>
        <source>Show &amp;All</source>
        <translation>Alle einblen&amp;den</translation>
    </message>
    <message>
        <source>Show all hidden parts.</source>
        <translation>Alle ausgeblendeten Bauteile einblenden.</translation>
    </message>
    <message>
        <source>No part is hidden.</source>
        <translation>Kein Bauteil ist ausgeblendet.</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Close the application.</source>
        <translation>Das Programm beenden.</translation>
    </message>
    <message>
        <source>Open a part first.</source>
        <translation>Zuerst ein Bauteil öffnen.</translation>
    </message>
    <message>
        <source>Select a part first.</source>
        <translation>Zuerst ein Bauteil auswählen.</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>Start anew with an empty project.</source>
        <translation>Mit einem leeren Projekt neu beginnen.</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Add parts from files, or open a project.</source>
        <translation>Bauteile aus Dateien hinzufügen oder ein Projekt öffnen.</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save all parts with names, groups, visibility and colours.</source>
        <translation>Alle Bauteile mit Namen, Gruppen, Sichtbarkeit und Farben speichern.</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>Save the project in another file.</source>
        <translation>Das Projekt in einer anderen Datei speichern.</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>&amp;Exportieren...</translation>
    </message>
    <message>
        <source>Write all parts to STL, OBJ, PLY, OFF or 3MF.</source>
        <translation>Alle Bauteile als STL, OBJ, PLY, OFF oder 3MF schreiben.</translation>
    </message>
    <message>
        <source>Export Se&amp;lected...</source>
        <translation>&amp;Auswahl exportieren...</translation>
    </message>
    <message>
        <source>Write the selected parts to STL, OBJ, PLY, OFF or 3MF.</source>
        <translation>Die ausgewählten Bauteile als STL, OBJ, PLY, OFF oder 3MF schreiben.</translation>
    </message>
    <message>
        <source>Show a part first.</source>
        <translation>Zuerst ein Bauteil einblenden.</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message>
        <source>Select all visible parts.</source>
        <translation>Alle sichtbaren Bauteile auswählen.</translation>
    </message>
    <message>
        <source>&amp;Invert Selection</source>
        <translation>Auswahl &amp;umkehren</translation>
    </message>
    <message>
        <source>Select the visible parts that are not selected instead.</source>
        <translation>Stattdessen die sichtbaren Bauteile auswählen, die nicht ausgewählt sind.</translation>
    </message>
    <message>
        <source>Select &amp;Nothing</source>
        <translation>&amp;Nichts auswählen</translation>
    </message>
    <message>
        <source>Empty the selection.</source>
        <translation>Die Auswahl leeren.</translation>
    </message>
    <message>
        <source>Nothing is selected.</source>
        <translation>Nichts ist ausgewählt.</translation>
    </message>
    <message>
        <source>Select by Rectan&amp;gle</source>
        <translation>Mit Re&amp;chteck auswählen</translation>
    </message>
    <message>
        <source>Select the parts within a rectangle that you drag.</source>
        <translation>Die Bauteile in einem aufgezogenen Rechteck auswählen.</translation>
    </message>
    <message>
        <source>Pick a &amp;Point</source>
        <translation>&amp;Punkt anzeigen</translation>
    </message>
    <message>
        <source>Show the coordinates of a point that you click.</source>
        <translation>Die Koordinaten eines angeklickten Punkts anzeigen.</translation>
    </message>
    <message>
        <source>&amp;Fit All</source>
        <translation>Alles &amp;einpassen</translation>
    </message>
    <message>
        <source>Bring all visible parts into the picture.</source>
        <translation>Alle sichtbaren Bauteile ins Bild bringen.</translation>
    </message>
    <message>
        <source>Fit &amp;Selection</source>
        <translation>Aus&amp;wahl einpassen</translation>
    </message>
    <message>
        <source>Bring the selected parts into the picture.</source>
        <translation>Die ausgewählten Bauteile ins Bild bringen.</translation>
    </message>
    <message>
        <source>Look at the parts from this side.</source>
        <translation>Die Bauteile von dieser Seite betrachten.</translation>
    </message>
    <message>
        <source>Fr&amp;ont</source>
        <translation>&amp;Vorn</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Hinten</translation>
    </message>
    <message>
        <source>&amp;Top</source>
        <translation>&amp;Oben</translation>
    </message>
    <message>
        <source>Botto&amp;m</source>
        <translation>&amp;Unten</translation>
    </message>
    <message>
        <source>&amp;Left</source>
        <translation>&amp;Links</translation>
    </message>
    <message>
        <source>&amp;Right</source>
        <translation>&amp;Rechts</translation>
    </message>
    <message>
        <source>&amp;Isometric</source>
        <translation>&amp;Isometrisch</translation>
    </message>
    <message>
        <source>&amp;Perspective</source>
        <translation>&amp;Perspektive</translation>
    </message>
    <message>
        <source>Show what is farther away smaller.</source>
        <translation>Entferntes kleiner darstellen.</translation>
    </message>
    <message>
        <source>P&amp;arallel</source>
        <translation>P&amp;arallel</translation>
    </message>
    <message>
        <source>Show equal lengths equal, near and far.</source>
        <translation>Gleiche Längen nah und fern gleich lang darstellen.</translation>
    </message>
    <message>
        <source>Show &amp;Edges</source>
        <translation>&amp;Kanten zeigen</translation>
    </message>
    <message>
        <source>Show the edges of the triangles on the parts.</source>
        <translation>Die Kanten der Dreiecke auf den Bauteilen zeigen.</translation>
    </message>
    <message>
        <source>Sho&amp;w Build Plate</source>
        <translation>&amp;Bauplatte zeigen</translation>
    </message>
    <message>
        <source>Show the build plate with its grid.</source>
        <translation>Die Bauplatte mit ihrem Raster zeigen.</translation>
    </message>
    <message>
        <source>&amp;Full Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>Let the window fill the screen.</source>
        <translation>Das Fenster auf dem ganzen Bildschirm zeigen.</translation>
    </message>
    <message>
        <source>&amp;Reset Layout</source>
        <translation>Anordnung &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Put the panels back where they were at first.</source>
        <translation>Die Bereiche wieder dorthin bringen, wo sie anfangs waren.</translation>
    </message>
    <message>
        <source>&amp;Keyboard and Mouse</source>
        <translation>&amp;Tastatur und Maus</translation>
    </message>
    <message>
        <source>List all shortcuts.</source>
        <translation>Alle Tastenkürzel auflisten.</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>Die Version anzeigen.</translation>
    </message>
    <message>
        <source>&lt;h3&gt;%1 %2&lt;/h3&gt;&lt;p&gt;Cuts triangle meshes into parts for 3D printing.&lt;/p&gt;&lt;p&gt;Free software under the GNU General Public License, version 3 or later, without any warranty.&lt;/p&gt;&lt;p&gt;Drawing by %3; Qt %4.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;%1 %2&lt;/h3&gt;&lt;p&gt;Zerteilt Dreiecksnetze in Bauteile für den 3D-Druck.&lt;/p&gt;&lt;p&gt;Freie Software unter der GNU General Public License, Version 3 oder später, ohne jede Gewährleistung.&lt;/p&gt;&lt;p&gt;Darstellung mit %3; Qt %4.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>&amp;Cut Open</source>
        <translation>Au&amp;fschneiden</translation>
    </message>
    <message>
        <source>Show the parts cut open by a plane; they stay whole.</source>
        <translation>Die Bauteile an einer Ebene aufgeschnitten zeigen; sie bleiben ganz.</translation>
    </message>
    <message>
        <source>Choose theme, language, units and how the mouse works.</source>
        <translation>Farbschema, Sprache, Einheiten und Mausbedienung wählen.</translation>
    </message>
    <message>
        <source>&amp;Drop to Plate</source>
        <translation>Auf die Platte a&amp;bsetzen</translation>
    </message>
    <message>
        <source>Let the selected parts down onto the build plate.</source>
        <translation>Die ausgewählten Bauteile auf die Bauplatte absetzen.</translation>
    </message>
    <message>
        <source>&amp;Centre on Plate</source>
        <translation>Auf der Platte &amp;zentrieren</translation>
    </message>
    <message>
        <source>Move the selected parts to the middle of the plate.</source>
        <translation>Die ausgewählten Bauteile in die Mitte der Platte verschieben.</translation>
    </message>
    <message>
        <source>Look for errors in the selected parts.</source>
        <translation>Die ausgewählten Bauteile auf Fehler prüfen.</translation>
    </message>
    <message>
        <source>&amp;Repair</source>
        <translation>&amp;Reparieren</translation>
    </message>
    <message>
        <source>Mend the errors of the selected parts.</source>
        <translation>Die Fehler der ausgewählten Bauteile beheben.</translation>
    </message>
    <message>
        <source>Save &amp;Picture...</source>
        <translation>Bil&amp;d speichern...</translation>
    </message>
    <message>
        <source>Save the picture of the view to a file.</source>
        <translation>Das Bild der Ansicht in einer Datei speichern.</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>PNG pictures (*.png)</source>
        <translation>PNG-Bilder (*.png)</translation>
    </message>
    <message>
        <source>Pr&amp;eferences...</source>
        <translation>&amp;Einstellungen...</translation>
    </message>
    <message>
        <source>Chec&amp;k</source>
        <translation>&amp;Prüfen</translation>
    </message>
    <message>
        <source>&amp;Undo: edit of the tool</source>
        <translation>&amp;Rückgängig: Änderung am Werkzeug</translation>
    </message>
    <message>
        <source>&amp;Redo: edit of the tool</source>
        <translation>&amp;Wiederholen: Änderung am Werkzeug</translation>
    </message>
    <message>
        <source>&amp;Lay on the Largest Flat Face</source>
        <translation>Auf die größte ebene Fläc&amp;he legen</translation>
    </message>
    <message>
        <source>Turn each selected part until its largest flat face, such as that of a cut, lies on the plate.</source>
        <translation>Jedes ausgewählte Bauteil drehen, bis seine größte ebene Fläche, etwa die eines Schnitts, auf der Platte liegt.</translation>
    </message>
    <message>
        <source>Lay Flat on a &amp;Face</source>
        <translation>Auf eine Fläche &amp;legen</translation>
    </message>
    <message>
        <source>Lay a part on the plate with the face that you click.</source>
        <translation>Ein Bauteil mit der angeklickten Fläche auf die Platte legen.</translation>
    </message>
    <message>
        <source>Tell parts that have no colour of their own from each other by some.</source>
        <translation>Bauteile ohne eigene Farbe durch wechselnde Farben voneinander unterscheiden.</translation>
    </message>
    <message>
        <source>Colo&amp;ur Parts in Turn</source>
        <translation>Bauteile unterschie&amp;dlich färben</translation>
    </message>
    <message>
        <source>Place the Cut Face Down</source>
        <translation>Schnittfläche nach unten legen</translation>
    </message>
    <message>
        <source>Turn each selected piece until the face that the cut made lies on the plate.</source>
        <translation>Jedes ausgewählte Stück drehen, bis die Fläche, die der Schnitt gemacht hat, auf der Platte liegt.</translation>
    </message>
    <message>
        <source>Select a single part first.</source>
        <translation>Wählen Sie zuerst ein einzelnes Bauteil aus.</translation>
    </message>
    <message>
        <source>Select two parts or more first.</source>
        <translation>Wählen Sie zuerst mindestens zwei Bauteile aus.</translation>
    </message>
    <message>
        <source>Duplicate in a Ro&amp;w...</source>
        <translation>&amp;In einer Reihe duplizieren...</translation>
    </message>
    <message>
        <source>Put copies of the selected parts in a row beside them.</source>
        <translation>Kopien der ausgewählten Bauteile in einer Reihe daneben stellen.</translation>
    </message>
    <message>
        <source>&amp;Join</source>
        <translation>&amp;Vereinigen</translation>
    </message>
    <message>
        <source>Make one solid of the selected parts, without walls inside.</source>
        <translation>Aus den ausgewählten Bauteilen einen Körper machen, ohne Wände im Inneren.</translation>
    </message>
    <message>
        <source>Take A&amp;way...</source>
        <translation>Abz&amp;iehen...</translation>
    </message>
    <message>
        <source>Take the other selected parts away from one of them.</source>
        <translation>Die anderen ausgewählten Bauteile von einem davon abziehen.</translation>
    </message>
    <message>
        <source>&amp;Intersect</source>
        <translation>&amp;Schnittmenge</translation>
    </message>
    <message>
        <source>Keep what the selected parts have in common.</source>
        <translation>Behalten, was die ausgewählten Bauteile gemeinsam haben.</translation>
    </message>
    <message>
        <source>Split &amp;by Parts...</source>
        <translation>Durch Bau&amp;teile teilen...</translation>
    </message>
    <message>
        <source>Split one of the selected parts into what lies within the others and the rest.</source>
        <translation>Eines der ausgewählten Bauteile in das teilen, was in den anderen liegt, und den Rest.</translation>
    </message>
    <message>
        <source>Split into Shells</source>
        <translation>In Schalen teilen</translation>
    </message>
    <message>
        <source>Make a part of each piece of the selected part that hangs together; cavities stay with theirs.</source>
        <translation>Aus jedem zusammenhängenden Stück des ausgewählten Bauteils ein Bauteil machen; Hohlräume bleiben bei ihrem Stück.</translation>
    </message>
    <message>
        <source>&amp;Merge</source>
        <translation>Z&amp;usammenfassen</translation>
    </message>
    <message>
        <source>Put the selected parts into one as they are, walls inside included.</source>
        <translation>Die ausgewählten Bauteile unverändert in eines legen, mit allen Wänden im Inneren.</translation>
    </message>
    <message>
        <source>Cut at Heights...</source>
        <translation>In Höhen schneiden...</translation>
    </message>
    <message>
        <source>Cut the selected parts at several heights at once, and keep all pieces or one.</source>
        <translation>Die ausgewählten Bauteile in mehreren Höhen auf einmal schneiden und alle Stücke oder eines behalten.</translation>
    </message>
    <message>
        <source>Pieces now: %1.</source>
        <translation>Stücke jetzt: %1.</translation>
    </message>
    <message>
        <source>No height goes through the parts.</source>
        <translation>Keine Höhe geht durch die Bauteile.</translation>
    </message>
    <message>
        <source>The cut was cancelled; the parts are as they were.</source>
        <translation>Der Schnitt wurde abgebrochen; die Bauteile sind, wie sie waren.</translation>
    </message>
    <message>
        <source>Arrange on the Plate</source>
        <translation>Auf der Platte anordnen</translation>
    </message>
    <message>
        <source>Put the selected parts, or all that are shown, side by side on the plate.</source>
        <translation>Die ausgewählten Bauteile, oder alle sichtbaren, nebeneinander auf die Platte stellen.</translation>
    </message>
    <message>
        <source>The plate is full: %1 of the parts stand beside it, as on further plates.</source>
        <translation>Die Platte ist voll: %1 der Bauteile stehen daneben, wie auf weiteren Platten.</translation>
    </message>
    <message>
        <source>Mo&amp;ve and Turn by Handles</source>
        <translation>Mit Griffen be&amp;wegen und drehen</translation>
    </message>
    <message>
        <source>Show arrows and rings by which the mouse moves and turns the selected parts.</source>
        <translation>Pfeile und Ringe zeigen, an denen die Maus die ausgewählten Bauteile bewegt und dreht.</translation>
    </message>
    <message>
        <source>&amp;Measure</source>
        <translation>&amp;Messen</translation>
    </message>
    <message>
        <source>Tell wall thickness, distance and angle at places of parts that you click.</source>
        <translation>Wandstärke, Abstand und Winkel an angeklickten Stellen von Bauteilen angeben.</translation>
    </message>
    <message>
        <source>Hide &amp;Others</source>
        <translation>A&amp;ndere ausblenden</translation>
    </message>
    <message>
        <source>Show the selected parts and hide all others.</source>
        <translation>Die ausgewählten Bauteile zeigen und alle anderen ausblenden.</translation>
    </message>
    <message>
        <source>No other part is shown.</source>
        <translation>Kein anderes Bauteil ist sichtbar.</translation>
    </message>
    <message>
        <source>No errors are listed: check the selected parts first.</source>
        <translation>Keine Fehler sind aufgeführt: zuerst die ausgewählten Bauteile prüfen.</translation>
    </message>
    <message>
        <source>Next Error</source>
        <translation>Nächster Fehler</translation>
    </message>
    <message>
        <source>Show the next place of an error that Check has found.</source>
        <translation>Die nächste Stelle eines Fehlers zeigen, den Prüfen gefunden hat.</translation>
    </message>
    <message>
        <source>Previous Error</source>
        <translation>Voriger Fehler</translation>
    </message>
    <message>
        <source>Show the place of an error that Check has found before this one.</source>
        <translation>Die Stelle davor zeigen, an der Prüfen einen Fehler gefunden hat.</translation>
    </message>
    <message>
        <source>Cop&amp;y the Measure</source>
        <translation>Maß &amp;kopieren</translation>
    </message>
    <message>
        <source>Copy what is measured, or the area of the cut.</source>
        <translation>Kopieren, was gemessen ist, oder die Fläche des Schnitts.</translation>
    </message>
    <message>
        <source>Nothing is measured: use Measure or the cut view first.</source>
        <translation>Nichts ist gemessen: zuerst messen oder die Schnittansicht einschalten.</translation>
    </message>
</context>
<context>
    <name>JobGuard</name>
    <message>
        <source>Opening files</source>
        <translation>Dateien öffnen</translation>
    </message>
    <message>
        <source>Saving the project</source>
        <translation>Projekt speichern</translation>
    </message>
    <message>
        <source>Recovering unsaved changes</source>
        <translation>Nicht gespeicherte Änderungen wiederherstellen</translation>
    </message>
    <message>
        <source>Exporting parts</source>
        <translation>Bauteile exportieren</translation>
    </message>
    <message>
        <source>Wait until the running job has finished.</source>
        <translation>Warten, bis der laufende Auftrag beendet ist.</translation>
    </message>
    <message>
        <source>Wait until &quot;%1&quot; has finished, or cancel it.</source>
        <translation>Warten, bis „%1“ beendet ist, oder den Auftrag abbrechen.</translation>
    </message>
    <message>
        <source>Section Cut</source>
        <translation>Ebenenschnitt</translation>
    </message>
    <message>
        <source>Polygon Cut</source>
        <translation>Polygonschnitt</translation>
    </message>
    <message>
        <source>Checking parts</source>
        <translation>Bauteile prüfen</translation>
    </message>
    <message>
        <source>Repairing parts</source>
        <translation>Bauteile reparieren</translation>
    </message>
    <message>
        <source>Joining parts</source>
        <translation>Bauteile vereinigen</translation>
    </message>
    <message>
        <source>Taking parts away</source>
        <translation>Bauteile abziehen</translation>
    </message>
    <message>
        <source>Intersecting parts</source>
        <translation>Schnittmenge bilden</translation>
    </message>
    <message>
        <source>Splitting a part</source>
        <translation>Bauteil teilen</translation>
    </message>
    <message>
        <source>Splitting into shells</source>
        <translation>In Schalen teilen</translation>
    </message>
    <message>
        <source>Merging parts</source>
        <translation>Bauteile zusammenfassen</translation>
    </message>
    <message>
        <source>Cutting at heights</source>
        <translation>Schneiden in Höhen</translation>
    </message>
</context>
<context>
    <name>JobProgressBar</name>
    <message>
        <source>Cancelling: %1</source>
        <translation>Wird abgebrochen: %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Stop the job and leave the parts as they were (Esc).</source>
        <translation>Den Auftrag abbrechen und die Bauteile lassen, wie sie waren (Esc).</translation>
    </message>
    <message>
        <source>%p% - %1 s left</source>
        <translation>%p% - noch %1 s</translation>
    </message>
    <message>
        <source>%p% - %1 min left</source>
        <translation>%p% - noch %1 min</translation>
    </message>
</context>
<context>
    <name>LogConsole</name>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>What the application has to tell about its work comes here.</source>
        <translation>Hier steht, was das Programm über seine Arbeit zu berichten hat.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>MeasureTool</name>
    <message>
        <source>Length of the edge: %1</source>
        <translation>Länge der Kante: %1</translation>
    </message>
    <message>
        <source>Area of the face: %1</source>
        <translation>Inhalt der Fläche: %1</translation>
    </message>
    <message>
        <source>Distance of the edges: %1</source>
        <translation>Abstand der Kanten: %1</translation>
    </message>
    <message>
        <source>Angle of the edges: %1</source>
        <translation>Winkel der Kanten: %1</translation>
    </message>
    <message>
        <source>Distance to the face: %1</source>
        <translation>Abstand zur Fläche: %1</translation>
    </message>
    <message>
        <source>Distance to the edge: %1</source>
        <translation>Abstand zur Kante: %1</translation>
    </message>
    <message>
        <source>Wall thickness: %1</source>
        <translation>Wandstärke: %1</translation>
    </message>
    <message>
        <source>No wall: open behind it</source>
        <translation>Keine Wand: dahinter offen</translation>
    </message>
    <message>
        <source>Distance: %1</source>
        <translation>Abstand: %1</translation>
    </message>
    <message>
        <source>X: %1  Y: %2  Z: %3</source>
        <translation>X: %1  Y: %2  Z: %3</translation>
    </message>
    <message>
        <source>Angle of the faces: %1</source>
        <translation>Winkel der Flächen: %1</translation>
    </message>
    <message>
        <source>Distance of the faces: %1</source>
        <translation>Abstand der Flächen: %1</translation>
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
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Please select at least 1 part in one document.</source>
        <translation>Bitte wählen Sie mindestens 1 Teil in einem Dokument aus.</translation>
    </message>
    <message>
        <source>Please load at least 1 part in one document.</source>
        <translation>Bitte laden Sie mindestens 1 Teil in ein Dokument.</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>All parts</source>
        <translation>Alle Teile</translation>
    </message>
    <message>
        <source>Selected parts</source>
        <translation>Ausgewählte Teile</translation>
    </message>
    <message>
        <source>Question</source>
        <translation>Frage</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>There is not enough free memory; close other programs and try again.</source>
        <translation>Der freie Speicher reicht nicht; andere Programme schließen und noch einmal versuchen.</translation>
    </message>
    <message>
        <source>This could not be found out.</source>
        <translation>Das ließ sich nicht ermitteln.</translation>
    </message>
    <message>
        <source>This could not be done.</source>
        <translation>Das ließ sich nicht ausführen.</translation>
    </message>
</context>
<context>
    <name>MellQuantitySpinBox</name>
    <message>
        <source>The value has to lie between %1 and %2.</source>
        <translation>Der Wert muss zwischen %1 und %2 liegen.</translation>
    </message>
    <message>
        <source>There is a closing bracket without an opening one.</source>
        <translation>Zu einer schließenden Klammer fehlt die öffnende.</translation>
    </message>
    <message>
        <source>The number is too large.</source>
        <translation>Die Zahl ist zu groß.</translation>
    </message>
    <message>
        <source>There are too many brackets.</source>
        <translation>Es sind zu viele Klammern.</translation>
    </message>
    <message>
        <source>A closing bracket is missing.</source>
        <translation>Eine schließende Klammer fehlt.</translation>
    </message>
    <message>
        <source>A length takes one unit only.</source>
        <translation>Eine Länge hat nur eine Einheit.</translation>
    </message>
    <message>
        <source>This field takes a plain number; leave out &quot;%1&quot;.</source>
        <translation>Dieses Feld nimmt eine reine Zahl auf; „%1“ weglassen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no unit; use mm, cm, m or in.</source>
        <translation>„%1“ ist keine Einheit; möglich sind mm, cm, m und in.</translation>
    </message>
    <message>
        <source>The result is not a length.</source>
        <translation>Das Ergebnis ist keine Länge.</translation>
    </message>
    <message>
        <source>A division by zero has no result.</source>
        <translation>Eine Division durch null hat kein Ergebnis.</translation>
    </message>
    <message>
        <source>A number is missing at the end.</source>
        <translation>Am Ende fehlt eine Zahl.</translation>
    </message>
    <message>
        <source>A number is expected before &quot;%1&quot;.</source>
        <translation>Vor „%1“ wird eine Zahl erwartet.</translation>
    </message>
</context>
<context>
    <name>Modules</name>
    <message>
        <source>%1 The commands for cutting are missing; install the program again, or name the module with --plugin.</source>
        <translation>%1 Die Befehle zum Schneiden fehlen; das Programm neu installieren oder das Modul mit --plugin angeben.</translation>
    </message>
    <message>
        <source>The module &quot;%1&quot; cannot be loaded: %2</source>
        <translation>Das Modul „%1“ kann nicht geladen werden: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no module of this application: it has no initDLLModule.</source>
        <translation>„%1“ ist kein Modul dieses Programms: Es enthält kein initDLLModule.</translation>
    </message>
    <message>
        <source>The module enters no module class &quot;%1&quot;; it does not belong to this application.</source>
        <translation>Das Modul trägt keine Modulklasse „%1“ ein; es gehört nicht zu diesem Programm.</translation>
    </message>
    <message>
        <source>The module &quot;%1&quot; refuses to start in this application.</source>
        <translation>Das Modul „%1“ startet in diesem Programm nicht.</translation>
    </message>
    <message>
        <source>There is no module &quot;%1&quot;.</source>
        <translation>Es gibt kein Modul „%1“.</translation>
    </message>
</context>
<context>
    <name>NoticeBar</name>
    <message>
        <source>Dismiss</source>
        <translation>Schließen</translation>
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
    <name>OrbeWindow</name>
    <message>
        <source>Unsaved changes will not be kept for recovery.</source>
        <translation>Nicht gespeicherte Änderungen werden nicht für eine Wiederherstellung aufgehoben.</translation>
    </message>
    <message>
        <source>A job is running</source>
        <translation>Ein Auftrag läuft</translation>
    </message>
    <message>
        <source>Close the window when the job has finished, or cancel the job and close it?</source>
        <translation>Das Fenster schließen, wenn der Auftrag beendet ist, oder den Auftrag abbrechen und schließen?</translation>
    </message>
    <message>
        <source>Finish and Close</source>
        <translation>Beenden und schließen</translation>
    </message>
    <message>
        <source>Cancel and Close</source>
        <translation>Abbrechen und schließen</translation>
    </message>
    <message>
        <source>Keep Open</source>
        <translation>Offen lassen</translation>
    </message>
</context>
<context>
    <name>OrientationCube</name>
    <message>
        <source>FRONT</source>
        <translation>VORN</translation>
    </message>
    <message>
        <source>BACK</source>
        <translation>HINTEN</translation>
    </message>
    <message>
        <source>TOP</source>
        <translation>OBEN</translation>
    </message>
    <message>
        <source>BOTTOM</source>
        <translation>UNTEN</translation>
    </message>
    <message>
        <source>LEFT</source>
        <translation>LINKS</translation>
    </message>
    <message>
        <source>RIGHT</source>
        <translation>RECHTS</translation>
    </message>
</context>
<context>
    <name>OutlineImportDialog</name>
    <message>
        <source>Import outline</source>
        <translation>Umriss einlesen</translation>
    </message>
    <message>
        <source>As the drawing says</source>
        <translation>Wie in der Zeichnung angegeben</translation>
    </message>
    <message>
        <source>Drawing</source>
        <translation>Zeichnung</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>Middle at %1</source>
        <translation>Mitte bei %1</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Einlesen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>The largest</source>
        <translation>Der größte</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: %2, open</source>
        <translation>%1: %2, offen</translation>
    </message>
    <message>
        <source>%1, %2 corners</source>
        <translation>%1, %2 Ecken</translation>
    </message>
</context>
<context>
    <name>PartCombination</name>
    <message>
        <source>One of the parts</source>
        <translation>Eines der Bauteile</translation>
    </message>
</context>
<context>
    <name>PartCombiner</name>
    <message>
        <source>The repair has not mended it. Move one of the parts a little, or mend this one in the program that it comes from.</source>
        <translation>Die Reparatur hat es nicht behoben. Eines der Bauteile ein wenig verschieben oder dieses in dem Programm in Ordnung bringen, aus dem es kommt.</translation>
    </message>
    <message>
        <source>Attention</source>
        <translation>Achtung</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Split by Parts</source>
        <translation>Durch Bauteile teilen</translation>
    </message>
    <message>
        <source>Take Away</source>
        <translation>Abziehen</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>Take away from</source>
        <translation>Abziehen von</translation>
    </message>
    <message>
        <source>The operation was cancelled; the parts are as they were.</source>
        <translation>Der Vorgang wurde abgebrochen; die Bauteile sind, wie sie waren.</translation>
    </message>
    <message>
        <source>The selected parts have nothing in common; they stay as they are.</source>
        <translation>Die ausgewählten Bauteile haben nichts gemeinsam; sie bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>%1 lies within the other parts: nothing would be left of it. It stays as it is.</source>
        <translation>%1 liegt in den anderen Bauteilen: Es bliebe nichts davon übrig. Es bleibt, wie es ist.</translation>
    </message>
    <message>
        <source>%1 is one piece; there is nothing to split.</source>
        <translation>%1 ist ein einziges Stück; es gibt nichts zu teilen.</translation>
    </message>
    <message>
        <source>%1 consists of %2 pieces, too many for parts of their own. It stays as it is.</source>
        <translation>%1 besteht aus %2 Stücken, zu vielen für eigene Bauteile. Es bleibt, wie es ist.</translation>
    </message>
    <message>
        <source>Show in View</source>
        <translation>In der Ansicht zeigen</translation>
    </message>
    <message>
        <source>Repair and Try Again</source>
        <translation>Reparieren und erneut versuchen</translation>
    </message>
    <message>
        <source>The parts could not be combined; they stay as they are.</source>
        <translation>Die Bauteile konnten nicht verbunden werden; sie bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>%1 is open somewhere. Check shows where, and Repair may close it.</source>
        <translation>%1 ist irgendwo offen. Prüfen zeigt wo, und Reparieren kann es vielleicht schließen.</translation>
    </message>
    <message>
        <source>%1 crosses itself where coordinates had to be rounded. Check shows where, and Repair may mend it.</source>
        <translation>%1 kreuzt sich selbst, wo Koordinaten gerundet werden mussten. Prüfen zeigt wo, und Reparieren kann es vielleicht beheben.</translation>
    </message>
</context>
<context>
    <name>PartInformation</name>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Triangles</source>
        <translation>Dreiecke</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>Fläche</translation>
    </message>
    <message>
        <source>Surface</source>
        <translation>Oberfläche</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparieren</translation>
    </message>
    <message>
        <source>What was found</source>
        <translation>Befund</translation>
    </message>
    <message>
        <source>Select a part first.</source>
        <translation>Zuerst ein Bauteil auswählen.</translation>
    </message>
    <message>
        <source>Count what a printable part must not have.</source>
        <translation>Zählen, was ein druckbares Bauteil nicht haben darf.</translation>
    </message>
    <message>
        <source>Close holes and mend what else can be mended.</source>
        <translation>Löcher schließen und beheben, was sich sonst beheben lässt.</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>empty</source>
        <translation>leer</translation>
    </message>
    <message>
        <source>none, the surface is open</source>
        <translation>keins, die Oberfläche ist offen</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>geschlossen</translation>
    </message>
    <message>
        <source>open</source>
        <translation>offen</translation>
    </message>
    <message>
        <source>%1 of %2 parts are open</source>
        <translation>%1 von %2 Bauteilen sind offen</translation>
    </message>
    <message>
        <source>not checked yet</source>
        <translation>noch nicht geprüft</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>The repair was cancelled; the parts are as they were.</source>
        <translation>Die Reparatur wurde abgebrochen; die Bauteile sind, wie sie waren.</translation>
    </message>
    <message>
        <source>The check was cancelled.</source>
        <translation>Die Prüfung wurde abgebrochen.</translation>
    </message>
    <message>
        <source>%1 parts</source>
        <translation>%1 Bauteile</translation>
    </message>
    <message>
        <source>Printer</source>
        <translation>Drucker</translation>
    </message>
</context>
<context>
    <name>PartList</name>
    <message>
        <source>Colour of the Part</source>
        <translation>Farbe des Bauteils</translation>
    </message>
    <message>
        <source>Open a part, or drop a file into the window.</source>
        <translation>Ein Bauteil öffnen oder eine Datei in das Fenster ziehen.</translation>
    </message>
    <message>
        <source>Parts</source>
        <translation>Bauteile</translation>
    </message>
    <message>
        <source>%1 triangles</source>
        <translation>%1 Dreiecke</translation>
    </message>
    <message>
        <source>%1 selected</source>
        <translation>%1 ausgewählt</translation>
    </message>
    <message>
        <source>1 part</source>
        <translation>1 Bauteil</translation>
    </message>
    <message>
        <source>%1 parts</source>
        <translation>%1 Bauteile</translation>
    </message>
    <message>
        <source>1 triangle</source>
        <translation>1 Dreieck</translation>
    </message>
</context>
<context>
    <name>PartMenu</name>
    <message>
        <source>Select a part first.</source>
        <translation>Zuerst ein Bauteil auswählen.</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>The selected parts are hidden already.</source>
        <translation>Die ausgewählten Bauteile sind schon ausgeblendet.</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>The selected parts are shown already.</source>
        <translation>Die ausgewählten Bauteile sind schon eingeblendet.</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>Alle einblenden</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppieren</translation>
    </message>
    <message>
        <source>Ungroup</source>
        <translation>Gruppierung aufheben</translation>
    </message>
    <message>
        <source>Select a group or a part of one first.</source>
        <translation>Zuerst eine Gruppe oder ein Bauteil einer Gruppe auswählen.</translation>
    </message>
    <message>
        <source>Take Out of Group</source>
        <translation>Aus der Gruppe nehmen</translation>
    </message>
    <message>
        <source>Select a part of a group first.</source>
        <translation>Zuerst ein Bauteil einer Gruppe auswählen.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Colour...</source>
        <translation>Farbe...</translation>
    </message>
    <message>
        <source>No Colour of Its Own</source>
        <translation>Keine eigene Farbe</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>No part is hidden.</source>
        <translation>Kein Bauteil ist ausgeblendet.</translation>
    </message>
</context>
<context>
    <name>PartPlacement</name>
    <message>
        <source>%1 has no flat face to stand on. Choose one by Lay Flat on a Face.</source>
        <translation>%1 hat keine ebene Fläche, auf der es stehen kann. Wählen Sie eine mit „Auf eine Fläche legen“.</translation>
    </message>
</context>
<context>
    <name>PartReload</name>
    <message>
        <source>%1 is not in %2 any more; the part stays as it was.</source>
        <translation>%1 ist nicht mehr in %2; das Bauteil bleibt, wie es war.</translation>
    </message>
</context>
<context>
    <name>PartTreeModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Triangles</source>
        <translation>Dreiecke</translation>
    </message>
    <message>
        <source>Whether the part is closed</source>
        <translation>Ob das Bauteil geschlossen ist</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Visibility</source>
        <translation>Sichtbarkeit</translation>
    </message>
    <message>
        <source>Hidden; click to show</source>
        <translation>Ausgeblendet; zum Einblenden klicken</translation>
    </message>
    <message>
        <source>Shown; click to hide</source>
        <translation>Eingeblendet; zum Ausblenden klicken</translation>
    </message>
    <message>
        <source>Click to choose a colour</source>
        <translation>Klicken, um eine Farbe zu wählen</translation>
    </message>
    <message>
        <source>Being checked...</source>
        <translation>Wird geprüft...</translation>
    </message>
    <message>
        <source>empty: no triangles</source>
        <translation>leer: keine Dreiecke</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>geschlossen</translation>
    </message>
    <message numerus="yes">
        <source>open: %n open edges</source>
        <translation>
            <numerusform>offen: %n offene Kante</numerusform>
            <numerusform>offen: %n offene Kanten</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PlacementPanel</name>
    <message>
        <source>Placement</source>
        <translation>Platzierung</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Move By</source>
        <translation>Verschieben um</translation>
    </message>
    <message>
        <source>Turn By (Degrees)</source>
        <translation>Drehen um (Grad)</translation>
    </message>
    <message>
        <source>Middle of the box</source>
        <translation>Mitte des Hüllquaders</translation>
    </message>
    <message>
        <source>Lower corner of the box</source>
        <translation>Untere Ecke des Hüllquaders</translation>
    </message>
    <message>
        <source>Middle of the bottom</source>
        <translation>Mitte der Unterseite</translation>
    </message>
    <message>
        <source>Point that the position gives</source>
        <translation>Punkt, dessen Position angegeben ist</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Turn</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Drop to Plate</source>
        <translation>Auf die Platte absetzen</translation>
    </message>
    <message>
        <source>Centre on Plate</source>
        <translation>Auf der Platte zentrieren</translation>
    </message>
    <message>
        <source>Select a part first.</source>
        <translation>Zuerst ein Bauteil auswählen.</translation>
    </message>
    <message>
        <source>%1 +90°</source>
        <translation>%1 +90°</translation>
    </message>
    <message>
        <source>Turn by 90 degrees about %1</source>
        <translation>Um 90 Grad um %1 drehen</translation>
    </message>
    <message>
        <source>%1 −90°</source>
        <translation>%1 −90°</translation>
    </message>
    <message>
        <source>Turn back by 90 degrees about %1</source>
        <translation>Um 90 Grad um %1 zurückdrehen</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Mirror Along</source>
        <translation>Spiegeln entlang</translation>
    </message>
    <message>
        <source>Mirror along %1</source>
        <translation>Entlang %1 spiegeln</translation>
    </message>
</context>
<context>
    <name>PickedPointLabel</name>
    <message>
        <source>X: %1  Y: %2  Z: %3 %4</source>
        <extracomment>Coordinates of a picked point and their unit.</extracomment>
        <translation>X: %1  Y: %2  Z: %3 %4</translation>
    </message>
</context>
<context>
    <name>PreferencesDialog</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Interface</source>
        <translation>Oberfläche</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Farbschema</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Lengths in</source>
        <translation>Längen in</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>Maus</translation>
    </message>
    <message>
        <source>Projection</source>
        <translation>Projektion</translation>
    </message>
    <message>
        <source>Plate width</source>
        <translation>Breite der Bauplatte</translation>
    </message>
    <message>
        <source>Plate depth</source>
        <translation>Tiefe der Bauplatte</translation>
    </message>
    <message>
        <source>As the system</source>
        <translation>Wie das System</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Millimetres</source>
        <translation>Millimeter</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>Zoll</translation>
    </message>
    <message>
        <source>Turn: right; move: middle</source>
        <translation>Drehen: rechts; schieben: Mitte</translation>
    </message>
    <message>
        <source>Turn: middle; move: Shift + middle</source>
        <translation>Drehen: Mitte; schieben: Umschalt + Mitte</translation>
    </message>
    <message>
        <source>Turn: middle; move: right</source>
        <translation>Drehen: Mitte; schieben: rechts</translation>
    </message>
    <message>
        <source>Parallel</source>
        <translation>Parallel</translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation>Perspektive</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Printer</source>
        <translation>Drucker</translation>
    </message>
    <message>
        <source>Choose a size...</source>
        <translation>Größe wählen...</translation>
    </message>
    <message>
        <source>Printers of your own can be added in %1, one in each line: name;width;depth;height</source>
        <translation>Eigene Drucker lassen sich in %1 hinzufügen, einer in jeder Zeile: Name;Breite;Tiefe;Höhe</translation>
    </message>
    <message>
        <source>Build height</source>
        <translation>Bauhöhe</translation>
    </message>
    <message>
        <source>Touchpad: turn: left; move: Shift + left</source>
        <translation>Touchpad: drehen: links; schieben: Umschalt + links</translation>
    </message>
</context>
<context>
    <name>PresetButton</name>
    <message>
        <source>Presets of connectors (*.json)</source>
        <translation>Voreinstellungen für Verbinder (*.json)</translation>
    </message>
    <message>
        <source>Save as...</source>
        <translation>Speichern unter...</translation>
    </message>
    <message>
        <source>Save preset</source>
        <translation>Voreinstellung speichern</translation>
    </message>
    <message>
        <source>Name of the preset</source>
        <translation>Name der Voreinstellung</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Import...</source>
        <translation>Importieren...</translation>
    </message>
    <message>
        <source>Import preset</source>
        <translation>Voreinstellung importieren</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>Exportieren...</translation>
    </message>
    <message>
        <source>Export preset</source>
        <translation>Voreinstellung exportieren</translation>
    </message>
    <message>
        <source>Presets</source>
        <translation>Voreinstellungen</translation>
    </message>
    <message>
        <source>Keeps the values of the connectors under a name, and takes them up again.</source>
        <translation>Bewahrt die Werte der Verbinder unter einem Namen auf und übernimmt sie wieder.</translation>
    </message>
</context>
<context>
    <name>RecentMenu</name>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>No file was opened yet.</source>
        <translation>Noch wurde keine Datei geöffnet.</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>&amp;Liste leeren</translation>
    </message>
</context>
<context>
    <name>RecoveryDialog</name>
    <message numerus="yes">
        <source>%n parts</source>
        <translation>
            <numerusform>%n Bauteil</numerusform>
            <numerusform>%n Bauteile</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 triangles</source>
        <translation>%1 Dreiecke</translation>
    </message>
    <message>
        <source>Recover Unsaved Work</source>
        <translation>Nicht gespeicherte Arbeit wiederherstellen</translation>
    </message>
    <message>
        <source>The program ended before these changes were saved. Recover them to go on working.</source>
        <translation>Das Programm endete, bevor diese Änderungen gespeichert waren. Stellen Sie sie wieder her, um weiterzuarbeiten.</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Discard...</source>
        <translation>Verwerfen...</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>The unsaved changes of &quot;%1&quot; cannot be brought back afterwards.</source>
        <translation>Die nicht gespeicherten Änderungen von &quot;%1&quot; lassen sich danach nicht mehr zurückholen.</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>1 triangle</source>
        <translation>1 Dreieck</translation>
    </message>
</context>
<context>
    <name>ReloadOffer</name>
    <message>
        <source>Changed on disk since it was opened: %1</source>
        <translation>Auf der Festplatte geändert, seit es geöffnet wurde: %1</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>Keep as It Is</source>
        <translation>Lassen, wie es ist</translation>
    </message>
    <message>
        <source>Read the file again. The parts stay where they are placed; this can be undone.</source>
        <translation>Die Datei noch einmal lesen. Die Bauteile bleiben, wo sie liegen; das lässt sich rückgängig machen.</translation>
    </message>
</context>
<context>
    <name>RowDialog</name>
    <message>
        <source>Duplicate in a Row</source>
        <translation>In einer Reihe duplizieren</translation>
    </message>
    <message>
        <source>Between one and the next; below zero they overlap.</source>
        <translation>Zwischen einem und dem nächsten; unter null überlappen sie sich.</translation>
    </message>
    <message>
        <source>Copies</source>
        <translation>Kopien</translation>
    </message>
    <message>
        <source>Along</source>
        <translation>Entlang</translation>
    </message>
    <message>
        <source>Gap</source>
        <translation>Abstand</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>SavedViews</name>
    <message>
        <source>View %1</source>
        <translation>Ansicht %1</translation>
    </message>
</context>
<context>
    <name>ScaleFields</name>
    <message>
        <source>Keep proportions</source>
        <translation>Seitenverhältnis beibehalten</translation>
    </message>
    <message>
        <source>A size along one axis scales the others by the same factor.</source>
        <translation>Eine Größe entlang einer Achse skaliert die anderen im selben Verhältnis.</translation>
    </message>
    <message>
        <source>Percent</source>
        <translation>Prozent</translation>
    </message>
    <message>
        <source>Percent of the present size</source>
        <translation>Prozent der jetzigen Größe</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalieren</translation>
    </message>
    <message>
        <source>Scale to this share of the present size, along all axes.</source>
        <translation>Auf diesen Anteil der jetzigen Größe skalieren, entlang aller Achsen.</translation>
    </message>
</context>
<context>
    <name>Services</name>
    <message>
        <source>Triangles that faced the other way than those around them, one near (%1, %2, %3), were turned.</source>
        <translation>Dreiecke, die anders herum lagen als die um sie, eines nahe (%1, %2, %3), wurden umgedreht.</translation>
    </message>
    <message>
        <source>A wall in the part near (%1, %2, %3), which bounds nothing, was left out.</source>
        <translation>Eine Wand im Teil nahe (%1, %2, %3), die nichts begrenzt, wurde weggelassen.</translation>
    </message>
    <message>
        <source>A wall in the tool near (%1, %2, %3), which bounds nothing, was left out.</source>
        <translation>Eine Wand im Werkzeug nahe (%1, %2, %3), die nichts begrenzt, wurde weggelassen.</translation>
    </message>
    <message>
        <source>Other such walls that were left out: %1.</source>
        <translation>Weitere solche Wände, die weggelassen wurden: %1.</translation>
    </message>
    <message>
        <source>A piece crosses itself by rounding near (%1, %2, %3).</source>
        <translation>Ein Teilstück schneidet sich durch Rundung selbst nahe (%1, %2, %3).</translation>
    </message>
    <message>
        <source>Pairs of triangles that cross by rounding elsewhere: at least %1.</source>
        <translation>Paare von Dreiecken, die sich durch Rundung an anderen Stellen schneiden: mindestens %1.</translation>
    </message>
    <message>
        <source>%4 has triangles without area that cannot be removed, near (%1, %2, %3).</source>
        <translation>%4 hat Dreiecke ohne Fläche, die sich nicht entfernen lassen, nahe (%1, %2, %3).</translation>
    </message>
    <message>
        <source>%4 is open near (%1, %2, %3), so that the two could not be combined.</source>
        <translation>%4 ist nahe (%1, %2, %3) offen, so dass beide nicht verrechnet werden konnten.</translation>
    </message>
    <message>
        <source>%4 crosses itself near (%1, %2, %3), so that the two could not be combined.</source>
        <translation>%4 durchdringt sich nahe (%1, %2, %3) selbst, so dass beide nicht verrechnet werden konnten.</translation>
    </message>
    <message>
        <source>%4 is open where the two meet, near (%1, %2, %3).</source>
        <translation>%4 ist offen, wo sich beide treffen, nahe (%1, %2, %3).</translation>
    </message>
    <message>
        <source>%4 has a point whose coordinates are no numbers, beside (%1, %2, %3).</source>
        <translation>%4 hat neben (%1, %2, %3) einen Punkt, dessen Koordinaten keine Zahlen sind.</translation>
    </message>
    <message>
        <source>%1 has a point whose coordinates are no numbers.</source>
        <translation>%1 hat einen Punkt, dessen Koordinaten keine Zahlen sind.</translation>
    </message>
    <message>
        <source>The part</source>
        <translation>Das Bauteil</translation>
    </message>
    <message>
        <source>The tool</source>
        <translation>Das Werkzeug</translation>
    </message>
    <message>
        <source>The two solids meet in too many places to be combined. Move one of them a little and try again.</source>
        <translation>Die beiden Körper treffen sich an zu vielen Stellen, um sie zu verrechnen. Einen von ihnen ein wenig verschieben und noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The two solids could not be combined near (%1, %2, %3). Move one of them a little and try again.</source>
        <translation>Die beiden Körper konnten nahe (%1, %2, %3) nicht verrechnet werden. Einen von ihnen ein wenig verschieben und noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The two solids could not be combined. Move one of them a little and try again.</source>
        <translation>Die beiden Körper konnten nicht verrechnet werden. Einen von ihnen ein wenig verschieben und noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The part is open where the plane meets it, near (%1, %2, %3).</source>
        <translation>Das Bauteil ist offen, wo die Ebene es trifft, nahe (%1, %2, %3).</translation>
    </message>
    <message>
        <source>Triangles of the part face different ways where the plane meets it, near (%1, %2, %3).</source>
        <translation>Dreiecke des Bauteils zeigen in verschiedene Richtungen, wo die Ebene es trifft, nahe (%1, %2, %3).</translation>
    </message>
    <message>
        <source>A contour has a coordinate that is no number; draw it again.</source>
        <translation>Eine Kontur hat eine Koordinate, die keine Zahl ist; sie neu zeichnen.</translation>
    </message>
    <message>
        <source>The cutting plane is empty. Place it again.</source>
        <translation>Die Schnittebene ist leer. Sie neu setzen.</translation>
    </message>
    <message>
        <source>The cutting plane has no area. Place it again.</source>
        <translation>Die Schnittebene hat keine Fläche. Sie neu setzen.</translation>
    </message>
    <message>
        <source>The contours reach too far to be offset or joined; place the part nearer to the origin.</source>
        <translation>Die Konturen reichen zu weit, um versetzt oder verbunden zu werden; das Bauteil näher an den Ursprung setzen.</translation>
    </message>
    <message>
        <source>Triangles without area removed: %1</source>
        <translation>Dreiecke ohne Fläche entfernt: %1</translation>
    </message>
    <message>
        <source>Triangles without area left: %1</source>
        <translation>Dreiecke ohne Fläche belassen: %1</translation>
    </message>
    <message>
        <source>Seam vertices joined: %1</source>
        <translation>Nahtpunkte verbunden: %1</translation>
    </message>
    <message>
        <source>Seam vertices left: %1</source>
        <translation>Nahtpunkte belassen: %1</translation>
    </message>
    <message>
        <source>Duplicate triangles removed: %1</source>
        <translation>Doppelte Dreiecke entfernt: %1</translation>
    </message>
    <message>
        <source>Duplicate triangles left: %1</source>
        <translation>Doppelte Dreiecke belassen: %1</translation>
    </message>
    <message>
        <source>Triangles turned: %1</source>
        <translation>Dreiecke umgedreht: %1</translation>
    </message>
    <message>
        <source>Triangles that face the wrong way left: %1</source>
        <translation>Verkehrt herum liegende Dreiecke belassen: %1</translation>
    </message>
    <message>
        <source>Holes closed: %1</source>
        <translation>Löcher geschlossen: %1</translation>
    </message>
    <message>
        <source>Holes left: %1</source>
        <translation>Löcher belassen: %1</translation>
    </message>
    <message>
        <source>Crossings resolved: %1</source>
        <translation>Durchdringungen aufgelöst: %1</translation>
    </message>
    <message>
        <source>Crossings left: %1</source>
        <translation>Durchdringungen belassen: %1</translation>
    </message>
    <message>
        <source>Shells turned: %1</source>
        <translation>Schalen umgedreht: %1</translation>
    </message>
    <message>
        <source>Shells that face the wrong way left: %1</source>
        <translation>Verkehrt herum liegende Schalen belassen: %1</translation>
    </message>
    <message>
        <source>Edges with more than two triangles mended: %1</source>
        <translation>Kanten mit mehr als zwei Dreiecken behoben: %1</translation>
    </message>
    <message>
        <source>Edges with more than two triangles left: %1</source>
        <translation>Kanten mit mehr als zwei Dreiecken belassen: %1</translation>
    </message>
    <message>
        <source>Edges between triangles that face opposite sides mended: %1</source>
        <translation>Kanten zwischen Dreiecken, die zu entgegengesetzten Seiten zeigen, behoben: %1</translation>
    </message>
    <message>
        <source>Edges between triangles that face opposite sides left: %1</source>
        <translation>Kanten zwischen Dreiecken, die zu entgegengesetzten Seiten zeigen, belassen: %1</translation>
    </message>
    <message>
        <source>Shells dropped: %1</source>
        <translation>Schalen weggelassen: %1</translation>
    </message>
    <message>
        <source>Superfluous shells left: %1</source>
        <translation>Überflüssige Schalen belassen: %1</translation>
    </message>
    <message>
        <source>, near (%1, %2, %3)</source>
        <translation>, nahe (%1, %2, %3)</translation>
    </message>
    <message>
        <source>Mending them would change the shape of the part.</source>
        <translation>Sie zu beheben würde die Form des Bauteils ändern.</translation>
    </message>
    <message>
        <source>The surface is open there, so that inside and outside cannot be told apart.</source>
        <translation>Die Fläche ist dort offen, so dass sich innen und außen nicht unterscheiden lassen.</translation>
    </message>
    <message>
        <source>One of the shells there is inside out.</source>
        <translation>Eine der Schalen dort ist von innen nach außen gekehrt.</translation>
    </message>
    <message>
        <source>What is there cannot be put together again without gaps.</source>
        <translation>Was dort liegt, lässt sich nicht ohne Lücken wieder zusammensetzen.</translation>
    </message>
    <message>
        <source>Mending them would leave the part with more flaws than before.</source>
        <translation>Sie zu beheben würde dem Bauteil mehr Fehler lassen als zuvor.</translation>
    </message>
    <message>
        <source>Triangles at the plane that faced the other way than those around them, one near (%1, %2, %3), were turned.</source>
        <translation>Dreiecke an der Ebene, die in die andere Richtung zeigten als die um sie herum, eines nahe (%1, %2, %3), wurden gewendet.</translation>
    </message>
    <message>
        <source>Triangles at the plane that lay there more than once, one near (%1, %2, %3), were left out.</source>
        <translation>Dreiecke an der Ebene, die mehrfach vorhanden waren, eines nahe (%1, %2, %3), wurden weggelassen.</translation>
    </message>
    <message>
        <source>Which surfaces go on in each other there cannot be told from the part.</source>
        <translation>Welche Flächen dort ineinander übergehen, lässt sich aus dem Bauteil nicht erkennen.</translation>
    </message>
    <message>
        <source>The surface has one side only there, so it bounds no solid.</source>
        <translation>Die Fläche hat dort nur eine Seite und umschließt deshalb keinen Körper.</translation>
    </message>
</context>
<context>
    <name>ShortcutList</name>
    <message>
        <source>Keyboard and Mouse</source>
        <translation>Tastatur und Maus</translation>
    </message>
    <message>
        <source>What it does</source>
        <translation>Wirkung</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>End the tool, or cancel the job</source>
        <translation>Werkzeug beenden oder Auftrag abbrechen</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Select a part; with Ctrl, one more</source>
        <translation>Bauteil auswählen; mit Strg ein weiteres</translation>
    </message>
    <message>
        <source>Left click</source>
        <translation>Linksklick</translation>
    </message>
    <message>
        <source>Orbit about the point under the mouse</source>
        <translation>Um den Punkt unter der Maus drehen</translation>
    </message>
    <message>
        <source>Drag with the right button</source>
        <translation>Mit der rechten Taste ziehen</translation>
    </message>
    <message>
        <source>Move the view</source>
        <translation>Ansicht verschieben</translation>
    </message>
    <message>
        <source>Drag with the middle button</source>
        <translation>Mit der mittleren Taste ziehen</translation>
    </message>
    <message>
        <source>Drag with the middle button and Shift</source>
        <translation>Mit der mittleren Taste und Umschalt ziehen</translation>
    </message>
    <message>
        <source>Drag with the middle button, or right with Shift</source>
        <translation>Mit der mittleren Taste ziehen oder rechts mit Umschalt</translation>
    </message>
    <message>
        <source>Zoom to the mouse</source>
        <translation>Zur Maus hin zoomen</translation>
    </message>
    <message>
        <source>Turn to a standard view</source>
        <translation>Zu einer Standardansicht drehen</translation>
    </message>
    <message>
        <source>Click on the cube</source>
        <translation>Klick auf den Würfel</translation>
    </message>
    <message>
        <source>Wheel, or drag with the right button and Ctrl</source>
        <translation>Mausrad oder mit der rechten Taste und Strg ziehen</translation>
    </message>
    <message>
        <source>Wheel, or drag with the middle button and Ctrl</source>
        <translation>Mausrad oder mit der mittleren Taste und Strg ziehen</translation>
    </message>
    <message>
        <source>Move the cut plane, or the selected point of a shape; with Shift, ten times as far</source>
        <translation>Schnittebene oder gewählten Punkt einer Form bewegen; mit Umschalt zehnmal so weit</translation>
    </message>
    <message>
        <source>Arrow keys</source>
        <translation>Pfeiltasten</translation>
    </message>
    <message>
        <source>Remove the corner of a polygon that was drawn last</source>
        <translation>Zuletzt gezeichnete Ecke eines Polygons entfernen</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Draw a polygon&apos;s edge by 15 degrees and round lengths</source>
        <translation>Kante eines Polygons in 15-Grad-Schritten und runden Längen zeichnen</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Draw a polygon&apos;s corner to the parts or in line with others</source>
        <translation>Ecke eines Polygons an die Teile oder in Flucht mit anderen ziehen</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Drag with the left button; with Alt while a tool runs</source>
        <translation>Mit der linken Taste ziehen; mit Alt, wenn ein Werkzeug läuft</translation>
    </message>
    <message>
        <source>Drag with the left button and Shift</source>
        <translation>Mit der linken Taste und Umschalt ziehen</translation>
    </message>
    <message>
        <source>Select the parts within a rectangle</source>
        <translation>Die Bauteile in einem Rechteck auswählen</translation>
    </message>
    <message>
        <source>Drag beside the parts, with Ctrl</source>
        <translation>Neben den Bauteilen ziehen, mit Strg</translation>
    </message>
    <message>
        <source>Drag beside the parts</source>
        <translation>Neben den Bauteilen ziehen</translation>
    </message>
    <message>
        <source>Menu of the part, or of the view</source>
        <translation>Menü des Bauteils oder der Ansicht</translation>
    </message>
    <message>
        <source>Right click</source>
        <translation>Rechtsklick</translation>
    </message>
    <message>
        <source>No Key</source>
        <translation>Keine Taste</translation>
    </message>
    <message>
        <source>Usual Key</source>
        <translation>Übliche Taste</translation>
    </message>
    <message>
        <source>All Usual Keys</source>
        <translation>Alle üblichen Tasten</translation>
    </message>
    <message>
        <source>Press the keys...</source>
        <translation>Tasten drücken...</translation>
    </message>
    <message>
        <source>Click on a command to change its keys.</source>
        <translation>Auf einen Befehl klicken, um seine Tasten zu ändern.</translation>
    </message>
    <message>
        <source>%1 means something in the view and in lists. Press other keys.</source>
        <translation>%1 hat in der Ansicht und in Listen eine Bedeutung. Andere Tasten drücken.</translation>
    </message>
    <message>
        <source>%1 belongs to &quot;%2&quot;. Once more takes it from there.</source>
        <translation>%1 gehört zu „%2“. Noch einmal nimmt sie von dort.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no keys now.</source>
        <translation>„%1“ hat jetzt keine Tasten.</translation>
    </message>
</context>
<context>
    <name>SideControlTab</name>
    <message>
        <source>Preparing</source>
        <translation>Vorbereitung</translation>
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
    <name>StatusLine</name>
    <message>
        <source>Drag a rectangle around the parts to select them; hold Ctrl to add to the selection. Esc ends the tool.</source>
        <translation>Ein Rechteck um die Bauteile aufziehen, um sie auszuwählen; mit Strg kommen sie zur Auswahl hinzu. Esc beendet das Werkzeug.</translation>
    </message>
    <message>
        <source>Click on a part to see the coordinates of that point. Esc ends the tool.</source>
        <translation>Auf ein Bauteil klicken, um die Koordinaten dieses Punkts zu sehen. Esc beendet das Werkzeug.</translation>
    </message>
    <message>
        <source>Esc ends the tool.</source>
        <translation>Esc beendet das Werkzeug.</translation>
    </message>
    <message>
        <source>%1: %2 Esc ends the tool.</source>
        <extracomment>The name of a tool and what a click does, a whole sentence.</extracomment>
        <translation>%1: %2 Esc beendet das Werkzeug.</translation>
    </message>
    <message>
        <source>Drop mesh files here, or open them from the File menu.</source>
        <translation>Netzdateien hier ablegen oder über das Menü Datei öffnen.</translation>
    </message>
    <message>
        <source>Click a part to select it. Press ? for all shortcuts.</source>
        <translation>Ein Bauteil anklicken, um es auszuwählen. Die Taste ? zeigt alle Tastenkürzel.</translation>
    </message>
    <message>
        <source>1 part, %1 triangles</source>
        <translation>1 Bauteil, %1 Dreiecke</translation>
    </message>
    <message>
        <source>%1 parts, %2 triangles</source>
        <translation>%1 Bauteile, %2 Dreiecke</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Click on the face of a part that is to lie on the plate. Esc ends the tool.</source>
        <translation>Klicken Sie auf die Fläche eines Bauteils, die auf der Platte liegen soll. Esc beendet das Werkzeug.</translation>
    </message>
    <message>
        <source>Drag an arrow to move the selected parts, or a ring to turn them; Shift leaves out the steps of 1 mm and 15°. Esc ends the tool.</source>
        <translation>An einem Pfeil ziehen, um die ausgewählten Bauteile zu bewegen, an einem Ring, um sie zu drehen; Umschalt lässt die Schritte von 1 mm und 15° weg. Esc beendet das Werkzeug.</translation>
    </message>
    <message>
        <source>Click on a part for its wall thickness, then on a second place for distance and angle; Ctrl+C copies them. Esc ends the tool.</source>
        <translation>Für die Wandstärke auf ein Bauteil klicken, dann für Abstand und Winkel auf eine zweite Stelle; Strg+C kopiert sie. Esc beendet das Werkzeug.</translation>
    </message>
    <message>
        <source>1 part, 1 triangle</source>
        <translation>1 Bauteil, 1 Dreieck</translation>
    </message>
</context>
<context>
    <name>ToolFileButton</name>
    <message>
        <source>Open tool...</source>
        <translation>Werkzeug öffnen...</translation>
    </message>
    <message>
        <source>Save tool as...</source>
        <translation>Werkzeug speichern unter...</translation>
    </message>
    <message>
        <source>Open tool</source>
        <translation>Werkzeug öffnen</translation>
    </message>
    <message>
        <source>Save tool</source>
        <translation>Werkzeug speichern</translation>
    </message>
    <message>
        <source>Drawn tools (*.json)</source>
        <translation>Gezeichnete Werkzeuge (*.json)</translation>
    </message>
    <message>
        <source>Tool file...</source>
        <translation>Werkzeugdatei...</translation>
    </message>
    <message>
        <source>Import outline...</source>
        <translation>Umriss einlesen...</translation>
    </message>
    <message>
        <source>Import outline</source>
        <translation>Umriss einlesen</translation>
    </message>
    <message>
        <source>Drawings (*.svg *.dxf)</source>
        <translation>Zeichnungen (*.svg *.dxf)</translation>
    </message>
    <message>
        <source>Saves the drawn tool, opens one that was saved, or takes an outline from a drawing.</source>
        <translation>Speichert das gezeichnete Werkzeug, öffnet ein gespeichertes oder liest einen Umriss aus einer Zeichnung ein.</translation>
    </message>
</context>
<context>
    <name>Tools</name>
    <message>
        <source>The outline crosses itself too often. Draw it with fewer crossings.</source>
        <translation>Der Umriss kreuzt sich selbst zu oft. Ihn mit weniger Kreuzungen zeichnen.</translation>
    </message>
    <message>
        <source>The outline has too many corners for its clearance. Draw it with fewer crossings and corners, choose a smaller clearance or do not round its corners.</source>
        <translation>Der Umriss hat zu viele Ecken für sein Spiel. Ihn mit weniger Kreuzungen und Ecken zeichnen, ein kleineres Spiel wählen oder die Ecken nicht abrunden.</translation>
    </message>
</context>
<context>
    <name>UndoRedoName</name>
    <message>
        <source>Section Cut</source>
        <translation>Ebenenschnitt</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppieren</translation>
    </message>
    <message>
        <source>Ungroup</source>
        <translation>Gruppierung aufheben</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>Show All</source>
        <translation>Alle einblenden</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Move to Group</source>
        <translation>In Gruppe verschieben</translation>
    </message>
    <message>
        <source>Take Out of Group</source>
        <translation>Aus der Gruppe nehmen</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Drop to Plate</source>
        <translation>Auf die Platte absetzen</translation>
    </message>
    <message>
        <source>Centre on Plate</source>
        <translation>Auf der Platte zentrieren</translation>
    </message>
    <message>
        <source>Repair</source>
        <translation>Reparieren</translation>
    </message>
    <message>
        <source>Mirror</source>
        <translation>Spiegeln</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalieren</translation>
    </message>
    <message>
        <source>Lay Flat</source>
        <translation>Flach hinlegen</translation>
    </message>
    <message>
        <source>Join</source>
        <translation>Vereinigen</translation>
    </message>
    <message>
        <source>Take Away</source>
        <translation>Abziehen</translation>
    </message>
    <message>
        <source>Intersect</source>
        <translation>Schnittmenge</translation>
    </message>
    <message>
        <source>Split by Parts</source>
        <translation>Durch Bauteile teilen</translation>
    </message>
    <message>
        <source>Split into Shells</source>
        <translation>In Schalen teilen</translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>Zusammenfassen</translation>
    </message>
    <message>
        <source>Duplicate in a Row</source>
        <translation>In einer Reihe duplizieren</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>Cut at Heights</source>
        <translation>In Höhen schneiden</translation>
    </message>
    <message>
        <source>Arrange</source>
        <translation>Anordnen</translation>
    </message>
    <message>
        <source>Hide Others</source>
        <translation>Andere ausblenden</translation>
    </message>
</context>
<context>
    <name>UnitDialog</name>
    <message>
        <source>Unit of the File</source>
        <translation>Einheit der Datei</translation>
    </message>
    <message>
        <source>%1: too small to be meant in millimetres. In which unit are the numbers of the file?</source>
        <translation>%1: zu klein, um in Millimetern gemeint zu sein. In welcher Einheit sind die Zahlen der Datei?</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 und %n weiteres</numerusform>
            <numerusform>%1 und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Millimetres: %1 mm</source>
        <translation>Millimeter: %1 mm</translation>
    </message>
    <message>
        <source>Centimetres: %1 mm</source>
        <translation>Zentimeter: %1 mm</translation>
    </message>
    <message>
        <source>Inches: %1 mm</source>
        <translation>Zoll: %1 mm</translation>
    </message>
    <message>
        <source>Metres: %1 mm</source>
        <translation>Meter: %1 mm</translation>
    </message>
    <message>
        <source>Take This Unit</source>
        <translation>Diese Einheit nehmen</translation>
    </message>
    <message>
        <source>Leave as It Is</source>
        <translation>Lassen, wie es ist</translation>
    </message>
</context>
<context>
    <name>WindowFileQuestions</name>
    <message>
        <source>Changed on Disk</source>
        <translation>Auf dem Datenträger geändert</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was changed by another program or window. Replacing it loses these changes.</source>
        <translation>&quot;%1&quot; wurde von einem anderen Programm oder Fenster geändert. Wenn Sie sie ersetzen, gehen diese Änderungen verloren.</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Speichern unter...</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Parts and projects (%1)</source>
        <translation>Bauteile und Projekte (%1)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Save Project</source>
        <translation>Projekt speichern</translation>
    </message>
    <message>
        <source>3MF project (*.3mf)</source>
        <translation>3MF-Projekt (*.3mf)</translation>
    </message>
    <message>
        <source>Export to Folder</source>
        <translation>In einen Ordner exportieren</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weitere</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message numerus="yes">
        <source>%n files exist already. Replace them?</source>
        <translation>
            <numerusform>%n Datei gibt es schon. Ersetzen?</numerusform>
            <numerusform>%n Dateien gibt es schon. Ersetzen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has changes that are not saved. Save them?</source>
        <translation>„%1“ enthält Änderungen, die nicht gespeichert sind. Speichern?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
</context>
<context>
    <name>WindowJob</name>
    <message>
        <source>This could not be done.</source>
        <translation>Das ließ sich nicht ausführen.</translation>
    </message>
    <message>
        <source>There is not enough free memory; close other programs, or take fewer parts.</source>
        <translation>Der freie Speicher reicht nicht; andere Programme schließen oder weniger Bauteile nehmen.</translation>
    </message>
</context>
<context>
    <name>WindowMenus</name>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Modules</source>
        <translation>&amp;Module</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Part</source>
        <translation>Bau&amp;teil</translation>
    </message>
    <message>
        <source>&amp;Cut</source>
        <translation>S&amp;chneiden</translation>
    </message>
    <message>
        <source>#At the height of the slider</source>
        <translation>#In der Höhe des Schiebers</translation>
    </message>
    <message>
        <source>#By a plane</source>
        <translation>#Mit einer Ebene</translation>
    </message>
    <message>
        <source>#By a drawn shape</source>
        <translation>#Mit einer gezeichneten Form</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Schneiden</translation>
    </message>
    <message>
        <source>#Combine and split</source>
        <translation>#Verbinden und teilen</translation>
    </message>
</context>
<context>
    <name>WindowPanels</name>
    <message>
        <source>Cut View</source>
        <translation>Schnittansicht</translation>
    </message>
</context>
<context>
    <name>ShortcutWords</name>
    <message>
        <source>import, load, add model, insert</source>
        <translation>importieren, laden, Modell hinzufügen, einfügen</translation>
    </message>
    <message>
        <source>save as STL, write, convert</source>
        <translation>als STL speichern, schreiben, umwandeln</translation>
    </message>
    <message>
        <source>camera, bookmark, named view, store view</source>
        <translation>Kamera, Lesezeichen, benannte Ansicht, Ansicht speichern</translation>
    </message>
    <message>
        <source>take back, revert, step back</source>
        <translation>zurücknehmen, widerrufen, Schritt zurück</translation>
    </message>
    <message>
        <source>repeat, again, step forward</source>
        <translation>wiederholen, noch einmal, Schritt vor</translation>
    </message>
    <message>
        <source>remove, erase, clear</source>
        <translation>entfernen, wegnehmen, leeren</translation>
    </message>
    <message>
        <source>copy, clone, paste</source>
        <translation>kopieren, klonen, einfügen</translation>
    </message>
    <message>
        <source>deselect, clear selection</source>
        <translation>abwählen, Auswahl aufheben</translation>
    </message>
    <message>
        <source>box select, marquee, lasso</source>
        <translation>Rahmen, Auswahlkasten, Lasso</translation>
    </message>
    <message>
        <source>coordinates, probe, measure</source>
        <translation>Koordinaten, antasten, messen</translation>
    </message>
    <message>
        <source>zoom to everything, home, reset view</source>
        <translation>alles zeigen, Anfang, Ansicht zurücksetzen</translation>
    </message>
    <message>
        <source>zoom to selection, focus, frame</source>
        <translation>auf die Auswahl zoomen, heranholen</translation>
    </message>
    <message>
        <source>wireframe, mesh, triangles</source>
        <translation>Drahtgitter, Netz, Dreiecke</translation>
    </message>
    <message>
        <source>bed, grid, platform, floor</source>
        <translation>Druckbett, Gitter, Plattform, Boden</translation>
    </message>
    <message>
        <source>orthographic, orthogonal, projection</source>
        <translation>orthografisch, orthogonal, Projektion</translation>
    </message>
    <message>
        <source>projection, camera</source>
        <translation>Projektion, Kamera</translation>
    </message>
    <message>
        <source>clipping, look inside, cross section</source>
        <translation>hineinsehen, Querschnitt, Schnittebene</translation>
    </message>
    <message>
        <source>bed, ground, floor, land, on platform</source>
        <translation>Druckbett, Boden, aufsetzen, auf die Plattform</translation>
    </message>
    <message>
        <source>slice, split, divide, halve</source>
        <translation>schneiden, teilen, halbieren, zerlegen</translation>
    </message>
    <message>
        <source>invisible, switch off</source>
        <translation>unsichtbar, ausschalten</translation>
    </message>
    <message>
        <source>unhide, visible, switch on</source>
        <translation>einblenden, sichtbar, einschalten</translation>
    </message>
    <message>
        <source>combine, folder, assembly</source>
        <translation>zusammenfassen, Ordner, Baugruppe</translation>
    </message>
    <message>
        <source>settings, options, configuration</source>
        <translation>Optionen, Konfiguration, Einrichtung</translation>
    </message>
    <message>
        <source>screenshot, image, photo, render</source>
        <translation>Bildschirmfoto, Abbildung, Foto</translation>
    </message>
    <message>
        <source>store, project, keep</source>
        <translation>sichern, Projekt, ablegen</translation>
    </message>
    <message>
        <source>mark everything</source>
        <translation>alles markieren</translation>
    </message>
    <message>
        <source>reverse, the other parts</source>
        <translation>umkehren, die anderen Teile</translation>
    </message>
    <message>
        <source>gizmo, transform, drag, move, rotate</source>
        <translation>Gizmo, transformieren, ziehen, bewegen, drehen</translation>
    </message>
    <message>
        <source>ruler, caliper, distance, thickness, angle</source>
        <translation>Lineal, Messschieber, Abstand, Dicke, Winkel</translation>
    </message>
    <message>
        <source>nest, pack, layout, auto place</source>
        <translation>schachteln, packen, verteilen, automatisch anordnen</translation>
    </message>
    <message>
        <source>slice, several cuts, layers, every n mm</source>
        <translation>schneiden, mehrere Schnitte, Schichten, alle n mm</translation>
    </message>
    <message>
        <source>lay flat, orient, print side</source>
        <translation>flach hinlegen, ausrichten, Druckseite</translation>
    </message>
    <message>
        <source>orient, base, bottom, on its face</source>
        <translation>ausrichten, Boden, Unterseite, auf die Fläche</translation>
    </message>
    <message>
        <source>lay flat, place on face, orient</source>
        <translation>flach hinlegen, auf Fläche legen, ausrichten</translation>
    </message>
    <message>
        <source>isolate, solo, only this</source>
        <translation>isolieren, nur dieses</translation>
    </message>
    <message>
        <source>array, pattern, copies</source>
        <translation>Reihe, Muster, Kopien</translation>
    </message>
    <message>
        <source>explode, dissolve, break up</source>
        <translation>zerlegen, lösen, trennen</translation>
    </message>
    <message>
        <source>plane cut, slice, split, connectors, pins, dowels</source>
        <translation>Ebene, schneiden, teilen, Verbinder, Stifte, Dübel</translation>
    </message>
    <message>
        <source>draw a cut, lasso, puzzle, dovetail, split</source>
        <translation>Schnitt zeichnen, Lasso, Puzzle, Schwalbenschwanz, teilen</translation>
    </message>
    <message>
        <source>maximize, whole screen</source>
        <translation>maximieren, ganzer Bildschirm</translation>
    </message>
</context>
<context>
    <name>FarParts</name>
    <message>
        <source>Far Away</source>
        <translation>Weit entfernt</translation>
    </message>
    <message>
        <source>%1: the coordinates go up to %2 mm. So far from the origin they are too coarse for a good cut. Perhaps the file is in another unit. Scale by %3?</source>
        <translation>%1: Die Koordinaten reichen bis %2 mm. So weit vom Ursprung sind sie für einen guten Schnitt zu grob. Vielleicht hat die Datei eine andere Einheit. Mit %3 skalieren?</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalieren</translation>
    </message>
    <message>
        <source>Leave as It Is</source>
        <translation>So lassen</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 und %n weiteres</numerusform>
            <numerusform>%1 und %n weitere</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PictureDialog</name>
    <message>
        <source>Save Picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Transparent ground, without the plate</source>
        <translation>Durchsichtiger Grund, ohne die Platte</translation>
    </message>
    <message>
        <source>As the view (%1 x %2)</source>
        <translation>Wie die Ansicht (%1 x %2)</translation>
    </message>
    <message>
        <source>Another size</source>
        <translation>Andere Größe</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>Speichern...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>DropHighlight</name>
    <message numerus="yes">
        <source>Let go to open %n files</source>
        <translation>
            <numerusform>Loslassen, um %n Datei zu öffnen</numerusform>
            <numerusform>Loslassen, um %n Dateien zu öffnen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SectionAreaNote</name>
    <message>
        <source>Area of the cut: %1</source>
        <translation>Fläche des Schnitts: %1</translation>
    </message>
    <message>
        <source>Area of the cut: unknown, a part is open there</source>
        <translation>Fläche des Schnitts: unbekannt, ein Bauteil ist dort offen</translation>
    </message>
</context>
<context>
    <name>StepText</name>
    <message numerus="yes">
        <source>%n part(s)</source>
        <translation>
            <numerusform>%n Bauteil</numerusform>
            <numerusform>%n Bauteile</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>at %n height(s)</source>
        <translation>
            <numerusform>auf %n Höhe</numerusform>
            <numerusform>auf %n Höhen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>by %1</source>
        <translation>um %1</translation>
    </message>
    <message>
        <source>by %1 about %2</source>
        <translation>um %1 um %2</translation>
    </message>
    <message>
        <source>to %1</source>
        <translation>auf %1</translation>
    </message>
    <message>
        <source>at %1</source>
        <translation>bei %1</translation>
    </message>
</context>
</TS>

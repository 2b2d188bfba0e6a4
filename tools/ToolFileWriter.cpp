// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/TeethParas.h"
#include "tools/ToolFile.h"
#include "tools/ToolFileNames.h"

#include <QByteArrayList>

#include <charconv>

namespace Freecut {

namespace {

using ToolFileNames::degreesOf;
using ToolFileNames::radiansOf;

/// The shortest text that gives the same number again.
template <typename Number>
QByteArray textOfNumber(Number value)
{
    char text[40];
    return QByteArray(text, int(std::to_chars(text, text + sizeof text, value).ptr - text));
}

template <typename Vector>
QByteArray textOfVector(Vector const& v)
{
    return '[' + textOfNumber(v.X()) + ", " + textOfNumber(v.Y()) + ", " + textOfNumber(v.Z()) +
           ']';
}

QByteArray quoted(char const* text)
{
    return '"' + QByteArray(text) + '"';
}

/// A record on one line.
class Record
{
public:
    Record& add(char const* key, QByteArray const& text)
    {
        m_text += (m_text.isEmpty() ? "" : ", ") + quoted(key) + ": " + text;
        return *this;
    }
    Record& add(char const* key, float value) { return add(key, textOfNumber(value)); }
    QByteArray text() const { return '{' + m_text + '}'; }

private:
    QByteArray m_text;
};

/// A list with a line for each of its values.
QByteArray textOfList(QByteArrayList const& lines)
{
    return "[\n    " + lines.join(",\n    ") + "\n  ]";
}

QByteArray textOfPoints(std::vector<UPoint3<float>> const& points, QByteArray const& separator)
{
    QByteArrayList texts;
    for (UPoint3<float> const& point : points)
        texts += textOfVector(point);
    return '[' + texts.join(separator) + ']';
}

QByteArray textOfView(ViewPlace const& view)
{
    Record record;
    if (view.standard >= 0)
        record.add("from", quoted(ToolFileNames::views.begin()[view.standard]));
    else
        record.add("direction", textOfVector(view.direction)).add("up", textOfVector(view.up));
    if (view.reference)
        record.add("reference", textOfVector(*view.reference));
    return record.text();
}

QByteArray textOfTeeth(std::size_t edge, TeethEdge const& teeth)
{
    Record record;
    record.add("edge", QByteArray::number(qulonglong(edge + 1)))
        .add("style", quoted(ToolFileNames::styles.begin()[teeth.teethStyle]));
    if (teeth.teethStyle == TEETH_DOVETAIL)
        record.add("width", teeth.upperWidth)
            .add("lower", teeth.lowerWidth)
            .add("height", teeth.doveHeight);
    else
        record.add("width", teeth.teethWidth).add("height", teeth.teethHeight);
    if (teeth.teethMethod == 0)
        record.add("count", QByteArray::number(teeth.teethCount));
    else
        record.add("distance", teeth.teethDistance);
    if (teeth.useOffset)
        record.add("offset", teeth.teethOffset);
    record.add("side", quoted(ToolFileNames::sides.begin()[teeth.flip ? 0 : 1]));
    if (teeth.applied)
        record.add("points", textOfPoints(teeth.appliedPoints, ", "));
    return record.text();
}

/// Degrees that give the very angle again; a round number if one does.
QByteArray textOfAngle(float radians)
{
    double const degrees = degreesOf(radians);
    for (int decimals = 0; decimals <= 6; ++decimals) {
        QByteArray const text = QByteArray::number(degrees, 'f', decimals);
        if (radiansOf(text.toDouble()) == radians)
            return textOfNumber(text.toDouble());
    }
    return textOfNumber(degrees);
}

class Members
{
public:
    void add(char const* key, QByteArray const& text) { m_lines += quoted(key) + ": " + text; }
    void add(char const* key, float value) { add(key, textOfNumber(value)); }
    QByteArray text() const { return "{\n  " + m_lines.join(",\n  ") + "\n}\n"; }

private:
    QByteArrayList m_lines;
};

void addShape(Members& members, StoredTool const& tool)
{
    SolidValues const& values = tool.values;
    switch (tool.kind) {
        case StoredTool::Kind::Polygon: {
            QByteArrayList points, teeth;
            for (UPoint3<float> const& point : tool.points)
                points += textOfVector(point);
            for (std::size_t i = 0; i < tool.edges.size(); ++i)
                if (tool.edges[i].hasTeeth)
                    teeth += textOfTeeth(i, tool.edges[i]);
            members.add("points", textOfList(points));
            if (!teeth.isEmpty())
                members.add("teeth", textOfList(teeth));
            break;
        }
        case StoredTool::Kind::Cylinder:
            members.add("center", textOfVector(tool.points.at(0)));
            members.add("radius", values.radius);
            members.add("tolerance", values.tolerance);
            if (values.hasNotch)
                members.add("notch", Record()
                                         .add("width", values.width)
                                         .add("length", values.length)
                                         .add("angle", values.angle)
                                         .text());
            break;
        case StoredTool::Kind::Cuboid:
            members.add("center", textOfVector(tool.points.at(0)));
            members.add("length", values.length);
            members.add("width", values.width);
            members.add("angle", textOfAngle(values.angle));
            break;
    }
}

}  // namespace

QByteArray ToolFile::textOf(StoredTool const& tool)
{
    Members members;
    members.add("format", quoted(ToolFileNames::format));
    members.add("version", QByteArray::number(version));
    members.add("tool", quoted(ToolFileNames::kinds.begin()[int(tool.kind)]));
    members.add("view", textOfView(tool.view));
    if (tool.depth)
        members.add("depth", *tool.depth);
    addShape(members, tool);
    SolidValues const& values = tool.values;
    if (values.hasRoundCorners && tool.kind != StoredTool::Kind::Cylinder)
        members.add("round", values.cornerRadius);
    if (values.isClearanceEnabled)
        members.add(
            "clearance",
            Record()
                .add("width", values.clearance)
                .add("side",
                     quoted(ToolFileNames::clearanceSides.begin()[values.clearanceDirection]))
                .text());
    if (values.isCutTillEnabled)
        members.add("cutTill", values.cutTill);
    return members.text();
}

}  // namespace Freecut

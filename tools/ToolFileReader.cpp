// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "tools/JsonPlace.h"
#include "tools/TeethLayout.h"
#include "tools/ToolFile.h"
#include "tools/ToolFileNames.h"
#include "tools/ToolLimits.h"

#include <QCoreApplication>
#include <QFile>
#include <QSaveFile>

namespace Freecut {

namespace {

using Point = UPoint3<float>;

/// In millimetres, as in the fields of the dialog.
constexpr double farthest = 1e7;
/// Far more than anybody draws; a row of puzzle tabs has the most.
constexpr std::size_t mostPoints = 100000;
constexpr std::size_t mostTeethPoints = 3000000;
constexpr qint64 largestFile = 256 << 20;

QString translated(char const* text)
{
    return QCoreApplication::translate("Freecut::ToolFile", text);
}

[[noreturn]] void refuse(QString const& sentence)
{
    throw Mell::Exception(sentence.toStdString());
}

float coordinateOf(JsonPlace const& place)
{
    return float(place.number(-farthest, farthest));
}

float lengthOf(JsonPlace const& place)
{
    return float(place.number(ToolLimits::leastLength, farthest));
}

Point pointOf(JsonPlace const& place)
{
    std::vector<JsonPlace> const items = place.items(3, 3);
    return {coordinateOf(items[0]), coordinateOf(items[1]), coordinateOf(items[2])};
}

std::vector<Point> pointsOf(JsonPlace const& place, std::size_t least, std::size_t most)
{
    std::vector<Point> points;
    for (JsonPlace const& item : place.items(least, most))
        points.push_back(pointOf(item));
    return points;
}

UVector3<float> axisOf(JsonPlace const& place)
{
    Point const p = pointOf(place);
    UVector3<float> const axis(p.X(), p.Y(), p.Z());
    if (!(axis.GetLength() > 1e-3f) || axis.GetLength() > 1e3f)
        place.refuse(translated(QT_TRANSLATE_NOOP(
            "Freecut::ToolFile", "must have a length of about 1, for it is a direction.")));
    return axis;
}

ViewPlace viewOf(JsonPlace const& place)
{
    ViewPlace view;
    if (auto const from = place.find("from")) {
        place.allowOnly({"from", "reference"});
        view.standard = from->choice(ToolFileNames::views);
        if (auto const reference = place.find("reference"))
            view.reference = pointOf(*reference);
        return view;
    }
    place.allowOnly({"direction", "up", "reference"});
    view.direction = axisOf(place.at("direction"));
    view.up = axisOf(place.at("up"));
    view.reference = pointOf(place.at("reference"));
    if ((UVector3<float>(view.direction).Normalize() * UVector3<float>(view.up).Normalize())
            .GetLength() < 1e-3f)
        place.at("up").refuse(translated(QT_TRANSLATE_NOOP(
            "Freecut::ToolFile", "must not point along the direction. Change it.")));
    return view;
}

TeethEdge teethOf(JsonPlace const& place)
{
    place.allowOnly({"edge", "style", "width", "lower", "height", "count", "distance", "offset",
                     "side", "points"});
    TeethEdge teeth;
    teeth.hasTeeth = true;
    teeth.teethStyle = place.at("style").choice(ToolFileNames::styles);
    bool const isDovetail = teeth.teethStyle == TEETH_DOVETAIL;
    (isDovetail ? teeth.upperWidth : teeth.teethWidth) = lengthOf(place.at("width"));
    (isDovetail ? teeth.doveHeight : teeth.teethHeight) = lengthOf(place.at("height"));
    if (isDovetail)
        teeth.lowerWidth = lengthOf(place.at("lower"));
    else if (auto const lower = place.find("lower"))
        lower->refuse(translated(
            QT_TRANSLATE_NOOP("Freecut::ToolFile", "is for dovetails alone. Remove it.")));
    auto const count = place.find("count");
    auto const distance = place.find("distance");
    if (bool(count) == bool(distance))
        place.refuse(translated(QT_TRANSLATE_NOOP(
            "Freecut::ToolFile", "needs either \"count\" or \"distance\", and not both.")));
    teeth.teethMethod = count ? 0 : 1;
    if (count)
        teeth.teethCount = count->wholeNumber(1, mostTeeth);
    else
        teeth.teethDistance = lengthOf(*distance);
    if (auto const offset = place.find("offset")) {
        teeth.useOffset = true;
        teeth.teethOffset = float(offset->number(0, farthest));
    }
    auto const side = place.find("side");
    teeth.flip = !side || side->choice(ToolFileNames::sides) == 0;
    if (auto const points = place.find("points")) {
        teeth.applied = true;
        teeth.appliedPoints = pointsOf(*points, 0, mostTeethPoints);
    }
    return teeth;
}

void readPolygon(StoredTool& tool, JsonPlace const& file)
{
    file.allowOnly({"format", "version", "tool", "view", "depth", "points", "teeth", "round",
                    "clearance", "cutTill"});
    tool.points = pointsOf(file.at("points"), 3, mostPoints);
    tool.edges.resize(tool.points.size());
    auto const list = file.find("teeth");
    if (!list)
        return;
    for (JsonPlace const& place : list->items(0, tool.points.size())) {
        JsonPlace const edge = place.at("edge");
        TeethEdge& teeth =
            tool.edges[std::size_t(edge.wholeNumber(1, int(tool.points.size())) - 1)];
        if (teeth.hasTeeth)
            edge.refuse(translated(
                QT_TRANSLATE_NOOP("Freecut::ToolFile", "has teeth already. Name each edge once.")));
        teeth = teethOf(place);
    }
}

void readCylinder(StoredTool& tool, JsonPlace const& file)
{
    file.allowOnly({"format", "version", "tool", "view", "depth", "center", "radius", "tolerance",
                    "notch", "clearance", "cutTill"});
    tool.points = {pointOf(file.at("center"))};
    tool.values.radius = lengthOf(file.at("radius"));
    if (auto const tolerance = file.find("tolerance"))
        tool.values.tolerance = lengthOf(*tolerance);
    auto const notch = file.find("notch");
    tool.values.hasNotch = notch.has_value();
    if (!notch)
        return;
    notch->allowOnly({"width", "length", "angle"});
    tool.values.width = lengthOf(notch->at("width"));
    tool.values.length = lengthOf(notch->at("length"));
    tool.values.angle =
        float(notch->at("angle").number(-ToolLimits::largestAngle, ToolLimits::largestAngle));
}

void readCuboid(StoredTool& tool, JsonPlace const& file)
{
    file.allowOnly({"format", "version", "tool", "view", "depth", "center", "length", "width",
                    "angle", "round", "clearance", "cutTill"});
    tool.points = {pointOf(file.at("center"))};
    tool.values.length = lengthOf(file.at("length"));
    tool.values.width = lengthOf(file.at("width"));
    tool.values.angle = 0;
    if (auto const angle = file.find("angle"))
        tool.values.angle = ToolFileNames::radiansOf(
            angle->number(-ToolLimits::largestAngle, ToolLimits::largestAngle));
}

void readShared(StoredTool& tool, JsonPlace const& file)
{
    if (auto const depth = file.find("depth"))
        tool.depth = coordinateOf(*depth);
    if (auto const round = file.find("round")) {
        tool.values.hasRoundCorners = true;
        tool.values.cornerRadius = lengthOf(*round);
    }
    if (auto const clearance = file.find("clearance")) {
        clearance->allowOnly({"width", "side"});
        tool.values.isClearanceEnabled = true;
        tool.values.clearance = lengthOf(clearance->at("width"));
        tool.values.clearanceDirection =
            clearance->at("side").choice(ToolFileNames::clearanceSides);
    }
    if (auto const cutTill = file.find("cutTill")) {
        tool.values.isCutTillEnabled = true;
        tool.values.cutTill = coordinateOf(*cutTill);
        if (tool.view.standard < 0)
            cutTill->refuse(translated(
                QT_TRANSLATE_NOOP("Freecut::ToolFile", "is for standard views alone. Remove it.")));
    }
}

/// What the fields of the dialog show where a file says nothing.
SolidValues firstValues()
{
    SolidValues values;
    values.clearance = 0.1f;
    values.cornerRadius = 1;
    values.tolerance = float(ToolLimits::circleTolerance);
    values.length = values.width = 2;
    return values;
}

void checkVersion(JsonPlace const& file)
{
    if (file.at("format").text() != QLatin1String(ToolFileNames::format))
        file.at("format").refuse(
            translated(QT_TRANSLATE_NOOP("Freecut::ToolFile",
                                         "must be \"%1\". Choose a file with a drawn tool."))
                .arg(QLatin1String(ToolFileNames::format)));
    double const found = file.at("version").number(0, 1e9);
    if (found != ToolFile::version)
        file.at("version").refuse(
            translated(QT_TRANSLATE_NOOP(
                           "Freecut::ToolFile",
                           "is %1, but only version %2 can be read. Use a newer program for it."))
                .arg(found)
                .arg(ToolFile::version));
}

}  // namespace

StoredTool ToolFile::toolOf(QByteArray const& text)
{
    JsonPlace const file = JsonPlace::ofText(text);
    checkVersion(file);
    StoredTool tool;
    tool.kind = StoredTool::Kind(file.at("tool").choice(ToolFileNames::kinds));
    tool.values = firstValues();
    tool.view = viewOf(file.at("view"));
    switch (tool.kind) {
        case StoredTool::Kind::Polygon:
            readPolygon(tool, file);
            break;
        case StoredTool::Kind::Cylinder:
            readCylinder(tool, file);
            break;
        case StoredTool::Kind::Cuboid:
            readCuboid(tool, file);
            break;
    }
    readShared(tool, file);
    return tool;
}

StoredTool ToolFile::read(QString const& file)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        refuse(translated(
                   QT_TRANSLATE_NOOP("Freecut::ToolFile", "The tool file %1 cannot be read: %2."))
                   .arg(file, source.errorString()));
    if (source.size() > largestFile)
        refuse(translated(QT_TRANSLATE_NOOP(
                              "Freecut::ToolFile",
                              "The file %1 is too large for a tool. Choose a file with a tool."))
                   .arg(file));
    try {
        return toolOf(source.readAll());
    } catch (Mell::Exception const& reason) {
        refuse(translated(
                   QT_TRANSLATE_NOOP("Freecut::ToolFile", "The tool file %1 cannot be used. %2"))
                   .arg(file, QString::fromStdString(reason.what())));
    }
}

void ToolFile::write(QString const& file, StoredTool const& tool)
{
    QSaveFile target(file);
    QByteArray const text = textOf(tool);
    if (!target.open(QIODevice::WriteOnly) || target.write(text) != text.size() || !target.commit())
        refuse(translated(
                   QT_TRANSLATE_NOOP("Freecut::ToolFile", "The tool cannot be written to %1: %2."))
                   .arg(file, target.errorString()));
}

}  // namespace Freecut

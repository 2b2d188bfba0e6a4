// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ToolShapes.h"

#include "cli/Errors.h"
#include "cli/Numbers.h"
#include "cli/TeethOption.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/ToolLimits.h"

#include <CLI/App.hpp>

#include <cmath>
#include <numbers>
#include <sstream>

namespace {

namespace Limits = Freecut::ToolLimits;

void addRound(CLI::App& command, std::string& text)
{
    command.add_option("--round", text, "Round the corners with this radius")->type_name("R");
}

void addCenter(CLI::App& command, std::string& text)
{
    command.add_option("--center", text, "The middle of the tool")->type_name("X,Y")->required();
}

float roundRadius(std::string const& text)
{
    return text.empty() ? 0 : parseExtent(text, "--round");
}

float checkedAngle(std::optional<float> angle, std::string const& option, std::string const& text)
{
    if (!angle || std::abs(*angle) > float(Limits::largestAngle))
        throw UsageError(option + " takes an angle from -360 to 360 degrees, but got \"" + text +
                         "\".");
    return *angle;
}

}  // namespace

void PolygonOptions::addShape(CLI::App& command)
{
    CLI::Option* const points =
        command
            .add_option("--points", m_points,
                        "The corners, with semicolons between them; put them in quotes")
            ->type_name("X,Y;X,Y;...");
    m_outline.addTo(command, points);
    command.add_option("--teeth", m_teeth, teethHelp())
        ->type_name("STYLE:EDGE,...;...")
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    addRound(command, m_round);
}

std::vector<UPoint2<float>> PolygonOptions::points() const
{
    std::vector<UPoint2<float>> points;
    std::istringstream list(m_points);
    for (std::string text; std::getline(list, text, ';');)
        points.push_back(parsePoint(text, "--points"));
    if (points.size() < 3)
        throw UsageError(
            "--points takes three corners or more such as \"0,0;10,0;5,8\", but got \"" + m_points +
            "\".");
    return points;
}

void PolygonOptions::readShape()
{
    m_outline.read();
}

std::size_t PolygonOptions::cornerCount() const
{
    return m_outline.isGiven() ? m_outline.cornerCount() : points().size();
}

void PolygonOptions::checkShape() const
{
    if (m_points.empty() && !m_outline.isGiven())
        throw UsageError(
            "--points is required, or --outline with a drawing, or --tool with the file of a drawn "
            "tool.");
    std::size_t const edgeCount = cornerCount();
    for (std::string const& text : m_teeth)
        parseTeeth(text, edgeCount);
    roundRadius(m_round);
}

Freecut::VolumeGraphicObject* PolygonOptions::drawShape(ToolScene& scene) const
{
    std::vector<UPoint2<float>> const corners =
        m_outline.isGiven() ? m_outline.cornersIn(scene) : points();
    auto* const tool = scene.add<Freecut::PolygonGraphicObject>(corners);
    for (std::string const& text : m_teeth)
        addTeeth(tool->getProperty(), parseTeeth(text, corners.size()));
    tool->getProperty().setShapeParameters(hasClearance(), direction(), clearance(), hasCutTill(),
                                           cutTill(), Limits::fillAlpha, !m_round.empty(),
                                           roundRadius(m_round), false, scene.viewIndex());
    return tool;
}

void CylinderOptions::addShape(CLI::App& command)
{
    addCenter(command, m_center);
    command.add_option("--radius", m_radius, "Radius")->type_name("R")->required();
    command
        .add_option("--tolerance", m_tolerance,
                    "The largest distance of a facet from the circle (default: 0.025)")
        ->type_name("T");
    command
        .add_option("--notch", m_notch,
                    "A rectangular key: width, length, and its angle in degrees, clockwise from "
                    "the top of the view")
        ->type_name("W,L,ANGLE");
}

CylinderOptions::Notch CylinderOptions::notch() const
{
    if (m_notch.empty())
        return {};
    std::vector<float> const numbers = parseNumbers(m_notch);
    constexpr auto least = float(Limits::leastLength);
    if (numbers.size() != 3 || numbers[0] < least || numbers[1] < least)
        throw UsageError(
            "--notch takes width and length, 0.001 mm or more, and an angle, such as 2,2,90, but "
            "got \"" +
            m_notch + "\".");
    return {true, numbers[0], numbers[1], checkedAngle(numbers[2], "--notch", m_notch)};
}

float CylinderOptions::tolerance() const
{
    return m_tolerance.empty() ? float(Limits::circleTolerance)
                               : parseExtent(m_tolerance, "--tolerance");
}

void CylinderOptions::checkShape() const
{
    parsePoint(m_center, "--center");
    parseExtent(m_radius, "--radius");
    tolerance();
    notch();
}

Freecut::VolumeGraphicObject* CylinderOptions::drawShape(ToolScene& scene) const
{
    auto* const tool =
        scene.add<Freecut::CylinderGraphicObject>({parsePoint(m_center, "--center")});
    Notch const key = notch();
    tool->getProperty().setShapeParameters(hasClearance(), direction(), clearance(), hasCutTill(),
                                           cutTill(), Limits::fillAlpha, false, scene.viewIndex(),
                                           parseExtent(m_radius, "--radius"), key.isUsed, key.width,
                                           key.length, key.angle, tolerance());
    return tool;
}

void CuboidOptions::addShape(CLI::App& command)
{
    addCenter(command, m_center);
    command.add_option("--length", m_length, "Extent to the right of the view")
        ->type_name("L")
        ->required();
    command.add_option("--width", m_width, "Extent upwards")->type_name("W")->required();
    command.add_option("--angle", m_angle, "Turn it by this many degrees, anticlockwise")
        ->type_name("A");
    addRound(command, m_round);
}

float CuboidOptions::angleRadians() const
{
    if (m_angle.empty())
        return 0;
    return checkedAngle(parseNumber(m_angle), "--angle", m_angle) * std::numbers::pi_v<float> / 180;
}

void CuboidOptions::checkShape() const
{
    parsePoint(m_center, "--center");
    parseExtent(m_length, "--length");
    parseExtent(m_width, "--width");
    angleRadians();
    roundRadius(m_round);
}

Freecut::VolumeGraphicObject* CuboidOptions::drawShape(ToolScene& scene) const
{
    auto* const tool = scene.add<Freecut::CuboidGraphicObject>({parsePoint(m_center, "--center")});
    tool->getProperty().setCuboidParameters(
        hasClearance(), direction(), clearance(), hasCutTill(), cutTill(), Limits::fillAlpha,
        !m_round.empty(), roundRadius(m_round), false, scene.viewIndex(),
        parseExtent(m_width, "--width"), parseExtent(m_length, "--length"), angleRadians());
    return tool;
}

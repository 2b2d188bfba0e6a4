// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ConnectorOptions.h"

#include "cli/Errors.h"
#include "cli/Numbers.h"
#include "connectors/ConnectorPositions.h"

#include <CLI/App.hpp>

#include <algorithm>
#include <charconv>
#include <set>
#include <utility>

namespace {

using ConnectorLimits::Length;
namespace PinHole = ConnectorLimits::PinHole;
namespace LapJoint = ConnectorLimits::LapJoint;
using Kind = ConnectorOptions::Kind;

/// The values that a length may have, and what decides the end that is not fixed.
struct Range
{
    double least;
    double largest;
    std::string leastIs;
    std::string largestIs;

    explicit Range(Length const& length) : least(length.least), largest(length.largest) {}
    Range&& atLeast(double value, char const* what) &&
    {
        least = value;
        leastIs = what;
        return std::move(*this);
    }
    Range&& atMost(double value, char const* what) &&
    {
        largest = value;
        largestIs = what;
        return std::move(*this);
    }
};

std::string limitText(double value, std::string const& what)
{
    return decimal(float(value)) + " mm" + (what.empty() ? "" : " (" + what + ")");
}

float lengthOf(ConnectorOptions const& options, char const* name, Length const& length,
               Range const& range)
{
    auto const given = options.lengths.find(name);
    if (given == options.lengths.end())
        return float(std::min(std::max(length.initial, range.least), range.largest));
    float const value = parseMillimetres(given->second, name);
    if (value < float(range.least) || value > float(range.largest))
        throw UsageError(std::string(name) + " must be from " +
                         limitText(range.least, range.leastIs) + " to " +
                         limitText(range.largest, range.largestIs) + ", but is " + given->second +
                         "." + (value < float(range.least) ? smallLengthAdvice(value) : ""));
    return value;
}

float lengthOf(ConnectorOptions const& options, char const* name, Length const& length)
{
    return lengthOf(options, name, length, Range(length));
}

/// A length that has another value unless it is given.
Length from(Length length, float initial)
{
    length.initial = initial;
    return length;
}

/// The options that have a meaning with a kind.
std::set<std::string> namesFor(Kind kind)
{
    switch (kind) {
        case Kind::None:
            break;
        case Kind::Pins:
        case Kind::Holes:
            return {"--radius",         "--tolerance",      "--height",
                    "--side-distance",  "--top-clearance",  "--spacing",
                    "--side-clearance", "--face-clearance", "--keep-clear"};
        case Kind::LapJoint:
            return {"--notch-depth",     "--side-distance",  "--notch-clearance",
                    "--front-clearance", "--back-clearance", "--based-on"};
    }
    return {};
}

/// The connectors that an option shapes.
std::string kindsWith(std::string const& option)
{
    bool const isOfPins = namesFor(Kind::Pins).contains(option);
    bool const isOfJoint = namesFor(Kind::LapJoint).contains(option);
    return isOfPins && isOfJoint ? "--pins, --holes or --lap-joint"
           : isOfPins            ? "--pins or --holes"
                                 : "--lap-joint";
}

void addText(CLI::App& group, ConnectorOptions& options, char const* name, std::string const& help)
{
    group
        .add_option_function<std::string>(
            name, [&options, name](std::string const& text) { options.lengths[name] = text; }, help)
        ->type_name("MM");
}

void addLength(CLI::App& group, ConnectorOptions& options, char const* name,
               std::string const& help, Length const& length)
{
    addText(group, options, name, help + " (default: " + decimal(float(length.initial)) + ")");
}

void addPinOptions(CLI::App& command, ConnectorOptions& options)
{
    CLI::App& group = *command.add_option_group("Pins and holes", "With --pins or --holes");
    addLength(group, options, "--radius", "Radius of the pins", PinHole::radius);
    addLength(group, options, "--tolerance",
              "Largest gap between a facet and the true circle, at most the radius",
              PinHole::tolerance);
    addLength(group, options, "--height", "Height of the pins", PinHole::height);
    addLength(group, options, "--top-clearance", "How much deeper than the pins the holes are",
              PinHole::topClearance);
    addLength(group, options, "--spacing",
              "Smallest distance of two connectors, at least twice the radius and side clearance",
              PinHole::spacing);
    addLength(group, options, "--side-clearance", "How much wider than the pins the holes are",
              PinHole::sideClearance);
    addLength(group, options, "--face-clearance", "Gap between the cut faces",
              PinHole::faceClearance);
    group.add_flag("--keep-clear", options.keepClear,
                   "Leave connectors out whose holes would come within 0.1 mm of a contour");
    group
        .add_option("--at", options.atTexts,
                    "Put one more connector there, a point of the plane; others that are too near "
                    "give way. Repeat it for more")
        ->type_name("X,Y,Z")
        ->allow_extra_args(false);
    group
        .add_option("--without", options.withoutTexts,
                    "Leave out the connector with this number in the list of --dry-run, or \"all\" "
                    "of those that --at did not put. Repeat it for more")
        ->type_name("N|all")
        ->allow_extra_args(false);
}

void addLapJointOptions(CLI::App& command, ConnectorOptions& options)
{
    CLI::App& group = *command.add_option_group("Lap joint", "With --lap-joint");
    addLength(group, options, "--notch-depth", "Height of the tongue", LapJoint::notchDepth);
    addLength(group, options, "--notch-clearance",
              "How much wider than the tongue the notch is, at most the side distance",
              LapJoint::notchClearance);
    addLength(group, options, "--front-clearance",
              "Gap between the cut faces, at most the notch depth", LapJoint::frontClearance);
    addLength(group, options, "--back-clearance",
              "How much deeper than the tongue the notch is, at most the notch depth",
              LapJoint::backClearance);
    std::map<std::string, int> const contours = {{"outer", 0}, {"inner", 1}, {"all", 2}};
    group
        .add_option_function<std::string>(
            "--based-on",
            [&options, contours](std::string const& word) {
                options.basedOn = contours.at(word);
                options.givesBasedOn = true;
            },
            "The contours that the joint follows (default: all)")
        ->check(CLI::IsMember({"outer", "inner", "all"}))
        ->type_name("WHICH");
}

/// The place in a list of what has a number there, which starts at 1.
std::size_t placeOfNumber(std::string const& text)
{
    std::size_t number = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number == 0)
        throw UsageError(
            "--without takes a connector's number in the list of --dry-run, such as 3, or \"all\", "
            "but got \"" +
            text + "\".");
    return number - 1;
}

}  // namespace

void ConnectorOptions::addTo(CLI::App& command)
{
    CLI::App& group =
        *command.add_option_group("Connectors", "What joins the pieces again; none by default");
    for (auto const& [name, choice, help] :
         {std::tuple("--pins", Kind::Pins, "Pins on the lower piece and holes in the upper one"),
          std::tuple("--holes", Kind::Holes, "Holes in both pieces, for pins of your own"),
          std::tuple("--lap-joint", Kind::LapJoint,
                     "A tongue on the lower piece and a notch in the upper one")})
        group.add_flag_callback(
            name, [this, chosen = choice] { kind = chosen; }, help);
    group.require_option(0, 1);
    command
        .add_option("--preset", presetFile,
                    "Start from the values in this file, which the dialog of the section cut "
                    "exports; options go before them")
        ->type_name("FILE");
    addText(command, *this, "--side-distance",
            "Distance of the connectors from the contours (default: " +
                decimal(float(LapJoint::sideDistance.initial)) +
                " for a lap joint; without it pins and holes follow the section's centre lines)");
    addPinOptions(command, *this);
    addLapJointOptions(command, *this);
}

void ConnectorOptions::loadPreset()
{
    if (presetFile.empty())
        return;
    try {
        preset = ConnectorPreset::read(QString::fromStdString(presetFile));
    } catch (Mell::Exception const& reason) {
        throw UsageError(std::string(reason.what()));
    }
    if (kind == Kind::None)
        kind = preset->kind == ConnectorPreset::Kind::Pins    ? Kind::Pins
               : preset->kind == ConnectorPreset::Kind::Holes ? Kind::Holes
                                                              : Kind::LapJoint;
    bool const isJoint = kind == Kind::LapJoint;
    if (isJoint ? !preset->lapJoint : !preset->pins)
        throw UsageError("The preset " + presetFile + " has no values for --" + name() +
                         "; leave one of the two out.");
    if (isJoint && !givesBasedOn)
        basedOn = preset->lapJoint->basedOn;
}

void ConnectorOptions::check() const
{
    std::set<std::string> const known = namesFor(kind);
    auto const refuse = [&](std::string const& option) {
        throw UsageError(
            option + (kind == Kind::None
                          ? " shapes connectors; add " + kindsWith(option) + "."
                          : " has no meaning with --" + std::string(name()) + "; leave it out."));
    };
    for (auto const& [option, text] : lengths)
        if (!known.contains(option))
            refuse(option);
    if (givesBasedOn && !known.contains("--based-on"))
        refuse("--based-on");
    if (keepClear && !known.contains("--keep-clear"))
        refuse("--keep-clear");
    if (keepClear && lengths.contains("--side-distance"))
        throw UsageError(
            "--keep-clear is for connectors on the centre lines, and --side-distance puts them "
            "beside the contours; leave one of them out.");
    for (auto const& [option, isGiven] :
         {std::pair("--at", !atTexts.empty()), std::pair("--without", !withoutTexts.empty())})
        if (isGiven && (kind == Kind::None || kind == Kind::LapJoint))
            refuse(option);
    paras();
    choice();
}

std::string ConnectorOptions::adviceOn(CutRemark::Kind remark) const
{
    bool const isJoint = kind == Kind::LapJoint;
    switch (remark) {
        case CutRemark::Kind::NoRoomForConnectors:
            if (isJoint)
                return basedOn == 1 ? " Choose a smaller --side-distance or --based-on all."
                                    : " Choose a smaller --side-distance.";
            return lengths.contains("--side-distance")
                       ? " Choose a smaller --side-distance."
                       : " Choose a smaller --radius or --side-clearance.";
        case CutRemark::Kind::ConnectorLeavesPart:
            return isJoint ? " Choose a smaller --notch-depth." : " Choose a smaller --height.";
        case CutRemark::Kind::FacesNeverMeet:
            return isJoint ? " Choose a --front-clearance of at most the --back-clearance."
                           : " Choose a --face-clearance of at most the --top-clearance.";
        case CutRemark::Kind::GapTakesPiece:
            return isJoint ? " Choose a smaller --front-clearance."
                           : " Choose a smaller --face-clearance.";
        default:
            return {};
    }
}

SECTIONCUTTYPE ConnectorOptions::cutType() const
{
    return kind == Kind::None       ? SECTIONCUT_PLANE
           : kind == Kind::LapJoint ? SECTIONCUT_LAPJOINT
                                    : SECTIONCUT_PINHOLE;
}

char const* ConnectorOptions::name() const
{
    switch (kind) {
        case Kind::None:
            return "none";
        case Kind::Pins:
            return "pins";
        case Kind::Holes:
            return "holes";
        case Kind::LapJoint:
            return "lap-joint";
    }
    return "";
}

PinHoleParas ConnectorOptions::pinHoleParas() const
{
    PinHoleParas const start = preset ? preset->pins.value_or(PinHoleParas()) : PinHoleParas();
    PinHoleParas paras;
    paras.radius = lengthOf(*this, "--radius", from(PinHole::radius, start.radius));
    paras.tolerance = lengthOf(*this, "--tolerance", from(PinHole::tolerance, start.tolerance),
                               Range(PinHole::tolerance).atMost(paras.radius, "the radius"));
    paras.height = lengthOf(*this, "--height", from(PinHole::height, start.height));
    paras.sidedistance =
        lengthOf(*this, "--side-distance", from(PinHole::sideDistance, start.sidedistance),
                 Range(PinHole::sideDistance).atLeast(paras.radius, "the radius"));
    paras.topclearance =
        lengthOf(*this, "--top-clearance", from(PinHole::topClearance, start.topclearance));
    paras.sideclearance =
        lengthOf(*this, "--side-clearance", from(PinHole::sideClearance, start.sideclearance));
    paras.spacing = lengthOf(*this, "--spacing", from(PinHole::spacing, start.spacing),
                             Range(PinHole::spacing)
                                 .atLeast(PinHole::leastSpacing(paras.radius, paras.sideclearance),
                                          "twice the radius and side clearance"));
    paras.faceclearance =
        lengthOf(*this, "--face-clearance", from(PinHole::faceClearance, start.faceclearance));
    paras.isSidedis = start.isSidedis || lengths.contains("--side-distance");
    paras.isPin = kind == Kind::Pins;
    paras.keepClear = start.keepClear || keepClear;
    return paras;
}

LapJointParas ConnectorOptions::lapJointParas() const
{
    LapJointParas const start =
        preset ? preset->lapJoint.value_or(LapJointParas()) : LapJointParas();
    LapJointParas paras;
    paras.notchDepth =
        lengthOf(*this, "--notch-depth", from(LapJoint::notchDepth, start.notchDepth));
    paras.sideDistance =
        lengthOf(*this, "--side-distance", from(LapJoint::sideDistance, start.sideDistance));
    paras.notchClearance =
        lengthOf(*this, "--notch-clearance", from(LapJoint::notchClearance, start.notchClearance),
                 Range(LapJoint::notchClearance).atMost(paras.sideDistance, "the side distance"));
    paras.frontClearance =
        lengthOf(*this, "--front-clearance", from(LapJoint::frontClearance, start.frontClearance),
                 Range(LapJoint::frontClearance).atMost(paras.notchDepth, "the notch depth"));
    paras.backClearance =
        lengthOf(*this, "--back-clearance", from(LapJoint::backClearance, start.backClearance),
                 Range(LapJoint::backClearance).atMost(paras.notchDepth, "the notch depth"));
    paras.basedOn = basedOn;
    return paras;
}

ConnectorParas ConnectorOptions::paras() const
{
    switch (kind) {
        case Kind::None:
            break;
        case Kind::Pins:
        case Kind::Holes:
            return pinHoleParas();
        case Kind::LapJoint:
            return lapJointParas();
    }
    return {};
}

ConnectorChoice ConnectorOptions::choice() const
{
    ConnectorChoice choice;
    for (std::string const& text : atTexts) {
        std::vector<float> const numbers = parseNumbers(text);
        if (numbers.size() != 3)
            throw UsageError(
                "--at takes three coordinates in millimetres such as 10,0,2.5, but got \"" + text +
                "\".");
        choice.added.emplace_back(numbers[0], numbers[1], numbers[2]);
    }
    for (std::string const& text : withoutTexts)
        if (text == "all")
            choice.leavesOutAutomatic = true;
        else
            choice.leftOutPlaces.push_back(placeOfNumber(text));
    if (!choice.added.empty())
        if (auto const pair = overlappingPair(choice.added, pinHoleParas()))
            throw UsageError("--at " + atTexts[pair->first] + " and --at " + atTexts[pair->second] +
                             " overlap; keep connectors " + decimal(leastDistance(pinHoleParas())) +
                             " mm apart.");
    return choice;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/TeethOption.h"

#include "cli/Errors.h"
#include "cli/Numbers.h"
#include "cli/ToolOptions.h"
#include "tools/PolygonProperty.h"
#include "tools/TeethGenerator.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>

namespace {

using Freecut::TeethFault;
using Freecut::TeethParas;

constexpr std::array<char const*, 3> styles{"jagged", "dovetail", "puzzle"};

[[noreturn]] void refuse(std::string const& text, std::string const& why)
{
    throw UsageError("--teeth " + why + ", but got \"" + text + "\".");
}

/// With the values that the window shows at first.
TeethParas freshParas()
{
    TeethParas paras;
    paras.teethWidth = paras.upperWidth = 2;
    paras.teethHeight = paras.lowerWidth = paras.doveHeight = 1;
    paras.teethCount = 4;
    paras.teethDistance = 3;
    paras.teethMethod = 1;
    return paras;
}

std::vector<std::string> split(std::string const& text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream list(text);
    for (std::string part; std::getline(list, part, separator);)
        parts.push_back(part);
    return parts;
}

/// A whole number in a range, or 0.
std::size_t wholeNumber(std::string const& text, std::size_t most)
{
    std::optional<float> const number = parseNumber(text);
    if (!number || *number < 1 || *number > float(most) || *number != std::trunc(*number))
        return 0;
    return std::size_t(*number);
}

std::vector<std::size_t> parseEdges(std::string const& list, std::size_t edgeCount,
                                    std::string const& text)
{
    std::vector<std::size_t> edges;
    if (list == "all") {
        for (std::size_t i = 0; i < edgeCount; ++i)
            edges.push_back(i);
        return edges;
    }
    for (std::string const& name : split(list, ',')) {
        std::size_t const number = wholeNumber(name, edgeCount);
        if (number == 0)
            refuse(text, "takes edges from 1 to " + std::to_string(edgeCount) + ", or all");
        edges.push_back(number - 1);
    }
    return edges;
}

void setCount(TeethParas& paras, std::string const& value, std::string const& text)
{
    std::size_t const count = wholeNumber(value, Freecut::mostTeeth);
    if (count == 0)
        refuse(text, "takes a count from 1 to " + grouped(Freecut::mostTeeth));
    paras.teethCount = int(count);
    paras.teethMethod = 0;
}

void setOffset(TeethParas& paras, std::string const& value)
{
    paras.teethOffset = parseMillimetres(value, "--teeth offset");
    if (paras.teethOffset < 0)
        throw UsageError("--teeth offset must be 0 mm or more, but is " + value + ".");
    paras.useOffset = true;
}

void setValue(TeethParas& paras, std::string const& key, std::string const& value,
              std::string const& text)
{
    bool const isDovetail = paras.teethStyle == Freecut::TEETH_DOVETAIL;
    auto const extent = [&] { return parseExtent(value, "--teeth " + key); };
    if (key == "width")
        (isDovetail ? paras.upperWidth : paras.teethWidth) = extent();
    else if (key == "lower" && isDovetail)
        paras.lowerWidth = extent();
    else if (key == "height")
        (isDovetail ? paras.doveHeight : paras.teethHeight) = extent();
    else if (key == "count")
        setCount(paras, value, text);
    else if (key == "distance")
        paras.teethDistance = extent();
    else if (key == "offset")
        setOffset(paras, value);
    else
        refuse(text,
               "takes width, height, count, distance, offset and, for dovetails, lower, each "
               "with a number, and flip");
}

std::string reasonOf(TeethFault fault)
{
    switch (fault) {
        case TeethFault::HeightAboveWidth:
            return "The width of a puzzle tooth must be its height or more.";
        case TeethFault::OffsetTooLarge:
            return "The offset is as long as the edge. Choose a smaller one.";
        case TeethFault::DovetailTooWide:
            return "The teeth would overlap. Choose a smaller width or lower width, a larger "
                   "distance, or a smaller count.";
        case TeethFault::TooMany:
            return "There would be too many teeth. Choose a larger distance.";
        default:
            return "The teeth would overlap. Choose a smaller width, a larger distance, or a "
                   "smaller count.";
    }
}

}  // namespace

ToothedEdges parseTeeth(std::string const& text, std::size_t edgeCount)
{
    ToothedEdges teeth{freshParas(), {}};
    std::vector<std::string> const parts = split(text, ';');
    std::size_t const colon = parts.empty() ? std::string::npos : parts.front().find(':');
    auto const style = colon == std::string::npos ? styles.end()
                                                  : std::find(styles.begin(), styles.end(),
                                                              parts.front().substr(0, colon));
    if (style == styles.end())
        refuse(text, "takes jagged, dovetail or puzzle, a colon and edges, such as dovetail:1,3");
    teeth.paras.teethStyle = int(style - styles.begin());
    teeth.edges = parseEdges(parts.front().substr(colon + 1), edgeCount, text);
    if (teeth.edges.empty())
        refuse(text, "takes edges from 1 to " + std::to_string(edgeCount) + ", or all");
    std::vector<std::string> keys;
    for (std::size_t i = 1; i < parts.size(); ++i) {
        std::size_t const equals = parts[i].find('=');
        std::string const key = parts[i].substr(0, equals);
        if (std::find(keys.begin(), keys.end(), key) != keys.end())
            refuse(text, "takes " + key + " once");
        keys.push_back(key);
        if (parts[i] == "flip")
            teeth.paras.flipTeeth = false;
        else
            setValue(teeth.paras, key,
                     equals == std::string::npos ? "" : parts[i].substr(equals + 1), text);
    }
    if (std::find(keys.begin(), keys.end(), "count") != keys.end() &&
        std::find(keys.begin(), keys.end(), "distance") != keys.end())
        refuse(text, "takes a count or a distance, not both");
    return teeth;
}

char const* teethHelp()
{
    return "Put teeth on edges, so that the pieces interlock: jagged, dovetail or puzzle, a colon, "
           "the edges (edge 1 runs from the first corner to the second) or all; then, after "
           "semicolons, what shall differ from width=2;height=1;distance=3: the tooth's width "
           "(of a dovetail away from the edge), lower=1 (a dovetail's width at the edge), height, "
           "count=N teeth over the whole edge or distance from centre to centre, offset to leave "
           "free at the start of the edge, flip. Teeth stand to the right of their edge as the "
           "corners run in the view, which is outside if they run anticlockwise; flip puts them "
           "on the left. May be given several times, for different edges";
}

void addTeeth(Freecut::PolygonProperty& polygon, ToothedEdges const& teeth)
{
    Freecut::TeethGenerator generator;
    generator.setParas(teeth.paras);
    polygon.getEdgeRecords().resize(polygon.getKeyPoints().size(), generator.freshEdge());
    for (std::size_t const edge : teeth.edges) {
        std::string const name = "--teeth does not fit edge " + std::to_string(edge + 1) + ": ";
        if (polygon.getEdgeRecords()[edge].hasTeeth)
            throw UsageError(name + "It has teeth already. Name each edge once.");
        generator.beginEdge(polygon, int(edge));
        TeethFault const fault = generator.generate(polygon);
        if (fault != TeethFault::None)
            throw UsageError(name + reasonOf(fault));
        generator.confirm(polygon);
    }
}

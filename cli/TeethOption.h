// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/TeethParas.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Freecut {
class PolygonProperty;
}

/// What one --teeth asks for: a row of teeth on each of some edges.
struct ToothedEdges
{
    Freecut::TeethParas paras;
    /// From 0 on; edge i runs from corner i to the next one.
    std::vector<std::size_t> edges;
};

/// Reads "STYLE:EDGES;KEY=NUMBER;...", such as "dovetail:1,3;width=2;count=5". What is not given
/// has the value with which the application's window opens.
///
/// edgeCount  of the polygon
/// throws     UsageError that says what to change
ToothedEdges parseTeeth(std::string const& text, std::size_t edgeCount);

/// The help of the option.
char const* teethHelp();

/// Puts teeth on edges of a polygon that has its points and its depth, and confirms them, as a click
/// on each edge and "Apply" do in the application's window.
///
/// throws  UsageError that names the edge, if teeth do not fit or the edge has some already
void addTeeth(Freecut::PolygonProperty& polygon, ToothedEdges const& teeth);

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drawings/Affine.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

/// Paths of drawings as polygons. See docs/decisions/0016-drawings.md.
namespace Drawings {

/// A path, its curves divided so finely that no chord is further than 0.01 mm from them.
struct Path
{
    /// Millimetres, y upwards. A closed path does not repeat its first point.
    std::vector<Point> points;
    bool isClosed = false;
};

/// The box around a path.
struct Extent
{
    double lowX, lowY, highX, highY;

    double width() const { return highX - lowX; }
    double height() const { return highY - lowY; }
    Point middle() const { return {(lowX + highX) / 2, (lowY + highY) / 2}; }
};
Extent extentOf(Path const& path);

/// Millimetres for each unit of the file; none for the units that the file itself names.
using Unit = std::optional<double>;
/// "mm", "cm", "in" or "px", 96 of which are an inch; none for another name.
Unit unitOfName(std::string const& name);

/// The most points that a path may have.
constexpr std::size_t mostPoints = 20000;

// All of these throw Mell::Exception with a sentence that says what to do.

/// The paths of an SVG or DXF file, in its order. SVG: y is counted from the lower edge of the page.
/// DXF: lines, arcs and curves whose ends are within 0.01 mm of each other are one path.
std::vector<Path> readPaths(QString const& file, Unit unit);
std::vector<Path> svgPaths(QByteArray const& text, Unit unit);
std::vector<Path> dxfPaths(QByteArray const& text, Unit unit);

/// The path of a number, from 1 on, or the one with the largest box. An open one is refused, as is
/// one that encloses nothing.
Path const& chosenPath(std::vector<Path> const& paths, std::optional<std::size_t> number);

}  // namespace Drawings

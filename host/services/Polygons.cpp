// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "platform/services/POLYGON.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace POLYGON {

namespace {

using ClipperLib::IntPoint;
using ClipperLib::Path;
using ClipperLib::Paths;

/// Runs an operation of the library and says what its failures mean.
template <typename Operation>
auto withoutLibraryErrors(Operation const& operation)
{
    try {
        return operation();
    } catch (ClipperLib::clipperException const&) {
        throw Mell::Exception(
            QCoreApplication::translate("Services",
                                        "The contours reach too far to be offset or joined; place "
                                        "the part nearer to the origin.")
                .toStdString());
    }
}

struct PointHash
{
    std::size_t operator()(IntPoint const& p) const
    {
        return std::size_t(p.X) * 0x9e3779b97f4a7c15u ^ std::size_t(p.Y) * 0xc2b2ae3d27d4eb4fu;
    }
};

/// Appends the loops of a contour that returns to points it has passed.
void takeApart(Path const& contour, Paths& loops)
{
    Path open;
    std::unordered_map<IntPoint, std::size_t, PointHash> places;
    places.reserve(contour.size());
    for (IntPoint const& point : contour) {
        auto const [place, isNew] = places.try_emplace(point, open.size());
        if (isNew) {
            open.push_back(point);
            continue;
        }
        auto const begin = open.begin() + std::ptrdiff_t(place->second);
        Path loop(begin, open.end());
        open.erase(begin + 1, open.end());
        for (std::size_t i = 1; i < loop.size(); ++i)
            places.erase(loop[i]);
        if (loop.size() > 2)
            loops.push_back(std::move(loop));
    }
    if (open.size() > 2)
        loops.push_back(std::move(open));
}

bool isLeftOf(IntPoint const& a, IntPoint const& b)
{
    return a.X != b.X ? a.X < b.X : a.Y < b.Y;
}

/// Lets a contour begin with its leftmost point, of those the lowest.
void turnToLeftmost(Path& contour)
{
    std::rotate(contour.begin(), std::min_element(contour.begin(), contour.end(), isLeftOf),
                contour.end());
}

/// Whether a contour comes before another; both begin with their leftmost points.
bool comesBefore(Path const& a, Path const& b)
{
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), isLeftOf);
}

/// The contour of a node and those of its holes.
Paths partOf(ClipperLib::PolyNode const& outer, double minimumArea)
{
    Paths part{outer.Contour};
    for (ClipperLib::PolyNode const* const hole : outer.Childs)
        if (std::abs(ClipperLib::Area(hole->Contour)) >= minimumArea)
            part.push_back(hole->Contour);
    for (Path& contour : part)
        turnToLeftmost(contour);
    std::sort(part.begin() + 1, part.end(), comesBefore);
    return part;
}

/// Whether a contour turns back at b.
bool isSpike(IntPoint const& a, IntPoint const& b, IntPoint const& c)
{
    double const ux = double(b.X - a.X), uy = double(b.Y - a.Y);
    double const vx = double(c.X - b.X), vy = double(c.Y - b.Y);
    return ux * vy == uy * vx && ux * vx + uy * vy <= 0;
}

/// Contours without what goes out and back on one line, such as rounding to the grid leaves: moved
/// inward, the library makes small contours of it that lie beside the others.
Paths withoutSpikes(Paths const& contours)
{
    Paths tidied;
    for (Path const& contour : contours) {
        Path kept;
        for (IntPoint const& p : contour) {
            while (kept.size() > 1 && isSpike(kept[kept.size() - 2], kept.back(), p))
                kept.pop_back();
            if (kept.empty() || kept.back() != p)
                kept.push_back(p);
        }
        while (kept.size() > 2 && isSpike(kept[kept.size() - 2], kept.back(), kept.front()))
            kept.pop_back();
        while (kept.size() > 2 && isSpike(kept.back(), kept[0], kept[1]))
            kept.erase(kept.begin());
        tidied.push_back(std::move(kept));
    }
    return tidied;
}

}  // namespace

Polygons::Polygons() = default;
Polygons::Polygons(std::vector<std::vector<IntPoint>> const& contours) : m_paths(contours) {}
Polygons::Polygons(Polygons const&) = default;
Polygons::Polygons(Polygons&&) noexcept = default;
Polygons& Polygons::operator=(Polygons const&) = default;
Polygons& Polygons::operator=(Polygons&&) noexcept = default;
Polygons::~Polygons() = default;

unsigned Polygons::size() const
{
    return unsigned(m_paths.size());
}

PolygonRef Polygons::operator[](unsigned index)
{
    return PolygonRef(m_paths[index]);
}

void Polygons::add(PolygonRef const& contour)
{
    Path copy = contour.path();
    m_paths.push_back(std::move(copy));
}

void Polygons::clear()
{
    m_paths.clear();
}

Paths const& Polygons::getPaths() const
{
    return m_paths;
}

Polygons Polygons::offset(int distance, ClipperLib::JoinType join, double miterLimit,
                          double arcTolerance, bool clean) const
{
    Paths const moved = withoutLibraryErrors([&] {
        ClipperLib::ClipperOffset offsetter(miterLimit, arcTolerance);
        offsetter.AddPaths(withoutSpikes(m_paths), join, ClipperLib::etClosedPolygon);
        Paths paths;
        offsetter.Execute(paths, distance);
        return paths;
    });
    if (!clean)
        return Polygons(moved);
    Paths loops;
    for (Path const& contour : moved)
        takeApart(contour, loops);
    return Polygons(loops);
}

std::vector<PolygonsPart> Polygons::splitIntoParts(bool unionAll, int minimumSize) const
{
    std::vector<Paths> parts;
    withoutLibraryErrors([&] {
        ClipperLib::Clipper clipper;
        clipper.AddPaths(m_paths, ClipperLib::ptSubject, true);
        ClipperLib::PolyTree tree;
        auto const inside = unionAll ? ClipperLib::pftNonZero : ClipperLib::pftEvenOdd;
        clipper.Execute(ClipperLib::ctUnion, tree, inside, inside);
        for (ClipperLib::PolyNode const* node = tree.GetFirst(); node; node = node->GetNext())
            if (!node->IsHole() && std::abs(ClipperLib::Area(node->Contour)) >= minimumSize)
                parts.push_back(partOf(*node, minimumSize));
    });
    std::sort(parts.begin(), parts.end(),
              [](Paths const& a, Paths const& b) { return comesBefore(a.front(), b.front()); });
    std::vector<PolygonsPart> result;
    result.reserve(parts.size());
    for (Paths const& part : parts)
        result.emplace_back(part);
    return result;
}

}  // namespace POLYGON

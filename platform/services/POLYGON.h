// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <polyclipping/clipper.hpp>

#include <vector>

namespace POLYGON {

/// A reference to one contour of a set.
class PolygonRef
{
public:
    explicit PolygonRef(ClipperLib::Path& path) : m_path(&path) {}
    ClipperLib::Path& path() const { return *m_path; }

private:
    ClipperLib::Path* m_path;
};

class PolygonsPart;

/// A set of closed integer contours.
class Polygons
{
public:
    Polygons();
    explicit Polygons(std::vector<std::vector<ClipperLib::IntPoint>> const& contours);
    Polygons(Polygons const&);
    Polygons(Polygons&&) noexcept;
    Polygons& operator=(Polygons const&);
    Polygons& operator=(Polygons&&) noexcept;
    ~Polygons();

    unsigned size() const;
    PolygonRef operator[](unsigned index);
    void add(PolygonRef const& contour);
    void clear();
    ClipperLib::Paths const& getPaths() const;

    /// Grows (distance above 0) or shrinks the set.
    Polygons offset(int distance, ClipperLib::JoinType join, double miterLimit, double arcTolerance,
                    bool clean) const;

    /// Each outer contour with its holes.
    std::vector<PolygonsPart> splitIntoParts(bool unionAll, int minimumSize) const;

private:
    ClipperLib::Paths m_paths;
};

/// One outer contour, which comes first, with its holes.
class PolygonsPart : public Polygons
{
public:
    using Polygons::Polygons;
};

}  // namespace POLYGON

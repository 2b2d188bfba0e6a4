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

/// A set of closed integer contours; no contour repeats its first point. Any thread, on sets of its
/// own.
///
/// throws  Mell::Exception "The contours reach too far to be offset or joined; place the part
/// nearer
///         to the origin." from offset and splitIntoParts
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
    /// Appends a copy of a contour, which may be one of this set.
    void add(PolygonRef const& contour);
    void clear();
    ClipperLib::Paths const& getPaths() const;

    /// The set with its outline moved outward (distance above 0), moved inward, or only tidied (0).
    /// Outer contours and holes are told apart by their directions, which are opposite; either may
    /// be the anticlockwise one. Contours that overlap are joined; what is narrower than the inset
    /// takes away vanishes.
    ///
    /// miterLimit    with jtMiter: how far a corner may move, in multiples of the distance; less
    ///               than 2 counts as 2, so that right angles stay sharp
    /// arcTolerance  with jtRound: how far an arc may lie beside the true one, in units
    /// clean         takes contours that touch themselves in a point apart there
    /// returns       outer contours anticlockwise, holes clockwise, without collinear points; empty
    ///               for an empty set
    /// cost          O(n log n) for contours that do not cross
    Polygons offset(int distance, ClipperLib::JoinType join, double miterLimit, double arcTolerance,
                    bool clean) const;

    /// Each outer contour with its holes. An island in a hole is a part of its own. Directions of
    /// the set do not matter unless contours overlap; those of the parts are anticlockwise for the
    /// outer contour and clockwise for its holes. Parts and holes come from left to right, then
    /// from bottom to top, by their leftmost point, with which each contour begins.
    ///
    /// unionAll     joins contours that overlap: inside is where the winding number is not zero;
    ///              otherwise a contour within another bounds a hole
    /// minimumSize  parts and holes whose area is smaller, in square units, are left out
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

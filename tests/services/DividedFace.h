// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/FaceTriangulation.h"
#include "tests/services/WholePoint.h"

#include <functional>
#include <map>
#include <set>

/// A face, what other triangles leave on it, and its division.
class DividedFace
{
public:
    using Number = std::uint32_t;
    using Edge = std::pair<Number, Number>;

    DividedFace(WholeTriangle const& face, std::vector<WholeTriangle> const& cutters,
                std::function<void(int)> polled = {}, FaceTriangulation::Limits limits = {});

    /// Fills in facets and faults.
    bool divide();
    /// Breaks segments where they are found to hold a point or to cross.
    void mend();

    /// 1 if the three run round as the face does.
    int orient(Number a, Number b, Number c) const;
    bool isWithin(Number point, FaceSegment const& segment) const;
    bool doCross(FaceSegment const& s, FaceSegment const& t) const;
    /// Whether a segment holds a point or crosses another, by a look at all of them.
    bool isFaulty() const;

    std::vector<Number> allPoints() const;
    std::vector<FaceSegment> const& segments() const { return m_segments; }
    /// The pieces of the sides, as the face runs.
    std::set<Edge> sides() const;
    /// Twice the area of a triangle as seen along the axis.
    double area(Number a, Number b, Number c) const;
    Number cornerAt(std::size_t k) const { return m_points.numberOf(m_soup.corners(0)[k]); }

    Facets facets;
    FaceFaults faults;

private:
    int compare(Number a, Number b, int axis) const
    {
        return Exact::compare(m_points.exact(a), m_points.exact(b), axis);
    }

    void addContact(Number cutter);
    void sortAlongSides();
    void breakSegment(FaceSegment const& segment, Number point);

    OperandSoup m_soup;
    CurvePoints m_points;
    std::function<void(int)> m_polled;
    StageProgress m_progress{m_polled};
    FaceTriangulation m_triangulation;
    int m_axis = 0;
    int m_facing = 1;
    std::array<std::vector<Number>, 3> m_onEdges;
    std::vector<Number> m_inside;
    /// The triangle that each segment comes from.
    std::map<FaceSegment, Number> m_cutters;
    std::vector<FaceSegment> m_segments;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/TriangleContact.h"

#include "host/mesh/ExactSigns.h"
#include "host/services/boolean/CornerOrder.h"

#include <optional>

namespace {

using Signs = std::array<int, 3>;

/// On which side of a triangle's plane the corners of another lie.
Signs sidesOf(TriangleCorners const& t, TriangleCorners const& plane)
{
    Signs signs;
    for (int k = 0; k < 3; ++k)
        signs[k] = ExactSigns::orient3d(plane[0], plane[1], plane[2], t[k]);
    return signs;
}

bool areAllOnOneSide(Signs const& s)
{
    return s[0] == s[1] && s[1] == s[2] && s[0] != 0;
}

/// Where the line in which two planes meet enters and leaves a triangle.
struct Chord
{
    TrianglePlace start;
    TrianglePlace end;
};

/// left  per corner 1, -1 or 0: left of the line, right of it or on it; not all the same. Walked
///       round anticlockwise, the triangle passes from left to right where the line enters it.
Chord chordOf(Signs const& left)
{
    Chord chord{TrianglePlace::face(), TrianglePlace::face()};
    for (int k = 0; k < 3; ++k) {
        int const after = left[next(k)];
        int const before = left[previous(k)];
        if (left[k] > 0 && after < 0)
            chord.start = TrianglePlace::edge(k);
        else if (left[k] < 0 && after > 0)
            chord.end = TrianglePlace::edge(k);
        if (left[k] != 0)
            continue;
        // Of an edge on the line, the triangle lies left if the third corner does.
        if (before > 0 || after < 0)
            chord.start = TrianglePlace::corner(k);
        if (before < 0 || after > 0)
            chord.end = TrianglePlace::corner(k);
    }
    return chord;
}

/// A place from the signs of a point against the three edges, 1 inside; nothing for one outside.
std::optional<TrianglePlace> placeFrom(Signs const& inside)
{
    int zeros = 0;
    for (int const s : inside) {
        if (s < 0)
            return {};
        zeros += s == 0;
    }
    if (zeros == 0)
        return TrianglePlace::face();
    for (int k = 0; k < 3; ++k) {
        if (inside[k] != 0)
            continue;
        if (zeros == 1)
            return TrianglePlace::edge(k);
        if (inside[next(k)] == 0)
            return TrianglePlace::corner(next(k));
    }
    return {};
}

/// An axis along which a triangle has an area, and its sign.
struct View
{
    explicit View(TriangleCorners const& t)
    {
        while (axis < 2 && ExactSigns::orient2d(t[0], t[1], t[2], axis) == 0)
            ++axis;
        facing = ExactSigns::orient2d(t[0], t[1], t[2], axis);
    }
    int orient(UPoint3<float> const& a, UPoint3<float> const& b, UPoint3<float> const& c) const
    {
        return facing * ExactSigns::orient2d(a, b, c, axis);
    }
    int axis = 0;
    int facing = 0;
};

/// Where a point in the plane of a triangle lies in it.
std::optional<TrianglePlace> placeOfPoint(UPoint3<float> const& p, TriangleCorners const& t)
{
    View const view(t);
    Signs inside;
    for (std::size_t k = 0; k < 3; ++k)
        inside[k] = view.orient(t[k], t[std::size_t(next(int(k)))], p);
    return placeFrom(inside);
}

/// Where an edge that passes through a triangle's plane does so. `from` lies behind the plane.
std::optional<TrianglePlace> placeOfEdge(UPoint3<float> const& from, UPoint3<float> const& to,
                                         TriangleCorners const& t)
{
    Signs inside;
    for (int k = 0; k < 3; ++k)
        inside[k] = ExactSigns::orient3d(from, to, t[k], t[next(k)]);
    return placeFrom(inside);
}

/// Where an end of the chord of one triangle lies in the other.
std::optional<TrianglePlace> placeIn(TriangleCorners const& o, TrianglePlace end,
                                     TriangleCorners const& t, Signs const& sides)
{
    int const k = end.index();
    if (end.isCorner())
        return placeOfPoint(t[k], o);
    if (!end.isEdge())
        return {};
    int const l = next(k);
    return sides[k] < 0 ? placeOfEdge(t[k], t[l], o) : placeOfEdge(t[l], t[k], o);
}

/// Whether a point on the line through two others lies between them.
bool isBetween(UPoint3<float> const& from, UPoint3<float> const& point, UPoint3<float> const& to)
{
    for (int axis = 0; axis < 3; ++axis)
        if (from[axis] != to[axis])
            return (from[axis] < point[axis]) == (point[axis] < to[axis]) &&
                   point[axis] != from[axis] && point[axis] != to[axis];
    return false;
}

}  // namespace

TriangleContact contactOfEdge(TriangleCorners const& first, int edge, TriangleCorners const& second)
{
    UPoint3<float> const &from = first[std::size_t(edge)], &to = first[std::size_t(next(edge))];
    TriangleContact contact;
    View const view(second);
    Signs left;
    for (std::size_t k = 0; k < 3; ++k)
        left[k] = view.orient(from, to, second[k]);
    if (areAllOnOneSide(left))
        return contact;
    // An end of the edge in the second triangle, or an end of the second's chord on the edge.
    auto const endOf = [&](int corner, TrianglePlace ofChord,
                           bool isStart) -> std::optional<TriangleContact::Point> {
        if (auto const place = placeOfPoint(first[std::size_t(corner)], second))
            return TriangleContact::Point{TrianglePlace::corner(corner), *place, true};
        std::size_t const k = std::size_t(ofChord.index()), l = std::size_t(next(int(k)));
        int const before = isStart ? -1 : 1;
        bool const isOnEdge = ofChord.isCorner()
                                  ? isBetween(from, second[k], to)
                                  : view.orient(second[k], second[l], from) == before &&
                                        view.orient(second[k], second[l], to) == -before;
        if (!isOnEdge)
            return {};
        return TriangleContact::Point{TrianglePlace::edge(edge), ofChord, true, ofChord.isEdge()};
    };
    Chord const chord = chordOf(left);
    auto const start = endOf(edge, chord.start, true);
    auto const end = start ? endOf(next(edge), chord.end, false) : start;
    if (!start || !end || start->isSameAs(*end))
        return contact;
    contact.points = {*start, *end};
    contact.count = 2;
    return contact;
}

TriangleContact contactOf(TriangleCorners const& first, TriangleCorners const& second)
{
    TriangleContact contact;
    Signs const firstSides = sidesOf(first, second);
    if (areAllOnOneSide(firstSides))
        return contact;
    if (firstSides == Signs{0, 0, 0}) {
        contact.isCoplanar = true;
        return contact;
    }
    Signs const secondSides = sidesOf(second, first);
    if (areAllOnOneSide(secondSides))
        return contact;
    Chord const a = chordOf({-firstSides[0], -firstSides[1], -firstSides[2]});
    Chord const b = chordOf(secondSides);
    // Where the chords overlap: from the later start to the earlier end.
    auto const endOf = [&](TrianglePlace inFirst,
                           TrianglePlace inSecond) -> std::optional<TriangleContact::Point> {
        if (auto const place = placeIn(second, inFirst, first, firstSides))
            return TriangleContact::Point{inFirst, *place, true};
        if (auto const place = placeIn(first, inSecond, second, secondSides))
            return TriangleContact::Point{*place, inSecond, false};
        return {};
    };
    auto const start = endOf(a.start, b.start);
    auto const end = start ? endOf(a.end, b.end) : start;
    if (!start || !end)
        return contact;
    contact.points = {*start, *end};
    contact.count = start->isSameAs(*end) ? 1 : 2;
    return contact;
}

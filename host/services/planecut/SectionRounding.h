// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/exact/SectionTriangulation.h"
#include "host/services/planecut/HalfTriangles.h"
#include "host/services/planecut/SectionWalls.h"

#include <array>
#include <functional>
#include <vector>

class SectionSoup;
class StageProgress;

/// Mends what rounding has done to the pieces of a plane cut: section points are where exact ones
/// are to the nearest float, so a needle or a triangle that nearly lies in the plane may have come
/// to cross its neighbours by a few units of the last place.
///
/// Nearly all cuts have nothing of the kind, and it takes less to see that than to look for
/// crossings: only what is narrower than a few units, or has a corner as near to the plane as that,
/// can have been turned over. Around such points RoundingMending looks, and moves.
class SectionRounding
{
public:
    using Triangle = UTriangle<float>;
    using Triangles = std::array<std::vector<Triangle*>, 2>;

    SectionRounding(CutPlane const& plane, SideCopies& copies, SectionPoints& points,
                    SectionWalls const& walls)
        : m_plane(plane), m_copies(copies), m_points(points), m_walls(walls)
    {}

    /// Whether anything of what the cut is about to make crosses something. To be called before the
    /// walls are written.
    ///
    /// progress  percentages
    /// cost      some ten nanoseconds for a triangle at the section where there is no doubt
    bool isAnyCrossing(Exact::SectionFilling const& filling,
                       std::function<void(int)> const& progress);

    /// Moves section points until nothing crosses near those at a crossing, in both halves alike,
    /// which are written. Points that become one take their triangles out of the meshes.
    ///
    /// caps      the triangles that close each half, in the order of the filling, which goes with
    ///           them
    /// returns   a place of each pair that is left
    std::vector<UPoint3<float>> mend(Triangles& caps, Exact::SectionFilling& filling,
                                     std::function<void(int)> const& progress);

    /// Whether points have become one.
    bool hasJoined() const { return !m_gone.empty(); }

    /// Triangles that have left the meshes are destroyed with this object.
    ~SectionRounding();
    SectionRounding(SectionRounding const&) = delete;
    SectionRounding& operator=(SectionRounding const&) = delete;

private:
    struct Mended;

    bool isInDoubt(Exact::SectionFilling const& filling);
    std::vector<bool> pointsAtCrossings(Exact::SectionFilling const& filling,
                                        StageProgress& stage) const;
    void write(SectionSoup& soup, Mended& mended);
    void takeOver(Mended const& mended, Triangles& caps, Exact::SectionFilling& filling);
    void doubt(WallPiece const& piece);

    CutPlane const& m_plane;
    SideCopies& m_copies;
    SectionPoints& m_points;
    SectionWalls const& m_walls;
    /// By section point; in the end those at a crossing.
    std::vector<bool> m_isInDoubt;
    bool m_isAny = false;
    std::vector<Triangle*> m_gone;
};

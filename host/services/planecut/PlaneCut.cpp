// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/PlaneCut.h"

#include "host/mesh/DegenerateTriangles.h"
#include "host/services/PlaceText.h"
#include "host/services/planecut/BoundedCut.h"
#include "host/services/planecut/OrderAtPlane.h"
#include "host/services/planecut/RidgeDivision.h"
#include "host/services/planecut/SectionRounding.h"
#include "host/services/planecut/SectionSampling.h"
#include "host/services/planecut/SectionWalls.h"
#include "platform/jobs/FlawException.h"

#include <QCoreApplication>

#include <algorithm>
#include <optional>

namespace {

using Triangle = UTriangle<float>;
using Corners = std::array<std::uint32_t, 3>;

// Percentages at the end of each stage.
constexpr int copiesDone = 60;
constexpr int sortingDone = 70;
constexpr int fillingDone = 90;
constexpr int boundingDone = 94;
constexpr int searchDone = 95;
constexpr int wallsDone = 96;
constexpr int roundingDone = 97;
constexpr int sectionDone = 98;
constexpr int halfDone = 99;
// Of a cut that is done twice.
constexpr int firstTryDone = sortingDone;
constexpr int orderDone = 75;

/// The progress of a stage that reports its own percentage.
std::function<void(int)> stageOf(std::function<void(int)> const& progress, int begin, int end)
{
    if (!progress)
        return {};
    return
        [&progress, begin, end](int percent) { progress(begin + percent * (end - begin) / 100); };
}

[[noreturn]] void throwFault(SectionFault const& fault)
{
    QString const text =
        fault.isOpen
            ? QCoreApplication::translate("Services",
                                          "The part is open where the plane meets it, near (%1, "
                                          "%2, %3).")
            : QCoreApplication::translate("Services",
                                          "Triangles of the part face different ways where the "
                                          "plane meets it, near (%1, %2, %3).");
    throw Mell::FlawException(withPlace(text, fault.place).toStdString(), fault.place, true);
}

class PlaneCutter
{
public:
    PlaneCutter(UMesh<float> const& part, CutPlane const& plane, PlaneCutWants const& wants,
                TakeHalf const& take, std::function<void(int)> const& progress)
        : m_part(part),
          m_plane(plane),
          m_wants(wants),
          m_take(take),
          m_progress(progress),
          m_copies(part, plane, {wants.above, wants.below}, progress),
          m_points(m_copies, part, plane),
          m_walls(m_copies, m_points, plane),
          m_rounding(plane, m_copies, m_points, m_walls)
    {}

    /// Returns nothing if the contours have a fault and there is another try to come, or if one half
    /// alone is wanted and cannot be had without the other.
    std::optional<PlaneCutResult> run(bool isLastTry)
    {
        if (m_copies.isEmpty(sideBelow))
            return whole(PlaneCutResult::Whole::above);
        if (m_copies.isEmpty(sideAbove))
            return whole(PlaneCutResult::Whole::below);
        m_copies.copyTriangles();
        if (auto const vertices = m_points.verticesInPlane(m_copies.meeting()); !vertices.empty())
            m_copies.moveToPlane(vertices);
        Contours contours = findContours();
        if (isBesidePlane())
            return whole(PlaneCutResult::Whole::above);
        if (contours.fault && !isLastTry)
            return {};
        if (contours.fault)
            contours.dropSurplus(m_points);
        if (contours.fault)
            throwFault(*contours.fault);
        auto& segments = contours.segments;
        bool const isCovered = !contours.isPartial && isWithinPlane(segments);
        if (!isCovered && !m_wants.bothHalves())
            return {};
        if (isCovered)
            m_points.forgetOrigins();
        Exact::SectionFilling filling = fill(segments);
        if (!isCovered && !bound(contours, filling))
            return whole(PlaneCutResult::Whole::above);
        m_walls.split(segments);
        divideAtRidges(contours, m_plane, m_points, filling);
        contours = {};
        return finish(filling);
    }

private:
    static PlaneCutResult whole(PlaneCutResult::Whole side)
    {
        PlaneCutResult result;
        result.whole = side;
        return result;
    }

    std::function<void(int)> stage(int begin, int end) const
    {
        return stageOf(m_progress, begin, end);
    }

    Contours findContours()
    {
        SectionContours edges;
        m_walls.sort(edges, stage(copiesDone, sortingDone));
        return edges.contours(
            m_points, [this](auto const& a, auto const& b) { return m_plane.reaches(a, b); });
    }

    /// Whether the part crosses the plane, but nowhere within the plane mesh, so that no face can
    /// be cut. It may then be open there.
    bool isBesidePlane() const
    {
        for (std::uint32_t p = 0; p < m_points.size(); ++p)
            if (m_plane.covers(m_points.place(p)))
                return false;
        auto const& pieces = m_walls.pieces();
        return std::adjacent_find(pieces.begin(), pieces.end(),
                                  [](WallPiece const& a, WallPiece const& b) {
                                      return a.origin == b.origin;
                                  }) != pieces.end();
    }

    /// Whether the plane mesh, which is convex, covers the whole section.
    bool isWithinPlane(std::vector<Exact::SectionSegment> const& segments) const
    {
        return std::all_of(segments.begin(), segments.end(),
                           [this](Exact::SectionSegment const& segment) {
                               return m_plane.covers(m_points.place(segment.from)) &&
                                      m_plane.covers(m_points.place(segment.to));
                           });
    }

    /// Leaves only the faces of the section that are cut, and has everything go to the half that it
    /// belongs to. Returns false if no face is cut.
    bool bound(Contours& contours, Exact::SectionFilling& filling)
    {
        auto const report = stage(fillingDone, boundingDone);
        auto& segments = contours.segments;
        auto const bounded = boundCut(m_part, m_plane, m_copies, m_points, m_walls.pieces(),
                                      contours, filling, report);
        if (!bounded)
            return false;
        auto const isCut = [&](std::uint32_t point) { return bounded->isCutPoint[point]; };
        std::erase_if(segments, [&](auto const& segment) { return !isCut(segment.from); });
        std::erase_if(filling.triangles, [&](Corners const& t) { return !isCut(t[0]); });
        m_walls.assignHalves(bounded->halfOfWallPiece, bounded->isCutPoint);
        std::vector<CutSide> halfOfVertex(m_part.vertices.size());
        for (std::uint32_t v = 0; v < halfOfVertex.size(); ++v)
            halfOfVertex[v] = m_copies.sideOf(v) < 0 ? sideBelow : sideAbove;
        for (WallPiece const& piece : m_walls.pieces())
            for (WallCorner const& corner : piece.corners)
                if (corner.vertex != WallCorner::none)
                    halfOfVertex[corner.vertex] = piece.side;
        StageProgress progress(report);
        progress.begin(100, 100, 1);
        m_copies.distribute(bounded->halfOfCopy, std::move(halfOfVertex), progress);
        return true;
    }

    Exact::SectionFilling fill(std::vector<Exact::SectionSegment>& segments)
    {
        std::vector<Exact::SectionPoint2> places;
        places.reserve(m_points.size());
        for (std::uint32_t i = 0; i < m_points.size(); ++i)
            places.push_back(m_plane.project(m_points.place(i)));
        auto filling = Exact::fillSection(places, segments, stage(sortingDone, fillingDone));
        for (std::size_t i = m_points.size(); i < places.size(); ++i)
            m_points.add(m_plane.lift(places[i]));
        if (m_progress)
            m_progress(fillingDone);
        return filling;
    }

    void writeHalf(CutSide side, Exact::SectionFilling const& filling,
                   std::function<void(int)> const& progress)
    {
        m_walls.write(side, progress);
        UVector3<float> const up = m_plane.unitNormal();
        for (Corners const& triangle : filling.triangles)
            addCap(side, capCorners(triangle, side), side == sideBelow ? up : -up);
    }

    void addCap(CutSide side, Corners const& corners, UVector3<float> const& normal)
    {
        auto* const triangle = new Triangle;
        for (int i = 0; i < 3; ++i)
            triangle->V0(i) = m_points.vertexIn(side, corners[std::size_t(i)]);
        triangle->N() = normal;
        m_copies.mesh(side).AddTriangle(triangle);
        m_caps[side].push_back(triangle);
    }

    std::unique_ptr<UMesh<float>> finishSide(CutSide side)
    {
        UMesh<float>& mesh = m_copies.mesh(side);
        // Rounding may have laid the corners of a cut triangle in one line.
        auto const& written = m_walls.written(side);
        if (std::any_of(written.begin(), written.end(), [](Triangle const* t) {
                return isDegenerate(t->cP(0), t->cP(1), t->cP(2));
            }))
            mesh.DeleteDegenerateTris();
        if (m_rounding.hasJoined())
            mesh.DeleteUnreferenceVerts();
        // The next service finds a vertex's place by its identifier.
        mesh.UpdateVertsID();
        mesh.triangleCount = std::uint32_t(mesh.triangles.size());
        mesh.vertexCount = std::uint32_t(mesh.vertices.size());
        m_walls.forget(side);
        m_caps[side] = {};
        return m_copies.takeMesh(side);
    }

    /// Whether a half will have triangles.
    bool isAnythingOn(CutSide side, Exact::SectionFilling const& filling)
    {
        auto const& pieces = m_walls.pieces();
        bool const isAnyCopied = m_copies.isWanted(side) ? !m_copies.mesh(side).triangles.empty()
                                                         : m_copies.countOf(side) > 0;
        return isAnyCopied || !filling.triangles.empty() ||
               std::any_of(pieces.begin(), pieces.end(), [&](WallPiece const& piece) {
                   return piece.side == side && piece.size > 2;
               });
    }

    std::optional<PlaneCutResult> finish(Exact::SectionFilling& filling)
    {
        // Vertices that no triangle uses may have made a part look cut.
        if (!isAnythingOn(sideBelow, filling))
            return whole(PlaneCutResult::Whole::above);
        if (!isAnythingOn(sideAbove, filling))
            return whole(PlaneCutResult::Whole::below);
        PlaneCutResult result;
        bool const isToMend = m_rounding.isAnyCrossing(filling, stage(boundingDone, searchDone));
        if (isToMend && !m_wants.bothHalves())
            return {};
        if (isToMend) {
            writeHalf(sideBelow, filling, stage(searchDone, wallsDone));
            writeHalf(sideAbove, filling, stage(searchDone, wallsDone));
            result.notes.crossing =
                m_rounding.mend(m_caps, filling, stage(wallsDone, roundingDone));
        }
        if (m_wants.section)
            result.section =
                sectionMesh(m_points, filling, m_plane, stage(roundingDone, sectionDone));
        for (CutSide const side : {sideBelow, sideAbove}) {
            auto const report = stage(side == sideBelow ? sectionDone : halfDone, halfDone);
            if (!m_copies.isWanted(side)) {
                if (report)
                    report(0);
                continue;
            }
            if (!isToMend)
                writeHalf(side, filling, report);
            m_take(side, finishSide(side));
        }
        if (m_progress)
            m_progress(100);
        return result;
    }

    UMesh<float> const& m_part;
    CutPlane const& m_plane;
    PlaneCutWants m_wants;
    TakeHalf const& m_take;
    std::function<void(int)> const& m_progress;
    SideCopies m_copies;
    SectionPoints m_points;
    SectionWalls m_walls;
    SectionRounding m_rounding;
    SectionRounding::Triangles m_caps;
};

/// Makes one half alone, or where it cannot be had so both, and hands out the one.
PlaneCutResult cutOneHalf(UMesh<float> const& part, CutPlane const& plane,
                          PlaneCutWants const& wants, TakeHalf const& take,
                          std::function<void(int)> const& progress)
{
    int told = 0;
    std::function<void(int)> const rising = [&](int percent) {
        told = std::max(told, percent);
        if (progress)
            progress(told);
    };
    if (auto result = PlaneCutter(part, plane, wants, take, rising).run(false))
        return std::move(*result);
    auto const takeOne = [&](CutSide side, std::unique_ptr<UMesh<float>> half) {
        if (side == sideAbove ? wants.above : wants.below)
            take(side, std::move(half));
    };
    return cutMeshByPlane(part, plane, {true, true, wants.section}, takeOne, rising);
}

}  // namespace

PlaneCutResult cutMeshByPlane(UMesh<float> const& part, CutPlane const& plane,
                              PlaneCutWants const& wants, TakeHalf const& take,
                              std::function<void(int)> const& progress)
{
    if (!wants.bothHalves())
        return cutOneHalf(part, plane, wants, take, progress);
    if (auto result = PlaneCutter(part, plane, wants, take, progress).run(false))
        return std::move(*result);
    OrderedPart ordered = orderAtPlane(part, plane, stageOf(progress, firstTryDone, orderDone));
    auto const rest = stageOf(progress, orderDone, 100);
    auto result =
        PlaneCutter(ordered.mesh ? *ordered.mesh : part, plane, wants, take, rest).run(true);
    if (result->whole == PlaneCutResult::Whole::no) {
        result->notes.turned = std::move(ordered.turned);
        result->notes.doubled = std::move(ordered.doubled);
    }
    return std::move(*result);
}

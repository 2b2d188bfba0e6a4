// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Intersect.h"

#include "host/mesh/Placement.h"
#include "host/services/PlaceText.h"
#include "host/services/boolean/BooleanNotes.h"
#include "host/services/boolean/SolidBoolean.h"
#include "host/services/planecut/PlaneCut.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/services/CombiningNotes.h"
#include "platform/services/SolidSplit.h"

#include <QCoreApplication>

#include <array>

namespace {

/// A kernel's solid in final coordinates: its own mesh, or that of a copy with the matrix applied.
class PlacedSolid
{
public:
    explicit PlacedSolid(MeshKernel const& kernel)
        : m_copy(kernel.getMatrix().isIdentity() ? nullptr : placedCopy(kernel)),
          m_kernel(m_copy ? *m_copy : kernel)
    {}

    MeshKernel const& kernel() const { return m_kernel; }

private:
    std::shared_ptr<MeshKernel> m_copy;
    MeshKernel const& m_kernel;
};

BooleanPiece pieceOf(Intersect::BooleanType type)
{
    switch (type) {
        case Intersect::BOOLEAN_UNION:
            return BooleanPiece::united;
        case Intersect::BOOLEAN_INTERSECT:
            return BooleanPiece::common;
        case Intersect::BOOLEAN_SUBTRACT:
            break;
    }
    return BooleanPiece::difference;
}

void logNotes(PlaneCutNotes const& notes)
{
    auto const log = [](QString const& text) {
        Base::ConsoleSingleton::Instance().Log(text.toStdString());
    };
    if (!notes.turned.empty())
        log(withPlace(QCoreApplication::translate(
                          "Services",
                          "Triangles at the plane that faced the other way than those around them, "
                          "one near (%1, %2, %3), were turned."),
                      notes.turned.front()));
    if (!notes.doubled.empty())
        log(withPlace(QCoreApplication::translate(
                          "Services",
                          "Triangles at the plane that lay there more than once, one near (%1, %2, "
                          "%3), were left out."),
                      notes.doubled.front()));
    if (!notes.crossing.empty())
        log(withPlace(QCoreApplication::translate(
                          "Services", "A piece crosses itself by rounding near (%1, %2, %3)."),
                      notes.crossing.front()));
}

/// Hands the results of a boolean out, once all are made.
void deliver(std::vector<BooleanResult>& results, PlacedSolid const& part,
             std::span<MeshKernel* const> kernels)
{
    for (std::size_t i = 0; i < results.size(); ++i)
        if (results[i].mesh)
            kernels[i]->replaceMesh(std::move(results[i].mesh));
        else
            kernels[i]->shareMeshOf(part.kernel());
}

CombiningNotes combineLogged(MeshKernel const& a, MeshKernel const& b,
                             std::span<BooleanPiece const> pieces,
                             std::span<MeshKernel* const> kernels,
                             std::function<void(int)> const& progress)
{
    PlacedSolid const part(a);
    CombiningNotes notes;
    auto results = combineSolids(part.kernel(), b, pieces, progress, notes);
    deliver(results, part, kernels);
    logCrossings(notes.crossing);
    return notes;
}

}  // namespace

void Intersect::cutByPlane(MeshKernel* part, MeshKernel* plane, MeshKernel* sideA,
                           MeshKernel* sideB, MeshKernel* section,
                           std::function<void(int)> progress, bool)
{
    cutByPlaneWithNotes(*part, *plane, *sideA, *sideB, section, progress);
}

PlaneCutNotes cutByPlaneInTurn(MeshKernel const& part, MeshKernel const& plane,
                               TakeCutSide const& take, MeshKernel* section,
                               std::function<void(int)> const& progress)
{
    PlacedSolid const solid(part);
    MeshKernel const& placed = solid.kernel();
    auto const mesh = placed.readMesh();
    if (mesh->triangles.empty())
        return {};
    PlaneCutResult result = cutMeshByPlane(
        *mesh, CutPlane(plane), {true, true, section != nullptr},
        [&](CutSide side, std::unique_ptr<UMesh<float>> half) {
            take(side == sideAbove, std::make_shared<MeshKernel>(half.release()));
        },
        progress);
    if (result.whole != PlaneCutResult::Whole::no) {
        auto const all = std::make_shared<MeshKernel>();
        all->shareMeshOf(placed);
        take(result.whole == PlaneCutResult::Whole::above, all);
        return {};
    }
    if (section)
        section->replaceMesh(std::move(result.section));
    logNotes(result.notes);
    return std::move(result.notes);
}

PlaneCutNotes cutByPlaneWithNotes(MeshKernel const& part, MeshKernel const& plane,
                                  MeshKernel& sideA, MeshKernel& sideB, MeshKernel* section,
                                  std::function<void(int)> const& progress)
{
    PlacedSolid const solid(part);
    MeshKernel const& placed = solid.kernel();
    auto const mesh = placed.readMesh();
    if (mesh->triangles.empty())
        return {};
    // Nothing is handed out before all of it is there.
    std::array<std::unique_ptr<UMesh<float>>, 2> halves;
    PlaneCutResult result = cutMeshByPlane(
        *mesh, CutPlane(plane), {true, true, section != nullptr},
        [&](CutSide side, std::unique_ptr<UMesh<float>> half) { halves[side] = std::move(half); },
        progress);
    if (result.whole != PlaneCutResult::Whole::no) {
        bool const isAbove = result.whole == PlaneCutResult::Whole::above;
        (isAbove ? sideA : sideB).shareMeshOf(placed);
        return {};
    }
    sideA.replaceMesh(std::move(halves[sideAbove]));
    sideB.replaceMesh(std::move(halves[sideBelow]));
    if (section)
        section->replaceMesh(std::move(result.section));
    logNotes(result.notes);
    return std::move(result.notes);
}

CutOffNotes cutOffByPlane(MeshKernel const& part, MeshKernel const& plane, PlaneSide side,
                          MeshKernel& piece, MeshKernel* section,
                          std::function<void(int)> const& progress)
{
    PlacedSolid const solid(part);
    MeshKernel const& placed = solid.kernel();
    auto const mesh = placed.readMesh();
    if (mesh->triangles.empty())
        return {};
    bool const isAbove = side == PlaneSide::a;
    std::unique_ptr<UMesh<float>> half;
    PlaneCutResult result = cutMeshByPlane(
        *mesh, CutPlane(plane), {isAbove, !isAbove, section != nullptr},
        [&](CutSide, std::unique_ptr<UMesh<float>> made) { half = std::move(made); }, progress);
    if (result.whole != PlaneCutResult::Whole::no) {
        bool const isHere = isAbove == (result.whole == PlaneCutResult::Whole::above);
        if (isHere)
            piece.shareMeshOf(placed);
        return {!isHere, {}};
    }
    piece.replaceMesh(std::move(half));
    if (section)
        section->replaceMesh(std::move(result.section));
    logNotes(result.notes);
    return {true, std::move(result.notes)};
}

void Intersect::boolean(MeshKernel* a, MeshKernel* b, std::vector<MeshKernel*>& out,
                        BooleanType type, std::function<void(int)> progress, int)
{
    combineWithNotes(*a, *b, *out[0], type, progress);
}

void Intersect::boolean_subtract_keep(MeshKernel* a, MeshKernel* b, MeshKernel* first,
                                      MeshKernel* second, std::function<void(int)> progress, int)
{
    splitWithNotes(*a, *b, *first, *second, progress);
}

CombiningNotes combineWithNotes(MeshKernel const& a, MeshKernel const& b, MeshKernel& out,
                                Intersect::BooleanType type,
                                std::function<void(int)> const& progress)
{
    return combineLogged(a, b, std::array{pieceOf(type)}, std::array{&out}, progress);
}

CombiningNotes splitWithNotes(MeshKernel const& a, MeshKernel const& b, MeshKernel& first,
                              MeshKernel& second, std::function<void(int)> const& progress)
{
    return combineLogged(a, b, std::array{BooleanPiece::common, BooleanPiece::difference},
                         std::array{&first, &second}, progress);
}

ContourLines splitWithContours(MeshKernel const& part, MeshKernel const& tool, MeshKernel* inside,
                               MeshKernel* outside, std::function<void(int)> const& progress)
{
    PlacedSolid const solid(part);
    std::vector<BooleanPiece> pieces;
    std::vector<MeshKernel*> kernels;
    auto const want = [&](MeshKernel* kernel, BooleanPiece piece) {
        if (!kernel)
            return;
        kernels.push_back(kernel);
        pieces.push_back(piece);
    };
    want(inside, BooleanPiece::common);
    want(outside, BooleanPiece::difference);
    CombiningNotes unlogged;
    BooleanSurvey survey;
    auto results = combineSolids(solid.kernel(), tool, pieces, progress, unlogged, &survey);
    deliver(results, solid, kernels);
    return std::move(survey.contours);
}

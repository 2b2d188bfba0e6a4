// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/FlawSurvey.h"
#include "host/services/MeshMaking.h"
#include "host/services/repair/CrossingMending.h"
#include "host/services/repair/EdgeFlaws.h"
#include "host/services/repair/RecordChange.h"
#include "host/services/repair/TriangleDifference.h"
#include "host/services/repair/WholeRepair.h"
#include "platform/services/Repair.h"

#include <algorithm>
#include <cassert>
#include <optional>

namespace {

/// Steps may be repeated; the percentages do not show it.
std::function<void(int)> withoutSteppingBack(std::function<void(int)> const& progress)
{
    if (!progress)
        return {};
    return [&progress, highest = 0](int percent) mutable {
        highest = std::max(highest, percent);
        progress(highest);
    };
}

/// Whether a survey shows the kernel's mesh as its records have it.
bool isOf(FlawSurvey const* survey, MeshKernel const& kernel)
{
    auto const mesh = kernel.readMesh();
    return survey && mesh && kernel.getMatrix().isIdentity() &&
           survey->mesh.points.size() == mesh->vertices.size() &&
           survey->mesh.triangles.size() == mesh->triangles.size();
}

/// Takes a fifth of the percentages.
std::shared_ptr<FlawSurvey const> surveyOf(MeshKernel const& kernel,
                                           std::function<void(int)> const& progress)
{
    std::function<void(int)> const fifth =
        progress ? [&progress](int percent) { progress(percent / 5); } : std::function<void(int)>();
    StageProgress stages(fifth);
    auto survey = std::make_shared<FlawSurvey>();
    stages.begin(0, 10, kernel.readMesh() ? kernel.readMesh()->triangles.size() : 0);
    survey->mesh = copyArrays(kernel, Frame::Local, stages);
    survey->errors = findErrors(survey->mesh, Repair::EvaluateErrors::ERROR_ALL, stages, 10);
    return survey;
}

/// The triangles that take part in what a cut can make of a part that crosses itself.
std::vector<std::uint32_t> crossingTriangles(MeshErrors const& errors)
{
    bool const areAll = errors.counts.duplicateTriangles > 0;
    std::vector<std::uint32_t> found;
    for (std::uint32_t t = 0; t < errors.intersections.isInvolved.size(); ++t)
        if (areAll || errors.intersections.isInvolved[t])
            found.push_back(t);
    return found;
}

/// What a cut has made of a part, in the piece.
class MadeByCut
{
public:
    /// mesh, matrix  of the piece
    MadeByCut(MeshArrays const& mesh, UMatrix4<float> const& matrix, MeshKernel const& part,
              StageProgress& stages)
        : m_part(part), m_stages(stages)
    {
        if (!matrix.isIdentity()) {
            m_moved = mesh;
            for (MeshArrays::Point& point : m_moved->points)
                point = matrix * point;
        }
        m_mesh = m_moved ? &*m_moved : &mesh;
    }

    /// Of some triangles those that the part does not have.
    std::vector<std::uint32_t> among(std::vector<std::uint32_t> const& triangles) const
    {
        return trianglesNotIn(*m_mesh, triangles, m_part, m_stages);
    }

private:
    MeshKernel const& m_part;
    StageProgress& m_stages;
    std::optional<MeshArrays> m_moved;
    MeshArrays const* m_mesh;
};

/// Tells of edges at which something new is and no single surface goes on. Nothing is done to them:
/// the cut has found them in the part.
void noteEdges(MeshArrays const& mesh, MadeByCut const& made, Repair::Report& report,
               StageProgress& stages)
{
    std::vector<EdgeFlaw> flaws = edgeFlaws(mesh, stages);
    std::vector<std::uint32_t> triangles;
    for (EdgeFlaw const& flaw : flaws)
        triangles.insert(triangles.end(), flaw.triangles.begin(), flaw.triangles.end());
    std::sort(triangles.begin(), triangles.end());
    triangles.erase(std::unique(triangles.begin(), triangles.end()), triangles.end());
    std::vector<std::uint32_t> const news = made.among(triangles);
    std::erase_if(flaws, [&](EdgeFlaw const& flaw) {
        return std::none_of(flaw.triangles.begin(), flaw.triangles.end(), [&](std::uint32_t t) {
            return std::binary_search(news.begin(), news.end(), t);
        });
    });
    noteLeft(report, flaws, false);
}

}  // namespace

namespace Repair {

RepairMethods::RepairMethods(MeshKernel* kernel, Scope scope,
                             std::shared_ptr<FlawSurvey const> survey)
    : m_kernel(kernel), m_scope(scope), m_survey(std::move(survey))
{
    assert(kernel);
}

bool RepairMethods::autoRepair_simple_advanced(std::function<void(int)> progress)
{
    m_report = {};
    std::function<void(int)> const rising = withoutSteppingBack(progress);
    StageProgress stages(rising);
    auto const survey =
        isOf(m_survey.get(), *m_kernel) ? std::move(m_survey) : surveyOf(*m_kernel, rising);
    m_survey.reset();
    MeshArrays mesh = survey->mesh;
    bool isSound = false;
    bool hasChanged = false;
    if (m_scope.isWhole()) {
        WholeRepair repair(std::move(mesh), survey->errors, m_report, rising);
        hasChanged = repair.run();
        isSound = repair.isSound();
        mesh = repair.takeMesh();
    } else {
        stages.begin(20, 90, 1);
        MeshErrors const& errors = survey->errors;
        auto const made = [&] {
            return MadeByCut(mesh, m_kernel->getMatrix(), *m_scope.part(), stages);
        };
        // A cut makes no other flaws than crossings.
        hasChanged =
            mendCrossings(mesh, errors, made().among(crossingTriangles(errors)), m_report, stages);
        if (errors.counts.nonManifoldEdges + errors.counts.inconsistentEdges > 0)
            noteEdges(mesh, made(), m_report, stages);
        isSound = m_report.left.empty();
    }
    stages.begin(95, 100, 1);
    if (hasChanged)
        changeRecords(*m_kernel, survey->mesh, std::move(mesh), stages);
    else
        stages.finish();
    return isSound;
}

}  // namespace Repair

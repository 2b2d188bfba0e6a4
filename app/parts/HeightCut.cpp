// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/HeightCut.h"

#include "app/parts/EditStep.h"
#include "host/mesh/MeshFacts.h"
#include "platform/document/CutMemory.h"
#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/RenamePara.h"
#include "platform/jobs/Exceptions.h"
#include "platform/mesh/TakenMesh.h"
#include "platform/services/PlaneCutNotes.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Kernel = std::shared_ptr<MeshKernel>;

/// A horizontal rectangle that faces upward and covers a box.
Kernel planeOver(UBox3<float> const& box, float height)
{
    constexpr float margin = 10;
    auto mesh = std::make_unique<UMesh<float>>();
    float const left = box.MinX() - margin, right = box.MaxX() + margin;
    float const front = box.MinY() - margin, back = box.MaxY() + margin;
    std::array<UVertex<float>*, 4> corners{};
    std::array<UPoint3<float>, 4> const places = {{{left, front, height},
                                                   {right, front, height},
                                                   {right, back, height},
                                                   {left, back, height}}};
    for (std::size_t i = 0; i < 4; ++i) {
        corners[i] = new UVertex<float>(places[i]);
        mesh->AddVertex(corners[i]);
    }
    for (std::array<std::size_t, 3> const& ids :
         {std::array<std::size_t, 3>{0, 1, 2}, std::array<std::size_t, 3>{2, 3, 0}}) {
        auto* const triangle = new UTriangle<float>;
        for (int i = 0; i < 3; ++i)
            triangle->V0(i) = corners[ids[std::size_t(i)]];
        triangle->N() = triangle->ComputeNormalizedNormal();
        mesh->AddTriangle(triangle);
    }
    return std::make_shared<MeshKernel>(mesh.release());
}

bool isEmpty(MeshKernel const& kernel)
{
    return kernel.readMesh()->triangles.empty();
}

Kernel cleaned(MeshKernel& piece)
{
    piece.DeleteDegenerateTris();
    piece.DeleteUnreferenceVerts();
    piece.UpdateTrisID();
    piece.UpdateVertsID();
    piece.UpdateBoundingBox();
    return asReadOnly(piece);
}

/// By measures that know nothing of the cut: pieces of a closed part are closed, and have its
/// volume together.
///
/// throws  Mell::Exception
void requireSound(MeshKernel const& part, std::vector<Kernel> const& pieces)
{
    constexpr double tolerance = 1e-4;
    MeshFacts const whole = measureMesh(part);
    if (!whole.closed)
        return;
    double volume = 0;
    bool isClosed = true;
    for (Kernel const& piece : pieces) {
        MeshFacts const facts = measureMesh(*piece);
        isClosed = isClosed && facts.closed;
        volume += facts.volume;
    }
    if (isClosed && std::abs(volume - whole.volume) <= tolerance * std::abs(whole.volume))
        return;
    throw Mell::Exception(
        HeightCut::tr("The pieces would not be sound. Repair the part, or change the heights a "
                      "little.")
            .toStdString());
}

}  // namespace

HeightCut::HeightCut()
{
    // What is shown next may wait for a person.
    connect(&m_job, &WindowJob::finished, this,
            [this] { emit finished(m_result.outcome, m_result.pieces, m_result.reason); });
}

HeightCut::~HeightCut()
{
    m_job.stop();
}

std::vector<double> HeightCut::within(UBox3<float> const& box, std::vector<double> heights)
{
    std::erase_if(heights, [&](double height) {
        return !(float(height) > box.MinZ() && float(height) < box.MaxZ());
    });
    std::sort(heights.begin(), heights.end());
    // Two that are one as a coordinate would leave nothing between them.
    auto const isSame = [](double a, double b) { return float(a) == float(b); };
    heights.erase(std::unique(heights.begin(), heights.end(), isSame), heights.end());
    return heights;
}

std::vector<double> HeightCut::everyDistance(UBox3<float> const& box, double distance)
{
    std::vector<double> heights;
    if (box.Isnullptr() || !(distance > 0))
        return heights;
    for (std::size_t i = 1; heights.size() < mostHeights; ++i) {
        double const height = double(box.MinZ()) + double(i) * distance;
        // What is left of the last one by rounding is no piece.
        if (height > double(box.MaxZ()) - 1e-3)
            break;
        heights.push_back(height);
    }
    return heights;
}

bool HeightCut::start(Mesh::Document& document, Parts const& parts, Plan const& plan)
{
    if (JobGuard::instance()->isBusy())
        return false;
    auto const run = std::make_shared<Run>();
    for (Mesh::DocumentObject* const part : parts) {
        Slices each{part,
                    part->meshProperty->shareMesh(),
                    part->getName(),
                    within(part->getBoundingBox(), plan.heights),
                    {}};
        if (each.kernel && !each.heights.empty())
            run->slices.push_back(std::move(each));
    }
    m_document = &document;
    m_keep = plan.keep;
    m_job.start(
        QT_TRANSLATE_NOOP("JobGuard", "Cutting at heights"),
        [run](Progress const& progress) { cut(*run, progress); },
        [this, run](JobOutcome const& outcome) { take(*run, outcome); });
    return true;
}

void HeightCut::slice(Slices& slices, Progress const& progress)
{
    Kernel rest = std::make_shared<MeshKernel>(*slices.kernel);
    int const count = int(slices.heights.size());
    for (int i = 0; i < count; ++i) {
        Kernel const plane =
            planeOver(slices.kernel->GetBox(), float(slices.heights[std::size_t(i)]));
        MeshKernel upper, lower, section;
        cutByPlaneWithNotes(*rest, *plane, upper, lower, &section,
                            [&](int percent) { progress((90 * i + percent * 9 / 10) / count); });
        if (!isEmpty(lower))
            slices.pieces.push_back(cleaned(lower));
        rest = cleaned(upper);
        if (isEmpty(*rest))
            break;
    }
    if (!isEmpty(*rest))
        slices.pieces.push_back(rest);
    requireSound(*slices.kernel, slices.pieces);
    progress(100);
}

void HeightCut::cut(Run& run, Progress const& progress)
{
    int const count = int(run.slices.size());
    for (int i = 0; i < count; ++i) {
        Slices& each = run.slices[std::size_t(i)];
        run.at = each.name;
        slice(each, [&](int percent) { progress((100 * i + percent) / count); });
    }
}

void HeightCut::take(Run const& run, JobOutcome const& outcome)
{
    m_result = {};
    if (outcome.isCancelled) {
        m_result.outcome = Outcome::Cancelled;
    } else if (!outcome.isDone()) {
        m_result.outcome = Outcome::Failed;
        m_result.reason = QString::fromStdString(run.at) + ": " + outcome.problem;
    } else if (run.slices.empty()) {
        m_result.outcome = Outcome::NothingMet;
    } else {
        m_result.pieces = integrate(run.slices);
    }
}

int HeightCut::integrate(std::vector<Slices> const& slices) const
{
    EditStep const step(*m_document, QT_TRANSLATE_NOOP("UndoRedoName", "Cut at Heights"));
    m_document->clearSelection();
    int count = 0;
    for (Slices const& each : slices) {
        std::vector<Mesh::DocumentObject*> pieces;
        Mesh::DocumentObjectGroup* const group = each.part->getGroup();
        bool const keepsAll = m_keep == Keep::All;
        for (std::size_t i = 0; i < each.pieces.size(); ++i) {
            bool const isKept =
                keepsAll || i == (m_keep == Keep::Upper ? each.pieces.size() - 1 : 0);
            if (!isKept)
                continue;
            auto* const piece = new Mesh::DocumentObject;
            piece->meshProperty->setMesh(each.pieces[i]);
            std::string const name = m_document->getUniqueObjectName(
                each.name.c_str(), Mesh::g_RenamePara.suffix.toStdString(), true, keepsAll);
            piece->setName(name);
            if (group)
                group->addObject(piece, name.c_str());
            else
                m_document->addObject(piece, name.c_str(), true);
            piece->setVisible(each.part->isVisible());
            piece->setColor(each.part->getColor());
            piece->setSelected(true, true, false);
            pieces.push_back(piece);
        }
        count += int(pieces.size());
        if (keepsAll && pieces.size() == each.heights.size() + 1)
            Mesh::rememberSlices(*each.part, each.heights, pieces);
        if (group)
            group->removeObject(each.part);
        m_document->removeObject(each.part);
    }
    return count;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/HeightCut.h"

#include "app/parts/EditStep.h"
#include "platform/document/CutMemory.h"
#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/RenamePara.h"
#include "platform/jobs/FlawException.h"
#include "platform/services/HeightSlices.h"

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

bool HeightCut::start(Mesh::Document& document, Parts const& parts, Plan const& plan)
{
    if (JobGuard::instance()->isBusy())
        return false;
    auto const run = std::make_shared<Run>();
    for (Mesh::DocumentObject* const part : parts) {
        Slices each{part,
                    part->meshProperty->shareMesh(),
                    part->getName(),
                    HeightSlices::within(part->getBoundingBox(), plan.heights),
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

void HeightCut::cut(Run& run, Progress const& progress)
{
    int const count = int(run.slices.size());
    for (int i = 0; i < count; ++i) {
        Slices& each = run.slices[std::size_t(i)];
        run.at = each.name;
        each.pieces = slicesOf(each, [&](int percent) { progress((100 * i + percent) / count); });
    }
}

std::vector<HeightCut::Kernel> HeightCut::slicesOf(Slices const& slices, Progress const& progress)
{
    try {
        return sliceAtHeights(*slices.kernel, slices.heights, progress).pieces;
    } catch (Mell::FlawException const& flaw) {
        if (!flaw.repairMayHelp())
            throw;
        QString const advice = tr("Repair the part and cut again.");
        throw Mell::Exception(std::string(flaw.what()) + ' ' + advice.toStdString());
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

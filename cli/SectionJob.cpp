// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SectionJob.h"

#include "cli/WorkerRun.h"
#include "cutjobs/SectionCutImp.h"

namespace {

void enterRecord(CutPart& part, SectionRecord const& record, ConnectorOptions const& connectors)
{
    // A survey has entered more than that.
    SectionFacts& facts = part.section ? *part.section : part.section.emplace();
    facts.area = record.area;
    facts.contours = record.contours;
    if (connectors.cutType() == SECTIONCUT_PINHOLE)
        facts.positions = record.positions;
}

/// Connectors turn the order of the pieces round; a cut for them that leaves a gap does so even
/// where none fits.
bool isLowerFirst(CutPart const& part, ConnectorOptions const& connectors)
{
    if (part.pieces.size() != 2 || connectors.cutType() == SECTIONCUT_PLANE)
        return false;
    bool const hasPositions =
        part.section && part.section->positions && !part.section->positions->empty();
    return connectors.cutType() == SECTIONCUT_LAPJOINT || hasPositions ||
           connectors.pinHoleParas().faceclearance != 0;
}

}  // namespace

void cutByPlane(Mesh::Document& document, CutPart& part, Freecut::PlaneGraphicObject& plane,
                SectionOptions const& options, SectionSurvey const* survey, bool measuresSection)
{
    SectionCutImp worker(nullptr);
    worker.setObjects({part.object});
    worker.setPlaneObject(&plane);
    worker.setCheckBoundary(options.bounded);
    worker.setCutType(options.connectors.cutType());
    if (options.connectors.cutType() == SECTIONCUT_PINHOLE)
        worker.setPinHoleParas(options.connectors.pinHoleParas());
    if (options.connectors.cutType() == SECTIONCUT_LAPJOINT)
        worker.setLapJointParas(options.connectors.lapJointParas());
    worker.setMeasuresSections(measuresSection);
    if (survey)
        worker.setConnectorPositions({{part.object, standingPositions(survey->connectors)}});
    runWorker(worker, part);
    if (auto const found = worker.sections().find(part.object); found != worker.sections().end())
        enterRecord(part, found->second, options.connectors);
    for (CutRemark& remark : part.remarks)
        remark.text += options.connectors.adviceOn(remark.kind);

    IntegrationRules rules;
    rules.removesSources = !options.keepOriginal;
    integratePieces(document, rules, worker.getResult(), part);
    if (isLowerFirst(part, options.connectors))
        for (CutPiece& piece : part.pieces)
            piece.side = 1 - piece.side;
}

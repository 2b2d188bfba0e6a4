// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SectionJob.h"

#include "cli/WorkerRun.h"
#include "cutjobs/SectionCutImp.h"

void cutByPlane(Mesh::Document& document, CutPart& part, Freecut::PlaneGraphicObject& plane,
                SectionOptions const& options)
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
    runWorker(worker, part);

    IntegrationRules rules;
    rules.removesSources = !options.keepOriginal;
    integratePieces(document, rules, worker.getResult(), part);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SectionJob.h"

#include "cli/DocumentParts.h"
#include "cli/Errors.h"
#include "cli/LogLines.h"
#include "cutjobs/ResultIntegration.h"
#include "cutjobs/SectionCutImp.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

#include <QObject>

namespace {

/// Runs the worker's job on this thread.
void runWorker(SectionCutImp& worker)
{
    LogLines const log;
    bool isCancelled = false;
    bool isDone = false;
    QObject::connect(&worker, &SectionCutImp::processEnd, [&] { isCancelled = true; });
    QObject::connect(&worker, &SectionCutImp::resultReady, [&](bool ok) { isDone = ok; });
    worker.doWork();
    if (isCancelled)
        throw Mell::AbortException("Aborting...");
    if (!isDone)
        throw CutError(worker.getErrorMessage().toStdString() +
                       (log.last().empty() ? "" : "\n" + log.last()));
}

}  // namespace

void runSectionJob(Mesh::Document& document, std::vector<CutPart>& parts,
                   Freecut::PlaneGraphicObject& plane, SectionOptions const& options)
{
    SectionCutImp worker(nullptr);
    worker.setObjects(objectsOf(parts));
    worker.setPlaneObject(&plane);
    worker.setCheckBoundary(options.bounded);
    worker.setCutType(options.connectors.cutType());
    if (options.connectors.cutType() == SECTIONCUT_PINHOLE)
        worker.setPinHoleParas(options.connectors.pinHoleParas());
    if (options.connectors.cutType() == SECTIONCUT_LAPJOINT)
        worker.setLapJointParas(options.connectors.lapJointParas());
    runWorker(worker);

    IntegrationRules rules;
    rules.removesSources = !options.keepOriginal;
    ResultIntegration integration(&document, rules);
    ResultIntegration::PartMap const newParts = integration.begin(worker.getResult());
    integration.end();
    for (CutPart& part : parts)
        if (auto const found = newParts.find(part.object); found != newParts.end())
            for (Mesh::DocumentObject* const object : found->second)
                part.pieces.push_back(
                    {object->getName(), object->meshProperty->getMesh(), nullptr, {}});
}

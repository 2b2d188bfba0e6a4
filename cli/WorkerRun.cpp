// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/WorkerRun.h"

#include "cli/DocumentParts.h"
#include "cli/Errors.h"
#include "cutjobs/CutWorker.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

void runWorker(CutWorker& worker, CutPart& part)
{
    bool isCancelled = false;
    bool isDone = false;
    QObject::connect(&worker, &CutWorker::processEnd, [&] { isCancelled = true; });
    QObject::connect(&worker, &CutWorker::resultReady, [&](bool ok) { isDone = ok; });
    worker.doWork();
    if (isCancelled)
        throw Mell::AbortException("Aborting...");
    if (!isDone)
        throw CutError(worker.failure(), worker.getErrorMessage());
    CutRemarks const& remarks = worker.remarks();
    part.remarks.insert(part.remarks.end(), remarks.begin(), remarks.end());
}

void integratePieces(Mesh::Document& document, IntegrationRules const& rules,
                     CutResultMap const& pieces, CutPart& part)
{
    ResultIntegration integration(&document, rules);
    ResultIntegration::PartMap const newParts = integration.begin(pieces);
    integration.end();
    for (auto const& [source, objects] : newParts)
        for (Mesh::DocumentObject* const object : objects) {
            part.pieces.push_back(pieceOf(*object));
            part.pieces.back().side = part.pieces.size() - 1;
        }
}

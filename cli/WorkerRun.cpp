// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/WorkerRun.h"

#include "cli/Errors.h"
#include "cli/LogLines.h"
#include "cutjobs/CutWorker.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

void runWorker(CutWorker& worker)
{
    LogLines const log;
    bool isCancelled = false;
    bool isDone = false;
    QObject::connect(&worker, &CutWorker::processEnd, [&] { isCancelled = true; });
    QObject::connect(&worker, &CutWorker::resultReady, [&](bool ok) { isDone = ok; });
    worker.doWork();
    if (isCancelled)
        throw Mell::AbortException("Aborting...");
    if (!isDone)
        throw CutError(worker.getErrorMessage().toStdString() +
                       (log.last().empty() ? "" : "\n" + log.last()));
}

void integratePieces(Mesh::Document& document, IntegrationRules const& rules,
                     CutResultMap const& pieces, std::vector<CutPart>& parts)
{
    ResultIntegration integration(&document, rules);
    ResultIntegration::PartMap const newParts = integration.begin(pieces);
    integration.end();
    for (CutPart& part : parts)
        if (auto const found = newParts.find(part.object); found != newParts.end())
            for (Mesh::DocumentObject* const object : found->second)
                part.pieces.push_back(
                    {object->getName(), object->meshProperty->getMesh(), nullptr, {}});
}

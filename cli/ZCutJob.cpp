// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ZCutJob.h"

#include "cli/DocumentParts.h"
#include "cli/Errors.h"
#include "cli/LogLines.h"
#include "cutjobs/SectionZCut.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

#include <QEventLoop>

#include <optional>

namespace {

struct Outcome
{
    int code;
    QString message;
};

/// Starts the cut and handles events until it has finished.
template <typename Start>
Outcome waitFor(Freecut::SectionZCut& cut, Start const& start)
{
    QEventLoop loop;
    std::optional<Outcome> outcome;
    QObject::connect(
        &cut, &Freecut::SectionZCut::finished, &loop,
        [&](int code, QString const& message) {
            outcome = {code, message};
            loop.quit();
        },
        Qt::DirectConnection);
    start();
    if (!outcome)
        loop.exec();
    return *outcome;
}

}  // namespace

void runZCutJob(Mesh::Document& document, std::vector<CutPart>& parts,
                std::vector<float> const& heights, ZCutOptions const& options)
{
    LogLines const log;
    Freecut::SectionZCut cut(nullptr);
    cut.setDocument(&document);
    cut.setPara({.undoable = true, .repair = options.repair});
    Outcome const outcome = waitFor(cut, [&] {
        if (options.isOneByOne())
            cut.startZCutonebyone(objectsOf(parts), heights);
        else
            cut.startZCut(objectsOf(parts), heights.front());
    });
    if (outcome.code < 0)
        throw Mell::AbortException("Aborting...");
    if (outcome.code == 0)
        throw CutError(outcome.message.toStdString() +
                       (log.last().empty() ? "" : "\n" + log.last()));
    for (CutPart& part : parts)
        if (auto const found = cut.newParts().find(part.object); found != cut.newParts().end())
            for (Mesh::DocumentObject* const object : found->second)
                part.pieces.push_back(
                    {object->getName(), object->meshProperty->getMesh(), nullptr, {}});
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogCut.h"

#include "dialogs/CutFailureMessage.h"
#include "dialogs/CutNotes.h"
#include "platform/document/Document.h"

namespace Freecut {

void DialogCut::tellFailure(CutWorker const& worker, Base::Document* document,
                            std::function<void()> const& again)
{
    CutFailure const failure = worker.failure();
    WayOut const wayOut =
        tellCutFailure(worker.getErrorMessage(), failure, document ? document->getView() : nullptr,
                       !m_repairedPart || failure.part != m_repairedPart);
    end();
    m_repairedPart = nullptr;
    if (wayOut == WayOut::RepairAndCutAgain)
        repair(failure.part, document, again);
}

void DialogCut::repair(Mesh::DocumentObject* part, Base::Document* document,
                       std::function<void()> const& again)
{
    m_repairedPart = part;
    m_repair = std::make_unique<PartRepair>();
    QObject::connect(m_repair.get(), &PartRepair::finished, m_repair.get(),
                     [this, again](PartRepair::End repairEnd) {
                         end();
                         if (repairEnd == PartRepair::End::Mended)
                             again();
                         else
                             tellUnmended(repairEnd);
                     });
    m_repair->start(part, document);
    m_job.start();
}

void DialogCut::integrate(CutResultMap pieces, CutRemarks const& remarks, Base::Document* document,
                          IntegrationRules const& rules, std::function<void()> const& leave)
{
    CutNotes const notes(remarks);
    ResultIntegration integration(document, rules);
    integration.begin(pieces);
    integration.end();
    leave();
    notes.tell();
}

}  // namespace Freecut

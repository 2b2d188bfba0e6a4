// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogCut.h"

#include "dialogs/CutNotes.h"
#include "messages/Attention.h"

namespace Freecut {

void DialogCut::tellFailure(CutWorker const& worker)
{
    warnFailure(worker.getErrorMessage(), worker.reason());
    end();
}

void DialogCut::integrate(CutResultMap const& pieces, CutRemarks const& remarks,
                          Base::Document* document, IntegrationRules const& rules,
                          std::function<void()> const& leave)
{
    CutNotes const notes(remarks);
    // The worker may go with the dialog.
    CutResultMap const kept = pieces;
    ResultIntegration integration(document, rules);
    integration.begin(kept);
    integration.end();
    leave();
    notes.tell();
}

}  // namespace Freecut

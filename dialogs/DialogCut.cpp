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

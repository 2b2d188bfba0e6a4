// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/recovery/AutoSave.h"

#include <memory>
#include <vector>

/// What of earlier unsaved work a person wants.
struct RecoveryChoice
{
    enum class Kind
    {
        /// All stays as it is, and is offered again at the next start.
        Later,
        Recover,
        Discard
    };
    Kind kind = Kind::Later;
    /// Which of those that were offered.
    std::size_t place = 0;
};

/// What is shown of unsaved work that was kept.
struct KeptWork
{
    RecoveryList list;
    QImage picture;
};

/// Asks a person about unsaved work. A test answers in its own way.
using AskAboutRecovery = std::function<RecoveryChoice(std::vector<KeptWork> const&)>;

/// Offers unsaved work that programs have left below a folder, until one is recovered, none is left,
/// or the person wants none now. What is recovered stays in its folder, in which the program goes on
/// keeping changes, so at no moment is it lost.
///
/// returns  whether there was anything to offer
/// thread   the user interface thread
bool offerRecovery(RecoveryFolder::Path const& root, DocumentFiles& files, AutoSave& autoSave,
                   AskAboutRecovery const& ask);

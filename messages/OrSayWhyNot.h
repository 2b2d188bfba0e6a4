// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "messages/Attention.h"
#include "platform/jobs/Exceptions.h"

#include <QString>

namespace Freecut {

/// Does what may fail, and tells the person the reason if it did.
template <typename Work>
void orSayWhyNot(Work const& work)
{
    try {
        work();
    } catch (Mell::Exception const& reason) {
        warnAttention(QString::fromStdString(reason.what()));
    }
}

}  // namespace Freecut

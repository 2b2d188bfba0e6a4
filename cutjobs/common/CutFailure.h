// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <optional>
#include <string>

namespace Mesh {
class DocumentObject;
}

/// Why a job has failed.
struct CutFailure
{
    /// The sentence of the service that gave up, in the language of the interface; may be empty.
    std::string reason;
    /// The place that it names, in world millimetres.
    std::optional<UPoint3<float>> place;
    /// What is wrong with the part may be mended by a repair.
    bool repairMayHelp = false;
    /// The part whose turn it was; null if the job had not come to one.
    Mesh::DocumentObject* part = nullptr;
};

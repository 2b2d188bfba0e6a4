// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/MeshFacts.h"

#include <span>

/// Looks at what became of a part by measures that know nothing of its cut: pieces of a closed part are
/// closed, and have its volume together. Of a part that is not closed nothing is asked.
///
/// throws  Mell::Exception if they are not or have not
void requireSoundPieces(MeshFacts const& part, std::span<MeshFacts const> pieces);

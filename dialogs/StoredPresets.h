// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorPreset.h"

#include <vector>

/// The presets of connector values that the user keeps in the settings, in the order of their names.
namespace Freecut::StoredPresets {

/// A stored preset that can no longer be read is passed over, and stays stored.
std::vector<ConnectorPreset> all();
/// In place of one of the same name.
void add(ConnectorPreset const& preset);
void remove(QString const& name);

}  // namespace Freecut::StoredPresets

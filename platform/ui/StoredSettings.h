// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>

/// The value under a key of the host's settings, such as "/SectionCut/useBoundary". They are opened
/// anew for each value, so that everybody sees what another has stored.
QVariant storedValue(QString const& key, QVariant const& missing = {});
void storeValue(QString const& key, QVariant const& value);

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariant>

/// The settings of the dialogs. They are opened for each value anew, so that all dialogs see what
/// one of them has stored.
namespace Freecut::DialogSettings {

/// key  such as "/SectionCut/useBoundary"
QVariant value(QString const& key, QVariant const& initial);
void store(QString const& key, QVariant const& value);

}  // namespace Freecut::DialogSettings

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace Mesh {

/// How parts that come out of an operation are named.
struct RenamePara
{
    /// Appended to the source's name.
    QString suffix = QStringLiteral("_cut");
};

/// The settings in force, for the user interface thread.
extern RenamePara g_RenamePara;

}  // namespace Mesh

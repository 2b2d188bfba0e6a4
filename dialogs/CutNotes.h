// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/common/CutRemark.h"

#include <QStringList>

namespace Freecut {

/// What a person is told of a cut that has succeeded: each remark in the log, with the name of its
/// part, and the first one in the main window's status line.
class CutNotes
{
public:
    /// Reads the names of the parts, which may go when the pieces take their place.
    explicit CutNotes(CutRemarks const& remarks);

    QStringList const& lines() const { return m_lines; }
    /// Without remarks nothing is said.
    void tell() const;

private:
    QStringList m_lines;
};

}  // namespace Freecut

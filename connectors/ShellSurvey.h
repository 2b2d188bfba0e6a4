// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorRun.h"

/// Tells of halves that fall into more shells with connectors than they do without.
///
///     ShellSurvey const shells(part, ConnectorProgress::poll());
///     Halves const joined = applyPins(...);
///     shells.tellOf(joined, remarks);
class ShellSurvey
{
public:
    /// part    before its plain halves are given up
    /// poll    called now and then, here and later; may be empty
    /// throws  what the poll throws
    ShellSurvey(PartOfRun const& part, ConnectorProgress::Poll poll);

    void tellOf(Halves const& joined, CutRemarks& remarks) const;

private:
    Mesh::DocumentObject* m_object;
    ConnectorProgress::Poll m_poll;
    std::size_t m_plainLower;
    std::size_t m_plainUpper;
};

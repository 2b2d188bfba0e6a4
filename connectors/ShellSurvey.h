// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorRun.h"

#include <array>
#include <optional>

/// Tells of halves that fall into more shells with connectors than they do without.
///
///     ShellSurvey shells(part.object, ConnectorProgress::poll());
///     Halves const joined = joinRaisedAndHollow(part, raised, hollow, shells, progress);
///     shells.tellOf(joined, remarks);
///
/// Only a half that was looked at can be told of. One whose connectors all went into its face need
/// not be: the face is filled with the same vertices around outlines that lie within it, and each
/// connector hangs together, so what the face joined it and the connectors still join.
class ShellSurvey
{
public:
    enum Half
    {
        lower,
        upper,
    };

    /// poll  called now and then; may be empty; what it throws passes
    ShellSurvey(Mesh::DocumentObject* object, ConnectorProgress::Poll poll);

    /// Counts the shells of a half with which a solid is about to be combined.
    void lookAt(Half which, MeshKernel const& half);

    void tellOf(Halves const& joined, CutRemarks& remarks) const;

private:
    Mesh::DocumentObject* m_object;
    ConnectorProgress::Poll m_poll;
    std::array<std::optional<std::size_t>, 2> m_plain;
};

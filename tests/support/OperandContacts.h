// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/CurveNetwork.h"
#include "host/services/boolean/SideLabels.h"
#include "host/services/boolean/ToolTree.h"
#include "tests/support/Soup.h"

#include <vector>

/// Two solids as the booleans see them before their curves are made: in one numbering, with the
/// contacts of both and of the second with itself.
class OperandContacts
{
public:
    OperandContacts(Soup const& first, Soup const& second);
    OperandContacts(OperandContacts const&) = delete;

    OperandSoup const& soup() const { return m_soup; }
    std::vector<TrianglePair> const& contacts() const { return m_contacts; }
    /// Winding numbers by rays through the whole solids, which are taken to be closed. Borrow from
    /// this.
    WindingSources windings() const;

    /// Whether the curves come to an end.
    bool areCurvesBuilt() const;
    /// Whether the curves agree with each other and with the winding numbers.
    bool doSidesAgree() const;

private:
    MeshArrays m_first;
    MeshArrays m_second;
    OperandSoup m_soup;
    ToolTree m_firstTree;
    ToolTree m_secondTree;
    std::vector<TrianglePair> m_contacts;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <unordered_map>

namespace Base {
class DocumentObject;
}

/// The colours of parts that have none of their own: one for all, or a few in turn, by which the
/// pieces of a cut are told from each other. A part keeps its colour while it lives, also while
/// undo holds it; nothing of this is saved.
class PartTints
{
public:
    /// Whether parts have several colours.
    void setOn(bool isOn) { m_isOn = isOn; }
    /// 0xRRGGBBAA
    unsigned colorOf(Base::DocumentObject const* part);

private:
    bool m_isOn = false;
    /// By address alone: a part that takes the place of one that is gone has its turn.
    std::unordered_map<Base::DocumentObject const*, unsigned> m_turns;
};

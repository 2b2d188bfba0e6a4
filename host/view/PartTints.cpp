// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PartTints.h"

#include "host/view/ViewColors.h"

#include <iterator>

namespace {

/// After the colour that parts have otherwise. Pale, and away from those of the selection and of
/// the inside of parts.
constexpr unsigned tints[] = {0xa3cbb4ff, 0xc6b5e0ff, 0xd8d296ff,
                              0x96c0e4ff, 0xdcb2c4ff, 0xb6d58eff};

}  // namespace

unsigned PartTints::colorOf(Base::DocumentObject const* part)
{
    if (!m_isOn)
        return viewColors().part;
    unsigned const turn =
        m_turns.try_emplace(part, unsigned(m_turns.size())).first->second % (std::size(tints) + 1);
    return turn == 0 ? viewColors().part : tints[turn - 1];
}

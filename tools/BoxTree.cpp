// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/BoxTree.h"

namespace Freecut {

BoxTree::BoxTree(std::vector<FlatBox> boxes)
{
    m_levels.push_back(std::move(boxes));
    while (m_levels.back().size() > 1) {
        std::vector<FlatBox> above;
        for (std::size_t i = 0; i < m_levels.back().size(); ++i) {
            if (i % blockSize == 0)
                above.push_back(m_levels.back()[i]);
            else
                above.back().add(m_levels.back()[i]);
        }
        m_levels.push_back(std::move(above));
    }
}

}  // namespace Freecut

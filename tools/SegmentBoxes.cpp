// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/SegmentBoxes.h"

#include <limits>

namespace Freecut {

void SegmentBoxes::add(Box const& box)
{
    std::size_t const place = m_count++ % blockSize;
    if (place == 0) {
        Block& block = m_blocks.emplace_back();
        for (std::array<float, blockSize>* const bound :
             {&block.lowX, &block.lowY, &block.highX, &block.highY})
            bound->fill(std::numeric_limits<float>::quiet_NaN());
    }
    Block& block = m_blocks.back();
    block.lowX[place] = box.lowX;
    block.lowY[place] = box.lowY;
    block.highX[place] = box.highX;
    block.highY[place] = box.highY;
}

void SegmentBoxes::finish()
{
    std::vector<FlatBox> around;
    around.reserve(m_blocks.size());
    for (std::size_t i = 0; i < m_count; ++i) {
        Box const box = m_blocks[i / blockSize].box(i % blockSize);
        FlatBox const flat{box.lowX, box.lowY, box.highX, box.highY};
        if (i % blockSize == 0)
            around.push_back(flat);
        else
            around.back().add(flat);
    }
    m_tree = BoxTree(std::move(around));
}

}  // namespace Freecut

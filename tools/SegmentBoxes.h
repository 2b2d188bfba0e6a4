// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/BoxTree.h"

#include <array>
#include <bit>
#include <cstdint>
#include <vector>

namespace Freecut {

/// The boxes around the segments of curves, sixteen neighbours at a time: such a block is compared
/// with a box in a few instructions, and blocks stand in a tree.
class SegmentBoxes
{
public:
    struct Box
    {
        float lowX, lowY, highX, highY;
    };

    void add(Box const& box);
    /// Comes after the last box and before any question.
    void finish();

    /// Calls `visit` with each pair of boxes i < j that share a point, in an order that is always
    /// the same, until a call returns true. Calls `afterBlocks` for each two blocks that were
    /// compared, and for each block.
    template <typename Visit, typename AfterBlocks>
    void visitMeetingPairs(Visit const& visit, AfterBlocks const& afterBlocks) const
    {
        for (std::size_t a = 0; a < m_blocks.size(); ++a) {
            afterBlocks();
            if (m_tree.findMeeting(m_tree.box(a), a, [&](std::size_t b) {
                    afterBlocks();
                    return visitPairsOf(a, b, visit);
                }))
                return;
        }
    }

    /// Calls `visit` with each box that shares a point with the given one, in rising order, until
    /// a call returns true.
    template <typename Visit>
    void visitMeeting(Box const& wanted, Visit const& visit) const
    {
        FlatBox const around{wanted.lowX, wanted.lowY, wanted.highX, wanted.highY};
        m_tree.findMeeting(around, 0, [&](std::size_t block) {
            return visitIn(block, meeting(m_blocks[block], wanted), 0, visit);
        });
    }

private:
    static constexpr std::size_t blockSize = 16;

    /// Boxes that are missing from the last block are no numbers.
    struct Block
    {
        std::array<float, blockSize> lowX, lowY, highX, highY;

        Box box(std::size_t i) const { return {lowX[i], lowY[i], highX[i], highY[i]}; }
    };
    using Flags = std::array<std::uint8_t, blockSize>;
    static_assert(std::endian::native == std::endian::little);

    static Flags meeting(Block const& block, Box const& wanted)
    {
        Flags flags;
        for (std::size_t i = 0; i < blockSize; ++i)
            flags[i] = std::uint8_t(block.lowX[i] <= wanted.highX) &
                       (wanted.lowX <= block.highX[i]) & (block.lowY[i] <= wanted.highY) &
                       (wanted.lowY <= block.highY[i]);
        return flags;
    }

    /// Each byte is 0 or 1; bytes that are 0 are passed over eight at a time.
    template <typename Visit>
    static bool visitIn(std::size_t block, Flags const& flags, std::size_t first,
                        Visit const& visit)
    {
        auto const words = std::bit_cast<std::array<std::uint64_t, blockSize / 8>>(flags);
        for (std::size_t word = 0; word < words.size(); ++word)
            for (std::uint64_t left = words[word]; left != 0; left &= left - 1) {
                std::size_t const i = word * 8 + std::size_t(std::countr_zero(left)) / 8;
                if (i >= first && visit(std::uint32_t(block * blockSize + i)))
                    return true;
            }
        return false;
    }

    template <typename Visit>
    bool visitPairsOf(std::size_t a, std::size_t b, Visit const& visit) const
    {
        FlatBox const& other = m_tree.box(b);
        Flags const near = meeting(m_blocks[a], {float(other.lowX), float(other.lowY),
                                                 float(other.highX), float(other.highY)});
        return visitIn(a, near, 0, [&](std::uint32_t i) {
            std::size_t const place = i - a * blockSize;
            return visitIn(b, meeting(m_blocks[b], m_blocks[a].box(place)), a == b ? place + 1 : 0,
                           [&](std::uint32_t j) { return visit(i, j); });
        });
    }

    std::size_t m_count = 0;
    std::vector<Block> m_blocks;
    BoxTree m_tree{{}};
};

}  // namespace Freecut

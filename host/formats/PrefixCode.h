// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace Formats {

/// A prefix code for symbols by how often they come, as deflate has them: canonical, no longer than
/// some bits, each code written with its first bit lowest.
class PrefixCode
{
public:
    /// counts  how often each symbol comes; symbols that never come get no code, but at least two
    ///         get one, for readers refuse codes of fewer
    /// limit   most bits of a code; 2^limit is at least the number of symbols
    PrefixCode(std::span<std::uint32_t const> counts, unsigned limit);

    std::uint32_t bits(std::size_t symbol) const { return m_bits[symbol]; }
    /// 0 for a symbol without a code.
    unsigned length(std::size_t symbol) const { return m_lengths[symbol]; }
    std::size_t size() const { return m_lengths.size(); }
    /// How many symbols there are up to the last that has a code.
    std::size_t usedSize() const;

private:
    void assignBits(unsigned limit);

    std::vector<std::uint8_t> m_lengths;
    std::vector<std::uint16_t> m_bits;
};

}  // namespace Formats

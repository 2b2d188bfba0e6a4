// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PrefixCode.h"

#include <algorithm>

namespace Formats {
namespace {

struct Symbol
{
    std::uint32_t number;
    std::uint32_t count;
};

/// The symbols that get a code, the rarest first.
std::vector<Symbol> usedSymbols(std::span<std::uint32_t const> counts)
{
    std::vector<Symbol> used;
    for (std::uint32_t i = 0; i < counts.size(); ++i)
        if (counts[i] > 0)
            used.push_back({i, counts[i]});
    for (std::uint32_t i = 0; i < counts.size() && used.size() < 2; ++i)
        if (counts[i] == 0)
            used.push_back({i, 1});
    std::stable_sort(used.begin(), used.end(),
                     [](Symbol const& a, Symbol const& b) { return a.count < b.count; });
    return used;
}

/// How deep each of some symbols, the rarest first, lies in Huffman's tree: the two lightest trees
/// are joined again and again. Joined ones come in ascending order, so that two queues serve.
std::vector<unsigned> depthsOf(std::vector<Symbol> const& symbols)
{
    std::size_t const leaves = symbols.size(), nodes = 2 * leaves - 1;
    std::vector<std::uint64_t> weights(nodes);
    std::vector<std::size_t> parents(nodes);
    for (std::size_t i = 0; i < leaves; ++i)
        weights[i] = symbols[i].count;
    std::size_t leaf = 0, joined = leaves;
    for (std::size_t node = leaves; node < nodes; ++node)
        for (int side = 0; side < 2; ++side) {
            bool const isLeaf =
                leaf < leaves && (joined == node || weights[leaf] <= weights[joined]);
            std::size_t const lightest = isLeaf ? leaf++ : joined++;
            weights[node] += weights[lightest];
            parents[lightest] = node;
        }
    std::vector<unsigned> depths(nodes, 0);
    for (std::size_t node = nodes - 1; node-- > 0;)
        depths[node] = depths[parents[node]] + 1;
    depths.resize(leaves);
    return depths;
}

/// How many codes there are of each length, if none is longer than a limit: codes that would be are
/// cut, and shorter ones made longer until there is room for all.
std::vector<std::uint32_t> countsByLength(std::vector<unsigned> const& depths, unsigned limit)
{
    std::vector<std::uint32_t> counts(limit + 1, 0);
    std::uint64_t taken = 0;
    for (unsigned const depth : depths) {
        unsigned const length = std::min(depth, limit);
        ++counts[length];
        taken += std::uint64_t(1) << (limit - length);
    }
    for (; taken > std::uint64_t(1) << limit; --taken) {
        unsigned length = limit - 1;
        while (counts[length] == 0)
            --length;
        --counts[limit];
        --counts[length];
        counts[length + 1] += 2;
    }
    return counts;
}

std::uint16_t reversed(std::uint32_t bits, unsigned length)
{
    std::uint32_t turned = 0;
    for (unsigned i = 0; i < length; ++i)
        turned |= (bits >> i & 1) << (length - 1 - i);
    return std::uint16_t(turned);
}

}  // namespace

PrefixCode::PrefixCode(std::span<std::uint32_t const> counts, unsigned limit)
    : m_lengths(counts.size(), 0), m_bits(counts.size(), 0)
{
    std::vector<Symbol> const symbols = usedSymbols(counts);
    std::vector<std::uint32_t> const byLength = countsByLength(depthsOf(symbols), limit);
    std::size_t next = 0;
    for (unsigned length = limit; length > 0; --length)
        for (std::uint32_t i = 0; i < byLength[length]; ++i)
            m_lengths[symbols[next++].number] = std::uint8_t(length);
    assignBits(limit);
}

/// Shorter codes come first, and those of one length in the order of their symbols.
void PrefixCode::assignBits(unsigned limit)
{
    std::uint32_t next = 0;
    for (unsigned length = 1; length <= limit; ++length, next <<= 1)
        for (std::size_t i = 0; i < m_lengths.size(); ++i)
            if (m_lengths[i] == length)
                m_bits[i] = reversed(next++, length);
}

std::size_t PrefixCode::usedSize() const
{
    std::size_t size = m_lengths.size();
    while (size > 0 && m_lengths[size - 1] == 0)
        --size;
    return size;
}

}  // namespace Formats

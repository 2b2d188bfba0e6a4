// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace Base {

/// The kind of a quantity: 0 a plain number, 1 a length.
class Unit
{
public:
    static constexpr std::uint32_t none = 0;
    static constexpr std::uint32_t length = 1;

    constexpr Unit(std::uint32_t kind = none) : m_kind(kind) {}

    constexpr std::uint32_t kind() const { return m_kind; }
    constexpr bool isLength() const { return m_kind == length; }
    friend constexpr bool operator==(Unit const&, Unit const&) = default;

private:
    std::uint32_t m_kind;
};

static_assert(sizeof(Unit) == 4);

}  // namespace Base

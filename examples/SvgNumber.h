// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <charconv>
#include <string>

/// A coordinate of a picture, with two decimals in any locale.
inline std::string numberText(float value)
{
    char buffer[64];
    auto const end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 2).ptr;
    return {buffer, end};
}

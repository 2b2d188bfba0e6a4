// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/Decimals.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

/// Words and numbers of text formats, independent of the locale.
namespace Formats {

inline bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

/// Takes the next word off the front of a line; empty at its end.
inline std::string_view takeWord(std::string_view& line)
{
    std::size_t begin = 0;
    while (begin < line.size() && isBlank(line[begin]))
        ++begin;
    std::size_t end = begin;
    while (end < line.size() && !isBlank(line[end]))
        ++end;
    std::string_view const word = line.substr(begin, end - begin);
    line.remove_prefix(end);
    return word;
}

/// A whole word as a number, with an optional plus sign; nothing if it is none.
template <typename Number>
std::optional<Number> numberFrom(std::string_view word)
{
    if (word.starts_with('+'))
        word.remove_prefix(1);
    Number value{};
    auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size())
        return std::nullopt;
    return value;
}

/// A whole word such as -0x1.8p3 as a number; nothing if it is none.
inline std::optional<float> hexadecimalFrom(std::string_view word)
{
    bool const isNegative = word.starts_with('-');
    if (isNegative)
        word.remove_prefix(1);
    if (!word.starts_with("0x") && !word.starts_with("0X"))
        return std::nullopt;
    word.remove_prefix(2);
    double value = 0;
    auto const [end, error] =
        std::from_chars(word.data(), word.data() + word.size(), value, std::chars_format::hex);
    if (error != std::errc() || end != word.data() + word.size())
        return std::nullopt;
    return float(isNegative ? -value : value);
}

/// What editors on some systems put in front of a text in UTF-8.
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

inline std::string_view withoutByteOrderMark(std::string_view text)
{
    return text.substr(text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0);
}

/// A whole word as a coordinate. A number too small for a float becomes the nearest one, a number
/// too large, an infinity and "nan" become one that is not finite.
inline std::optional<float> coordinateFrom(std::string_view word)
{
    if (word.starts_with('+'))
        word.remove_prefix(1);
    if (auto const hexadecimal = hexadecimalFrom(word))
        return hexadecimal;
    char const* const last = word.data() + word.size();
    float value = 0;
    auto const [end, error] = fromDecimal(word.data(), last, value);
    if (end != last || error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc())
        return value;
    // Out of the range of float; double tells on which side.
    double wide = 0;
    bool const isBeyondDouble = std::from_chars(word.data(), last, wide).ec != std::errc();
    if (isBeyondDouble)
        return word.find("e-") != word.npos || word.find("E-") != word.npos ? 0.0f : HUGE_VALF;
    return float(wide);
}

/// Appends the shortest text that reads back as the same number.
inline void appendNumber(std::string& text, float value)
{
    char buffer[32];
    auto const [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
    text.append(buffer, end);
}

inline void appendNumber(std::string& text, std::uint64_t value)
{
    char buffer[32];
    auto const [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
    text.append(buffer, end);
}

}  // namespace Formats

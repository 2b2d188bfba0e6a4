// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Numbers.h"

#include "cli/Errors.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

/// Beyond it the arithmetic on planes would overflow.
constexpr float longestLength = 1e9f;

/// Without zeros at the end of the decimals.
std::string trimmed(std::string text)
{
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.pop_back();
    return text == "-0" ? "0" : text;
}

}  // namespace

std::string fixed(double value, int decimals)
{
    char text[400];
    auto const end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals);
    return std::string(text, end.ptr);
}

std::string decimal(float value)
{
    return trimmed(fixed(value, 3));
}

std::string figures(float value)
{
    return trimmed(measure(value));
}

std::string measure(double value)
{
    constexpr int figures = 6;
    double const size = std::fabs(value);
    bool const isSmall = size > 0 && size < 1;
    return fixed(value, isSmall ? figures - 1 - int(std::floor(std::log10(size))) : 3);
}

std::string grouped(std::size_t count)
{
    std::string text = std::to_string(count);
    for (std::size_t left = text.size(); left > 3; left -= 3)
        text.insert(left - 3, 1, ',');
    return text;
}

double tidy(float value)
{
    char text[64];
    char const* const end = std::to_chars(text, text + sizeof text, value).ptr;
    double result = value;
    std::from_chars(text, end, result);
    return result;
}

std::optional<float> parseNumber(std::string const& text)
{
    char const* const begin = text.data() + (text.starts_with('+') ? 1 : 0);
    char const* const end = text.data() + text.size();
    float value = 0;
    auto const [stop, error] = std::from_chars(begin, end, value);
    // Not so for "not a number" either.
    bool const isSensible = std::fabs(value) <= longestLength;
    if (error != std::errc() || stop != end || !isSensible)
        return std::nullopt;
    return value;
}

std::vector<float> parseNumbers(std::string const& text)
{
    std::vector<float> numbers;
    for (std::size_t begin = 0; begin <= text.size();) {
        std::size_t const end = std::min(text.find(',', begin), text.size());
        std::optional<float> const number = parseNumber(text.substr(begin, end - begin));
        if (!number)
            return {};
        numbers.push_back(*number);
        begin = end + 1;
    }
    return numbers;
}

std::string smallLengthAdvice(float length)
{
    return length > 0 ? " If the part is not in millimetres, say what it is in with --unit, or "
                        "enlarge it with --scale."
                      : "";
}

float parseMillimetres(std::string const& text, std::string const& option)
{
    if (std::optional<float> const value = parseNumber(text))
        return *value;
    throw UsageError(option +
                     " takes millimetres such as 12.5, up to a million metres, but got \"" + text +
                     "\".");
}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// Numbers as text and back, the same in every locale.

/// With a fixed number of decimals.
std::string fixed(double value, int decimals);
/// With three decimals at most.
std::string decimal(float value);
/// The same, but below 1 with six figures at most: 12.346, 0.000123457.
std::string figures(float value);
/// With three decimals, but with six figures below 1: 24.000, 0.00123457.
std::string measure(double value);
/// With a comma between thousands.
std::string grouped(std::size_t count);
/// The double that has the same shortest text as the float: 0.1f gives 0.1.
double tidy(float value);

/// A number of at most a thousand million; none if the text is something else.
std::optional<float> parseNumber(std::string const& text);
/// Numbers with commas between them; empty if one of them is none.
std::vector<float> parseNumbers(std::string const& text);

/// What to do about a length that is smaller than any can be, to go on after the sentence that says
/// so; empty for one that is not above zero.
std::string smallLengthAdvice(float length);

/// A length from the command line. Throws UsageError that names the option if the text is not a
/// number or too large to be one.
float parseMillimetres(std::string const& text, std::string const& option);

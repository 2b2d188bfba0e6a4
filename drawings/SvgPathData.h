// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drawings/PathBuilder.h"

#include <string_view>

namespace Drawings {

/// Reads numbers and words of an SVG attribute, one after the other.
class SvgText
{
public:
    explicit SvgText(std::string_view text) : m_rest(text) {}

    /// The next number, with white space and a comma before it; none if there is something else.
    std::optional<double> number();
    /// A digit 0 or 1, which may stand without a space before the next number.
    std::optional<bool> flag();
    /// The next letter; 0 if there is something else.
    char letter();
    /// What stands up to a character, which goes too; none if it does not come.
    std::optional<std::string_view> until(char end);
    bool isAtEnd();

private:
    void skipSpace(bool withComma);

    std::string_view m_rest;
};

/// A length in user units. Throws Mell::Exception for percentages and unknown units.
double svgLength(std::string_view text);

/// Reads a list of transforms. Throws Mell::Exception for one that is not known.
Affine svgTransform(std::string_view text);

/// Adds the paths of a "d" attribute. What follows a mistake is left out, as the format says.
void addSvgPath(PathBuilder& builder, Affine const& toMillimetres, std::string_view data);

}  // namespace Drawings

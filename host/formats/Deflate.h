// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Formats {

/// How far back deflate can refer.
constexpr std::size_t deflateReach = 1 << 15;

/// One piece of a raw deflate stream (RFC 1951), made for text of many short lines that resemble
/// each other, as meshes have: each place is compared with one earlier place only, which takes half
/// the time of zlib's first level and leaves less of such a text. The same text gives the same bytes
/// on every machine.
///
/// before  what stands in front of the text; matches are looked for in its end
/// isLast  whether the stream ends with the piece; otherwise the piece ends at a whole byte, and
///         the next one may follow
std::string deflated(std::string_view before, std::string_view text, bool isLast);

}  // namespace Formats

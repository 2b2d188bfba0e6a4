// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ZipDirectory.h"

#include <algorithm>
#include <string_view>

namespace Formats {
namespace {

constexpr std::size_t endBytes = 22;
constexpr std::size_t longestComment = 65535;
constexpr std::size_t locatorBytes = 20;
constexpr std::size_t largeEndBytes = 56;
constexpr std::size_t headerBytes = 46;
/// A directory beyond that is taken for a damaged one.
constexpr std::uint64_t largestDirectory = 1 << 26;

std::uint64_t little(std::string_view text, std::size_t place, int bytes)
{
    std::uint64_t value = 0;
    for (int i = bytes - 1; i >= 0; --i)
        value = value << 8 | std::uint8_t(text[place + std::size_t(i)]);
    return value;
}

std::string bytesAt(InputFile& input, std::uint64_t offset, std::uint64_t count)
{
    if (offset > input.size() || count > input.size() - offset)
        return {};
    std::string text(count, '\0');
    input.seek(offset);
    text.resize(input.read(std::as_writable_bytes(std::span(text))));
    return text.size() == count ? text : std::string();
}

struct Place
{
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
};

Place largePlace(InputFile& input, std::uint64_t endOffset)
{
    if (endOffset < locatorBytes)
        return {};
    std::string const locator = bytesAt(input, endOffset - locatorBytes, locatorBytes);
    if (!locator.starts_with("PK\6\7"))
        return {};
    std::string const end = bytesAt(input, little(locator, 8, 8), largeEndBytes);
    if (!end.starts_with("PK\6\6"))
        return {};
    return {little(end, 48, 8), little(end, 40, 8)};
}

Place directoryPlace(InputFile& input)
{
    std::uint64_t const count = std::min<std::uint64_t>(input.size(), endBytes + longestComment);
    std::uint64_t const start = input.size() - count;
    std::string const tail = bytesAt(input, start, count);
    std::size_t const found = tail.rfind("PK\5\6");
    if (found == std::string::npos || tail.size() - found < endBytes)
        return {};
    Place const place{little(tail, found + 16, 4), little(tail, found + 12, 4)};
    return place.offset == 0xffffffff ? largePlace(input, start + found) : place;
}

}  // namespace

std::vector<std::string> zipEntryNames(InputFile& input)
{
    Place const place = directoryPlace(input);
    if (place.size > largestDirectory)
        return {};
    std::string const directory = bytesAt(input, place.offset, place.size);
    std::string_view rest = directory;
    std::vector<std::string> names;
    while (rest.size() >= headerBytes && rest.starts_with("PK\1\2")) {
        std::size_t const nameBytes = little(rest, 28, 2);
        std::size_t const more = little(rest, 30, 2) + little(rest, 32, 2);
        if (rest.size() - headerBytes < nameBytes + more)
            break;
        names.emplace_back(rest.substr(headerBytes, nameBytes));
        rest.remove_prefix(headerBytes + nameBytes + more);
    }
    return names;
}

}  // namespace Formats

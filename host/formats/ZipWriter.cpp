// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ZipWriter.h"

#include <algorithm>
#include <cassert>

namespace Formats {
namespace {

constexpr std::uint64_t limit32 = 0xffffffff;
constexpr std::uint64_t limit16 = 0xffff;

constexpr std::uint16_t versionPlain = 20;
constexpr std::uint16_t versionLarge = 45;
constexpr std::uint16_t utf8Names = 1 << 11;
constexpr std::uint16_t methodDeflate = 8;
/// 1 January 1980, the earliest date there is.
constexpr std::uint16_t noDate = 0x21;

std::string little(std::uint64_t value, int bytes)
{
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += char(value >> 8 * i & 0xff);
    return text;
}

std::string clipped32(std::uint64_t value)
{
    return little(std::min(value, limit32), 4);
}

/// The extra field for values that do not fit into 32 bits.
std::string largeField(std::initializer_list<std::uint64_t> values)
{
    std::string content;
    for (std::uint64_t const value : values)
        content += little(value, 8);
    return little(1, 2) + little(content.size(), 2) + content;
}

}  // namespace

ZipWriter::ZipWriter(Sink sink) : m_sink(std::move(sink)) {}

ZipWriter::ZipWriter(OutputFile& output)
    : ZipWriter([&output](std::string_view bytes) { output.write(bytes); })
{}

ZipWriter::~ZipWriter() = default;

void ZipWriter::beginEntry(std::string name)
{
    assert(!m_text);
    m_entries.push_back({std::move(name), m_position});
    m_text = std::make_unique<PackedText>();
}

void ZipWriter::write(std::string_view text)
{
    m_text->write(text);
}

void ZipWriter::endEntry()
{
    m_text->finish();
    Entry& entry = m_entries.back();
    entry.size = m_text->size();
    entry.packedSize = m_text->bytes().size();
    entry.checksum = m_text->checksum();
    bool const isLarge = entry.size >= limit32 || entry.packedSize >= limit32;
    std::string const extra = isLarge ? largeField({entry.size, entry.packedSize}) : std::string();
    put("PK\3\4" + little(isLarge ? versionLarge : versionPlain, 2) + little(utf8Names, 2) +
        little(methodDeflate, 2) + little(0, 2) + little(noDate, 2) + little(entry.checksum, 4) +
        little(isLarge ? limit32 : entry.packedSize, 4) +
        little(isLarge ? limit32 : entry.size, 4) + little(entry.name.size(), 2) +
        little(extra.size(), 2) + entry.name + extra);
    put(m_text->bytes());
    m_text.reset();
}

void ZipWriter::addEntry(std::string name, std::string_view text)
{
    beginEntry(std::move(name));
    write(text);
    endEntry();
}

std::string ZipWriter::directoryEntry(Entry const& entry) const
{
    std::string extra;
    bool const isLarge = std::max({entry.size, entry.packedSize, entry.offset}) >= limit32;
    if (isLarge)
        extra = largeField({entry.size, entry.packedSize, entry.offset});
    auto const field = [&](std::uint64_t value) { return little(isLarge ? limit32 : value, 4); };
    std::string const version = little(isLarge ? versionLarge : versionPlain, 2);
    return "PK\1\2" + version + version + little(utf8Names, 2) + little(methodDeflate, 2) +
           little(0, 2) + little(noDate, 2) + little(entry.checksum, 4) + field(entry.packedSize) +
           field(entry.size) + little(entry.name.size(), 2) + little(extra.size(), 2) +
           little(0, 2) + little(0, 2) + little(0, 2) + little(0, 4) + field(entry.offset) +
           entry.name + extra;
}

std::string ZipWriter::directoryEnd(std::uint64_t start, std::uint64_t size) const
{
    std::string text;
    std::uint64_t const count = m_entries.size();
    if (start >= limit32 || size >= limit32 || count >= limit16) {
        text += "PK\6\6" + little(44, 8) + little(versionLarge, 2) + little(versionLarge, 2) +
                little(0, 4) + little(0, 4) + little(count, 8) + little(count, 8) +
                little(size, 8) + little(start, 8);
        text += "PK\6\7" + little(0, 4) + little(start + size, 8) + little(1, 4);
    }
    std::string const shortCount = little(std::min(count, limit16), 2);
    return text + "PK\5\6" + little(0, 4) + shortCount + shortCount + clipped32(size) +
           clipped32(start) + little(0, 2);
}

void ZipWriter::finish()
{
    std::uint64_t const start = m_position;
    for (Entry const& entry : m_entries)
        put(directoryEntry(entry));
    put(directoryEnd(start, m_position - start));
}

void ZipWriter::put(std::string_view bytes)
{
    m_sink(bytes);
    m_position += bytes.size();
}

}  // namespace Formats

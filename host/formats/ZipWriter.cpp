// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ZipWriter.h"

#include <algorithm>
#include <cassert>
#include <new>
#include <zlib.h>

namespace Formats {
namespace {

/// Higher levels take twice the time for a few percent of text that is mostly digits.
constexpr int compressionLevel = 4;
constexpr std::size_t chunkBytes = 1 << 16;
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

struct ZipWriter::Stream
{
    Stream()
    {
        // Without zlib's own header, as ZIP has it.
        if (deflateInit2(&state, compressionLevel, Z_DEFLATED, -MAX_WBITS, MAX_MEM_LEVEL,
                         Z_DEFAULT_STRATEGY) != Z_OK)
            throw std::bad_alloc();
    }
    ~Stream() { deflateEnd(&state); }

    z_stream state{};
};

ZipWriter::ZipWriter(Sink sink) : m_sink(std::move(sink)) {}

ZipWriter::ZipWriter(OutputFile& output)
    : ZipWriter([&output](std::string_view bytes) { output.write(bytes); })
{}

ZipWriter::~ZipWriter() = default;

void ZipWriter::beginEntry(std::string name)
{
    assert(!m_stream);
    m_entries.push_back({std::move(name), m_position});
    m_stream = std::make_unique<Stream>();
    m_packed.clear();
}

void ZipWriter::write(std::string_view text)
{
    for (; !text.empty(); text.remove_prefix(std::min(text.size(), chunkBytes)))
        compress(text.substr(0, chunkBytes), false);
}

void ZipWriter::compress(std::string_view text, bool isLast)
{
    Entry& entry = m_entries.back();
    auto const* const bytes = reinterpret_cast<Bytef const*>(text.data());
    entry.size += text.size();
    // Of a null pointer the library gives the initial value.
    if (!text.empty())
        entry.checksum = std::uint32_t(crc32(entry.checksum, bytes, uInt(text.size())));
    z_stream& state = m_stream->state;
    state.next_in = const_cast<Bytef*>(bytes);
    state.avail_in = uInt(text.size());
    char packed[chunkBytes];
    do {
        state.next_out = reinterpret_cast<Bytef*>(packed);
        state.avail_out = sizeof packed;
        deflate(&state, isLast ? Z_FINISH : Z_NO_FLUSH);
        m_packed.append(packed, sizeof packed - state.avail_out);
    } while (state.avail_out == 0);
}

void ZipWriter::endEntry()
{
    compress({}, true);
    m_stream.reset();
    Entry& entry = m_entries.back();
    entry.packedSize = m_packed.size();
    bool const isLarge = entry.size >= limit32 || entry.packedSize >= limit32;
    std::string const extra = isLarge ? largeField({entry.size, entry.packedSize}) : std::string();
    put("PK\3\4" + little(isLarge ? versionLarge : versionPlain, 2) + little(utf8Names, 2) +
        little(methodDeflate, 2) + little(0, 2) + little(noDate, 2) + little(entry.checksum, 4) +
        little(isLarge ? limit32 : entry.packedSize, 4) +
        little(isLarge ? limit32 : entry.size, 4) + little(entry.name.size(), 2) +
        little(extra.size(), 2) + entry.name + extra);
    put(m_packed);
    m_packed = {};
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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ZipReader.h"

#include "host/formats/FileError.h"
#include "host/memory/HugePages.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <libdeflate.h>
#include <new>
#include <zlib.h>

namespace Formats {
namespace {

constexpr std::size_t endBytes = 22;
constexpr std::size_t longestComment = 65535;
constexpr std::size_t locatorBytes = 20;
constexpr std::size_t largeEndBytes = 56;
constexpr std::size_t directoryEntryBytes = 46;
constexpr std::size_t localHeaderBytes = 30;
/// A directory beyond that is taken for a damaged one.
constexpr std::uint64_t largestDirectory = 1 << 26;
/// What is unpacked at once, in a tenth of a second: nobody can cancel meanwhile.
constexpr std::uint64_t mostAtOnce = 1 << 27;
/// The most that deflate makes of a byte.
constexpr std::uint64_t largestGrowth = 1032;
constexpr std::uint64_t limit32 = 0xffffffff;
constexpr std::size_t inputBytes = 1 << 18;

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
    return place.offset == limit32 ? largePlace(input, start + found) : place;
}

/// Values that do not fit into 32 bits stand in an extra field, in this order.
void takeLargeValues(std::string_view extra, ZipReader::Entry& entry)
{
    while (extra.size() >= 4) {
        std::size_t const size = std::min<std::size_t>(little(extra, 2, 2), extra.size() - 4);
        std::string_view content = extra.substr(4, size);
        if (little(extra, 0, 2) == 1)
            for (std::uint64_t* const value : {&entry.size, &entry.packedSize, &entry.headerOffset})
                if (*value == limit32 && content.size() >= 8) {
                    *value = little(content, 0, 8);
                    content.remove_prefix(8);
                }
        extra.remove_prefix(4 + size);
    }
}

}  // namespace

ZipReader::ZipReader(InputFile& input)
{
    Place const place = directoryPlace(input);
    if (place.size <= largestDirectory)
        readDirectory(bytesAt(input, place.offset, place.size));
}

void ZipReader::readDirectory(std::string_view directory)
{
    while (directory.size() >= directoryEntryBytes && directory.starts_with("PK\1\2")) {
        std::size_t const nameBytes = little(directory, 28, 2);
        std::size_t const extraBytes = little(directory, 30, 2);
        std::size_t const whole =
            directoryEntryBytes + nameBytes + extraBytes + little(directory, 32, 2);
        if (directory.size() < whole)
            break;
        Entry entry{std::string(directory.substr(directoryEntryBytes, nameBytes)),
                    little(directory, 42, 4),
                    little(directory, 24, 4),
                    little(directory, 20, 4),
                    std::uint32_t(little(directory, 16, 4)),
                    int(little(directory, 10, 2))};
        takeLargeValues(directory.substr(directoryEntryBytes + nameBytes, extraBytes), entry);
        m_entries.push_back(std::move(entry));
        directory.remove_prefix(whole);
    }
}

ZipReader::Entry const* ZipReader::find(std::string_view name) const
{
    auto const found = std::ranges::find(m_entries, name, &Entry::name);
    return found == m_entries.end() ? nullptr : &*found;
}

struct ZipEntryStream::State
{
    State()
    {
        if (inflateInit2(&stream, -MAX_WBITS) != Z_OK)
            throw std::bad_alloc();
    }
    ~State() { inflateEnd(&stream); }

    z_stream stream{};
    std::string input;
    std::uint64_t packedOffset = 0;
    std::uint64_t packedLeft = 0;
    std::uint64_t size = 0;
    std::uint32_t checksum = 0;
    /// All of the entry, where it was unpacked at once.
    std::unique_ptr<char[], decltype(&std::free)> unpacked{nullptr, &std::free};
};

ZipEntryStream::ZipEntryStream(InputFile& input, ZipReader::Entry const& entry)
    : m_input(input), m_entry(entry), m_state(std::make_unique<State>())
{
    std::string const header = bytesAt(input, entry.headerOffset, localHeaderBytes);
    if (!header.starts_with("PK\3\4") || !(entry.isDeflated() || entry.isStored()))
        fail();
    m_state->packedOffset =
        entry.headerOffset + localHeaderBytes + little(header, 26, 2) + little(header, 28, 2);
    m_state->packedLeft = entry.packedSize;
    input.seek(m_state->packedOffset);
    if (entry.isDeflated() && entry.size <= mostAtOnce && entry.packedSize <= input.size() &&
        entry.size / largestGrowth <= entry.packedSize)
        unpackAtOnce();
}

ZipEntryStream::~ZipEntryStream() = default;

std::string ZipEntryStream::packedBytes()
{
    std::string packed(std::min(m_entry.packedSize, mostAtOnce), '\0');
    std::size_t done = 0;
    for (std::size_t count = 1; count > 0 && done < packed.size(); done += count)
        count = m_input.read(
            std::as_writable_bytes(std::span(packed))
                .subspan(done, std::min<std::size_t>(inputBytes, packed.size() - done)));
    packed.resize(done);
    return packed;
}

/// Leaves what is not sound, or not as large as the directory says, to the slower way, which knows what to make of it.
void ZipEntryStream::unpackAtOnce()
{
    std::string const packed = packedBytes();
    std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)> const
        decompressor(libdeflate_alloc_decompressor(), &libdeflate_free_decompressor);
    m_state->unpacked.reset(
        static_cast<char*>(std::malloc(std::max<std::size_t>(m_entry.size, 1))));
    char* const text = m_state->unpacked.get();
    if (!decompressor || !text)
        throw std::bad_alloc();
    preferHugePages(text, m_entry.size);
    // Without a place for the size it is an error if there is less.
    bool const isSound =
        libdeflate_deflate_decompress(decompressor.get(), packed.data(), packed.size(), text,
                                      m_entry.size, nullptr) == LIBDEFLATE_SUCCESS &&
        libdeflate_crc32(0, text, m_entry.size) == m_entry.checksum;
    if (isSound)
        return;
    m_state->unpacked.reset();
    m_input.seek(m_state->packedOffset);
}

std::size_t ZipEntryStream::read(std::span<char> buffer)
{
    return m_state->unpacked ? takeUnpacked(buffer) : inflateInto(buffer);
}

std::size_t ZipEntryStream::takeUnpacked(std::span<char> buffer)
{
    std::size_t const count = std::min<std::uint64_t>(buffer.size(), m_entry.size - m_state->size);
    std::memcpy(buffer.data(), m_state->unpacked.get() + m_state->size, count);
    m_state->size += count;
    return count;
}

std::size_t ZipEntryStream::inflateInto(std::span<char> buffer)
{
    z_stream& stream = m_state->stream;
    std::size_t done = 0;
    while (done < buffer.size() && m_state->size < m_entry.size) {
        if (stream.avail_in == 0)
            fillInput();
        std::size_t const room = std::min<std::uint64_t>(
            {buffer.size() - done, m_entry.size - m_state->size, std::uint64_t(1) << 30});
        stream.next_out = reinterpret_cast<Bytef*>(buffer.data() + done);
        stream.avail_out = uInt(room);
        int const result = m_entry.isStored() ? copyStored() : inflate(&stream, Z_NO_FLUSH);
        std::size_t const count = room - stream.avail_out;
        m_state->checksum = libdeflate_crc32(m_state->checksum, buffer.data() + done, count);
        m_state->size += count;
        done += count;
        if (result != Z_OK && result != Z_STREAM_END)
            fail();
        if (result == Z_STREAM_END)
            break;
    }
    if (done < buffer.size() || m_state->size == m_entry.size)
        requireSound();
    return done;
}

int ZipEntryStream::copyStored()
{
    z_stream& stream = m_state->stream;
    uInt const count = std::min(stream.avail_in, stream.avail_out);
    std::memcpy(stream.next_out, stream.next_in, count);
    stream.next_in += count;
    stream.avail_in -= count;
    stream.next_out += count;
    stream.avail_out -= count;
    return Z_OK;
}

void ZipEntryStream::fillInput()
{
    std::string& input = m_state->input;
    input.resize(std::min<std::uint64_t>(m_state->packedLeft, inputBytes));
    std::size_t const count = m_input.read(std::as_writable_bytes(std::span(input)));
    if (count == 0)
        fail();
    m_state->packedLeft -= count;
    m_state->stream.next_in = reinterpret_cast<Bytef*>(input.data());
    m_state->stream.avail_in = uInt(count);
}

std::string ZipEntryStream::readAll()
{
    std::string text;
    std::string chunk(inputBytes, '\0');
    while (std::size_t const count = read(chunk))
        text.append(chunk, 0, count);
    return text;
}

void ZipEntryStream::requireSound() const
{
    if (m_state->size != m_entry.size || m_state->checksum != m_entry.checksum)
        fail();
}

void ZipEntryStream::fail() const
{
    throw FileError(
        m_input.path(),
        FileError::tr("the content of '%1' in it is damaged; use another copy of the file.")
            .arg(QString::fromStdString(m_entry.name)));
}

}  // namespace Formats

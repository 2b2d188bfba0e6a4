// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PackedText.h"

#include <tbb/task_group.h>

#include <algorithm>
#include <libdeflate.h>
#include <new>
#include <zlib.h>

namespace Formats {
namespace {

/// The fastest level, told to look at one earlier place only and to remember all places within short matches: a
/// seventh less of a text that is mostly digits, in less time. A small table stays near.
constexpr int compressionLevel = 1, longestRemembered = 32, longestMatch = 258, placesTried = 1;
constexpr int memoryLevel = 7;
constexpr std::size_t pieceBytes = 1 << 18;
/// As far as deflate looks back.
constexpr std::size_t dictionaryBytes = 1 << 15;
/// Under way at a time.
constexpr std::size_t mostPieces = 8;

Bytef* bytesOf(std::string const& text)
{
    return reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
}

class DeflateState
{
public:
    DeflateState()
    {
        if (deflateInit2(&stream, compressionLevel, Z_DEFLATED, -MAX_WBITS, memoryLevel,
                         Z_DEFAULT_STRATEGY) != Z_OK)
            throw std::bad_alloc();
        constexpr int goodMatch = 4;
        deflateTune(&stream, goodMatch, longestRemembered, longestMatch, placesTried);
    }
    ~DeflateState() { deflateEnd(&stream); }
    DeflateState(DeflateState const&) = delete;
    DeflateState& operator=(DeflateState const&) = delete;

    z_stream stream{};
};

}  // namespace

struct PackedText::Tasks
{
    tbb::task_group group;
};

struct PackedText::Piece
{
    std::string dictionary;
    std::string text;
    bool isLast = false;
    std::string packed;
    std::uint32_t checksum = 0;

    void pack()
    {
        checksum = libdeflate_crc32(0, text.data(), text.size());
        DeflateState state;
        z_stream& stream = state.stream;
        if (!dictionary.empty())
            deflateSetDictionary(&stream, bytesOf(dictionary), uInt(dictionary.size()));
        // A piece that is not the last ends at a whole byte, with an empty block of a few bytes.
        packed.resize(deflateBound(&stream, uLong(text.size())) + 16);
        stream.next_in = bytesOf(text);
        stream.avail_in = uInt(text.size());
        stream.next_out = bytesOf(packed);
        stream.avail_out = uInt(packed.size());
        deflate(&stream, isLast ? Z_FINISH : Z_SYNC_FLUSH);
        packed.resize(packed.size() - stream.avail_out);
    }
};

PackedText::PackedText() : m_tasks(std::make_unique<Tasks>())
{
    m_text.reserve(pieceBytes);
}

PackedText::~PackedText()
{
    // Left by an exception: nobody wants the pieces any more.
    m_tasks->group.cancel();
    m_tasks->group.wait();
}

void PackedText::write(std::string_view text)
{
    while (!text.empty()) {
        std::size_t const count = std::min(text.size(), pieceBytes - m_text.size());
        m_text.append(text.substr(0, count));
        text.remove_prefix(count);
        if (m_text.size() == pieceBytes)
            start(false);
    }
}

void PackedText::finish()
{
    start(true);
    collect();
}

void PackedText::start(bool isLast)
{
    auto piece = std::make_unique<Piece>();
    piece->isLast = isLast;
    piece->dictionary = m_dictionary;
    m_dictionary = m_text.substr(m_text.size() - std::min(m_text.size(), dictionaryBytes));
    piece->text = std::move(m_text);
    m_text = {};
    if (!isLast)
        m_text.reserve(pieceBytes);
    Piece* const started = piece.get();
    m_pieces.push_back(std::move(piece));
    m_tasks->group.run([started] { started->pack(); });
    if (m_pieces.size() == mostPieces)
        collect();
}

void PackedText::collect()
{
    m_tasks->group.wait();
    for (auto const& piece : m_pieces) {
        m_bytes += piece->packed;
        m_size += piece->text.size();
        m_checksum =
            std::uint32_t(crc32_combine(m_checksum, piece->checksum, z_off_t(piece->text.size())));
    }
    m_pieces.clear();
}

}  // namespace Formats

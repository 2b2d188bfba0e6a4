// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PackedText.h"

#include "host/formats/Deflate.h"

#include <tbb/task_group.h>

#include <algorithm>
#include <zlib.h>

namespace Formats {
namespace {

constexpr std::size_t pieceBytes = 1 << 18;
/// Under way at a time.
constexpr std::size_t mostPieces = 8;

}  // namespace

struct PackedText::Tasks
{
    tbb::task_group group;
};

struct PackedText::Piece
{
    std::string before;
    std::string text;
    bool isLast = false;
    std::string packed;
    std::uint32_t checksum = 0;

    void pack()
    {
        checksum =
            std::uint32_t(crc32(0, reinterpret_cast<Bytef const*>(text.data()), uInt(text.size())));
        packed = deflated(before, text, isLast);
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
    piece->before = m_before;
    m_before = m_text.substr(m_text.size() - std::min(m_text.size(), deflateReach));
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

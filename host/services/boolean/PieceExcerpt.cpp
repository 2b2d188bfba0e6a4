// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PieceExcerpt.h"

#include "host/services/Polling.h"

namespace {

constexpr std::uint32_t none = 0xffffffff;

}  // namespace

PieceExcerpt::PieceExcerpt(Pieces const& all, Places const& allPlaces, BoxCells const& where,
                           StageProgress& progress)
    : m_locals(allPlaces.size(), none)
{
    Polling polling(progress);
    std::vector<bool> isOutside(allPlaces.size(), false);
    for (std::vector<PieceTriangle> const& piece : all) {
        pieces.emplace_back();
        m_triangles.emplace_back();
        for (std::size_t t = 0; t < piece.size(); ++t, polling.step()) {
            PieceTriangle triangle = piece[t];
            if (!where.areMetBy(boxOf(triangle.corners, allPlaces))) {
                for (std::uint32_t const corner : triangle.corners)
                    isOutside[corner] = true;
                continue;
            }
            for (std::uint32_t& corner : triangle.corners)
                corner = localOf(corner, allPlaces);
            pieces.back().push_back(triangle);
            m_triangles.back().push_back(t);
        }
    }
    for (std::uint32_t const number : m_numbers)
        isInner.push_back(!isOutside[number]);
    m_locals = {};
}

std::uint32_t PieceExcerpt::localOf(std::uint32_t point, Places const& allPlaces)
{
    if (m_locals[point] == none) {
        m_locals[point] = std::uint32_t(m_numbers.size());
        m_numbers.push_back(point);
        places.push_back(allPlaces[point]);
    }
    return m_locals[point];
}

void PieceExcerpt::putBack(Pieces& all, Places& allPlaces) const
{
    for (std::size_t point = 0; point < places.size(); ++point)
        allPlaces[m_numbers[point]] = places[point];
    for (std::size_t i = 0; i < pieces.size(); ++i)
        for (std::size_t t = 0; t < pieces[i].size(); ++t)
            for (std::size_t k = 0; k < 3; ++k)
                all[i][m_triangles[i][t]].corners[k] = m_numbers[pieces[i][t].corners[k]];
}

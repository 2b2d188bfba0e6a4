// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/streaming/StreamedCut.h"

#include "platform/jobs/Exceptions.h"
#include "platform/services/HeightSlices.h"

#include <algorithm>
#include <cmath>

using Formats::Facet;

namespace {

bool hasThreeCorners(Facet const& facet)
{
    return facet[0] != facet[1] && facet[1] != facet[2] && facet[2] != facet[0];
}

Facet facetOf(UTriangle<float> const& triangle)
{
    return {triangle.cP(0), triangle.cP(1), triangle.cP(2)};
}

double middleOf(UBox3<float> const& box)
{
    return (double(box.MinZ()) + double(box.MaxZ())) / 2;
}

}  // namespace

StreamedCut::StreamedCut(std::vector<double> heights, std::filesystem::path begun)
    : m_slabs(heights),
      m_heights(std::move(heights)),
      m_begun(std::move(begun)),
      m_pieces(m_slabs.count()),
      m_band(0, 0)
{}

void StreamedCut::take(std::span<Facet const> facets)
{
    if (!m_origin && !facets.empty()) {
        m_origin = facets.front().front();
        m_bandSums.emplace(*m_origin);
    }
    for (Facet const& facet : facets) {
        if (!hasThreeCorners(facet))
            continue;
        if (auto const slab = m_slabs.of(facet))
            pieceIn(*slab).add(facet);
        else
            keep(facet);
    }
}

StreamedPiece& StreamedCut::pieceIn(std::size_t slab)
{
    if (!m_pieces[slab])
        m_pieces[slab] = std::make_unique<StreamedPiece>(m_begun, *m_origin);
    return *m_pieces[slab];
}

void StreamedCut::keep(Facet const& facet)
{
    m_bandSums->add(facet);
    std::array<UVertex<float>*, 3> corners;
    m_band.points().join(facet, corners.data());
    m_band.addTriangle(corners[0], corners[1], corners[2]);
}

PlaneCutNotes StreamedCut::finish(std::function<void(int)> const& progress)
{
    m_facts = facts();
    PlaneCutNotes notes;
    if (!m_band.isEmpty())
        notes = cutBand(progress);
    requireSound();
    return notes;
}

PlaneCutNotes StreamedCut::cutBand(std::function<void(int)> const& progress)
{
    auto const band = m_band.finish();
    HeightSlices const slices =
        sliceAtHeights(*band, HeightSlices::within(band->GetBox(), m_heights), progress);
    for (auto const& slice : slices.pieces) {
        StreamedPiece& piece = pieceIn(m_slabs.around(middleOf(slice->GetBox())));
        for (UTriangle<float> const* const triangle : slice->readMesh()->triangles)
            piece.add(facetOf(*triangle));
    }
    return slices.notes;
}

MeshFacts StreamedCut::facts() const
{
    if (m_facts.triangles > 0 || !m_bandSums)
        return m_facts;
    FacetSums all = *m_bandSums;
    for (auto const& piece : m_pieces)
        if (piece)
            all.add(piece->sums());
    return all.facts();
}

void StreamedCut::requireSound() const
{
    constexpr double tolerance = 1e-4;
    if (!m_facts.closed)
        return;
    double volume = 0;
    bool isClosed = true;
    for (auto const& piece : m_pieces)
        if (piece) {
            volume += piece->sums().volume();
            isClosed = isClosed && piece->sums().facts().closed;
        }
    if (isClosed && std::abs(volume - m_facts.volume) <= tolerance * std::abs(m_facts.volume))
        return;
    throw Mell::Exception(
        "The pieces would not be sound. Repair the part, or change the heights a little.");
}

std::vector<std::unique_ptr<StreamedPiece>> StreamedCut::takePieces()
{
    std::erase(m_pieces, nullptr);
    std::ranges::reverse(m_pieces);
    return std::move(m_pieces);
}

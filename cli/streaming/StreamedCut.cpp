// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/streaming/StreamedCut.h"

#include "host/mesh/SoundPieces.h"

#include <algorithm>

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

}  // namespace

StreamedCut::StreamedCut(std::unique_ptr<StreamPlanes> planes, std::filesystem::path begun)
    : m_planes(std::move(planes)),
      m_begun(std::move(begun)),
      m_pieces(m_planes->slabs().count()),
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
        if (auto const slab = m_planes->slabs().of(facet))
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

void StreamedCut::finish(std::function<void(int)> const& progress)
{
    m_facts = facts();
    if (!m_band.isEmpty())
        cutBand(progress);
    requireSound();
}

void StreamedCut::cutBand(std::function<void(int)> const& progress)
{
    auto const take = [&](UMesh<float> const& mesh, std::size_t slab) {
        for (UTriangle<float> const* const triangle : mesh.triangles)
            pieceIn(slab).add(facetOf(*triangle));
    };
    BandFacts facts = m_planes->cut(*m_band.finish(), m_facts.box, take, progress);
    m_notes = std::move(facts.notes);
    m_section = facts.section;
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
    std::vector<MeshFacts> pieces;
    for (auto const& piece : m_pieces)
        if (piece)
            pieces.push_back(piece->sums().facts());
    requireSoundPieces(m_facts, pieces);
}

std::vector<std::unique_ptr<StreamedPiece>> StreamedCut::takePieces()
{
    std::erase(m_pieces, nullptr);
    std::ranges::reverse(m_pieces);
    return std::move(m_pieces);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/streaming/StreamPlanes.h"
#include "cli/streaming/StreamedPiece.h"
#include "host/formats/MeshBuilder.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// Cuts a part by planes while it is read. Triangles that meet no plane go to their piece at once. The
/// others are kept, a band around each plane, and are cut at the end like any part: nothing of the
/// part that is not there bears on where it meets the planes.
///
/// Memory: the triangles that meet the planes, and a buffer for each piece.
/// See docs/decisions/0019-parts-larger-than-memory.md.
class StreamedCut
{
public:
    /// begun  as of GrowingStl, for all pieces
    StreamedCut(std::unique_ptr<StreamPlanes> planes, std::filesystem::path begun);

    /// The next triangles of the part, with finite coordinates. Throws Formats::FileError.
    void take(std::span<Formats::Facet const> facets);

    /// Cuts what was kept, once, after the last triangle.
    ///
    /// throws  as StreamPlanes::cut() and requireSoundPieces()
    void finish(std::function<void(int)> const& progress);

    /// Of the whole part.
    MeshFacts facts() const;
    /// What the cut had to say, once it is made.
    PlaneCutNotes const& notes() const { return m_notes; }
    /// Only if the planes measure it.
    std::optional<SectionFacts> const& section() const { return m_section; }
    /// From above; none is empty.
    std::vector<std::unique_ptr<StreamedPiece>> takePieces();

private:
    StreamedPiece& pieceIn(std::size_t slab);
    void keep(Formats::Facet const& facet);
    void cutBand(std::function<void(int)> const& progress);
    void requireSound() const;

    std::unique_ptr<StreamPlanes> m_planes;
    std::filesystem::path m_begun;
    std::optional<UPoint3<float>> m_origin;
    std::vector<std::unique_ptr<StreamedPiece>> m_pieces;
    /// What was kept: the band, its measures, and what the pieces measured before it was cut.
    Formats::MeshBuilder m_band;
    std::optional<FacetSums> m_bandSums;
    MeshFacts m_facts;
    PlaneCutNotes m_notes;
    std::optional<SectionFacts> m_section;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/streaming/EdgeSum.h"
#include "host/formats/GrowingStl.h"
#include "host/mesh/MeshFacts.h"

/// Measures of triangles that are taken one by one.
class FacetSums
{
public:
    /// origin  of the cones that make up the volume: sums of pieces add up only with the same one
    explicit FacetSums(UPoint3<float> const& origin) : m_origin(origin) {}

    /// Returns the facet's unit normal, zero if it has no area.
    UVector3<float> add(Formats::Facet const& facet);
    void add(FacetSums const& other);

    EdgeSum const& edges() const { return m_edges; }
    /// Without what only a mesh in memory can tell: vertices, shells and kinds of edges.
    MeshFacts facts() const;

private:
    UPoint3<float> m_origin;
    EdgeSum m_edges;
    std::size_t m_triangles = 0;
    double m_volume = 0;
    double m_area = 0;
    UBox3<float> m_box;
};

/// A piece that goes to its file triangle by triangle.
class StreamedPiece
{
public:
    StreamedPiece(std::filesystem::path const& begun, UPoint3<float> const& origin)
        : m_sums(origin), m_file(begun)
    {}

    void add(Formats::Facet const& facet) { m_file.add(facet, m_sums.add(facet)); }

    FacetSums const& sums() const { return m_sums; }
    Formats::GrowingStl& file() { return m_file; }

private:
    FacetSums m_sums;
    Formats::GrowingStl m_file;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/streaming/FacetFile.h"

#include "cli/StandardStreams.h"
#include "host/formats/FacetStream.h"

#include <vector>

using Formats::Facet;

namespace {

/// Facets times a number, and with no coordinate that is -0.
class ScaledFacets
{
public:
    ScaledFacets(float scale, Formats::TakeFacets const& take) : m_scale(scale), m_take(take) {}

    void operator()(std::span<Facet const> facets)
    {
        m_facets.assign(facets.begin(), facets.end());
        for (Facet& facet : m_facets)
            for (UPoint3<float>& corner : facet)
                corner = {corner.X() * m_scale + 0.0f, corner.Y() * m_scale + 0.0f,
                          corner.Z() * m_scale + 0.0f};
        m_take(m_facets);
    }

private:
    float m_scale;
    Formats::TakeFacets const& m_take;
    std::vector<Facet> m_facets;
};

}  // namespace

FacetFile::FacetFile(std::string source, SourceScale const& scale,
                     std::function<void(int)> progress)
    : m_source(std::move(source)),
      // None of the formats that are read so names its unit.
      m_scale(scale.ofAll * scale.unit),
      m_progress(std::move(progress))
{}

bool FacetFile::isFile() const
{
    return m_source != standardStream;
}

void FacetFile::read(Formats::TakeFacets const& take) const
{
    ScaledFacets const scaled(m_scale, take);
    if (!isFile())
        return Formats::streamBinaryStl("standard input", readStandardInput, scaled);
    Formats::InputFile input(m_source, m_progress);
    Formats::streamFacets(input, scaled);
}

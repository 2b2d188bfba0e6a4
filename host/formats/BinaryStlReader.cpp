// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/BinaryStlReader.h"

#include "host/formats/BinaryStlRecords.h"
#include "host/formats/FileError.h"
#include "host/formats/MemoryNeed.h"
#include "host/formats/MeshBuilder.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace Formats {
namespace {

using BinaryStl::countOffset;
using BinaryStl::endOfTriangles;
using BinaryStl::headerBytes;
using BinaryStl::recordBytes;

/// The most that a file may have behind its triangles, unless it is triangles again.
constexpr std::uint64_t paddingBytes = 4096;

std::uint32_t countIn(std::string_view header)
{
    std::uint32_t count = 0;
    std::memcpy(&count, header.data() + countOffset, sizeof count);
    return count;
}

std::uint32_t readCount(InputFile& input, BinaryStl::ReadBytes const& read)
{
    std::uint32_t const count = BinaryStl::readCount(input.path(), read);
    if (endOfTriangles(count) > input.size())
        throw BinaryStl::endsTooEarly(input.path(), input.size(), count);
    return count;
}

/// Joins facets into a mesh.
class FacetJoiner
{
public:
    FacetJoiner(std::filesystem::path const& path, MeshBuilder& builder)
        : m_path(path), m_builder(builder)
    {}

    void add(std::span<Facet const> facets)
    {
        std::size_t const count = facets.size() * 3;
        m_vertices.resize(std::max(m_vertices.size(), count));
        std::size_t const joined =
            m_builder.points().join({facets.front().data(), count}, m_vertices.data());
        if (joined < count)
            throw notFinite(joined);
        for (std::size_t i = 0; i < count; i += 3)
            m_builder.addTriangle(m_vertices[i], m_vertices[i + 1], m_vertices[i + 2]);
        m_done += facets.size();
    }

private:
    FileError notFinite(std::size_t corner) const
    {
        return FileError::atByte(m_path,
                                 endOfTriangles(std::uint32_t(m_done + corner / 3)) +
                                     BinaryStl::normalBytes + (corner % 3) * sizeof(UPoint3<float>),
                                 FileError::tr("a coordinate is not a finite number; three "
                                               "coordinates of a corner were expected."));
    }

    std::filesystem::path const& m_path;
    MeshBuilder& m_builder;
    std::vector<UVertex<float>*> m_vertices;
    std::uint64_t m_done = 0;
};

/// Throws if behind the triangles that the header announces there are more of them. Padding is let
/// pass.
void checkEnd(InputFile& input, std::uint32_t count)
{
    std::uint64_t const behind = input.size() - endOfTriangles(count);
    std::vector<std::byte> rest(std::min(behind, paddingBytes));
    rest.resize(input.read(rest));
    bool const isZero = std::ranges::all_of(rest, [](std::byte b) { return b == std::byte(0); });
    if (behind > paddingBytes || (behind > 0 && behind % recordBytes == 0 && !isZero))
        throw FileError::atByte(
            input.path(), countOffset,
            FileError::tr("the header announces %1 triangles, but the file holds %2; one of the "
                          "two is damaged. Export the part again.")
                .arg(count)
                .arg(count + behind / recordBytes));
}

}  // namespace

bool looksLikeBinaryStl(std::string_view head, std::uint64_t fileSize)
{
    if (head.size() < headerBytes)
        return false;
    std::uint64_t const end = endOfTriangles(countIn(head));
    return end <= fileSize && fileSize - end <= paddingBytes;
}

std::unique_ptr<MeshKernel> readBinaryStl(InputFile& input)
{
    auto const read = [&](std::span<std::byte> buffer) { return input.read(buffer); };
    std::uint32_t const count = readCount(input, read);
    requireMemoryFor(count, input.path());
    // A closed surface has half as many points as triangles.
    MeshBuilder builder(count, count / 2 + 16);
    FacetJoiner joiner(input.path(), builder);
    BinaryStl::readFacets(input.path(), count, read,
                          [&](std::span<Facet const> facets) { joiner.add(facets); });
    checkEnd(input, count);
    if (builder.isEmpty())
        throw FileError::atByte(
            input.path(), headerBytes,
            FileError::tr("no triangle has three different corners; a mesh was expected."));
    return builder.finish();
}

}  // namespace Formats

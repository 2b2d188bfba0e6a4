// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/MeshDump.h"

#include "host/formats/FileError.h"
#include "host/formats/InputFile.h"
#include "host/formats/MemoryNeed.h"
#include "host/formats/MeshSource.h"
#include "host/memory/RecordStock.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <span>
#include <vector>

namespace Formats {
namespace {

static_assert(std::endian::native == std::endian::little, "dumps are written as numbers lie");

constexpr std::array<char, 8> signature = {'O', 'R', 'B', 'E', 'M', 'S', 'H', '1'};

struct Header
{
    std::array<char, 8> name = signature;
    std::uint64_t vertices = 0;
    std::uint64_t triangles = 0;
};

using Triple = std::array<std::uint32_t, 3>;

/// A sum over triples of numbers that depends on their order: what a torn or overwritten page
/// changes it shows.
class Checksum
{
public:
    void add(Triple const& triple)
    {
        for (std::uint32_t const number : triple)
            m_sum = std::rotl(m_sum ^ number, 27) * 0x9e3779b97f4a7c15u + 0x165667b19e3779f9u;
    }
    std::uint64_t value() const { return m_sum; }

private:
    std::uint64_t m_sum = 0;
};

Triple bitsOf(UPoint3<float> const& p)
{
    return {std::bit_cast<std::uint32_t>(p.X()), std::bit_cast<std::uint32_t>(p.Y()),
            std::bit_cast<std::uint32_t>(p.Z())};
}

UPoint3<float> pointOf(Triple const& bits)
{
    return {std::bit_cast<float>(bits[0]), std::bit_cast<float>(bits[1]),
            std::bit_cast<float>(bits[2])};
}

/// Triples on their way to or from a file, some thousands at a time.
class Block
{
public:
    std::vector<Triple>& triples() { return m_triples; }
    std::span<std::byte> bytes() { return std::as_writable_bytes(std::span(m_triples)); }
    static constexpr std::size_t size = 8192;

private:
    std::vector<Triple> m_triples;
};

template <typename TripleAt>
void writeTriples(OutputFile& file, std::size_t count, Checksum& sum, TripleAt const& at)
{
    Block block;
    for (std::size_t i = 0; i < count;) {
        block.triples().clear();
        for (; i < count && block.triples().size() < Block::size; ++i) {
            block.triples().push_back(at(i));
            sum.add(block.triples().back());
        }
        file.write(block.bytes());
    }
}

[[noreturn]] void refuse(InputFile const& file)
{
    throw FileError(file.path(), FileError::tr("it is not whole, and cannot be read."));
}

void readWhole(InputFile& file, std::span<std::byte> bytes)
{
    if (file.read(bytes) != bytes.size())
        refuse(file);
}

template <typename Take>
void readTriples(InputFile& file, std::size_t count, Checksum& sum, Take const& take)
{
    Block block;
    for (std::size_t i = 0; i < count; i += block.triples().size()) {
        block.triples().resize(std::min(count - i, Block::size));
        readWhole(file, block.bytes());
        for (Triple const& triple : block.triples()) {
            sum.add(triple);
            take(triple);
        }
    }
}

template <typename T>
std::span<std::byte> bytesOf(T& value)
{
    return std::as_writable_bytes(std::span(&value, 1));
}

Header readHeader(InputFile& file)
{
    Header header;
    readWhole(file, bytesOf(header));
    constexpr std::uint64_t most = 0xffffffff;
    bool const isKnown =
        header.name == signature && header.vertices <= most && header.triangles <= most;
    std::uint64_t const size = sizeof header +
                               sizeof(Triple) * (header.vertices + header.triangles) +
                               sizeof(std::uint64_t);
    if (!isKnown || size != file.size())
        refuse(file);
    requireMemoryFor(header.triangles, file.path());
    return header;
}

void readVertices(InputFile& file, std::size_t count, Checksum& sum, UMesh<float>& mesh)
{
    RecordStock<UVertex<float>> stock;
    mesh.vertices.reserve(count);
    readTriples(file, count, sum, [&](Triple const& bits) {
        auto* const vertex = new (stock.take()) UVertex<float>();
        vertex->P() = pointOf(bits);
        vertex->ID() = std::uint32_t(mesh.vertices.size());
        mesh.vertices.push_back(vertex);
    });
    mesh.vertexCount = std::uint32_t(count);
}

void readTriangles(InputFile& file, std::size_t count, Checksum& sum, UMesh<float>& mesh)
{
    RecordStock<UTriangle<float>> stock;
    mesh.triangles.reserve(count);
    readTriples(file, count, sum, [&](Triple const& corners) {
        for (std::uint32_t const corner : corners)
            if (corner >= mesh.vertices.size())
                refuse(file);
        auto* const triangle = new (stock.take()) UTriangle<float>(
            mesh.vertices[corners[0]], mesh.vertices[corners[1]], mesh.vertices[corners[2]], {});
        triangle->N() = triangle->ComputeNormalizedNormal();
        triangle->ID() = std::uint32_t(mesh.triangles.size());
        mesh.triangles.push_back(triangle);
    });
    mesh.triangleCount = std::uint32_t(count);
}

}  // namespace

void writeMeshDump(std::filesystem::path const& path, std::shared_ptr<UMesh<float> const> mesh)
{
    MeshSource source(std::move(mesh));
    source.numberVertices();
    OutputFile file(path, Overwrite::Allow);
    Header header;
    header.vertices = source.vertexCount();
    header.triangles = source.triangleCount();
    file.write(bytesOf(header));
    Checksum sum;
    writeTriples(file, header.vertices, sum,
                 [&](std::size_t i) { return bitsOf(source.point(i)); });
    writeTriples(file, header.triangles, sum, [&](std::size_t i) {
        source.prefetch(i);
        return source.indices(i);
    });
    std::uint64_t value = sum.value();
    file.write(bytesOf(value));
    file.commit();
}

std::unique_ptr<MeshKernel> readMeshDump(std::filesystem::path const& path)
{
    InputFile file(path, {});
    Header const header = readHeader(file);
    auto mesh = std::make_unique<UMesh<float>>();
    Checksum sum;
    readVertices(file, header.vertices, sum, *mesh);
    readTriangles(file, header.triangles, sum, *mesh);
    std::uint64_t value = 0;
    readWhole(file, bytesOf(value));
    if (value != sum.value())
        refuse(file);
    auto kernel = std::make_unique<MeshKernel>(mesh.release());
    kernel->UpdateBoundingBox();
    return kernel;
}

}  // namespace Formats

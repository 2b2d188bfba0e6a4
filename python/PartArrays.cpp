// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/PartArrays.h"

#include "host/formats/MeshBuilder.h"
#include "host/formats/MeshSource.h"

#include <array>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr std::size_t rowsPerCheckpoint = 1 << 16;

template <typename Number>
std::array<Number, 3> rowOf(ArrayRows const& rows, std::size_t row)
{
    std::array<Number, 3> numbers;
    char const* place = rows.data + std::ptrdiff_t(row) * rows.rowStride;
    // Columns of records need not lie where a number may lie.
    for (Number& number : numbers) {
        std::memcpy(&number, place, sizeof number);
        place += rows.columnStride;
    }
    return numbers;
}

using Vertices = std::vector<UVertex<float>*>;

Vertices joinVertices(Formats::MeshBuilder& builder, ArrayRows const& rows,
                      std::function<void()> const& checkpoint)
{
    Vertices vertices(rows.count);
    for (std::size_t i = 0; i < rows.count; ++i) {
        if (i % rowsPerCheckpoint == 0)
            checkpoint();
        auto const [x, y, z] = rowOf<float>(rows, i);
        vertices[i] = builder.points().join({x, y, z});
        if (!vertices[i])
            throw std::invalid_argument("Vertex " + std::to_string(i) +
                                        " has a coordinate that is not a finite number in the "
                                        "range of single precision.");
    }
    return vertices;
}

template <typename Number>
void addFaces(Formats::MeshBuilder& builder, ArrayRows const& rows, Vertices const& vertices,
              std::function<void()> const& checkpoint)
{
    auto const vertexOf = [&](std::size_t face, Number number) {
        if (number < 0 || std::uint64_t(number) >= vertices.size())
            throw std::invalid_argument("Face " + std::to_string(face) + " refers to vertex " +
                                        std::to_string(number) + ", but there are " +
                                        std::to_string(vertices.size()) +
                                        " vertices, counted from 0.");
        return vertices[std::size_t(number)];
    };
    for (std::size_t i = 0; i < rows.count; ++i) {
        if (i % rowsPerCheckpoint == 0)
            checkpoint();
        auto const [a, b, c] = rowOf<Number>(rows, i);
        builder.addTriangle(vertexOf(i, a), vertexOf(i, b), vertexOf(i, c));
    }
}

}  // namespace

std::unique_ptr<MeshKernel> partOfArrays(ArrayRows const& vertices, ArrayRows const& faces,
                                         std::function<void()> const& checkpoint)
{
    Formats::MeshBuilder builder(faces.count, vertices.count);
    builder.allowUnusedPoints();
    Vertices const joined = joinVertices(builder, vertices, checkpoint);
    switch (faces.type) {
        case ArrayRows::Type::Int32:
            addFaces<std::int32_t>(builder, faces, joined, checkpoint);
            break;
        case ArrayRows::Type::UInt32:
            addFaces<std::uint32_t>(builder, faces, joined, checkpoint);
            break;
        case ArrayRows::Type::Int64:
            addFaces<std::int64_t>(builder, faces, joined, checkpoint);
            break;
        case ArrayRows::Type::UInt64:
            addFaces<std::uint64_t>(builder, faces, joined, checkpoint);
            break;
        case ArrayRows::Type::Float32:
            throw std::invalid_argument("Faces are whole numbers of vertices.");
    }
    if (builder.isEmpty())
        throw std::invalid_argument("No face has three different corners; a part was expected.");
    return builder.finish();
}

void fillVertices(MeshKernel const& part, float* to)
{
    Formats::MeshSource const mesh(part);
    for (std::size_t i = 0; i < mesh.vertexCount(); ++i) {
        UPoint3<float> const point = mesh.point(i);
        for (int axis = 0; axis < 3; ++axis)
            *to++ = point[axis];
    }
}

void fillFaces(MeshKernel const& part, std::uint32_t* to)
{
    Formats::MeshSource mesh(part);
    mesh.numberVertices();
    for (std::size_t i = 0; i < mesh.triangleCount(); ++i)
        for (std::uint32_t const vertex : mesh.indices(i))
            *to++ = vertex;
}

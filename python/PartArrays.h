// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

/// An array of rows of three numbers, wherever these lie.
struct ArrayRows
{
    enum class Type
    {
        Float32,
        Int32,
        UInt32,
        Int64,
        UInt64
    };

    char const* data = nullptr;
    std::size_t count = 0;
    /// Bytes from row to row, and from number to number.
    std::ptrdiff_t rowStride = 0, columnStride = 0;
    Type type = Type::Float32;
};

/// Makes a part of vertices (Float32, millimetres) and faces (numbers of vertices, from 0). Vertices at the same
/// place are joined and those that no face uses left out, as on reading a file.
///
/// checkpoint  called now and then; may throw, and what it throws is let pass
/// throws      std::invalid_argument that says what is wrong with the arrays
std::unique_ptr<MeshKernel> partOfArrays(ArrayRows const& vertices, ArrayRows const& faces,
                                         std::function<void()> const& checkpoint);

/// Three coordinates for each vertex of a part.
void fillVertices(MeshKernel const& part, float* to);
/// Three numbers of vertices for each triangle.
void fillFaces(MeshKernel const& part, std::uint32_t* to);

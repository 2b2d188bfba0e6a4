// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstdint>

/// The two operands of a boolean.
enum class Operand : std::uint8_t
{
    first = 0,
    second = 1,
};

constexpr Operand other(Operand operand)
{
    return operand == Operand::first ? Operand::second : Operand::first;
}

/// The triangles of both operands that may meet the other one, in one numbering: those of the first
/// operand come first, and so do its vertices. The operands share no vertex.
struct OperandSoup
{
    MeshArrays mesh;
    std::uint32_t firstPointOfSecond = 0;
    std::uint32_t firstTriangleOfSecond = 0;

    Operand operandOf(std::uint32_t triangle) const
    {
        return triangle < firstTriangleOfSecond ? Operand::first : Operand::second;
    }
    MeshArrays::Corners const& corners(std::uint32_t triangle) const
    {
        return mesh.triangles[triangle];
    }
    std::uint32_t pointCount() const { return std::uint32_t(mesh.points.size()); }
    std::uint32_t triangleCount() const { return std::uint32_t(mesh.triangles.size()); }
};

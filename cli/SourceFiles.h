// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <memory>
#include <string>
#include <vector>

namespace Formats {
class MeshFormat;
}

/// A part as it was read from a file.
struct SourcePart
{
    /// The file's path as it was given.
    std::string file;
    Formats::MeshFormat const* format = nullptr;
    std::string name;
    std::unique_ptr<MeshKernel> kernel;
    /// As 0xRRGGBBAA; 0 if the file gives none.
    unsigned color = 0;
};

/// What coordinates are multiplied by when they are read.
struct SourceScale
{
    float ofAll = 1;
    /// Millimetres per unit of files that do not name theirs.
    float unit = 1;
};

/// Multiplies the points of a mesh, and renews its box.
void multiplyPoints(MeshKernel& kernel, float factor);

/// Reads all parts of a file, in order, behind a progress display.
///
/// throws  Formats::FileError; Mell::AbortException if the user cancels
std::vector<SourcePart> readSource(std::string const& file, SourceScale const& scale);

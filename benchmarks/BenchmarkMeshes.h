// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <filesystem>
#include <memory>
#include <string>

/// A closed part of `millions` million triangles or somewhat more (1 or 4), made once per size: a
/// scanned head, split and smoothed, or a ball where that model is missing.
MeshKernel const& largePart(int millions);

/// That part of one million with small octahedra stuck in its surface at the level of its middle, as
/// flaws that a cut there touches.
MeshKernel const& largePartWithCrossings();

/// A file of that part in a format of the registry, made once and removed at the end.
std::filesystem::path largeFile(int millions, std::string const& format);

/// The highest resident memory of this process in bytes.
std::size_t peakMemory();
/// Starts the measurement of the peak anew.
void resetPeakMemory();

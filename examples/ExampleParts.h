// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <memory>

/// Small parts to try the program on: closed, outward-facing, in millimetres, standing on z = 0.

/// A round vase with a waved wall 3 mm thick, 90 mm high.
std::unique_ptr<MeshKernel> vase();

/// A bracket of 80 x 30 x 50 mm: two plates at a right angle, with a round hole in each.
std::unique_ptr<MeshKernel> bracket();

/// A pipe that turns by a quarter circle, 60 mm in each direction, open at both ends.
std::unique_ptr<MeshKernel> elbow();

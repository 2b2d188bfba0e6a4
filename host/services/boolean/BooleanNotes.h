// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/OperandSoup.h"
#include "host/services/boolean/SurfaceOrder.h"

#include <vector>

// What a boolean tells in the log beside its results: the first places, and how many more there are.

/// Pairs of triangles that cross by rounding.
void logCrossings(std::vector<UPoint3<float>> const& places);

/// What of an operand was left out or turned.
void logSurfaceOrder(SurfaceOrder const& order, MeshArrays const& mesh, Operand which);

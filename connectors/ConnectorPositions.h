// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/PinHoleParas.h"
#include "platform/geometry/UPoint3.h"

#include <map>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace Mesh {
class DocumentObject;
}

/// Where pins or holes are to stand on each part, in world millimetres, in the section plane.
using ConnectorPositions = std::map<Mesh::DocumentObject*, std::vector<UPoint3<float>>>;

/// The least distance of two positions: the holes just do not meet.
float leastDistance(PinHoleParas const& paras);

/// The first two positions, by their places in the list, that are nearer to each other than that.
std::optional<std::pair<std::size_t, std::size_t>> overlappingPair(
    std::span<UPoint3<float> const> positions, PinHoleParas const& paras);

/// Throws Mell::Exception that names the places if two positions overlap.
void refuseOverlaps(std::span<UPoint3<float> const> positions, PinHoleParas const& paras);

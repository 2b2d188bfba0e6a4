// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/streaming/StreamPlanes.h"

/// Horizontal planes, at any number of heights.
class LevelPlanes : public StreamPlanes
{
public:
    /// heights  ascending, each another number in single precision
    explicit LevelPlanes(std::vector<double> const& heights);

    BandFacts cut(MeshKernel const& band, UBox3<float> const& part, TakePiece const& take,
                  std::function<void(int)> const& progress) const override;
};

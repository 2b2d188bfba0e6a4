// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/streaming/LevelPlanes.h"

#include "platform/services/HeightSlices.h"

namespace {

/// Planes lie where single precision puts them.
std::vector<double> rounded(std::vector<double> heights)
{
    for (double& height : heights)
        height = double(float(height));
    return heights;
}

double middleOf(UBox3<float> const& box)
{
    return (double(box.MinZ()) + double(box.MaxZ())) / 2;
}

}  // namespace

LevelPlanes::LevelPlanes(std::vector<double> const& heights)
    : StreamPlanes(Slabs({0, 0, 1}, rounded(heights)))
{}

CutBand LevelPlanes::cut(MeshKernel const& band, UBox3<float> const&,
                         std::function<void(int)> const& progress) const
{
    HeightSlices slices =
        sliceAtHeights(band, HeightSlices::within(band.GetBox(), slabs().heights()), progress);
    CutBand result;
    result.notes = std::move(slices.notes);
    for (auto& slice : slices.pieces) {
        std::size_t const slab = slabs().around(middleOf(slice->GetBox()));
        result.pieces.push_back({std::move(slice), slab});
    }
    return result;
}

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

BandFacts LevelPlanes::cut(MeshKernel const& band, UBox3<float> const&, TakePiece const& take,
                           std::function<void(int)> const& progress) const
{
    auto const takeSlice = [&](std::shared_ptr<MeshKernel> const& slice) {
        take(*slice->readMesh(), slabs().around(middleOf(slice->GetBox())));
    };
    return {sliceInTurn(band, HeightSlices::within(band.GetBox(), slabs().heights()), takeSlice,
                        progress),
            {}};
}

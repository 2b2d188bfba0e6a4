// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/HeightSlices.h"

#include "host/mesh/SoundPieces.h"
#include "platform/mesh/TakenMesh.h"

#include <algorithm>
#include <array>

namespace {

using Kernel = std::shared_ptr<MeshKernel>;

/// A horizontal rectangle that faces upward and covers a box.
Kernel planeOver(UBox3<float> const& box, float height)
{
    constexpr float margin = 10;
    auto mesh = std::make_unique<UMesh<float>>();
    float const left = box.MinX() - margin, right = box.MaxX() + margin;
    float const front = box.MinY() - margin, back = box.MaxY() + margin;
    std::array<UVertex<float>*, 4> corners{};
    std::array<UPoint3<float>, 4> const places = {{{left, front, height},
                                                   {right, front, height},
                                                   {right, back, height},
                                                   {left, back, height}}};
    for (std::size_t i = 0; i < 4; ++i) {
        corners[i] = new UVertex<float>(places[i]);
        mesh->AddVertex(corners[i]);
    }
    for (std::array<std::size_t, 3> const& ids :
         {std::array<std::size_t, 3>{0, 1, 2}, std::array<std::size_t, 3>{2, 3, 0}}) {
        auto* const triangle = new UTriangle<float>;
        for (int i = 0; i < 3; ++i)
            triangle->V0(i) = corners[ids[std::size_t(i)]];
        triangle->N() = triangle->ComputeNormalizedNormal();
        mesh->AddTriangle(triangle);
    }
    return std::make_shared<MeshKernel>(mesh.release());
}

bool isEmpty(MeshKernel const& kernel)
{
    return kernel.readMesh()->triangles.empty();
}

Kernel cleaned(MeshKernel& piece)
{
    piece.DeleteDegenerateTris();
    piece.DeleteUnreferenceVerts();
    piece.UpdateTrisID();
    piece.UpdateVertsID();
    piece.UpdateBoundingBox();
    return asReadOnly(piece);
}

void requireSound(MeshKernel const& part, std::vector<Kernel> const& pieces)
{
    MeshFacts const whole = measureMesh(part);
    if (!whole.closed)
        return;
    std::vector<MeshFacts> facts;
    for (Kernel const& piece : pieces)
        facts.push_back(measureMesh(*piece));
    requireSoundPieces(whole, facts);
}

}  // namespace

std::vector<double> HeightSlices::within(UBox3<float> const& box, std::vector<double> heights)
{
    std::erase_if(heights, [&](double height) {
        return !(float(height) > box.MinZ() && float(height) < box.MaxZ());
    });
    std::sort(heights.begin(), heights.end());
    // Two that are one as a coordinate would leave nothing between them.
    auto const isSame = [](double a, double b) { return float(a) == float(b); };
    heights.erase(std::unique(heights.begin(), heights.end(), isSame), heights.end());
    return heights;
}

std::vector<double> HeightSlices::everyDistance(UBox3<float> const& box, double distance)
{
    std::vector<double> heights;
    if (box.Isnullptr() || !(distance > 0))
        return heights;
    for (std::size_t i = 1; heights.size() < mostHeights; ++i) {
        double const height = double(box.MinZ()) + double(i) * distance;
        // What is left of the last one by rounding is no piece.
        if (height > double(box.MaxZ()) - 1e-3)
            break;
        heights.push_back(height);
    }
    return heights;
}

PlaneCutNotes sliceInTurn(MeshKernel const& part, std::vector<double> const& heights,
                          TakeSlice const& take, std::function<void(int)> const& progress)
{
    PlaneCutNotes notes;
    Kernel rest = std::make_shared<MeshKernel>(part);
    int const count = int(heights.size());
    for (int i = 0; i < count && !isEmpty(*rest); ++i) {
        Kernel const plane = planeOver(part.GetBox(), float(heights[std::size_t(i)]));
        Kernel above = std::make_shared<MeshKernel>();
        PlaneCutNotes const more = cutByPlaneInTurn(
            *rest, *plane,
            [&](bool isAbove, Kernel const& piece) {
                if (isAbove)
                    above = piece;
                else
                    take(cleaned(*piece));
            },
            nullptr, [&](int percent) { progress((90 * i + percent * 9 / 10) / count); });
        append(notes, more);
        rest = cleaned(*above);
    }
    if (!isEmpty(*rest))
        take(rest);
    return notes;
}

HeightSlices sliceAtHeights(MeshKernel const& part, std::vector<double> const& heights,
                            std::function<void(int)> const& progress)
{
    HeightSlices slices;
    slices.notes = sliceInTurn(
        part, heights, [&](Kernel const& slice) { slices.pieces.push_back(slice); }, progress);
    requireSound(part, slices.pieces);
    progress(100);
    return slices;
}

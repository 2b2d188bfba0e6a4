// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/NearSoup.h"

#include "host/services/Polling.h"
#include "host/services/boolean/SideLabels.h"

namespace {

using Index = std::uint32_t;

void addPart(RecordCopies<ToolSides> const& copies, std::size_t partSize, NearSoup& near,
             Polling& polling)
{
    constexpr Index none = 0xffffffff;
    std::vector<Index> locals(partSize, none);
    MeshArrays& mesh = near.soup.mesh;
    for (UTriangle<float> const* const triangle : copies.meeting()) {
        polling.step();
        MeshArrays::Corners corners;
        for (int k = 0; k < 3; ++k) {
            Index const place = copies.placeOf(triangle->cV(k));
            if (locals[place] == none) {
                locals[place] = Index(mesh.points.size());
                mesh.points.push_back(triangle->cP(k));
                near.places.push_back(place);
                int const side = copies.sideOf(place);
                near.known.push_back(side == 0 ? SideLabels::unknown : std::int8_t(side < 0));
            }
            corners[std::size_t(k)] = locals[place];
        }
        mesh.triangles.push_back(corners);
    }
}

void addTool(MeshArrays const& tool, OperandSoup& soup, Polling& polling)
{
    MeshArrays& mesh = soup.mesh;
    soup.firstPointOfSecond = Index(mesh.points.size());
    soup.firstTriangleOfSecond = Index(mesh.triangles.size());
    mesh.points.insert(mesh.points.end(), tool.points.begin(), tool.points.end());
    for (MeshArrays::Corners corners : tool.triangles) {
        polling.step();
        for (Index& corner : corners)
            corner += soup.firstPointOfSecond;
        mesh.triangles.push_back(corners);
    }
}

}  // namespace

NearSoup gatherNear(RecordCopies<ToolSides> const& copies, std::size_t partSize,
                    MeshArrays const& tool, StageProgress& progress)
{
    NearSoup near;
    near.soup.mesh.triangles.reserve(copies.meeting().size() + tool.triangles.size());
    // Room that is not used takes no memory.
    near.soup.mesh.points.reserve(partSize + tool.points.size());
    near.places.reserve(partSize);
    near.known.reserve(partSize);
    Polling polling(progress);
    addPart(copies, partSize, near, polling);
    addTool(tool, near.soup, polling);
    return near;
}

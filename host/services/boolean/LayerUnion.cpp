// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/LayerUnion.h"

#include "host/memory/AvailableMemory.h"
#include "host/mesh/JoinedPlaces.h"
#include "host/services/Polling.h"
#include "host/services/boolean/MemoryRoom.h"
#include "host/services/boolean/SelfContacts.h"
#include "host/services/boolean/SoupBoolean.h"
#include "host/services/boolean/ToolPreparation.h"

#include <memory>
#include <utility>

namespace {

using Index = std::uint32_t;

MeshArrays withJoinedPlaces(MeshArrays mesh, StageProgress& progress)
{
    std::vector<Index> const first = joinedPlaces(mesh.points);
    Polling polling(progress);
    for (MeshArrays::Corners& corners : mesh.triangles) {
        polling.step();
        for (Index& corner : corners)
            corner = first[corner];
    }
    std::erase_if(mesh.triangles, [](MeshArrays::Corners const& c) {
        return c[0] == c[1] || c[1] == c[2] || c[2] == c[0];
    });
    return mesh;
}

/// The second operand of a boolean whose first one is empty.
PreparedTool preparedLayers(MeshArrays const& mesh, StageProgress& progress)
{
    MeshKernel const kernel(makeMesh(withJoinedPlaces(mesh, progress)).release());
    return prepareTool(kernel, progress);
}

MeshArrays meshOf(std::vector<PieceTriangle> const& piece, SoupBoolean const& boolean,
                  StageProgress& progress)
{
    constexpr Index none = 0xffffffff;
    MeshArrays mesh;
    std::vector<Index> numbers(boolean.pointCount(), none);
    Polling polling(progress);
    for (PieceTriangle const& triangle : piece) {
        polling.step();
        MeshArrays::Corners corners;
        for (std::size_t k = 0; k < 3; ++k) {
            Index& number = numbers[triangle.corners[k]];
            if (number == none) {
                number = Index(mesh.points.size());
                mesh.points.push_back(boolean.place(triangle.corners[k]));
            }
            corners[k] = number;
        }
        mesh.triangles.push_back(corners);
    }
    return mesh;
}

}  // namespace

std::optional<MeshArrays> unitedLayers(MeshArrays const& mesh, StageProgress& progress)
{
    PreparedTool layers = preparedLayers(mesh, progress);
    OperandSoup soup;
    soup.mesh = layers.mesh;
    auto const tree = layers.tree ? std::make_unique<ToolTree>(layers.mesh, std::move(layers.tree))
                                  : std::make_unique<ToolTree>(layers.mesh, progress);
    // Shells that hardly differ are folded in slivers: united by curves they cross after rounding,
    // and the repair knows better ways.
    auto contacts = findSelfContacts(*tree, layers.suspects, progress, false);
    if (contacts.size() > mostContacts(availableMemory()))
        return {};

    // Nothing of the first operand is anywhere.
    std::vector<std::pair<Index, int>> anchors;
    for (Index const anchor : layers.anchors)
        anchors.emplace_back(anchor, 0);
    WindingSources sources;
    sources.anchors = anchors;
    sources.isSecondSimple = layers.isSimple;
    sources.ofFirst = [](std::span<RayOrigin const> points) {
        return WindingSources::Numbers(points.size(), 0);
    };
    sources.ofSecond = [&tree](RayOrigin const& point) { return tree->windingAt(point); };

    SoupBoolean boolean(soup);
    if (!boolean.resolve(std::move(contacts), sources, progress))
        return {};
    auto piece = boolean.piece(BooleanPiece::united, progress);
    if (!piece)
        return {};
    std::vector<std::vector<PieceTriangle>> pieces{std::move(*piece)};
    boolean.mendRounding(pieces, SoupBoolean::AfterMending::onlyPlaces, progress);
    return meshOf(pieces[0], boolean, progress);
}

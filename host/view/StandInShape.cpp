// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/StandInShape.h"

#include <algorithm>

namespace {

/// Whether a box lies beside the picture as a whole.
bool isBeside(StandIn::Block const& block, QMatrix4x4 const& toClip)
{
    bool isOut[4] = {true, true, true, true};
    for (int corner = 0; corner < 8; ++corner) {
        QVector4D const clip = toClip * QVector4D(corner & 1 ? block.high[0] : block.low[0],
                                                  corner & 2 ? block.high[1] : block.low[1],
                                                  corner & 4 ? block.high[2] : block.low[2], 1);
        isOut[0] = isOut[0] && clip.x() < -clip.w();
        isOut[1] = isOut[1] && clip.x() > clip.w();
        isOut[2] = isOut[2] && clip.y() < -clip.w();
        isOut[3] = isOut[3] && clip.y() > clip.w();
    }
    return std::any_of(isOut, isOut + 4, [](bool out) { return out; });
}

/// Those in sight, neighbours joined.
std::vector<IndexRange> rangesInSight(std::vector<StandIn::Block> const& blocks,
                                      QMatrix4x4 const& toClip)
{
    std::vector<IndexRange> ranges;
    std::size_t first = 0;
    for (StandIn::Block const& block : blocks) {
        std::size_t const count = 3 * std::size_t(block.count);
        if (!isBeside(block, toClip)) {
            if (!ranges.empty() && ranges.back().first + ranges.back().count == first)
                ranges.back().count += count;
            else
                ranges.push_back({first, count});
        }
        first += count;
    }
    return ranges;
}

std::size_t trianglesIn(std::vector<IndexRange> const& ranges)
{
    std::size_t indices = 0;
    for (IndexRange const& range : ranges)
        indices += range.count;
    return indices / 3;
}

}  // namespace

StandInShape::StandInShape(std::shared_ptr<StandIn const> made, DrawDevice::Geometry const& exact)
    : m_made(std::move(made)), m_exact(exact), m_levelCount(m_made->levels.size())
{}

bool StandInShape::upload(DrawDevice& device, std::size_t bytes)
{
    if (isWhole())
        return true;
    StandIn::Level const& next = m_made->levels[m_levels.size()];
    if (!m_upload)
        m_upload = next.vertices.empty()
                       ? std::make_unique<SurfaceUpload>(device, m_exact, next.indices)
                       : std::make_unique<SurfaceUpload>(device, next.vertices, next.indices);
    if (!m_upload->step(bytes))
        return false;
    m_levels.push_back({m_upload->take(), next.blocks, next.cell});
    m_upload.reset();
    m_bytes += next.vertices.size() * sizeof(PartSurface::Vertex) +
               next.indices.size() * sizeof(std::uint32_t);
    if (!isWhole())
        return false;
    m_made.reset();
    return true;
}

StandInShape::Choice StandInShape::choose(QMatrix4x4 const& toClip, std::size_t triangles) const
{
    Choice choice;
    for (Level const& level : m_levels) {
        choice = {level.geometry.get(), rangesInSight(level.blocks, toClip), level.cell};
        if (trianglesIn(choice.ranges) <= triangles)
            break;
    }
    return choice;
}

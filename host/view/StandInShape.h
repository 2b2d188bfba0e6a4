// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/StandIn.h"
#include "host/view/SurfaceUpload.h"

#include <QMatrix4x4>

/// A StandIn on the device.
///
/// thread  that of the view, with its context current
class StandInShape
{
public:
    /// exact  the surface that it stands for, which lives as long as this
    StandInShape(std::shared_ptr<StandIn const> made, DrawDevice::Geometry const& exact);

    /// Uploads so many bytes more. Until it returns true there is nothing to draw.
    bool upload(DrawDevice& device, std::size_t bytes);
    bool isWhole() const { return m_levels.size() == m_levelCount; }

    /// What is to be drawn of it.
    struct Choice
    {
        DrawDevice::Geometry* geometry = nullptr;
        /// Those in sight.
        std::vector<IndexRange> ranges;
        /// The width of the cells whose points were joined; 0 for exact triangles.
        double cell = 0;
    };

    /// The finest level of which at most `triangles` are in sight, or else the coarsest.
    Choice choose(QMatrix4x4 const& toClip, std::size_t triangles) const;

    /// On the device.
    std::size_t bytes() const { return m_bytes; }

private:
    struct Level
    {
        std::unique_ptr<DrawDevice::Geometry> geometry;
        std::vector<StandIn::Block> blocks;
        double cell;
    };

    std::shared_ptr<StandIn const> m_made;
    DrawDevice::Geometry const& m_exact;
    std::unique_ptr<SurfaceUpload> m_upload;
    std::size_t m_levelCount;
    std::vector<Level> m_levels;
    std::size_t m_bytes = 0;
};

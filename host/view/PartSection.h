// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/PlaneSection.h"

#include <memory>

/// The section of a part by a plane as it is drawn; kept until plane or mesh change.
struct PartSection
{
    using Points = std::vector<UPoint3<float>>;

    PartSection(PickTree const& tree, std::shared_ptr<UMesh<float> const> const& mesh,
                ViewPlane const& plane);

    bool isOf(std::shared_ptr<UMesh<float> const> const& mesh, ViewPlane const& plane) const;

    /// Pairs of points.
    Points lines;
    /// The triangles of the area and then a rectangle of four points around it; empty if there is
    /// none.
    Points cap;

private:
    std::weak_ptr<UMesh<float> const> m_mesh;
    std::size_t m_triangles;
    ViewPlane m_plane;
};

/// Leaves out what of the lines has a height above 0 by a plane.
PartSection::Points linesBelow(PartSection::Points const& lines, ViewPlane const& plane);

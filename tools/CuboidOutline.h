// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/VolumeOutline.h"

namespace Freecut {

class CuboidProperty;

/// The outlines of a cuboid: a rectangle around its first key point. Writes the other key points.
class CuboidOutline : public VolumeOutline
{
public:
    /// cuboid  borrowed
    explicit CuboidOutline(CuboidProperty& cuboid);

protected:
    Rounding rounding() const override;
    void deriveNominal(SketchPlane const& plane, WorkPoll const& poll) override;
    /// Caps as fans: around the middle as triangles, from the first corner as points.
    void appendSolid(SolidPreview& preview) const override;

private:
    CuboidProperty& m_cuboid;
};

}  // namespace Freecut

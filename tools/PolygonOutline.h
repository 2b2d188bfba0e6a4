// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/VolumeOutline.h"

namespace Freecut {

class PolygonProperty;

/// The outlines of a polygon with its teeth, sorted out where it crosses itself.
class PolygonOutline : public VolumeOutline
{
public:
    /// polygon  borrowed
    explicit PolygonOutline(PolygonProperty& polygon);

    /// Of outlines with more than a few dozen points.
    Derivation derivation(GLCamera const& camera) const override;

protected:
    Rounding rounding() const override;
    /// The points of the teeth follow, too.
    void pinToScreen(SketchPlane const& plane) override;
    void deriveNominal(SketchPlane const& plane, WorkPoll const& poll) override;

private:
    Ring outlineWithTeeth() const;
    Loops teethUnderEdit() const;

    PolygonProperty& m_polygon;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/PollSteps.h"
#include "tools/SketchPlane.h"
#include "tools/SolidPreview.h"
#include "tools/ToolOutlines.h"

#include <functional>

namespace Freecut {

class OutlineOffset;
class VolumeProperty;

/// Derives the outlines of a solid tool from its record: the nominal outline, which is the
/// subclass's own; its rounded corners; the outlines on both sides of the clearance; the caps of
/// the solid. An outline that is too complicated is refused: ToolOutlines::problem says why.
///
/// See docs/decisions/0010-solid-tools.md.
///
/// thread  the user interface thread
class VolumeOutline
{
public:
    virtual ~VolumeOutline() = default;
    VolumeOutline(VolumeOutline const&) = delete;
    VolumeOutline& operator=(VolumeOutline const&) = delete;

    ToolOutlines const& outlines() const { return m_outlines; }
    VolumeProperty const& record() const { return m_record; }
    /// Cuboid and cylinder have one ring, whose caps are known before a solid is built.
    bool isRing() const { return m_kind == Kind::OneRing; }

    /// Derives all outlines anew, and the solid during a preview. Without key points there are
    /// none.
    ///
    /// viewChanged  the camera was turned: depth and world points of the record follow from its
    ///              points in eye space first
    /// isOpenGL33   as for buildSolidBuffers
    /// poll         what it throws passes and leaves no outlines
    void update(GLCamera const& camera, bool viewChanged, bool isOpenGL33,
                WorkPoll const& poll = {});

    /// Derives outlines on values of its own, on any thread; what the poll throws passes.
    using Derivation = std::function<ToolOutlines(WorkPoll const&)>;
    /// What update() without a turned view would derive from the record as it is now, a solid
    /// aside; empty where that takes so little time that it is not worth another thread.
    virtual Derivation derivation(GLCamera const& /*camera*/) const { return {}; }
    /// Takes outlines over that were derived apart.
    void take(ToolOutlines outlines) { m_outlines = std::move(outlines); }

    /// Moves the bottom down by the record's extrudeVector and writes the faces of the inner solid.
    /// The bottom of a ring is moved once more by each call until the next update.
    ///
    /// isOpenGL33  points for the geometry shader instead of triangles with normals
    void buildSolidBuffers(bool isOpenGL33);

    /// The outline of the inner solid: the one moved inward if the clearance goes there, or else
    /// the rounded one if rounding counts, or else the nominal one. Without repeats.
    Loops innerOutline() const;
    /// The outline of the outer solid: the one moved outward, or else the rounded one if rounding
    /// is on, whether it has points or not, or else the nominal one. Without repeats.
    Loops outerOutline() const;

protected:
    enum class Kind
    {
        OneRing,
        ManyLoops
    };
    struct Rounding
    {
        bool isOn = false;
        float radius = 0;

        bool counts() const;
    };

    VolumeOutline(VolumeProperty& record, Kind kind) : m_record(record), m_kind(kind) {}

    virtual Rounding rounding() const { return {}; }
    /// Takes the world points of the record from its points in eye space.
    virtual void pinToScreen(SketchPlane const& plane);
    /// Fills solidLoops and what else comes with it. There are key points.
    virtual void deriveNominal(SketchPlane const& plane, WorkPoll const& poll) = 0;
    virtual void appendSolid(SolidPreview& preview) const;

    ToolOutlines m_outlines;

private:
    bool hasClearance() const;
    Loops nominalWithoutRepeat() const;
    void derive(SketchPlane const& plane, WorkPoll const& poll);
    void round(Loops& loops, WorkPoll const& poll) const;
    void deriveClearance(SketchPlane const& plane, WorkPoll const& poll);
    /// Runs for both sides at once. False if the outline is too complicated.
    bool deriveMoved(Loops& loops, OutlineOffset const& offset, double distance,
                     WorkPoll const& poll) const;
    void refuseClearance();
    void keepPaths(Loops& paths) const;
    void chooseCaps();
    void flatten();

    VolumeProperty& m_record;
    Kind m_kind;
};

}  // namespace Freecut

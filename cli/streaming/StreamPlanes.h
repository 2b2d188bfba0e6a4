// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/streaming/Slabs.h"
#include "platform/services/PlaneCutNotes.h"

#include <functional>
#include <memory>
#include <optional>

/// What there is to tell of the cut of the triangles around the planes.
struct BandFacts
{
    PlaneCutNotes notes;
    /// Only if somebody wants it.
    std::optional<SectionFacts> section;
};

/// The planes that a part is cut by while it is read: which triangles they meet, and the cut of these.
class StreamPlanes
{
public:
    virtual ~StreamPlanes() = default;

    Slabs const& slabs() const { return m_slabs; }

    /// Takes the triangles of a piece of the band, which belong to a slab. It may keep nothing: the
    /// next piece is made in the same memory.
    using TakePiece = std::function<void(UMesh<float> const& mesh, std::size_t slab)>;

    /// Cuts what lies in no slab, once all of it is known, and hands the pieces out as they are made.
    ///
    /// band    the triangles whose corners do not all lie in one slab
    /// part    the box of the whole part
    /// throws  as Intersect::cutByPlane, whatever was handed out; Mell::Exception if the part is such
    ///         that the slabs may have been told wrongly
    virtual BandFacts cut(MeshKernel const& band, UBox3<float> const& part, TakePiece const& take,
                          std::function<void(int)> const& progress) const = 0;

protected:
    explicit StreamPlanes(Slabs slabs) : m_slabs(std::move(slabs)) {}

private:
    Slabs m_slabs;
};

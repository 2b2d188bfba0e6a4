// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/streaming/Slabs.h"
#include "platform/services/PlaneCutNotes.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// What was made of the triangles around the planes.
struct CutBand
{
    struct Piece
    {
        std::shared_ptr<MeshKernel> mesh;
        std::size_t slab;
    };
    /// None is empty.
    std::vector<Piece> pieces;
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

    /// Cuts what lies in no slab, once all of it is known.
    ///
    /// band    the triangles whose corners do not all lie in one slab
    /// part    the box of the whole part
    /// throws  as Intersect::cutByPlane; Mell::Exception if the part is such that the slabs may have been
    ///         told wrongly
    virtual CutBand cut(MeshKernel const& band, UBox3<float> const& part,
                        std::function<void(int)> const& progress) const = 0;

protected:
    explicit StreamPlanes(Slabs slabs) : m_slabs(std::move(slabs)) {}

private:
    Slabs m_slabs;
};

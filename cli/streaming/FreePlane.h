// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/streaming/StreamPlanes.h"
#include "tools/PlanePlacement.h"

/// One plane in any direction, which ends nowhere. It is the plane that a cut of the part in memory would
/// have, and known as such only with the part's box: its mesh reaches beyond that, and its corners
/// are rounded. Until then what lies near to where it should be counts as met.
class FreePlane : public StreamPlanes
{
public:
    struct Place
    {
        UPoint3<float> center;
        /// Of length one; the upper piece lies there.
        UVector3<float> normal;
        /// Of its rectangle, from which its corners are told; else as large as the part.
        std::optional<Freecut::PlaneSize> size;
    };

    FreePlane(Place const& place, bool measuresSection);

    BandFacts cut(MeshKernel const& band, UBox3<float> const& part, TakePiece const& take,
                  std::function<void(int)> const& progress) const override;

private:
    std::shared_ptr<MeshKernel> meshBeyond(UBox3<float> const& part) const;
    void requireNear(UMesh<float> const& plane, UBox3<float> const& part) const;

    Place m_place;
    bool m_measuresSection;
};

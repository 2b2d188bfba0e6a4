// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/common/CutFailure.h"
#include "cutjobs/common/CutRemark.h"
#include "cutjobs/common/CutResultMap.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/services/PlaneCutNotes.h"

#include <functional>
#include <memory>
#include <string>

/// The kernels that one plane cut of one part makes.
struct CutSides
{
    /// The piece on the side to which the plane's normal points.
    std::shared_ptr<MeshKernel> sideA = std::make_shared<MeshKernel>();
    std::shared_ptr<MeshKernel> sideB = std::make_shared<MeshKernel>();
    /// Null if it was not asked for.
    std::shared_ptr<MeshKernel> section;
    PlaneCutNotes notes;

    /// Cuts a working copy of the part and cleans up side A and then side B.
    ///
    /// progress          of the whole job; may be empty
    /// index, partCount  the part's place in the job
    /// wantsSection      whether the cut's face is made, in `section`
    /// failure           receives why the cut failed
    /// throws            as ServiceCall::run
    static CutSides cut(MeshKernel const* part, MeshKernel* plane,
                        std::function<void(int)> const& progress, int index, int partCount,
                        bool wantsSection, CutFailure& failure);

    /// Whether the plane left the part whole: one side holds all of it.
    bool isUncut() const;

    /// What a person must be told of the cut.
    ///
    /// isBounded  the plane ends at its rectangle
    CutRemarks remarks(Mesh::DocumentObject* part, bool isBounded) const;

    /// Appends to the part's pieces side A and then side B, each if it has triangles.
    ///
    /// throws  as storePiece
    void store(CutResultMap& result, Mesh::DocumentObject* part) const;
};

/// Cleans up a piece that a service has made.
void cleanUpPiece(MeshKernel& piece);

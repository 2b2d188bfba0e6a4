// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/common/CutRemark.h"
#include "platform/services/SolidSplit.h"
#include "tools/SolidLoops.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// What a cut by a solid tool would do to parts, found by the services that cut.
///
/// See docs/decisions/0014-solid-cuts-before-the-cut.md.
///
///     VolumeRequest request{{{part, std::make_shared<MeshKernel>(*kernelOfPart(part))}}, loops};
///     for (VolumeForecast const& forecast : surveyVolumeCut(request, poll)) ...
struct VolumeRequest
{
    struct Part
    {
        /// To be named in the forecast; not looked at, so it may go meanwhile.
        Mesh::DocumentObject* object;
        /// A copy of the part's; only read.
        std::shared_ptr<MeshKernel const> kernel;
    };

    std::vector<Part> parts;
    Freecut::SolidLoops tool;
};

/// Of one part.
struct VolumeForecast
{
    Mesh::DocumentObject* object = nullptr;
    /// How many bodies there will be within the tool and outside it: the two pieces of the cut, or
    /// more where one of them falls apart.
    std::size_t inside = 0;
    std::size_t outside = 0;
    /// Where the tool's surface meets the part's.
    ContourLines contours;
    /// What the cut would remark.
    std::optional<CutRemark> remark;
    /// Why the part cannot be cut, as a sentence; all else is empty then.
    std::string failure;

    std::size_t pieces() const { return inside + outside; }
};

/// returns  one forecast for each part, in order; none without a solid to cut with
/// thread   any; reads only what the request owns
/// poll     called often; may be empty; what it throws passes
/// cost     that of the cut, part by part
std::vector<VolumeForecast> surveyVolumeCut(VolumeRequest const& request,
                                            std::function<void()> const& poll);

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/MeshFacts.h"
#include "platform/services/Repair.h"

#include <functional>
#include <memory>

/// What is told of a part that is looked at and not worked on.
struct PartReview
{
    MeshFacts facts;
    Repair::EvaluateErrors::Counts errors;
};

/// Measures a part, which belongs to nobody else, and counts its errors. Its records, which are most of
/// what it takes, are freed before.
///
/// progress  percentages; may throw, and what it throws is let pass
/// cost      that of measureMesh and of EvaluateErrors; 110 bytes per triangle at the most
PartReview reviewPart(std::unique_ptr<MeshKernel> part, std::function<void(int)> const& progress);

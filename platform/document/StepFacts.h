// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/Document.h"
#include "platform/geometry/UVector3.h"

#include <optional>
#include <string>
#include <vector>

namespace Base {

/// What an undo step did, as a list of steps tells it.
struct StepFacts
{
    std::string name;
    /// The names of the parts that it was done to, as they were before: those that were taken away, with
    /// those that changed if nothing was added, or else changed, or else added.
    std::vector<std::string> parts;
    /// Of a single part that got another name.
    std::optional<std::string> renamed;

    // The same for all parts, or not told.

    /// World millimetres; of parts that were neither turned nor scaled.
    std::optional<UVector3<double>> moved;
    struct Turn
    {
        /// A unit vector; the angle is above 0, counter-clockwise about it.
        UVector3<double> axis;
        double degrees = 0;
    };
    std::optional<Turn> turned;
    /// Along the axes.
    std::optional<UVector3<double>> scaled;

    /// Of horizontal planes by which pieces were cut, from below, in world millimetres.
    std::vector<double> heights;
};

/// Of all steps of a document, the oldest first; those that were taken back come last.
std::vector<StepFacts> stepFacts(Document const& document);

}  // namespace Base

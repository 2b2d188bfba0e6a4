// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorLimits.h"
#include "connectors/LapJointParas.h"
#include "connectors/PinHoleParas.h"
#include "cutjobs/SectionCutType.h"

#include <map>
#include <string>

namespace CLI {
class App;
}

/// The connectors of a section cut on the command line.
struct ConnectorOptions
{
    enum class Kind
    {
        None,
        Pins,
        Holes,
        LapJoint,
    };
    Kind kind = Kind::None;
    /// As typed, by option, dashes included; only what was given.
    std::map<std::string, std::string> lengths;
    int basedOn = ConnectorLimits::LapJoint::basedOn.initial;
    bool givesBasedOn = false;
    /// Connectors on the centre lines that would come too near a contour are left out.
    bool keepClear = false;

    void addTo(CLI::App& command);

    /// Throws UsageError for an option that has no meaning with this kind, and for a value outside
    /// its limits.
    void check() const;

    SECTIONCUTTYPE cutType() const;
    /// The word for the kind on the command line, without its dashes; "none" for a plain cut.
    char const* name() const;

    // A length that was not given has its default, or the nearest value that agrees with those that
    // were. Both throw UsageError that names the limit a value breaks.
    /// Pins and holes stand along the contours if their side distance is given, else on the centre
    /// lines.
    PinHoleParas pinHoleParas() const;
    LapJointParas lapJointParas() const;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorChoice.h"
#include "connectors/ConnectorLimits.h"
#include "connectors/ConnectorPreset.h"
#include "connectors/LapJointParas.h"
#include "connectors/PinHoleParas.h"
#include "connectors/SectionSurvey.h"
#include "cutjobs/SectionCutType.h"
#include "cutjobs/common/CutRemark.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

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
    /// A file with values to start from, and what was read from it.
    std::string presetFile;
    std::optional<ConnectorPreset> preset;
    /// Connectors by hand, as typed.
    std::vector<std::string> atTexts;
    std::vector<std::string> withoutTexts;

    void addTo(CLI::App& command);

    /// Reads the preset, if one is asked for; it also gives the kind if no option does. Throws
    /// UsageError if it cannot be used.
    void loadPreset();

    /// Throws UsageError for an option that has no meaning with this kind, and for a value outside
    /// its limits.
    void check() const;

    /// What to change about a remark, naming the option to blame, to go on after it; may be empty.
    std::string adviceOn(CutRemark::Kind kind) const;

    SECTIONCUTTYPE cutType() const;
    /// The word for the kind on the command line, without its dashes; "none" for a plain cut.
    char const* name() const;

    // A length that was not given has its default, or the nearest value that agrees with those that
    // were. Both throw UsageError that names the limit a value breaks.
    /// Pins and holes stand along the contours if their side distance is given, else on the centre
    /// lines.
    PinHoleParas pinHoleParas() const;
    LapJointParas lapJointParas() const;
    /// The one of the two that the kind needs, or neither.
    ConnectorParas paras() const;
    /// What --at and --without ask for. Throws UsageError for what is not a place or a number, and
    /// for places that overlap.
    ConnectorChoice choice() const;
};

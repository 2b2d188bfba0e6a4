// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/VolumeSurvey.h"
#include "tools/ClearanceFit.h"

#include <QStringList>

namespace Freecut {

/// What is known of a cut before it is made.
struct ForecastResult
{
    std::vector<VolumeForecast> forecasts;
    /// The names of their parts.
    QStringList names;
    ClearanceFit fit;
};

/// The forecast in words, one line after the other, in the language and the unit of the interface.
namespace ForecastTexts {

/// What will become of the parts, and how wide the gaps are.
QStringList facts(ForecastResult const& result);
/// What a person had better change.
QStringList warnings(ForecastResult const& result);

}  // namespace ForecastTexts

}  // namespace Freecut

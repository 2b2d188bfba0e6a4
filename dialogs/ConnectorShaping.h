// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/SectionSurvey.h"
#include "display/ConnectorPicture.h"

namespace Freecut {

/// Adds what is to be seen of a part's connectors.
///
/// survey  of the request
void appendShapes(ConnectorShapes& shapes, SurveyRequest const& request,
                  SectionSurvey const& survey);

}  // namespace Freecut

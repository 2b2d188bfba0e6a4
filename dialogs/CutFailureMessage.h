// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/PartRepair.h"
#include "cutjobs/common/CutFailure.h"

#include <QString>

namespace Base {
class GLView;
}

namespace Freecut {

/// What the user wants after a cut has failed.
enum class WayOut
{
    None,
    RepairAndCutAgain,
};

/// The reason of a failure, with the name of the part before it.
QString reasonWithPart(CutFailure const& failure);

/// Warns that a cut has failed, and says why, with the name of the part. Where the place is known
/// the user may have it shown in the view, where a mark then stands; this has been done when it
/// returns.
///
/// message       what the user is told of every failure of that kind
/// view          of the part; null for none
/// offersRepair  whether a repair may be offered where it may help
WayOut tellCutFailure(QString const& message, CutFailure const& failure, Base::GLView* view,
                      bool offersRepair);

/// Warns that a repair has left the part as it was; silent for other ends.
void tellUnmended(PartRepair::End end);

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/CameraWatch.h"

#include "platform/view/GLView.h"

namespace Freecut {

CameraPose poseOf(Base::GLView const& view)
{
    UPoint3<float> const ref = view.getViewRefPoint();
    return {ref + view.getViewDirection(), ref, view.getViewUpDirection()};
}

CameraChange changeBetween(CameraPose const& last, CameraPose const& now)
{
    if (last.ref != now.ref)
        return last.eye != now.eye ? CameraChange::Panned : CameraChange::ReferenceMoved;
    if (last.eye != now.eye)
        return CameraChange::Turned;
    return last.up != now.up ? CameraChange::Rolled : CameraChange::None;
}

}  // namespace Freecut

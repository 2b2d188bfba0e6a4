// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/PlacedView.h"

#include "platform/view/GLView.h"
#include "tools/ViewAxes.h"

namespace Freecut {

namespace {

UVector3<double> widened(UVector3<float> const& v)
{
    return {double(v.X()), double(v.Y()), double(v.Z())};
}

}  // namespace

void putView(Base::GLView& view, ViewPlace const& place)
{
    // A move that is not painted yet would hide the turn from the tools.
    view.paintPending();
    GLCamera& camera = *view.getCamera();
    if (place.reference) {
        camera.recentre();
        camera.set_ref(place.reference->X(), place.reference->Y(), place.reference->Z(), true);
    }
    if (isAxisView(place.standard)) {
        view.OnViewType(place.standard);
        return;
    }
    camera.set_axes(widened(place.direction), widened(place.up));
    emit view.signalCameraChanged();
    view.redraw();
}

ViewPlace settledPlaceOf(Base::GLView& view)
{
    view.getCamera()->recentre();
    ViewPlace place;
    place.standard = isAxisView(view.viewIndex()) ? view.viewIndex() : -1;
    place.reference = view.getViewRefPoint();
    place.direction = view.getViewDirection();
    place.up = view.getViewUpDirection();
    putView(view, place);
    view.paintPending();
    return place;
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/PlaneProperty.h"

#include "tools/PlaneGraphicObject.h"

namespace Freecut {

PlaneProperty::PlaneProperty()
{
    keyPoints.resize(9);
}

std::vector<UPoint3<float>> PlaneProperty::getCorners() const
{
    return {planeCorners.begin(), planeCorners.end()};
}

void PlaneProperty::setCorners(UPoint3<float> const& a, UPoint3<float> const& b,
                               UPoint3<float> const& c, bool silent)
{
    planeCorners = {a, b, c};
    if (!silent && isContainedIn("Freecut::PlaneGraphicObject"))
        static_cast<PlaneGraphicObject*>(getContainer())->signalChanged();
}

void PlaneProperty::updateKeyPoints()
{
    auto const& [a, b, c] = planeCorners;
    UVector3<float> const half1 = (b - a) * 0.5f;
    UVector3<float> const half2 = (c - b) * 0.5f;
    UPoint3<float> const center = (a + c) * 0.5f;
    keyPoints = {center,
                 a,
                 b,
                 c,
                 center + half2 - half1,
                 center - half2,
                 center - half1,
                 center + half2,
                 center + half1};
}

}  // namespace Freecut

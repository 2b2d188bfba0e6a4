// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/CrossingPair.h"

#include "tests/support/MeshBuilders.h"

#include <array>

namespace {

using Corners = std::array<UPoint3<float>, 8>;

/// A box whose corners have come to lie somewhere near.
Soup boxAt(Corners const& corners)
{
    Soup soup = box(1, 1, 1);
    soup.points.assign(corners.begin(), corners.end());
    return soup;
}

}  // namespace

SolidPair pairLeftCrossing()
{
    Soup hollow = boxAt({{{-0.116151512f, -0.930413902f, 0.408423483f},
                          {-1.34525132f, 1.30068374f, -3.89407778f},
                          {-4.8302598f, -0.450080395f, 2.0041883f},
                          {-6.05935955f, 1.7810173f, -2.2983129f},
                          {1.00923681f, 3.51834798f, 2.39387465f},
                          {-0.219862953f, 5.74944592f, -1.90862656f},
                          {-3.70487118f, 3.99868131f, 3.98963952f},
                          {-4.93397141f, 6.22977924f, -0.312861681f}}});
    Soup cavity = boxAt({{{-0.597933412f, -0.214394569f, 0.336295009f},
                          {-1.33539343f, 1.12426376f, -2.24520588f},
                          {-1.54075515f, -0.118327856f, 0.65544796f},
                          {-2.27821517f, 1.22033048f, -1.92605281f},
                          {0.0772996396f, 2.45486259f, 1.52756584f},
                          {-0.660160303f, 3.79352117f, -1.05393505f},
                          {-0.865522027f, 2.55092931f, 1.84671879f},
                          {-1.60298204f, 3.88958764f, -0.734782219f}}});
    cavity.flip();
    hollow.append(cavity);
    return {"hollow box and box that nearly coincide", hollow,
            boxAt({{{-1.7342062f, -3.50360441f, -0.463694334f},
                    {-5.50549269f, -3.11933756f, 0.812917531f},
                    {-0.833895385f, 0.0554051399f, 1.12466669f},
                    {-4.60518217f, 0.439671993f, 2.4012785f},
                    {-2.4716661f, -2.16494584f, -3.0451951f},
                    {-6.24295235f, -1.78067899f, -1.7685833f},
                    {-1.57135534f, 1.39406371f, -1.45683408f},
                    {-5.34264183f, 1.77833056f, -0.180222273f}}})};
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/CuboidViewProvider.h"

#include "tools/CuboidGraphicObject.h"
#include "tools/CuboidOutline.h"

namespace Freecut {

void CuboidViewProvider::initGL()
{
    initSolidGL();
}

void CuboidViewProvider::paintGL()
{
    paintSolid();
}

void CuboidViewProvider::buildMarkers()
{
    if (m_object)
        buildMarkersAt(tool()->getProperty().getKeyPoints());
}

std::unique_ptr<VolumeOutline> CuboidViewProvider::makeOutline() const
{
    return std::make_unique<CuboidOutline>(tool()->getProperty());
}

CuboidGraphicObject* CuboidViewProvider::tool() const
{
    return static_cast<CuboidGraphicObject*>(m_object);
}

LinePicture CuboidViewProvider::linePicture() const
{
    return pictureOfCuboid(shownOutlines(), tool()->getProperty().getRoundCorners());
}

std::vector<LineRun> CuboidViewProvider::faces33() const
{
    return facesOfCuboid33(shownOutlines());
}

std::vector<LabelledPoint> CuboidViewProvider::labels() const
{
    return labelAtCentre(*tool());
}

}  // namespace Freecut

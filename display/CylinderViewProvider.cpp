// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/CylinderViewProvider.h"

#include "tools/CylinderGraphicObject.h"
#include "tools/CylinderOutline.h"

#include <algorithm>

namespace Freecut {

void CylinderViewProvider::initGL()
{
    initSolidGL();
}

void CylinderViewProvider::paintGL()
{
    paintSolid();
}

void CylinderViewProvider::buildMarkers()
{
    if (!m_object)
        return;
    CylinderProperty const& record = tool()->getProperty();
    std::vector<UPoint3<float>> points = record.getKeyPoints();
    points.resize(std::min<std::size_t>(points.size(), record.getUseNotch() ? 2 : 1));
    buildMarkersAt(points);
}

std::unique_ptr<VolumeOutline> CylinderViewProvider::makeOutline() const
{
    return std::make_unique<CylinderOutline>(tool()->getProperty());
}

CylinderGraphicObject* CylinderViewProvider::tool() const
{
    return static_cast<CylinderGraphicObject*>(m_object);
}

LinePicture CylinderViewProvider::linePicture() const
{
    return pictureOfCylinder(shownOutlines());
}

std::vector<LabelledPoint> CylinderViewProvider::labels() const
{
    return labelAtCentre(*tool());
}

}  // namespace Freecut

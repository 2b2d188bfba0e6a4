// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/ToolLabels.h"

#include "display/TLabel.h"
#include "platform/ui/Quantity.h"
#include "platform/ui/Theme.h"
#include "platform/view/GLView.h"
#include "tools/CentredGraphicObject.h"
#include "tools/ViewAxes.h"
#include "tools/VolumeProperty.h"

namespace Freecut {

namespace {

QString coordinate(UPoint3<float> const& point, int axis)
{
    constexpr char const* names[] = {"X:", "Y:", "Z:"};
    return names[axis] +
           Base::Quantity::toUserString(double(point[axis]), Base::Unit::length, 'f', 3, ' ', true);
}

}  // namespace

QString coordinateText(UPoint3<float> const& point, int viewIndex)
{
    auto const [first, second] = axesAcrossView(viewIndex);
    return '[' + coordinate(point, first) + ',' + coordinate(point, second) + ']';
}

std::vector<LabelledPoint> labelAtCentre(CentredGraphicObject& tool)
{
    std::vector<UPoint3<float>> const& points = tool.getVolumeProperty().getKeyPoints();
    if (points.empty())
        return {};
    return {{tool.getLabel(), points[0]}};
}

void showLabels(std::vector<LabelledPoint> const& points, Base::GLView const& view, int viewIndex)
{
    for (auto const& [label, point] : points) {
        if (!label)
            continue;
        int x = 0, y = 0;
        view.getWidgetcoordFromWCS(point, x, y);
        QString const text = coordinateText(point, viewIndex);
        label->setGeometry(x, y, int(text.length() * 0.7) * g_pixelSize, g_pixelSize * 2);
        label->setText(text);
        label->show();
    }
}

void hideLabels(std::vector<LabelledPoint> const& points)
{
    for (LabelledPoint const& point : points)
        if (point.label)
            point.label->hide();
}

}  // namespace Freecut

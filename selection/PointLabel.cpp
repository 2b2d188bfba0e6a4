// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/PointLabel.h"

#include "display/TLabel.h"
#include "tools/PolygonGraphicObject.h"

namespace Freecut {

TLabel* PointLabel::make(VolumeGraphicObject& tool, QWidget* view)
{
    auto* const label = new TLabel(view);
    label->setObject(&tool);
    label->setStyleSheet(TLabel::selectedStyle);
    return label;
}

std::optional<std::size_t> PointLabel::selectedVertex(PolygonGraphicObject const& polygon)
{
    std::vector<TLabel*> const& labels = polygon.getPointLabels();
    for (std::size_t i = 0; i < labels.size(); ++i)
        if (labels[i]->styleSheet() == TLabel::selectedStyle)
            return i;
    return {};
}

void PointLabel::unselectAll(PolygonGraphicObject& polygon)
{
    for (TLabel* const label : polygon.getPointLabels())
        label->setStyleSheet(TLabel::unselectedStyle);
}

}  // namespace Freecut

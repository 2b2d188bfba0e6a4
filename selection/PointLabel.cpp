// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/PointLabel.h"

#include "display/TLabel.h"
#include "tools/PolygonGraphicObject.h"

#include <QVariant>

#include <algorithm>

namespace Freecut {

namespace {

constexpr char const* numberProperty = "number";

int numberOf(TLabel const* label)
{
    return label->property(numberProperty).toInt();
}

}  // namespace

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

std::vector<int> PointLabel::numbersOf(PolygonGraphicObject const& polygon)
{
    std::vector<int> numbers;
    for (TLabel const* const label : polygon.getPointLabels())
        numbers.push_back(numberOf(label));
    return numbers;
}

void PointLabel::numberAsNewest(TLabel& label, PolygonGraphicObject const& polygon)
{
    int newest = 0;
    for (int const number : numbersOf(polygon))
        newest = std::max(newest, number);
    label.setProperty(numberProperty, newest + 1);
}

std::optional<std::size_t> PointLabel::newestVertex(PolygonGraphicObject const& polygon)
{
    std::vector<int> const numbers = numbersOf(polygon);
    if (numbers.empty())
        return {};
    return std::size_t(std::max_element(numbers.begin(), numbers.end()) - numbers.begin());
}

void PointLabel::renew(PolygonGraphicObject& polygon, QWidget* view,
                       std::vector<int> const& numbers, std::size_t selected)
{
    std::vector<TLabel*>& labels = polygon.getPointLabels();
    while (labels.size() > numbers.size()) {
        delete labels.back();
        labels.pop_back();
    }
    while (labels.size() < numbers.size())
        labels.push_back(make(polygon, view));
    unselectAll(polygon);
    for (std::size_t i = 0; i < labels.size(); ++i)
        labels[i]->setProperty(numberProperty, numbers[i]);
    if (selected < labels.size())
        labels[selected]->setStyleSheet(TLabel::selectedStyle);
}

}  // namespace Freecut

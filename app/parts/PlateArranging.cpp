// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/PlateArranging.h"

#include "app/parts/EditStep.h"

#include <QString>

#include <algorithm>
#include <limits>

// Shelves in order of falling depth ("next fit decreasing height": E. G. Coffman, M. R. Garey, D. S.
// Johnson and R. E. Tarjan, Performance bounds for level-oriented two-dimensional packing algorithms,
// 1980), each as deep as its first part.
namespace PlateArranging {

namespace {

double sizeOf(UBox3<float> const& box, int axis)
{
    return double(box.max[axis]) - double(box.min[axis]);
}

double beyond(double size, double room)
{
    return size > room + slackMm ? size - room : 0;
}

struct Placed
{
    Mesh::DocumentObject* part;
    UBox3<float> box;
    /// Of the lower corner, from that of the plate.
    double x = 0, y = 0;
    std::size_t plate = 0;
};

/// The shelves, plate after plate.
class Shelves
{
public:
    Shelves(double width, double depth, double gap) : m_width(width), m_depth(depth), m_gap(gap) {}

    void put(Placed& item)
    {
        double const width = sizeOf(item.box, 0), depth = sizeOf(item.box, 1);
        if (m_x > 0 && m_x + width > m_width + slackMm)
            nextShelf();
        if (m_y > 0 && m_y + depth > m_depth + slackMm)
            nextPlate();
        item.x = m_x;
        item.y = m_y;
        item.plate = m_plate;
        m_x += width + m_gap;
        m_shelf = std::max(m_shelf, depth);
    }

private:
    void nextShelf()
    {
        m_y += m_shelf + m_gap;
        m_x = m_shelf = 0;
    }
    void nextPlate()
    {
        ++m_plate;
        m_x = m_y = m_shelf = 0;
    }

    double m_width, m_depth, m_gap;
    double m_x = 0, m_y = 0, m_shelf = 0;
    std::size_t m_plate = 0;
};

/// Whether a box stands on the plate as it is, without a turn.
bool fitsUnturned(UBox3<float> const& box, Volume const& volume)
{
    for (int axis = 0; axis < 3; ++axis)
        if (beyond(sizeOf(box, axis), volume[std::size_t(axis)]) > 0)
            return false;
    return true;
}

/// Moves what is on each plate together until it is in the plate's middle.
void centre(std::vector<Placed>& items, Volume const& volume)
{
    for (std::size_t first = 0, end; first < items.size(); first = end) {
        double right = 0, back = 0;
        for (end = first; end < items.size() && items[end].plate == items[first].plate; ++end) {
            right = std::max(right, items[end].x + sizeOf(items[end].box, 0));
            back = std::max(back, items[end].y + sizeOf(items[end].box, 1));
        }
        for (std::size_t i = first; i < end; ++i) {
            items[i].x += (volume[0] - right) / 2;
            items[i].y += (volume[1] - back) / 2;
        }
    }
}

UVector3<float> wayOf(Placed const& item, Volume const& volume)
{
    constexpr double betweenPlatesMm = 20;
    double const plate = double(item.plate) * (volume[0] + betweenPlatesMm);
    return {float(plate + item.x - volume[0] / 2 - double(item.box.min[0])),
            float(item.y - volume[1] / 2 - double(item.box.min[1])), -item.box.min[2]};
}

}  // namespace

Volume excess(UBox3<float> const& box, Volume const& volume)
{
    Volume asItIs{}, turned{};
    if (box.Isnullptr())
        return asItIs;
    double const height = beyond(sizeOf(box, 2), volume[2]);
    asItIs = {beyond(sizeOf(box, 0), volume[0]), beyond(sizeOf(box, 1), volume[1]), height};
    turned = {beyond(sizeOf(box, 0), volume[1]), beyond(sizeOf(box, 1), volume[0]), height};
    return std::max(turned[0], turned[1]) < std::max(asItIs[0], asItIs[1]) ? turned : asItIs;
}

bool isInside(UBox3<float> const& box, Volume const& volume)
{
    return double(box.min[0]) >= -volume[0] / 2 - slackMm &&
           double(box.max[0]) <= volume[0] / 2 + slackMm &&
           double(box.min[1]) >= -volume[1] / 2 - slackMm &&
           double(box.max[1]) <= volume[1] / 2 + slackMm && double(box.min[2]) >= -slackMm &&
           double(box.max[2]) <= volume[2] + slackMm;
}

bool arrange(Mesh::Document& document, Parts const& parts, Volume const& volume, double gapMm,
             Outcome& outcome)
{
    outcome = {};
    std::vector<Placed> items;
    for (Mesh::DocumentObject* const part : parts) {
        UBox3<float> const box = part->getBoundingBox();
        if (box.Isnullptr())
            continue;
        if (fitsUnturned(box, volume))
            items.push_back({part, box});
        else
            outcome.tooLarge.push_back(part);
    }
    std::stable_sort(items.begin(), items.end(), [](Placed const& a, Placed const& b) {
        return sizeOf(a.box, 1) > sizeOf(b.box, 1);
    });
    Shelves shelves(volume[0], volume[1], gapMm);
    for (Placed& item : items) {
        shelves.put(item);
        if (item.plate > 0)
            outcome.onFurtherPlates.push_back(item.part);
    }
    centre(items, volume);
    std::size_t const before = document.undoNames().size();
    {
        EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Arrange"));
        for (Placed const& item : items)
            if (UVector3<float> const way = wayOf(item, volume); !(way == UVector3<float>()))
                item.part->translate(way, 0);
    }
    return document.undoNames().size() != before;
}

}  // namespace PlateArranging

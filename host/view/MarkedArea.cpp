// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/MarkedArea.h"

#include <QVector4D>

#include <algorithm>
#include <cmath>

void MarkedArea::add(UBox3<float> const& box, QMatrix4x4 const& toClip)
{
    if (box.Isnullptr())
        return;
    for (int corner = 0; corner < 8; ++corner) {
        QVector4D const point = toClip * QVector4D(corner & 1 ? box.MaxX() : box.MinX(),
                                                   corner & 2 ? box.MaxY() : box.MinY(),
                                                   corner & 4 ? box.MaxZ() : box.MinZ(), 1);
        if (point.w() <= 0)
            m_isWhole = true;
        else
            m_area.Add({point.x() / point.w(), point.y() / point.w(), 0});
    }
}

QRect MarkedArea::inPicture(QSize size, int margin) const
{
    QRect const picture({0, 0}, size);
    if (m_isWhole)
        return picture;
    if (m_area.Isnullptr())
        return {};
    auto const pixel = [margin](float place, int pixels, int away) {
        // What is far outside is as good as beside the picture.
        double const near = std::clamp(double(place), -2.0, 2.0);
        return int(std::floor((near + 1) / 2 * pixels)) + away * margin;
    };
    QPoint const low(pixel(m_area.MinX(), size.width(), -1),
                     pixel(m_area.MinY(), size.height(), -1));
    QPoint const high(pixel(m_area.MaxX(), size.width(), 1),
                      pixel(m_area.MaxY(), size.height(), 1));
    return QRect(low, high).intersected(picture);
}

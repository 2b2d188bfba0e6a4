// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/WideLines.h"

#include <QVector2D>
#include <QVector4D>

std::vector<UPoint3<float>> wideLines(std::vector<UPoint3<float>> const& points,
                                      QMatrix4x4 const& toClip, QSize size, float width, bool joins)
{
    QVector2D const toPixels(float(size.width()) / 2, float(size.height()) / 2);
    std::vector<UPoint3<float>> result;
    result.reserve(3 * points.size());
    for (std::size_t i = 0; i + 1 < points.size(); i += 2) {
        QVector4D const a = toClip * QVector4D(points[i].X(), points[i].Y(), points[i].Z(), 1);
        QVector4D const b =
            toClip * QVector4D(points[i + 1].X(), points[i + 1].Y(), points[i + 1].Z(), 1);
        if (a.w() <= 0 || b.w() <= 0)
            continue;
        QVector2D const from = a.toVector2DAffine(), to = b.toVector2DAffine();
        QVector2D along = ((to - from) * toPixels).normalized() * (width / 2);
        if (along.isNull())
            along = {width / 2, 0};
        QVector2D const ahead = joins ? along / toPixels : QVector2D();
        QVector2D const aside = QVector2D(-along.y(), along.x()) / toPixels;
        auto const corner = [](QVector2D const& p, QVector4D const& end) {
            return UPoint3<float>(p.x(), p.y(), end.z() / end.w());
        };
        UPoint3<float> const quad[4] = {
            corner(from - ahead - aside, a), corner(from - ahead + aside, a),
            corner(to + ahead - aside, b), corner(to + ahead + aside, b)};
        result.insert(result.end(), {quad[0], quad[2], quad[1], quad[1], quad[2], quad[3]});
    }
    return result;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tools/MeasuredText.h"

#include "app/view/MeasureText.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/Quantity.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace MeasuredText {

namespace {

using Measuring::Edge;
using Measuring::SurfacePoint;

QString translated(char const* text)
{
    return QCoreApplication::translate("MeasureTool", text);
}

QString lengthText(double millimetres)
{
    return Base::Quantity::toUserString(millimetres, Base::Unit::length, 'f',
                                        DisplayUnit::instance().decimals(), ' ', false);
}

QString angleText(double degrees)
{
    return QLocale().toString(degrees, 'f', 2) + QChar(0xb0);
}

/// How far it is to the plane of a face; 0 for an edge that passes through it.
double toPlane(End const& end, SurfacePoint const& face)
{
    auto const height = [&](UPoint3<double> const& p) { return (p - face.point) | face.normal; };
    if (!end.isEdge())
        return std::abs(height(end.place.point));
    Edge const& edge = *end.surroundings->edge;
    double const a = height(edge.from), b = height(edge.to);
    return (a < 0) != (b < 0) ? 0 : std::min(std::abs(a), std::abs(b));
}

}  // namespace

QString wall(std::optional<double> const& thickness)
{
    return thickness ? translated(QT_TRANSLATE_NOOP("MeasureTool", "Wall thickness: %1"))
                           .arg(lengthText(*thickness))
                     : translated(QT_TRANSLATE_NOOP("MeasureTool", "No wall: open behind it"));
}

QStringList of(Measuring::Surroundings const& surroundings)
{
    QStringList lines;
    if (surroundings.edge)
        lines << translated(QT_TRANSLATE_NOOP("MeasureTool", "Length of the edge: %1"))
                     .arg(lengthText(surroundings.edge->length()));
    if (surroundings.face)
        lines << translated(QT_TRANSLATE_NOOP("MeasureTool", "Area of the face: %1"))
                     .arg(MeasureText::areaMm2(surroundings.face->area));
    return lines;
}

QStringList between(SurfacePoint const& a, SurfacePoint const& b)
{
    Measuring::Between const measure = Measuring::between(a, b);
    QStringList lines;
    lines << translated(QT_TRANSLATE_NOOP("MeasureTool", "Distance: %1"))
                 .arg(lengthText(measure.distance));
    lines << translated(QT_TRANSLATE_NOOP("MeasureTool", "X: %1  Y: %2  Z: %3"))
                 .arg(lengthText(measure.offset.X()), lengthText(measure.offset.Y()),
                      lengthText(measure.offset.Z()));
    if (measure.angle)
        lines << translated(QT_TRANSLATE_NOOP("MeasureTool", "Angle of the faces: %1"))
                     .arg(angleText(*measure.angle));
    if (measure.betweenFaces)
        lines << translated(QT_TRANSLATE_NOOP("MeasureTool", "Distance of the faces: %1"))
                     .arg(lengthText(*measure.betweenFaces));
    return lines;
}

QStringList betweenEnds(End const& a, End const& b)
{
    if (a.isEdge() && b.isEdge()) {
        Edge const &first = *a.surroundings->edge, &other = *b.surroundings->edge;
        return {translated(QT_TRANSLATE_NOOP("MeasureTool", "Distance of the edges: %1"))
                    .arg(lengthText(Measuring::distance(first, other))),
                translated(QT_TRANSLATE_NOOP("MeasureTool", "Angle of the edges: %1"))
                    .arg(angleText(Measuring::angle(first, other)))};
    }
    if (a.isFace() != b.isFace())
        return {translated(QT_TRANSLATE_NOOP("MeasureTool", "Distance to the face: %1"))
                    .arg(lengthText(a.isFace() ? toPlane(b, a.place) : toPlane(a, b.place)))};
    if (a.isEdge() != b.isEdge()) {
        End const& edge = a.isEdge() ? a : b;
        return {translated(QT_TRANSLATE_NOOP("MeasureTool", "Distance to the edge: %1"))
                    .arg(lengthText(Measuring::distance((a.isEdge() ? b : a).place.point,
                                                        *edge.surroundings->edge)))};
    }
    return {};
}

}  // namespace MeasuredText

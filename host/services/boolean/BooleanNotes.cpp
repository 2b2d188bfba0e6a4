// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/BooleanNotes.h"

#include "host/services/PlaceText.h"
#include "platform/jobs/ConsoleSingleton.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr std::size_t mostNamedPlaces = 5;

void log(QString const& text)
{
    Base::ConsoleSingleton::Instance().Log(text.toStdString());
}

QString wallText(Operand which)
{
    return which == Operand::first
               ? QCoreApplication::translate(
                     "Services",
                     "A wall in the part near (%1, %2, %3), which bounds nothing, was left out.")
               : QCoreApplication::translate(
                     "Services",
                     "A wall in the tool near (%1, %2, %3), which bounds nothing, was left out.");
}

void logWalls(std::vector<UPoint3<float>> const& places, Operand which)
{
    std::size_t const named = std::min(places.size(), mostNamedPlaces);
    for (std::size_t i = 0; i < named; ++i)
        log(withPlace(wallText(which), places[i]));
    if (places.size() > named)
        log(QCoreApplication::translate("Services", "Other such walls that were left out: %1.")
                .arg(places.size() - named));
}

}  // namespace

void logCrossings(std::vector<UPoint3<float>> const& places)
{
    std::size_t const named = std::min(places.size(), mostNamedPlaces);
    for (std::size_t i = 0; i < named; ++i)
        log(withPlace(QCoreApplication::translate(
                          "Services", "A piece crosses itself by rounding near (%1, %2, %3)."),
                      places[i]));
    if (places.size() > named)
        log(QCoreApplication::translate(
                "Services", "Pairs of triangles that cross by rounding elsewhere: at least %1.")
                .arg(places.size() - named));
}

void logSurfaceOrder(SurfaceOrder const& order, MeshArrays const& mesh, Operand which)
{
    std::vector<UPoint3<float>> walls;
    for (std::size_t t = 0; t < order.surplus.size(); ++t) {
        walls.resize(std::max<std::size_t>(walls.size(), order.surplus[t]));
        if (order.surplus[t] > 0)
            walls[order.surplus[t] - 1] = mesh.point(t, 0);
    }
    logWalls(walls, which);
    auto const turned = std::find(order.isTurned.begin(), order.isTurned.end(), true);
    if (turned != order.isTurned.end())
        log(withPlace(QCoreApplication::translate(
                          "Services",
                          "Triangles that faced the other way than those around them, one near "
                          "(%1, %2, %3), were turned."),
                      mesh.point(std::size_t(turned - order.isTurned.begin()), 0)));
}

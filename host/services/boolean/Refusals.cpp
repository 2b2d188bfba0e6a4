// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/Refusals.h"

#include "host/mesh/OperandError.h"
#include "host/services/EdgeGroups.h"
#include "host/services/PlaceText.h"
#include "host/services/Polling.h"
#include "host/services/SelfIntersections.h"

#include <QCoreApplication>

#include <limits>

namespace {

using Point = UPoint3<float>;

/// A place where an operand is not the surface of a solid.
struct Flaw
{
    Point place;
    bool isOpen;
    double distance;
};

/// Of all flaws of an operand, that nearest to a place; the first of all without one.
class NearestFlaw
{
public:
    explicit NearestFlaw(std::optional<Point> const& near) : m_near(near) {}

    void offer(Point const& place, bool isOpen)
    {
        UVector3<float> const way = m_near ? place - *m_near : UVector3<float>();
        double const distance = way.GetLength();
        if (!m_flaw || distance < m_flaw->distance)
            m_flaw = {place, isOpen, distance};
    }

    std::optional<Flaw> const& flaw() const { return m_flaw; }

private:
    std::optional<Point> m_near;
    std::optional<Flaw> m_flaw;
};

void offerOpenEdges(MeshArrays const& operand, NearestFlaw& nearest, StageProgress& progress)
{
    EdgeGroups const edges(operand, progress);
    Polling polling(progress);
    for (std::size_t i = 0; i < edges.size(); ++i) {
        polling.step();
        int balance = 0;
        for (std::uint32_t const half : edges[i])
            balance += EdgeGroups::start(operand, half) < EdgeGroups::end(operand, half) ? 1 : -1;
        if (balance != 0)
            nearest.offer(operand.points[EdgeGroups::start(operand, edges[i][0])], true);
    }
}

void offerCrossings(MeshArrays const& operand, NearestFlaw& nearest, StageProgress& progress)
{
    TopologyReport const topology = checkTopology(operand, progress);
    TriangleTree const tree(operand, topology, progress);
    IntersectionReport const report = findIntersections(operand, topology, tree, progress);
    for (std::size_t t = 0; t < operand.triangles.size() && report.pairs > 0; ++t)
        if (report.isInvolved[t] != 0)
            nearest.offer(operand.point(t, 0), false);
}

std::optional<Flaw> nearestFlaw(MeshArrays const& operand, std::optional<Point> const& place,
                                StageProgress& progress)
{
    NearestFlaw nearest(place);
    offerOpenEdges(operand, nearest, progress);
    offerCrossings(operand, nearest, progress);
    return nearest.flaw();
}

[[noreturn]] void throwFlaw(Operand operand, Flaw const& flaw)
{
    QString const text =
        flaw.isOpen
            ? QCoreApplication::translate("Services",
                                          "%4 is open near (%1, %2, %3), so that the two could not "
                                          "be combined.")
            : QCoreApplication::translate("Services",
                                          "%4 crosses itself near (%1, %2, %3), so that the two "
                                          "could not be combined.");
    throw OperandError(operand == Operand::second, withPlace(text, flaw.place), flaw.place);
}

}  // namespace

void Refusal::throwOpen(Operand operand, Point const& place)
{
    QString const text = QCoreApplication::translate(
        "Services", "%4 is open where the two meet, near (%1, %2, %3).");
    throw OperandError(operand == Operand::second, withPlace(text, place), place);
}

void Refusal::throwNotFinite(Operand operand, std::optional<Point> const& place)
{
    QString const text =
        place ? withPlace(QCoreApplication::translate("Services",
                                                      "%4 has a point whose coordinates are no "
                                                      "numbers, beside (%1, %2, %3)."),
                          *place)
              : QCoreApplication::translate("Services",
                                            "%1 has a point whose coordinates are no numbers.");
    throw OperandError(operand == Operand::second, text, place);
}

void Refusal::throwFlat(Point const& place)
{
    QString const text = QCoreApplication::translate(
        "Services", "%4 has triangles without area that cannot be removed, near (%1, %2, %3).");
    throw OperandError(false, withPlace(text, place), place);
}

void Refusal::throwTooMuch()
{
    throw Mell::Exception(
        QCoreApplication::translate("Services",
                                    "The two solids meet in too many places to be combined. "
                                    "Move one of them a little and try again.")
            .toStdString());
}

void Refusal::throwNotCombined(MeshArrays const& part, MeshArrays const& tool,
                               std::optional<Point> const& place, StageProgress& progress)
{
    auto const ofPart = nearestFlaw(part, place, progress);
    auto const ofTool = nearestFlaw(tool, place, progress);
    if (ofPart && (!ofTool || ofPart->distance <= ofTool->distance))
        throwFlaw(Operand::first, *ofPart);
    if (ofTool)
        throwFlaw(Operand::second, *ofTool);
    QString const text =
        place ? withPlace(QCoreApplication::translate(
                              "Services",
                              "The two solids could not be combined near (%1, %2, %3). Move one of "
                              "them a little and try again."),
                          *place)
              : QCoreApplication::translate("Services",
                                            "The two solids could not be combined. Move one of "
                                            "them a little and try again.");
    throw Mell::FlawException(text.toStdString(), place, false);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/streaming/FreePlane.h"

#include "connectors/SectionContour.h"
#include "connectors/SectionPlanes.h"
#include "connectors/SectionRecord.h"
#include "cutjobs/CutSides.h"
#include "platform/jobs/Exceptions.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/SceneBox.h"

#include <cmath>

namespace {

/// Millimetres from where the plane should be to where it may come to be: some tens of metres away from
/// its centre it is off by less than half of that.
constexpr double leastNear = 0x1p-6;

UVector3<double> unit(UVector3<float> const& direction)
{
    UVector3<double> wide(direction.X(), direction.Y(), direction.Z());
    return wide.Normalize();
}

UVector3<double> between(UPoint3<float> const& from, UPoint3<float> const& to)
{
    return {double(to.X()) - from.X(), double(to.Y()) - from.Y(), double(to.Z()) - from.Z()};
}

Slabs slabsAt(FreePlane::Place const& place)
{
    UVector3<double> const normal = unit(place.normal);
    return {normal, {normal | between({}, place.center)}, leastNear};
}

SectionFacts factsOf(MeshKernel& section)
{
    SectionFacts facts;
    facts.area = sectionArea(section);
    facts.contours = extractSectionContours(&section).size();
    return facts;
}

}  // namespace

FreePlane::FreePlane(Place const& place, bool measuresSection)
    : StreamPlanes(slabsAt(place)), m_place(place), m_measuresSection(measuresSection)
{}

BandFacts FreePlane::cut(MeshKernel const& band, UBox3<float> const& part, TakePiece const& take,
                         std::function<void(int)> const& progress) const
{
    auto const plane = meshBeyond(part);
    requireNear(*plane->readMesh(), part);
    auto const takeSide = [&](bool isAbove, std::shared_ptr<MeshKernel> const& piece) {
        cleanUpPiece(*piece);
        take(*piece->readMesh(), isAbove ? 1 : 0);
    };
    MeshKernel section;
    BandFacts result;
    result.notes =
        cutByPlaneInTurn(band, *plane, takeSide, m_measuresSection ? &section : nullptr, progress);
    if (m_measuresSection)
        result.section = factsOf(section);
    return result;
}

std::shared_ptr<MeshKernel> FreePlane::meshBeyond(UBox3<float> const& part) const
{
    float const suitable = Freecut::suitableSize(part);
    auto const plane = Freecut::makeTangentPlane(
        m_place.center, m_place.normal,
        m_place.size.value_or(Freecut::PlaneSize{.width = suitable, .height = suitable}));
    auto mesh = std::make_shared<MeshKernel>();
    SectionPlanes(*plane, part, false).calculateCutPlaneMesh(mesh->getMesh().get());
    return mesh;
}

/// How far two planes lie apart along a normal is greatest, within a box, at one of its corners.
void FreePlane::requireNear(UMesh<float> const& plane, UBox3<float> const& part) const
{
    std::array<UPoint3<float>, 3> corners;
    for (int i = 0; i < 3; ++i)
        corners[std::size_t(i)] = plane.triangles.front()->cP(i);
    UVector3<double> normal = between(corners[0], corners[1]) * between(corners[0], corners[2]);
    normal.Normalize();
    for (UPoint3<float> const& corner : Freecut::cornersOf(part)) {
        double const wanted = slabs().heightOf(corner) - slabs().heights().front();
        double const got = normal | between(corners[0], corner);
        if (!(std::abs(wanted - got) <= leastNear / 2))
            throw Mell::Exception(
                "The plane would not be exact enough over the whole part. Place its centre within "
                "the part, and leave --size to the program.");
    }
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/ShellMending.h"

#include "host/services/WindingField.h"
#include "host/services/repair/RepairNotes.h"
#include "host/services/repair/SoupMending.h"

#include <array>
#include <cmath>

namespace {

constexpr std::uint32_t none = 0xffffffff;

double squaredArea(MeshArrays const& mesh, std::uint32_t t)
{
    auto const offset = [&](int k) {
        MeshArrays::Point const &a = mesh.point(t, 0), &b = mesh.point(t, k);
        return UVector3<double>(double(b.X()) - a.X(), double(b.Y()) - a.Y(),
                                double(b.Z()) - a.Z());
    };
    UVector3<double> const area = offset(1) * offset(2);
    return area | area;
}

/// Per closed shell that meets nothing its largest triangle, and none for the others.
std::vector<std::uint32_t> largestTriangles(MeshArrays const& mesh, MeshErrors const& errors)
{
    std::vector<std::uint32_t> largest(errors.topology.isClosedShell.size(), none);
    std::vector<double> most(largest.size(), -1);
    std::vector<std::uint8_t> isOpen(largest.size(), 0);
    for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t) {
        std::uint32_t const shell = errors.topology.shellOf[t];
        isOpen[shell] |=
            !errors.topology.isClosedShell[shell] || errors.intersections.isInvolved[t];
        if (double const size = squaredArea(mesh, t); size > most[shell]) {
            most[shell] = size;
            largest[shell] = t;
        }
    }
    for (std::size_t shell = 0; shell < largest.size(); ++shell)
        if (isOpen[shell])
            largest[shell] = none;
    return largest;
}

enum class Fate : std::uint8_t
{
    stays,
    turned,
    dropped,
    unknown,
};

Fate fateOf(MeshArrays const& mesh, std::uint32_t triangle, WindingField const& field)
{
    std::array<double, 3> middle{};
    for (int k = 0; k < 3; ++k)
        for (int axis = 0; axis < 3; ++axis)
            middle[std::size_t(axis)] += mesh.point(triangle, k)[axis] / 3.0;
    std::array const itself{triangle};
    double const front = field.at(middle, itself) - 0.5;
    constexpr double mostDoubt = 0.2;
    if (std::abs(front - std::round(front)) > mostDoubt)
        return Fate::unknown;
    long const outside = std::lround(front);
    return outside < 0 ? Fate::turned : outside > 0 ? Fate::dropped : Fate::stays;
}

}  // namespace

MeshArrays withMendedShells(MeshArrays const& mesh, MeshErrors const& errors,
                            Repair::Report& report, StageProgress& progress)
{
    WindingField const field(mesh, *errors.tree, progress);
    std::vector<Fate> fates(errors.topology.isClosedShell.size(), Fate::stays);
    std::vector<std::uint32_t> const largest = largestTriangles(mesh, errors);
    for (std::size_t shell = 0; shell < largest.size(); ++shell) {
        progress.add(0);
        if (largest[shell] == none)
            continue;
        MeshArrays::Point const& place = mesh.point(largest[shell], 0);
        fates[shell] = fateOf(mesh, largest[shell], field);
        if (fates[shell] == Fate::turned)
            noteMended(report, Repair::Flaw::turnedShell, 1, place);
        else if (fates[shell] == Fate::dropped)
            noteMended(report, Repair::Flaw::superfluousShell, 1, place);
        else if (fates[shell] == Fate::unknown && errors.isMisoriented[shell])
            noteLeft(report, Repair::Flaw::turnedShell, 1, place, reasons::open());
    }
    MeshArrays mended = mesh;
    std::vector<std::uint8_t> isRemoved(mesh.triangles.size(), 0);
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        Fate const fate = fates[errors.topology.shellOf[t]];
        isRemoved[t] = fate == Fate::dropped;
        if (fate == Fate::turned)
            std::swap(mended.triangles[t][1], mended.triangles[t][2]);
    }
    removeTriangles(mended, isRemoved);
    return mended;
}

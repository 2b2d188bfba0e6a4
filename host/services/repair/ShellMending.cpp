// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/ShellMending.h"

#include "host/services/WindingField.h"
#include "host/services/repair/RepairNotes.h"
#include "host/services/repair/SoupMending.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

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

/// The winding number in front of a triangle, if there is no doubt about it.
std::optional<long> numberInFrontOf(MeshArrays const& mesh, std::uint32_t triangle,
                                    WindingField const& field)
{
    std::array<double, 3> middle{};
    for (int k = 0; k < 3; ++k)
        for (int axis = 0; axis < 3; ++axis)
            middle[std::size_t(axis)] += mesh.point(triangle, k)[axis] / 3.0;
    std::array const itself{triangle};
    double const front = field.at(middle, itself) - 0.5;
    constexpr double mostDoubt = 0.2;
    if (std::abs(front - std::round(front)) > mostDoubt)
        return {};
    return std::lround(front);
}

Fate fateOf(std::optional<long> inFront)
{
    if (!inFront)
        return Fate::unknown;
    return *inFront < 0 ? Fate::turned : *inFront > 0 ? Fate::dropped : Fate::stays;
}

/// The shells of a mesh and what becomes of them.
class Shells
{
public:
    Shells(MeshArrays const& mesh, MeshErrors const& errors, StageProgress& progress)
        : m_mesh(mesh),
          m_errors(errors),
          m_progress(progress),
          m_largest(largestTriangles(mesh, errors)),
          m_fates(m_largest.size(), Fate::stays)
    {
        WindingField const field(mesh, *errors.tree, progress);
        for (std::size_t shell = 0; shell < m_largest.size(); ++shell) {
            progress.add(0);
            if (m_largest[shell] != none)
                m_fates[shell] = fateOf(numberInFrontOf(mesh, m_largest[shell], field));
        }
        keepCavities();
    }

    void tell(Repair::Report& report) const
    {
        for (std::size_t shell = 0; shell < m_largest.size(); ++shell) {
            if (m_largest[shell] == none)
                continue;
            Fate const fate = m_fates[shell];
            MeshArrays::Point const& place = m_mesh.point(m_largest[shell], 0);
            if (fate == Fate::turned)
                noteMended(report, Repair::Flaw::turnedShell, 1, place);
            else if (fate == Fate::dropped)
                noteMended(report, Repair::Flaw::superfluousShell, 1, place);
            else if (fate == Fate::unknown && m_errors.isMisoriented[shell])
                noteLeft(report, Repair::Flaw::turnedShell, 1, place, reasons::open());
        }
    }

    MeshArrays turned() const
    {
        MeshArrays turned = m_mesh;
        for (std::size_t t = 0; t < m_mesh.triangles.size(); ++t)
            if (fateOfTriangle(t) == Fate::turned)
                std::swap(turned.triangles[t][1], turned.triangles[t][2]);
        return turned;
    }

    Fate fateOfTriangle(std::size_t t) const { return m_fates[m_errors.topology.shellOf[t]]; }

private:
    /// Within a shell that is inside out all shells look wrong. They are turned with it, or not at
    /// all where it crosses something and stays as it is.
    void keepCavities()
    {
        for (bool isAnyKept = true; isAnyKept;) {
            isAnyKept = false;
            if (std::find(m_fates.begin(), m_fates.end(), Fate::turned) == m_fates.end())
                return;
            MeshArrays const mesh = turned();
            WindingField const field(mesh, *m_errors.tree, m_progress);
            for (std::size_t shell = 0; shell < m_fates.size(); ++shell) {
                m_progress.add(0);
                if (m_fates[shell] == Fate::turned &&
                    numberInFrontOf(mesh, m_largest[shell], field).value_or(0) < 0) {
                    m_fates[shell] = Fate::stays;
                    isAnyKept = true;
                }
            }
        }
    }

    MeshArrays const& m_mesh;
    MeshErrors const& m_errors;
    StageProgress& m_progress;
    std::vector<std::uint32_t> m_largest;
    std::vector<Fate> m_fates;
};

}  // namespace

MeshArrays withMendedShells(MeshArrays const& mesh, MeshErrors const& errors,
                            Repair::Report& report, StageProgress& progress)
{
    Shells const shells(mesh, errors, progress);
    shells.tell(report);
    MeshArrays mended = shells.turned();
    std::vector<std::uint8_t> isRemoved(mesh.triangles.size(), 0);
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        isRemoved[t] = shells.fateOfTriangle(t) == Fate::dropped;
    removeTriangles(mended, isRemoved);
    return mended;
}

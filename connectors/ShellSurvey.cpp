// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ShellSurvey.h"

#include "connectors/PollingSteps.h"

#include <QCoreApplication>
#include <QString>

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

/// The sets of triangles that hang together over vertices, whose identifiers are their places.
std::size_t shellsOf(MeshKernel const& kernel, ConnectorProgress::Poll const& poll)
{
    UMesh<float> const& mesh = *kernel.readMesh();
    std::vector<std::size_t> parents(mesh.vertices.size());
    std::iota(parents.begin(), parents.end(), std::size_t(0));
    auto const root = [&](std::size_t v) {
        while (parents[v] != v)
            v = parents[v] = parents[parents[v]];
        return v;
    };
    auto const unite = [&](std::size_t a, std::size_t b) {
        a = root(a);
        b = root(b);
        parents[std::max(a, b)] = std::min(a, b);
    };
    std::vector<bool> isUsed(parents.size(), false);
    PollingSteps polling(poll);
    for (UTriangle<float> const* const t : mesh.triangles) {
        polling.step();
        for (int i = 0; i < 3; ++i)
            isUsed[t->cV(i)->cID()] = true;
        unite(t->cV(0)->cID(), t->cV(1)->cID());
        unite(t->cV(0)->cID(), t->cV(2)->cID());
    }
    std::size_t shells = 0;
    for (std::size_t v = 0; v < parents.size(); ++v)
        shells += isUsed[v] && parents[v] == v;
    return shells;
}

}  // namespace

ShellSurvey::ShellSurvey(PartOfRun const& part, ConnectorProgress::Poll poll)
    : m_object(part.object),
      m_poll(std::move(poll)),
      m_plainLower(shellsOf(*part.plain.lower, m_poll)),
      m_plainUpper(shellsOf(*part.plain.upper, m_poll))
{}

void ShellSurvey::tellOf(Halves const& joined, CutRemarks& remarks) const
{
    auto const compare = [&](char const* text, MeshKernel const& half, std::size_t plain) {
        std::size_t const count = shellsOf(half, m_poll);
        if (count > plain)
            remarks.push_back({m_object,
                               CutRemark::Kind::PieceFallsApart,
                               QCoreApplication::translate("CutRemarks", text)
                                   .arg(count)
                                   .arg(plain)
                                   .toStdString(),
                               {}});
    };
    compare(QT_TRANSLATE_NOOP("CutRemarks",
                              "The lower piece consists of %1 shells; without "
                              "connectors it would be %2."),
            *joined.lower, m_plainLower);
    compare(QT_TRANSLATE_NOOP("CutRemarks",
                              "The upper piece consists of %1 shells; without "
                              "connectors it would be %2."),
            *joined.upper, m_plainUpper);
}

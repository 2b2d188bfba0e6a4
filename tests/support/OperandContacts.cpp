// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/OperandContacts.h"

#include "host/services/boolean/ContactFinder.h"
#include "host/services/boolean/SelfContacts.h"
#include "host/services/boolean/SoupBoolean.h"

#include <functional>
#include <numeric>

namespace {

std::function<void(int)> const nobody;

OperandSoup together(Soup const& first, Soup const& second)
{
    Soup both = first;
    both.append(second);
    OperandSoup soup;
    soup.mesh = {both.points, both.triangles};
    soup.firstPointOfSecond = std::uint32_t(first.points.size());
    soup.firstTriangleOfSecond = std::uint32_t(first.triangles.size());
    return soup;
}

ToolTree treeOver(MeshArrays const& mesh)
{
    StageProgress progress(nobody);
    return ToolTree(mesh, progress);
}

std::vector<TrianglePair> contactsOf(OperandSoup const& soup, ToolTree const& second)
{
    StageProgress progress(nobody);
    TriangleTree::Box bounds;
    for (auto const& p : soup.mesh.points)
        bounds.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
    ToolGrid const grid(second, bounds, 1 << 12, progress);
    auto contacts = findContacts(soup, grid, 1'000'000, progress).value();
    std::vector<std::uint32_t> all(second.mesh().triangles.size());
    std::iota(all.begin(), all.end(), 0u);
    for (TrianglePair pair : findSelfContacts(second, all, progress)) {
        pair.first += soup.firstTriangleOfSecond;
        pair.second += soup.firstTriangleOfSecond;
        contacts.push_back(pair);
    }
    return contacts;
}

}  // namespace

OperandContacts::OperandContacts(Soup const& first, Soup const& second)
    : m_first{first.points, first.triangles},
      m_second{second.points, second.triangles},
      m_soup(together(first, second)),
      m_firstTree(treeOver(m_first)),
      m_secondTree(treeOver(m_second)),
      m_contacts(contactsOf(m_soup, m_secondTree))
{}

WindingSources OperandContacts::windings() const
{
    WindingSources sources;
    sources.isSecondSimple = false;
    sources.isFirstClosed = true;
    sources.ofFirst = [this](std::span<RayOrigin const> points) {
        WindingSources::Numbers numbers;
        for (RayOrigin const& point : points)
            numbers.push_back(m_firstTree.windingAt(point));
        return numbers;
    };
    sources.ofSecond = [this](RayOrigin const& point) { return m_secondTree.windingAt(point); };
    return sources;
}

bool OperandContacts::areCurvesBuilt() const
{
    StageProgress progress(nobody);
    return CurveNetwork(m_soup).build(m_contacts, progress);
}

bool OperandContacts::doSidesAgree() const
{
    StageProgress progress(nobody);
    return SoupBoolean(m_soup).resolve(m_contacts, windings(), progress);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SoupBoolean.h"

#include "host/services/Polling.h"
#include "host/services/boolean/RoundingMending.h"
#include "host/services/boolean/TouchingEdges.h"

#include <algorithm>

namespace {

/// How often pieces are taken apart where they touch themselves, and mended after it.
constexpr int mostSeparations = 3;

}  // namespace

bool SoupBoolean::resolve(std::vector<TrianglePair> contacts, WindingSources const& sources,
                          StageProgress& progress)
{
    bool const isDivided = m_network->build(std::move(contacts), progress);
    m_curves = m_network->segments().size();
    if (!isDivided) {
        m_doubtful = m_network->segments().front().from;
        return false;
    }
    progress.add(0);
    if (!labelSides(m_soup, *m_network, sources, m_labels, progress)) {
        m_doubtful = m_labels.contradiction;
        return false;
    }
    m_network->freeSegments();
    return true;
}

std::optional<std::vector<PieceTriangle>> SoupBoolean::piece(BooleanPiece piece,
                                                             StageProgress& progress)
{
    if (!m_facets)
        m_facets = std::make_unique<RoundedFacets>(m_soup, *m_network, progress);
    auto triangles =
        collectPiece(m_soup, *m_network, *m_facets, m_labels, BooleanRule(piece), progress);
    if (!isClosedAtCurves(triangles, m_network->points(), progress)) {
        m_doubtful = openPointOf(triangles, m_network->points(), progress);
        return {};
    }
    return triangles;
}

std::vector<UPoint3<float>> SoupBoolean::mendRounding(
    std::vector<std::vector<PieceTriangle>>& pieces, AfterMending after, StageProgress& progress)
{
    std::vector<UPoint3<float>> places;
    places.reserve(pointCount());
    Polling polling(progress);
    for (std::uint32_t point = 0; point < pointCount(); ++point, polling.step())
        places.push_back(place(point));
    // Points of the first operand have triangles outside the soup.
    std::vector<bool> isFree(pointCount(), true);
    for (std::uint32_t vertex = 0; vertex < m_soup.firstPointOfSecond; ++vertex, polling.step())
        isFree[vertex] = isFree[m_facets->numberOf(vertex)] = false;
    std::vector<bool> mayTouch(pointCount());
    for (std::uint32_t point = 0; point < pointCount(); ++point, polling.step())
        mayTouch[point] = m_network->points().isOnCurve(point) || m_facets->isMended(point);
    if (after == AfterMending::onlyPlaces) {
        m_facets.reset();
        m_network.reset();
        m_labels = {};
    }
    std::vector<UPoint3<float>> left;
    // A point that was led aside, or became one with another while crossings were mended, may make an
    // edge that was not there before.
    for (int round = 0; round < mostSeparations; ++round) {
        std::size_t const before = places.size();
        for (auto& piece : pieces)
            TouchingEdges(m_soup, piece, places).separate(mayTouch, progress);
        bool const isSeparated = places.size() > before;
        if (round > 0 && !isSeparated)
            break;
        isFree.resize(places.size(), true);
        RoundingMending mending(m_soup, pieces, places, isFree);
        left = mending.run(progress);
        std::vector<bool> const& changed = mending.pointsNearChanges();
        if (!isSeparated && changed.empty())
            break;
        // Everywhere else all edges have been looked at.
        mayTouch.assign(before, false);
        mayTouch.resize(places.size(), true);
        for (std::size_t point = 0; point < changed.size(); ++point)
            if (changed[point])
                mayTouch[point] = true;
    }
    m_mendedPlaces = std::move(places);
    return left;
}

std::optional<UPoint3<float>> SoupBoolean::doubtfulPlace() const
{
    return m_doubtful ? std::optional(place(*m_doubtful)) : std::nullopt;
}

std::optional<UPoint3<float>> SoupBoolean::openPlace(Operand operand) const
{
    struct Use
    {
        std::uint32_t low, high;
        int direction;
    };
    if (!m_network)
        return {};
    std::vector<Use> uses;
    Facets const& facets = m_network->facets();
    std::uint32_t begin = 0;
    for (Facets::End const& face : facets.ends) {
        for (std::uint32_t b = begin; b < face.borders; ++b) {
            auto const& border = facets.borders[b];
            if (m_soup.operandOf(face.triangle) == operand &&
                (m_network->points().isOnCurve(border.from) ||
                 m_network->points().isOnCurve(border.to)))
                uses.push_back({std::min(border.from, border.to), std::max(border.from, border.to),
                                border.from < border.to ? 1 : -1});
        }
        begin = face.borders;
    }
    std::sort(uses.begin(), uses.end(), [](Use const& a, Use const& b) {
        return a.low != b.low ? a.low < b.low : a.high < b.high;
    });
    for (std::size_t i = 0; i < uses.size();) {
        std::size_t end = i;
        int balance = 0;
        for (; end < uses.size() && uses[end].low == uses[i].low && uses[end].high == uses[i].high;
             ++end)
            balance += uses[end].direction;
        // Points in which the two meet have higher numbers than vertices.
        if (balance != 0)
            return place(uses[i].high);
        i = end;
    }
    return {};
}

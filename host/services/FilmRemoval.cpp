// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/FilmRemoval.h"

#include "host/services/repair/SoupMending.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace {

using Indices = std::vector<std::uint32_t>;

/// For each point the first one at the same place.
Indices firstAtPlace(std::vector<MeshArrays::Point> const& points)
{
    Indices order(points.size());
    std::iota(order.begin(), order.end(), 0u);
    auto const place = [&](std::uint32_t i) {
        return std::tuple(points[i].X(), points[i].Y(), points[i].Z());
    };
    std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        return std::tuple(place(a), a) < std::tuple(place(b), b);
    });
    Indices first(points.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        first[order[i]] =
            i > 0 && points[order[i]] == points[order[i - 1]] ? first[order[i - 1]] : order[i];
    return first;
}

/// A triangle by its corners in ascending order, and whether that turned it round.
struct Film
{
    MeshArrays::Corners corners;
    bool isTurned;
    std::uint32_t triangle;

    bool operator<(Film const& o) const
    {
        return std::tie(corners, triangle) < std::tie(o.corners, o.triangle);
    }
};

std::vector<Film> sortedTriangles(MeshArrays const& mesh, Indices const& first)
{
    std::vector<Film> films;
    films.reserve(mesh.triangles.size());
    for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t) {
        MeshArrays::Corners c = mesh.triangles[t];
        for (std::uint32_t& corner : c)
            corner = first[corner];
        std::rotate(c.begin(), std::min_element(c.begin(), c.end()), c.end());
        bool const isTurned = c[1] > c[2];
        if (isTurned)
            std::swap(c[1], c[2]);
        films.push_back({c, isTurned, t});
    }
    std::sort(films.begin(), films.end());
    return films;
}

/// Marks as many triangles of each direction as there are of the other.
void markOpposite(std::vector<Film>::const_iterator begin, std::vector<Film>::const_iterator end,
                  std::vector<std::uint8_t>& isRemoved)
{
    auto const turned = std::count_if(begin, end, [](Film const& film) { return film.isTurned; });
    auto const pairs = std::min(turned, (end - begin) - turned);
    std::ptrdiff_t left[2] = {pairs, pairs};
    for (auto film = begin; film != end; ++film)
        if (left[film->isTurned]-- > 0)
            isRemoved[film->triangle] = 1;
}

}  // namespace

std::size_t removeFilms(MeshArrays& mesh, StageProgress& progress)
{
    Indices const first = firstAtPlace(mesh.points);
    progress.add(0);
    std::vector<Film> const films = sortedTriangles(mesh, first);
    progress.add(0);
    std::vector<std::uint8_t> isRemoved(mesh.triangles.size(), 0);
    for (auto begin = films.begin(); begin != films.end();) {
        auto const end = std::find_if(
            begin, films.end(), [&](Film const& film) { return film.corners != begin->corners; });
        if (end - begin > 1)
            markOpposite(begin, end, isRemoved);
        begin = end;
    }
    std::vector<std::uint8_t> isJoined(mesh.points.size(), 0);
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t)
        if (isRemoved[t])
            for (std::uint32_t corner : mesh.triangles[t])
                isJoined[first[corner]] = 1;
    for (MeshArrays::Corners& corners : mesh.triangles)
        for (std::uint32_t& corner : corners)
            if (isJoined[first[corner]])
                corner = first[corner];
    std::size_t const count = mesh.triangles.size();
    removeTriangles(mesh, isRemoved);
    return count - mesh.triangles.size();
}

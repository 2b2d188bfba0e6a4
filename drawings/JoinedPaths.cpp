// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawings/JoinedPaths.h"

#include "drawings/PathBuilder.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace Drawings {

namespace {

constexpr double sameEnd = 0.01;

/// The ends of open paths by their places.
class Ends
{
public:
    explicit Ends(std::vector<Path> const& paths) : m_paths(paths), m_isUsed(paths.size(), false)
    {
        for (std::size_t i = 0; i < paths.size(); ++i)
            if (!paths[i].isClosed) {
                m_cells.emplace(cellOf(paths[i].points.front()), i);
                m_cells.emplace(cellOf(paths[i].points.back()), i);
            }
    }

    void use(std::size_t path) { m_isUsed[path] = true; }
    bool isUsed(std::size_t path) const { return m_isUsed[path]; }

    /// The first path that is left and has an end there.
    std::optional<std::size_t> at(Point const& p) const
    {
        std::optional<std::size_t> first;
        auto const [x, y] = cellOf(p);
        for (long dx = -1; dx <= 1; ++dx)
            for (long dy = -1; dy <= 1; ++dy) {
                auto const [begin, end] = m_cells.equal_range({x + dx, y + dy});
                for (auto entry = begin; entry != end; ++entry)
                    if (!m_isUsed[entry->second] && (!first || entry->second < *first) &&
                        hasEndAt(m_paths[entry->second], p))
                        first = entry->second;
            }
        return first;
    }

private:
    using Cell = std::pair<long, long>;

    static Cell cellOf(Point const& p)
    {
        return {std::lround(p.X() / sameEnd), std::lround(p.Y() / sameEnd)};
    }
    static bool hasEndAt(Path const& path, Point const& p)
    {
        return distance(path.points.front(), p) <= sameEnd ||
               distance(path.points.back(), p) <= sameEnd;
    }

    std::vector<Path> const& m_paths;
    std::vector<bool> m_isUsed;
    std::multimap<Cell, std::size_t> m_cells;
};

/// Goes on from the end of a path as far as others join it.
void extend(std::vector<Point>& points, Ends& ends, std::vector<Path> const& paths)
{
    while (distance(points.front(), points.back()) > sameEnd || points.size() < 3) {
        auto const next = ends.at(points.back());
        if (!next)
            return;
        ends.use(*next);
        std::vector<Point> more = paths[*next].points;
        if (distance(more.front(), points.back()) > sameEnd)
            std::reverse(more.begin(), more.end());
        points.insert(points.end(), more.begin() + 1, more.end());
    }
}

}  // namespace

std::vector<Path> joinedPaths(std::vector<Path> paths)
{
    Ends ends(paths);
    std::vector<Path> joined;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        if (ends.isUsed(i))
            continue;
        ends.use(i);
        Path path = paths[i];
        if (!path.isClosed) {
            extend(path.points, ends, paths);
            std::reverse(path.points.begin(), path.points.end());
            extend(path.points, ends, paths);
            std::reverse(path.points.begin(), path.points.end());
            path.isClosed = path.points.size() > 3 &&
                            distance(path.points.front(), path.points.back()) <= sameEnd;
            if (path.isClosed)
                path.points.pop_back();
            if (path.points.size() > mostPoints)
                refuse(tooManyPoints());
        }
        joined.push_back(std::move(path));
    }
    return joined;
}

}  // namespace Drawings

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/ShapeProof.h"

#include "host/services/DistanceTree.h"
#include "host/services/boolean/PlaceKey.h"
#include "host/services/repair/TriangleDifference.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <optional>
#include <random>

namespace {

using Place = WindingField::Place;
using Point = MeshArrays::Point;
using Corners = MeshArrays::Corners;
using Triangles = std::vector<std::uint32_t>;

/// A number this near to a whole one leaves no doubt.
constexpr double mostDoubt = 0.2;
/// Changes of a winding number below this are the field's error.
constexpr double fieldError = 0.05;
constexpr std::size_t mostTrianglesAsked = 1000;
constexpr int boxSamples = 200;

bool isSure(double winding)
{
    return std::abs(winding - std::round(winding)) <= mostDoubt;
}

struct Box
{
    Place low{1e300, 1e300, 1e300};
    Place high{-1e300, -1e300, -1e300};

    void add(Point const& p)
    {
        for (std::size_t k = 0; k < 3; ++k) {
            low[k] = std::min(low[k], double(p[int(k)]));
            high[k] = std::max(high[k], double(p[int(k)]));
        }
    }
    bool isNull() const { return low[0] > high[0]; }
    double volume() const
    {
        return isNull() ? 0 : (high[0] - low[0]) * (high[1] - low[1]) * (high[2] - low[2]);
    }
    double reach() const
    {
        double most = 0;
        for (std::size_t k = 0; k < 3; ++k)
            most = std::max({most, std::abs(low[k]), std::abs(high[k])});
        return most;
    }
};

Box boxOf(MeshArrays const& mesh)
{
    Box box;
    for (Corners const& corners : mesh.triangles)
        for (std::uint32_t const corner : corners)
            box.add(mesh.points[corner]);
    return box;
}

/// Some triangles as a mesh, one vertex at each place.
class Part
{
public:
    explicit Part(PointsByPlace& places, std::vector<Point>& points)
        : m_places(places), m_points(points)
    {}

    void add(MeshArrays const& from, Triangles const& triangles, bool areTurned)
    {
        for (std::uint32_t const t : triangles) {
            // What is nowhere bounds nothing.
            if (!isSomewhere(from, t))
                continue;
            Corners corners;
            for (int k = 0; k < 3; ++k) {
                std::uint32_t& number = m_places[placeKey(from.point(t, k))];
                if (number == PointsByPlace::none) {
                    number = std::uint32_t(m_points.size());
                    m_points.push_back(from.point(t, k));
                }
                corners[k] = number;
            }
            if (areTurned)
                std::swap(corners[1], corners[2]);
            mesh.triangles.push_back(corners);
        }
    }

    /// To be called once all is there.
    void makeField(StageProgress& progress)
    {
        mesh.points = m_points;
        m_topology.isDegenerate.assign(mesh.triangles.size(), 0);
        m_topology.isSpread.assign(mesh.points.size(), 0);
        m_tree = std::make_unique<TriangleTree>(mesh, m_topology, progress);
        m_field = std::make_unique<WindingField>(mesh, *m_tree, progress);
    }

    double windingAt(Place const& place) const { return m_field->at(place); }

    MeshArrays mesh;

private:
    static bool isSomewhere(MeshArrays const& from, std::uint32_t triangle)
    {
        double sum = 0;
        for (int k = 0; k < 3; ++k)
            for (int axis = 0; axis < 3; ++axis)
                sum += from.point(triangle, k)[axis];
        return std::isfinite(sum);
    }

    PointsByPlace& m_places;
    std::vector<Point>& m_points;
    TopologyReport m_topology;
    std::unique_ptr<TriangleTree> m_tree;
    std::unique_ptr<WindingField> m_field;
};

/// Six times the signed volume under the triangles, as seen from a point.
double sextupleVolume(MeshArrays const& mesh, Place const& from)
{
    double sum = 0;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        double v[3][3];
        for (int k = 0; k < 3; ++k)
            for (int axis = 0; axis < 3; ++axis)
                v[k][axis] = mesh.point(t, k)[axis] - from[std::size_t(axis)];
        sum += v[0][0] * (v[1][1] * v[2][2] - v[1][2] * v[2][1]) +
               v[0][1] * (v[1][2] * v[2][0] - v[1][0] * v[2][2]) +
               v[0][2] * (v[1][0] * v[2][1] - v[1][1] * v[2][0]);
    }
    return sum;
}

/// Edges that are run along more often one way than the other, with how much more often.
std::map<std::pair<std::uint32_t, std::uint32_t>, int> borderOf(MeshArrays const& mesh)
{
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> border;
    for (Corners const& c : mesh.triangles)
        for (int k = 0; k < 3; ++k) {
            std::uint32_t const a = c[k], b = c[(k + 1) % 3];
            if (a != b)
                border[{std::min(a, b), std::max(a, b)}] += a < b ? 1 : -1;
        }
    std::erase_if(border, [](auto const& edge) { return edge.second == 0; });
    return border;
}

/// Points at which the solid is asked for.
class Samples
{
public:
    /// Near a part's triangles, on both sides, and about them.
    void addNear(MeshArrays const& part, double unit)
    {
        std::size_t const count = part.triangles.size();
        std::size_t const asked = std::min(count, mostTrianglesAsked);
        for (std::size_t i = 0; i < asked; ++i)
            addNear(part, i * count / asked, unit);
    }

    void addWithin(Box const& box, int count)
    {
        if (box.isNull())
            return;
        for (int i = 0; i < count; ++i) {
            Place place;
            for (std::size_t k = 0; k < 3; ++k)
                place[k] = box.low[k] + share() * (box.high[k] - box.low[k]);
            places.push_back(place);
        }
    }

    std::vector<Place> places;

private:
    void addNear(MeshArrays const& part, std::size_t t, double unit)
    {
        Place middle{};
        Box box;
        for (int k = 0; k < 3; ++k) {
            box.add(part.point(t, k));
            for (int axis = 0; axis < 3; ++axis)
                middle[std::size_t(axis)] += part.point(t, k)[axis] / 3.0;
        }
        UVector3<double> const u = offset(part, t, 1), v = offset(part, t, 2);
        UVector3<double> normal = u * v;
        double const doubled = normal.GetLength();
        double const length = std::max({u.GetLength(), v.GetLength(), (v - u).GetLength()});
        // Nothing can be asked beside a triangle that is as low as rounding.
        constexpr double lowest = 64;
        if (length > 0 && doubled / length > lowest * unit) {
            double const away = std::max(16 * unit, doubled / length / 50);
            normal = normal / doubled;
            for (double const side : {away, -away})
                places.push_back({middle[0] + side * normal.X(), middle[1] + side * normal.Y(),
                                  middle[2] + side * normal.Z()});
        }
        for (std::size_t k = 0; k < 3; ++k) {
            box.low[k] -= length / 2;
            box.high[k] += length / 2;
        }
        addWithin(box, 2);
    }

    static UVector3<double> offset(MeshArrays const& part, std::size_t t, int corner)
    {
        Point const &a = part.point(t, 0), &b = part.point(t, corner);
        return {double(b.X()) - a.X(), double(b.Y()) - a.Y(), double(b.Z()) - a.Z()};
    }

    double share() { return m_random() * 0x1p-32; }

    std::mt19937 m_random{1};
};

/// One comparison of two meshes.
class Comparison
{
public:
    Comparison(MeshArrays const& before, WindingField const& field, MeshArrays const& after,
               StageProgress& progress)
        : m_before(before),
          m_after(after),
          m_field(field),
          m_progress(progress),
          m_turned(m_placeNumbers, m_points),
          m_removed(m_placeNumbers, m_points),
          m_added(m_placeNumbers, m_points)
    {}

    ShapeProof::Verdict run()
    {
        findChange();
        if (m_turned.mesh.triangles.empty() && m_removed.mesh.triangles.empty() &&
            m_added.mesh.triangles.empty())
            return {};
        compareBoxes();
        if (!m_turned.mesh.triangles.empty())
            compareTurned();
        if (!m_removed.mesh.triangles.empty() || !m_added.mesh.triangles.empty())
            compareReplaced();
        return std::move(m_verdict);
    }

private:
    void findChange()
    {
        Triangles const removed = trianglesNotIn(m_before, m_after, Facing::same, m_progress);
        Triangles const added = trianglesNotIn(m_after, m_before, Facing::same, m_progress);
        // What is on the same places in both, but faces the other way.
        MeshArrays const gone = subset(m_before, removed), come = subset(m_after, added);
        Triangles const onlyGone = trianglesNotIn(gone, come, Facing::either, m_progress);
        Triangles const onlyCome = trianglesNotIn(come, gone, Facing::either, m_progress);
        m_turned.add(gone, others(onlyGone, gone.triangles.size()), false);
        m_removed.add(gone, onlyGone, false);
        m_added.add(come, onlyCome, false);
        for (Part* const part : {&m_turned, &m_removed, &m_added})
            part->makeField(m_progress);
        m_unit = 0x1p-23 * std::max(boxOf(m_before).reach(), boxOf(m_after).reach());
    }

    static MeshArrays subset(MeshArrays const& mesh, Triangles const& triangles)
    {
        MeshArrays part;
        part.points = mesh.points;
        for (std::uint32_t const t : triangles)
            part.triangles.push_back(mesh.triangles[t]);
        return part;
    }

    static Triangles others(Triangles const& some, std::size_t count)
    {
        Triangles rest;
        auto next = some.begin();
        for (std::uint32_t t = 0; t < count; ++t)
            if (next != some.end() && *next == t)
                ++next;
            else
                rest.push_back(t);
        return rest;
    }

    void fail(Place const& place)
    {
        fail();
        if (m_verdict.places.size() < 256)
            m_verdict.places.emplace_back(float(place[0]), float(place[1]), float(place[2]));
    }
    void fail() { m_verdict.isKept = false; }

    /// Where the box has shrunk, only films may have stuck out, and pockets turned inside out a
    /// little; it may not have grown.
    void compareBoxes()
    {
        Box const before = boxOf(m_before), after = boxOf(m_after);
        for (std::size_t k = 0; k < 3; ++k)
            if (after.low[k] < before.low[k] || after.high[k] > before.high[k])
                fail();
        double length = 0;
        for (std::size_t k = 0; k < 3; ++k)
            length += (before.high[k] - before.low[k]) * (before.high[k] - before.low[k]);
        constexpr double mostOfPocket = 0.02;
        double const slack = mostOfPocket * std::sqrt(length);
        std::size_t asked = 0;
        for (std::size_t t = 0; t < m_removed.mesh.triangles.size(); ++t)
            for (int k = 0; k < 3; ++k) {
                double const out = distanceOut(m_removed.mesh.point(t, k), after);
                if (out > 0 && ++asked <= mostTrianglesAsked)
                    compareTip(t, k, out <= slack);
            }
    }

    static double distanceOut(Point const& p, Box const& box)
    {
        double most = 0;
        for (std::size_t k = 0; k < 3; ++k)
            most = std::max({most, box.low[k] - p[int(k)], p[int(k)] - box.high[k]});
        return most;
    }

    /// Asks for solid in the inner of a triangle's corner, on both sides.
    void compareTip(std::size_t t, int corner, bool isLittle)
    {
        MeshArrays const& mesh = m_removed.mesh;
        Place inner{};
        for (int k = 0; k < 3; ++k)
            for (int axis = 0; axis < 3; ++axis)
                inner[std::size_t(axis)] +=
                    (k == corner ? 0.9 : 0.05) * double(mesh.point(t, k)[axis]);
        for (int direction = 0; direction < 6; ++direction) {
            Place place = inner;
            place[std::size_t(direction / 2)] += (direction % 2 ? 32 : -32) * m_unit;
            double const winding = m_field.at(place);
            long const number = std::lround(winding);
            if (isSure(winding) && (number > 0 || (number < 0 && !isLittle)))
                return fail(place);
        }
    }

    void compareTurned()
    {
        bool const areShells = borderOf(m_turned.mesh).empty();
        Samples samples;
        samples.addNear(m_turned.mesh, m_unit);
        samples.addWithin(boxOf(m_turned.mesh), boxSamples);
        askAll(samples.places, [&](Place const& place) {
            double const change = -2 * m_turned.windingAt(place);
            if (std::abs(change) < fieldError)
                return true;
            double const before = m_field.at(place), after = before + change;
            if (!areShells)
                return !isSure(after) || std::lround(after) >= 0;
            if (!isSure(before) || !isSure(after))
                return false;
            return (std::lround(before) != 0) == (std::lround(after) > 0);
        });
    }

    void compareReplaced()
    {
        bool const isBorderKept = isChangeClosed();
        Box box = boxOf(m_removed.mesh);
        for (Corners const& corners : m_added.mesh.triangles)
            for (std::uint32_t const corner : corners)
                box.add(m_points[corner]);
        Samples samples;
        samples.addNear(m_removed.mesh, m_unit);
        samples.addNear(m_added.mesh, m_unit);
        std::size_t const near = samples.places.size();
        samples.addWithin(box, boxSamples);
        std::vector<std::uint8_t> hasChanged(samples.places.size(), 0);
        Place const* const first = samples.places.data();
        askAll(samples.places, [&](Place const& place) {
            double const change = m_added.windingAt(place) - m_removed.windingAt(place);
            if (std::abs(change) < fieldError)
                return true;
            hasChanged[std::size_t(&place - first)] = 1;
            double const before = m_field.at(place) - 2 * m_turned.windingAt(place);
            double const after = before + change;
            if (!isSure(before) || !isSure(after))
                return !isBorderKept;
            return (std::lround(before) > 0) == (std::lround(after) > 0);
        });
        if (isBorderKept)
            compareVolumes(
                box, std::count(hasChanged.begin() + std::ptrdiff_t(near), hasChanged.end(), 1),
                std::count(hasChanged.begin(), hasChanged.end(), 1));
    }

    /// Whether what is gone and what has come have the same border. If not, no edge may have lost a
    /// partner.
    bool isChangeClosed()
    {
        MeshArrays change = m_added.mesh;
        for (Corners const& c : m_removed.mesh.triangles)
            change.triangles.push_back({c[0], c[2], c[1]});
        auto const border = borderOf(change);
        if (border.empty())
            return true;
        Triangles numbers(m_before.points.size(), PointsByPlace::none);
        for (std::size_t i = 0; i < numbers.size(); ++i)
            numbers[i] = m_placeNumbers.find(placeKey(m_before.points[i]));
        std::map<std::pair<std::uint32_t, std::uint32_t>, int> present;
        for (std::size_t t = 0; t < m_before.triangles.size(); ++t) {
            if (t % 4096 == 0)
                m_progress.add(0);
            for (int k = 0; k < 3; ++k) {
                std::uint32_t const a = numbers[m_before.triangles[t][k]],
                                    b = numbers[m_before.triangles[t][(k + 1) % 3]];
                if (a != PointsByPlace::none && b != PointsByPlace::none && a != b &&
                    border.contains({std::min(a, b), std::max(a, b)}))
                    present[{std::min(a, b), std::max(a, b)}] += a < b ? 1 : -1;
            }
        }
        // Turned triangles change the balance at their edges by twice their own.
        MeshArrays const& turned = m_turned.mesh;
        for (Corners const& c : turned.triangles)
            for (int k = 0; k < 3; ++k) {
                std::uint32_t const a = c[k], b = c[(k + 1) % 3];
                if (border.contains({std::min(a, b), std::max(a, b)}))
                    present[{std::min(a, b), std::max(a, b)}] += a < b ? -2 : 2;
            }
        for (auto const& [edge, count] : border)
            if (std::abs(present[edge] + count) > std::abs(present[edge])) {
                Point const& p = m_points[edge.first];
                fail({p.X(), p.Y(), p.Z()});
            }
        return false;
    }

    /// The volume may change by as much as the points tell that something has been counted less
    /// often.
    void compareVolumes(Box const& box, std::ptrdiff_t changedInBox, std::ptrdiff_t changed)
    {
        Place const from = box.isNull() ? Place{} : box.low;
        double const change =
            (sextupleVolume(m_added.mesh, from) - sextupleVolume(m_removed.mesh, from)) / 6;
        double area = 0;
        for (Part const* const part : {&m_added, &m_removed})
            for (std::size_t t = 0; t < part->mesh.triangles.size(); ++t)
                area += areaOf(part->mesh, t);
        double const rounding = 4 * m_unit * area;
        // Layers that lie over each other may count more than twice.
        constexpr double mostLayers = 4;
        double const seen = (double(changedInBox) + 4 + 4 * std::sqrt(double(changedInBox))) /
                            boxSamples * box.volume() * mostLayers;
        if (std::abs(change) > rounding + (changed > 0 ? seen : 0.01 * box.volume()))
            fail();
    }

    static double areaOf(MeshArrays const& mesh, std::size_t t)
    {
        Point const &a = mesh.point(t, 0), &b = mesh.point(t, 1), &c = mesh.point(t, 2);
        UVector3<double> const u(double(b.X()) - a.X(), double(b.Y()) - a.Y(),
                                 double(b.Z()) - a.Z());
        UVector3<double> const v(double(c.X()) - a.X(), double(c.Y()) - a.Y(),
                                 double(c.Z()) - a.Z());
        return (u * v).GetLength() / 2;
    }

    /// Asks at all places, on all cores, and fails where the answer is no. Rounding may have moved
    /// surfaces, so it does not count beside them.
    template <typename IsKept>
    void askAll(std::vector<Place> const& places, IsKept const& isKept)
    {
        std::vector<std::uint8_t> isWrong(places.size(), 0);
        using Range = tbb::blocked_range<std::size_t>;
        tbb::parallel_for(Range(0, places.size(), 16), [&](Range const& range) {
            for (std::size_t i = range.begin(); i != range.end(); ++i) {
                isWrong[i] = !isKept(places[i]);
                if (!m_progress.add(0))
                    return;
            }
        });
        for (std::size_t i = 0; i < places.size(); ++i)
            if (isWrong[i] && !isBesideChange(places[i]))
                fail(places[i]);
    }

    bool isBesideChange(Place const& place)
    {
        if (!m_distances) {
            MeshArrays all = m_added.mesh;
            for (Part const* const part : {&m_removed, &m_turned})
                all.triangles.insert(all.triangles.end(), part->mesh.triangles.begin(),
                                     part->mesh.triangles.end());
            all.points = m_points;
            m_distances.emplace(all, m_progress);
        }
        Point const p{float(place[0]), float(place[1]), float(place[2])};
        double const slack = 4 * m_unit;
        return m_distances->squaredDistance(p) < slack * slack;
    }

    MeshArrays const& m_before;
    MeshArrays const& m_after;
    WindingField const& m_field;
    StageProgress& m_progress;
    PointsByPlace m_placeNumbers;
    std::vector<Point> m_points;
    /// What faces the other way, as it faced before; what is gone; what has come.
    Part m_turned;
    Part m_removed;
    Part m_added;
    std::optional<DistanceTree> m_distances;
    /// The last place of the largest coordinate.
    double m_unit = 0;
    ShapeProof::Verdict m_verdict;
};

}  // namespace

ShapeProof::Verdict ShapeProof::prove(MeshArrays const& after, StageProgress& progress) const
{
    return Comparison(m_before, m_field, after, progress).run();
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/ShapeProof.h"

#include "host/services/DistanceTree.h"
#include "host/services/repair/MeetingPlaces.h"
#include "host/services/repair/PlacedTriangles.h"
#include "host/services/repair/ProofSamples.h"
#include "host/services/repair/TriangleDifference.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

namespace {

using Place = WindingField::Place;
using Point = MeshArrays::Point;
using Corners = MeshArrays::Corners;
using Triangles = std::vector<std::uint32_t>;

/// A number this near to a whole one leaves no doubt.
constexpr double mostDoubt = 0.2;
/// Changes of a winding number below this are the field's error.
constexpr double fieldError = 0.05;
constexpr std::size_t mostTrianglesAsked = ProofSamples::mostTriangles;
constexpr int boxSamples = 200;

bool isSure(double winding)
{
    return std::abs(winding - std::round(winding)) <= mostDoubt;
}

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
std::map<std::pair<std::uint32_t, std::uint32_t>, int> borderOf(MeshArrays const& mesh,
                                                                StageProgress& progress)
{
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> border;
    std::size_t visited = 0;
    for (Corners const& c : mesh.triangles) {
        if (++visited % 4096 == 0)
            progress.add(0);
        for (int k = 0; k < 3; ++k) {
            std::uint32_t const a = c[k], b = c[(k + 1) % 3];
            if (a != b)
                border[{std::min(a, b), std::max(a, b)}] += a < b ? 1 : -1;
        }
    }
    std::erase_if(border, [](auto const& edge) { return edge.second == 0; });
    return border;
}

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
    /// Most is the same in the same order; what is not is compared by its places.
    void findChange()
    {
        Triangles const matched = matchedInOrder(m_after, m_before, m_progress);
        Triangles goneNumbers, comeNumbers;
        std::vector<std::uint8_t> isKept(m_before.triangles.size(), 0);
        for (std::uint32_t t = 0; t < matched.size(); ++t)
            if (matched[t] == unmatched)
                comeNumbers.push_back(t);
            else
                isKept[matched[t]] = 1;
        for (std::uint32_t t = 0; t < isKept.size(); ++t)
            if (!isKept[t])
                goneNumbers.push_back(t);
        MeshArrays const removed = subset(m_before, goneNumbers);
        MeshArrays const added = subset(m_after, comeNumbers);
        MeshArrays const gone =
            subset(removed, trianglesNotIn(removed, added, Facing::same, m_progress));
        MeshArrays const come =
            subset(added, trianglesNotIn(added, removed, Facing::same, m_progress));
        // What is on the same places in both, but faces the other way.
        Triangles const onlyGone = trianglesNotIn(gone, come, Facing::either, m_progress);
        Triangles const onlyCome = trianglesNotIn(come, gone, Facing::either, m_progress);
        m_turned.add(gone, others(onlyGone, gone.triangles.size()), m_progress);
        m_removed.add(gone, onlyGone, m_progress);
        m_added.add(come, onlyCome, m_progress);
        for (PlacedTriangles* const part : {&m_turned, &m_removed, &m_added})
            part->makeField(m_progress);
        m_boxBefore = SolidBox::around(m_before);
        m_progress.add(0);
        m_boxAfter = SolidBox::around(m_after);
        m_unit = 0x1p-23 * std::max(m_boxBefore.reach(), m_boxAfter.reach());
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
        SolidBox const &before = m_boxBefore, &after = m_boxAfter;
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

    static double distanceOut(Point const& p, SolidBox const& box)
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
        bool const areShells = borderOf(m_turned.mesh, m_progress).empty();
        ProofSamples samples;
        samples.addNear(m_turned.mesh, m_unit);
        samples.addWithin(SolidBox::around(m_turned.mesh), boxSamples);
        askAll(samples.places, [&](Place const& place) {
            double const change = -2 * m_turned.windingAt(place);
            if (std::abs(change) < fieldError)
                return true;
            double const before = m_field.at(place), after = before + change;
            if (!areShells)
                return !isSure(after) || std::lround(after) >= 0;
            if (!isSure(before) || !isSure(after))
                return false;
            long const number = std::lround(after);
            return std::lround(before) != 0 ? number > 0 : number == 0;
        });
    }

    void compareReplaced()
    {
        bool const isBorderKept = isChangeClosed();
        SolidBox box = SolidBox::around(m_removed.mesh);
        for (Corners const& corners : m_added.mesh.triangles)
            for (std::uint32_t const corner : corners)
                box.add(m_points[corner]);
        ProofSamples samples;
        samples.addNear(m_removed.mesh, m_unit);
        samples.addNear(m_added.mesh, m_unit);
        addSurroundings(box, samples);
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
            long const was = std::lround(before), is = std::lround(after);
            return (was > 0) == (is > 0) && is >= std::min(was, 0L);
        });
        if (isBorderKept)
            compareVolumes(
                box, std::count(hasChanged.begin() + std::ptrdiff_t(near), hasChanged.end(), 1),
                std::count(hasChanged.begin(), hasChanged.end(), 1));
    }

    /// A layer that is gone may have made up for one that winds below zero, and a layer that has
    /// come may do so: within it, or in a sliver where the two cross.
    void addSurroundings(SolidBox const& box, ProofSamples& samples)
    {
        constexpr std::size_t most = 300;
        TriangleTree const& tree = m_field.tree();
        samples.addNear(subset(m_before, trianglesIn(tree, floatsAround(box), most)), m_unit);
        for (PlacedTriangles const* const part : {&m_removed, &m_added}) {
            auto const meetings =
                placesWhereTheyMeet(m_before, tree, part->mesh, m_unit, most, m_progress);
            samples.places.insert(samples.places.end(), meetings.begin(), meetings.end());
        }
    }

    static TriangleTree::Box floatsAround(SolidBox const& box)
    {
        TriangleTree::Box floats;
        for (Place const& corner : {box.low, box.high}) {
            std::array const place{float(corner[0]), float(corner[1]), float(corner[2]), 0.0f};
            floats.add({place, place});
        }
        return floats;
    }

    /// Whether what is gone and what has come have the same border. If not, no edge may have lost a
    /// partner.
    bool isChangeClosed()
    {
        MeshArrays change = m_added.mesh;
        for (Corners const& c : m_removed.mesh.triangles)
            change.triangles.push_back({c[0], c[2], c[1]});
        auto const border = borderOf(change, m_progress);
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
    void compareVolumes(SolidBox const& box, std::ptrdiff_t changedInBox, std::ptrdiff_t changed)
    {
        Place const from = box.isNull() ? Place{} : box.low;
        double const change =
            (sextupleVolume(m_added.mesh, from) - sextupleVolume(m_removed.mesh, from)) / 6;
        double area = 0;
        for (PlacedTriangles const* const part : {&m_added, &m_removed})
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
        for (std::size_t i = 0; i < places.size(); ++i) {
            m_progress.add(0);
            if (isWrong[i] && !isBesideChange(places[i]))
                fail(places[i]);
        }
    }

    bool isBesideChange(Place const& place)
    {
        if (!m_distances) {
            MeshArrays all = m_added.mesh;
            for (PlacedTriangles const* const part : {&m_removed, &m_turned})
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
    PlacedTriangles m_turned;
    PlacedTriangles m_removed;
    PlacedTriangles m_added;
    std::optional<DistanceTree> m_distances;
    SolidBox m_boxBefore;
    SolidBox m_boxAfter;
    /// The last place of the largest coordinate.
    double m_unit = 0;
    ShapeProof::Verdict m_verdict;
};

}  // namespace

ShapeProof::Verdict ShapeProof::prove(MeshArrays const& after, StageProgress& progress) const
{
    return Comparison(m_before, m_field, after, progress).run();
}

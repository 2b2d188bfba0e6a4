// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/SectionRounding.h"

#include "host/mesh/DegenerateTriangles.h"
#include "host/services/TrianglePair.h"
#include "host/services/TriangleTree.h"
#include "host/services/boolean/BoxCells.h"
#include "host/services/boolean/RoundingCrossings.h"
#include "host/services/boolean/RoundingMending.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <unordered_set>

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<double>;
using Triangle = UTriangle<float>;
using Vertex = UVertex<float>;
using Corners = MeshArrays::Corners;
using Box = TriangleTree::Box;

/// Rounding moves a point by half a unit in each coordinate.
constexpr double doubtfulUnits = 2;
/// Further than mending moves points.
constexpr double reachUnits = 128;
/// Tests of boxes, of which a million take one or two milliseconds; beyond, a tree over all that was
/// made is worth its making.
constexpr std::size_t mostTests = 8'000'000;
/// Triangles that are looked at from one poll to the next.
constexpr std::size_t pollInterval = 65536;

double unitAt(Point const& p)
{
    float const size = std::max({std::fabs(p[0]), std::fabs(p[1]), std::fabs(p[2])});
    return double(std::nextafter(size, std::numeric_limits<float>::infinity())) - size;
}

Vector between(Point const& from, Point const& to)
{
    return {double(to[0]) - from[0], double(to[1]) - from[1], double(to[2]) - from[2]};
}

/// Takes out of a list the elements at some ascending places for which a condition holds; the others
/// are not looked at.
template <typename Element, typename Condition>
void eraseAmong(std::vector<Element>& list, std::vector<std::size_t> const& places,
                Condition const& condition)
{
    auto kept = list.begin();
    std::size_t from = 0;
    for (std::size_t const place : places) {
        if (!condition(list[place]))
            continue;
        auto const begin = list.begin() + std::ptrdiff_t(from);
        auto const end = list.begin() + std::ptrdiff_t(place);
        kept = kept == begin ? end : std::move(begin, end, kept);
        from = place + 1;
    }
    if (from > 0)
        list.erase(std::move(list.begin() + std::ptrdiff_t(from), list.end(), kept), list.end());
}

Box boxOf(Triangle const& triangle)
{
    Box box;
    for (int i = 0; i < 3; ++i) {
        Point const& p = triangle.cP(i);
        box.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
    }
    return box;
}

/// Boxes around which triangles are sought.
class Surroundings
{
public:
    void add(Triangle const& triangle)
    {
        Box box = boxOf(triangle);
        auto const reach = float(reachUnits * unitAt(triangle.cP(0)));
        for (std::size_t k = 0; k < 3; ++k) {
            box.low[k] -= reach;
            box.high[k] += reach;
        }
        m_boxes.push_back(box);
        m_bounds.add(box);
    }

    bool reach(Triangle const& triangle) const
    {
        Box const box = boxOf(triangle);
        return box.overlaps(m_bounds) &&
               std::any_of(m_boxes.begin(), m_boxes.end(),
                           [&](Box const& other) { return box.overlaps(other); });
    }

private:
    std::vector<Box> m_boxes;
    Box m_bounds;
};

/// The section points of the vertices of both halves.
class PointNumbers
{
public:
    explicit PointNumbers(SectionPoints const& points) : m_points(points)
    {
        for (CutSide const side : {sideAbove, sideBelow})
            for (std::uint32_t p = 0; p < points.size(); ++p)
                if (Vertex const* const vertex = points.existingIn(side, p))
                    m_sides[side].add(std::size_t(vertex->cID()), p);
    }

    /// The point, or none for a vertex beside the plane.
    std::uint32_t operator()(CutSide side, Vertex const* vertex) const
    {
        std::uint32_t const point = m_sides[side].at(std::size_t(vertex->cID()));
        // Vertices beside the plane have identifiers of another kind.
        bool const isIt = point != WallCorner::none && m_points.existingIn(side, point) == vertex;
        return isIt ? point : WallCorner::none;
    }

private:
    /// By identifier; those of section points follow each other, from some number on.
    class ByIdentifier
    {
    public:
        void add(std::size_t identifier, std::uint32_t point)
        {
            if (m_points.empty())
                m_first = identifier;
            if (identifier < m_first) {
                m_points.insert(m_points.begin(), m_first - identifier, WallCorner::none);
                m_first = identifier;
            }
            if (identifier - m_first >= m_points.size())
                m_points.resize(identifier - m_first + 1, WallCorner::none);
            m_points[identifier - m_first] = point;
        }
        std::uint32_t at(std::size_t identifier) const
        {
            return identifier >= m_first && identifier - m_first < m_points.size()
                       ? m_points[identifier - m_first]
                       : WallCorner::none;
        }

    private:
        std::size_t m_first = 0;
        std::vector<std::uint32_t> m_points;
    };

    SectionPoints const& m_points;
    std::array<ByIdentifier, 2> m_sides;
};

using Records = std::unordered_set<Triangle const*>;

/// A triangle of a half.
struct HalfTriangle
{
    Triangle* record;
    /// The triangle that it is a part of.
    std::array<Point, 3> source;
    CutSide side;
    bool isCap;
};

/// Triangles of both halves near what is in doubt, in the form in which the rounding of a boolean is
/// mended: what comes from the part is the first operand, the plane is the second.
class SectionSoup
{
public:
    /// isInDoubt  by section point; what is, may be moved
    SectionSoup(std::vector<HalfTriangle> some, SectionPoints const& points,
                PointNumbers const& numbers, std::vector<bool> const& isInDoubt)
        : faces(std::move(some)), pieces(2), m_numbers(numbers), m_pointCount(points.size())
    {
        for (std::uint32_t p = 0; p < points.size(); ++p)
            places.push_back(points.place(p));
        std::stable_partition(faces.begin(), faces.end(),
                              [](HalfTriangle const& f) { return !f.isCap; });
        for (std::uint32_t i = 0; i < faces.size(); ++i)
            add(faces[i], i);
        isFree = isInDoubt;
        isFree.resize(places.size(), false);
    }

    /// Those that cross others, with a point in doubt at one of the two.
    Records crossing(StageProgress& progress) const
    {
        Records found;
        for (auto const& piece : pieces)
            for (auto const& pair :
                 RoundingCrossings(operands, isFree).find(piece, places, progress))
                for (std::size_t const t : pair)
                    found.insert(faces[piece[t].triangle].record);
        return found;
    }

    /// A vertex beside the plane.
    struct Native
    {
        Vertex* vertex;
        CutSide side;
    };

    Native const& nativeAt(std::uint32_t number) const { return m_natives[number - m_pointCount]; }
    bool isNative(std::uint32_t number) const { return number >= m_pointCount; }

    /// Those of the part first.
    std::vector<HalfTriangle> faces;
    /// By the numbers of section points, and then those of other vertices.
    std::vector<Point> places;
    std::vector<bool> isFree;
    /// By side; `triangle` is a place in `faces`.
    std::vector<std::vector<PieceTriangle>> pieces;
    /// As `faces`: the corners that the pieces had at first.
    std::vector<Corners> before;
    OperandSoup operands;

private:
    void add(HalfTriangle const& face, std::uint32_t place)
    {
        auto const first = std::uint32_t(operands.mesh.points.size());
        operands.mesh.triangles.push_back({first, first + 1, first + 2});
        operands.mesh.points.insert(operands.mesh.points.end(), face.source.begin(),
                                    face.source.end());
        if (!face.isCap) {
            operands.firstTriangleOfSecond = place + 1;
            operands.firstPointOfSecond = first + 3;
        }
        Corners corners;
        for (int i = 0; i < 3; ++i)
            corners[std::size_t(i)] = numberOf(face.side, face.record->V(i));
        pieces[face.side].push_back({corners, place, false});
        before.push_back(corners);
    }

    std::uint32_t numberOf(CutSide side, Vertex* vertex)
    {
        if (std::uint32_t const point = m_numbers(side, vertex); point != WallCorner::none)
            return point;
        auto const [entry, isNew] = m_others.try_emplace(vertex, std::uint32_t(places.size()));
        if (isNew) {
            places.push_back(vertex->cP());
            m_natives.push_back({vertex, side});
        }
        return entry->second;
    }

    PointNumbers const& m_numbers;
    std::size_t m_pointCount;
    std::vector<Native> m_natives;
    std::unordered_map<Vertex const*, std::uint32_t> m_others;
};

std::array<Point, 3> cornersOf(Triangle const& t)
{
    return {t.cP(0), t.cP(1), t.cP(2)};
}

/// Whether rounding can have turned a triangle over.
bool isNarrow(Point const& a, Point const& b, Point const& c)
{
    Vector const u = between(a, b), v = between(a, c);
    Vector const w = v - u, normal = u * v;
    double const longest = std::max({u | u, v | v, w | w});
    double const width = doubtfulUnits * unitAt(a);
    return (normal | normal) <= width * width * longest;
}

/// What the cut has made, above first, and the walls of each half before its caps.
std::vector<HalfTriangle> trianglesMade(SectionWalls const& walls,
                                        SectionRounding::Triangles const& caps,
                                        CutPlane const& plane)
{
    std::vector<HalfTriangle> faces;
    for (CutSide const side : {sideAbove, sideBelow}) {
        auto const& written = walls.written(side);
        for (std::size_t i = 0; i < written.size(); ++i)
            faces.push_back({written[i], cornersOf(*walls.origins(side)[i]), side, false});
        auto source = plane.corners();
        if (side == sideAbove)
            std::swap(source[1], source[2]);
        for (Triangle* const cap : caps[side])
            faces.push_back({cap, source, side, true});
    }
    return faces;
}

/// Looks for crossings of some triangles with others of their half.
class CrossingSearch
{
public:
    /// some          places in `made`
    /// areCapsExact  the caps lie in the plane, so that nothing but walls can cross
    CrossingSearch(std::vector<HalfTriangle> const& made, std::vector<std::size_t> const& some,
                   bool areCapsExact)
        : m_made(made), m_areCapsExact(areCapsExact)
    {
        Box bounds;
        for (std::size_t const i : some)
            if (canCross(i) && !isFlat(i)) {
                m_some.push_back({boxOf(*made[i].record), i});
                bounds.add(m_some.back().box);
            }
        BoxCells cells(bounds);
        for (Place const& place : m_some)
            cells.add(place.box);
        for (std::size_t i = 0; i < made.size() && !m_some.empty(); ++i)
            if (Box const box = boxOf(*made[i].record); canCross(i) && cells.areMetBy(box))
                m_near.push_back({box, i});
    }

    /// How many tests of two boxes it takes.
    std::size_t effort() const { return m_some.size() * m_near.size(); }

    Records run(StageProgress& progress)
    {
        Records crossing;
        for (Place const& a : m_some) {
            progress.add(0);
            for (Place const& b : m_near)
                if (a.box.overlaps(b.box) && doCross(a.triangle, b.triangle)) {
                    crossing.insert(m_made[a.triangle].record);
                    crossing.insert(m_made[b.triangle].record);
                }
        }
        return crossing;
    }

private:
    struct Place
    {
        Box box;
        std::size_t triangle;
    };

    bool canCross(std::size_t i) const { return !m_areCapsExact || !m_made[i].isCap; }
    bool isFlat(std::size_t i) const
    {
        Triangle const& t = *m_made[i].record;
        return isDegenerate(t.cP(0), t.cP(1), t.cP(2));
    }

    bool doCross(std::size_t i, std::size_t k)
    {
        if (m_made[i].side != m_made[k].side || i == k || isFlat(k))
            return false;
        for (std::size_t c = 0; c < 3; ++c) {
            m_pair.points[c] = m_made[i].record->cP(int(c));
            m_pair.points[c + 3] = m_made[k].record->cP(int(c));
        }
        return doTrianglesMeet(m_pair, 0, 1);
    }

    std::vector<HalfTriangle> const& m_made;
    bool m_areCapsExact;
    std::vector<Place> m_some;
    /// All that may overlap one of them.
    std::vector<Place> m_near;
    MeshArrays m_pair{std::vector<Point>(6), {{0, 1, 2}, {3, 4, 5}}};
};

}  // namespace

struct SectionRounding::Mended
{
    std::vector<Point> places;
    /// The section points of each triangle that is left; in a wall not all numbers are points.
    std::array<std::unordered_map<Triangle*, Corners>, 2> points;
    std::unordered_set<Triangle*> gone;
    /// Where triangles that are gone may stand in the lists of both halves, ascending.
    std::array<std::vector<std::size_t>, 2> mayGo;
};

SectionRounding::~SectionRounding()
{
    for (Triangle* const triangle : m_gone)
        delete triangle;
}

bool SectionRounding::isInDoubt(Exact::SectionFilling const& filling)
{
    // Layers that lie on each other cross those walls that end in one of them.
    if (filling.layers > 1)
        return false;
    m_isInDoubt.assign(m_points.size(), false);
    for (WallPiece const& piece : m_walls.pieces())
        if (piece.size > 2)
            doubt(piece);
    // The caps of a plane along two axes lie in it exactly.
    for (std::size_t i = 0; i < filling.triangles.size() && !m_plane.isAxisParallel(); ++i) {
        auto const& [a, b, c] = filling.triangles[i];
        if (!isNarrow(m_points.place(a), m_points.place(b), m_points.place(c)))
            continue;
        for (std::uint32_t const point : filling.triangles[i])
            m_isAny = m_isInDoubt[point] = true;
    }
    return m_isAny;
}

void SectionRounding::doubt(WallPiece const& piece)
{
    std::array<Point, 4> places;
    bool isDoubted = false;
    for (std::size_t i = 0; i < std::size_t(piece.size); ++i) {
        places[i] = m_walls.placeOf(piece.corners[i]);
        isDoubted |= !piece.corners[i].isPoint() && !m_plane.isAxisParallel() &&
                     m_plane.distanceOf(places[i]) <= doubtfulUnits * unitAt(places[i]);
    }
    for (auto const& [a, b, c] : m_walls.trianglesOf(piece))
        isDoubted |= isNarrow(places[a], places[b], places[c]);
    if (!isDoubted)
        return;
    for (std::size_t i = 0; i < std::size_t(piece.size); ++i)
        if (piece.corners[i].isPoint())
            m_isAny = m_isInDoubt[piece.corners[i].point] = true;
}

std::vector<Point> SectionRounding::mend(Triangles& caps, Exact::SectionFilling& filling,
                                         std::function<void(int)> const& progress)
{
    StageProgress stage(progress);
    stage.begin(0, 100, 1);
    PointNumbers const numbers(m_points);
    std::vector<HalfTriangle> const made = trianglesMade(m_walls, caps, m_plane);
    auto const hasOneOf = [&](std::vector<bool> const& points, HalfTriangle const& triangle) {
        for (int i = 0; i < 3; ++i) {
            std::uint32_t const p = numbers(triangle.side, triangle.record->cV(i));
            if (p != WallCorner::none && points[p])
                return true;
        }
        return false;
    };
    std::vector<std::size_t> doubted;
    for (std::size_t i = 0; i < made.size(); ++i)
        if (hasOneOf(m_isInDoubt, made[i]))
            doubted.push_back(i);
    CrossingSearch search(made, doubted, m_plane.isAxisParallel());
    Records const crossing = search.effort() > mostTests
                                 ? SectionSoup(made, m_points, numbers, m_isInDoubt).crossing(stage)
                                 : search.run(stage);
    if (crossing.empty())
        return {};
    std::vector<bool> isFree(m_points.size(), false);
    for (std::size_t const i : doubted)
        for (int k = 0; k < 3 && crossing.contains(made[i].record); ++k)
            if (std::uint32_t const p = numbers(made[i].side, made[i].record->cV(k));
                p != WallCorner::none)
                isFree[p] = m_isInDoubt[p];
    Surroundings surroundings;
    for (std::size_t const i : doubted)
        if (hasOneOf(isFree, made[i]))
            surroundings.add(*made[i].record);
    std::vector<HalfTriangle> near;
    for (HalfTriangle const& triangle : made)
        if (surroundings.reach(*triangle.record))
            near.push_back(triangle);
    // Only now, for it is a pass over the part: what was copied may stand in the way.
    Mended mended;
    for (CutSide const side : {sideAbove, sideBelow}) {
        auto const& all = m_copies.mesh(side).triangles;
        std::size_t const copied = all.size() - m_walls.written(side).size() - caps[side].size();
        for (std::size_t t = 0; t < copied; ++t) {
            if (t % pollInterval == 0)
                stage.add(0);
            if (!surroundings.reach(*all[t]))
                continue;
            near.push_back({all[t], cornersOf(*all[t]), side, false});
            mended.mayGo[side].push_back(t);
        }
        for (std::size_t t = copied; t < all.size(); ++t)
            mended.mayGo[side].push_back(t);
    }
    m_isInDoubt = isFree;
    SectionSoup soup(std::move(near), m_points, numbers, isFree);
    auto left = RoundingMending(soup.operands, soup.pieces, soup.places, soup.isFree).run(stage);
    // A section point may have come into the place of a vertex beside the plane. The half that does
    // not have this vertex keeps the point there.
    std::unordered_map<std::uint32_t, std::uint32_t> standIns;
    for (auto const& piece : soup.pieces)
        for (PieceTriangle const& t : piece)
            for (std::size_t i = 0; i < 3; ++i)
                if (std::uint32_t const was = soup.before[t.triangle][i];
                    soup.isNative(t.corners[i]) && was != t.corners[i]) {
                    auto const entry = standIns.try_emplace(t.corners[i], was).first;
                    entry->second = std::min(entry->second, was);
                }
    for (auto const& [number, point] : standIns)
        soup.places[point] = soup.places[number];
    for (HalfTriangle const& face : soup.faces)
        mended.gone.insert(face.record);
    for (CutSide const side : {sideAbove, sideBelow})
        for (PieceTriangle const& t : soup.pieces[side]) {
            Triangle* const record = soup.faces[t.triangle].record;
            mended.gone.erase(record);
            Corners points = t.corners;
            for (std::size_t i = 0; i < 3; ++i) {
                if (auto const found = standIns.find(t.corners[i]); found != standIns.end())
                    points[i] = found->second;
                if (t.corners[i] == soup.before[t.triangle][i])
                    continue;
                bool const isHere =
                    soup.isNative(t.corners[i]) && soup.nativeAt(t.corners[i]).side == side;
                record->V0(int(i)) = isHere ? soup.nativeAt(t.corners[i]).vertex
                                            : m_points.vertexIn(side, points[i]);
            }
            mended.points[side].emplace(record, points);
        }
    mended.places = std::move(soup.places);
    takeOver(mended, caps, filling);
    return left;
}

/// Moves the section points, and takes the triangles out that have lost a corner.
void SectionRounding::takeOver(Mended const& mended, Triangles& caps,
                               Exact::SectionFilling& filling)
{
    for (std::uint32_t p = 0; p < m_points.size(); ++p)
        if (m_isInDoubt[p])
            m_points.move(p, mended.places[p]);
    if (mended.gone.empty())
        return;
    auto const isGone = [&](Triangle* triangle) { return mended.gone.contains(triangle); };
    std::vector<Corners> kept;
    for (std::size_t i = 0; i < filling.triangles.size(); ++i) {
        Triangle* const cap = caps[sideBelow][i];
        if (isGone(cap))
            continue;
        auto const changed = mended.points[sideBelow].find(cap);
        kept.push_back(changed == mended.points[sideBelow].end() ? filling.triangles[i]
                                                                 : changed->second);
    }
    filling.triangles = std::move(kept);
    for (CutSide const side : {sideAbove, sideBelow}) {
        std::erase_if(caps[side], isGone);
        eraseAmong(m_copies.mesh(side).triangles, mended.mayGo[side], isGone);
    }
    m_gone.assign(mended.gone.begin(), mended.gone.end());
}

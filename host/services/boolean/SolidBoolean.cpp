// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SolidBoolean.h"

#include "host/memory/AvailableMemory.h"
#include "host/memory/FreeMemory.h"
#include "host/mesh/ExactSigns.h"
#include "host/services/MeshMaking.h"
#include "host/services/Polling.h"
#include "host/services/boolean/BooleanNotes.h"
#include "host/services/boolean/ContactFinder.h"
#include "host/services/boolean/ExactCombination.h"
#include "host/services/boolean/MemoryRoom.h"
#include "host/services/boolean/NearSoup.h"
#include "host/services/boolean/OperandOrder.h"
#include "host/services/boolean/PartWindings.h"
#include "host/services/boolean/PieceClosure.h"
#include "host/services/boolean/PieceContours.h"
#include "host/services/boolean/PieceWriter.h"
#include "host/services/boolean/Refusals.h"
#include "host/services/boolean/ResultCheck.h"
#include "host/services/boolean/SelfContacts.h"
#include "host/services/boolean/SoupBoolean.h"
#include "host/services/boolean/ToolPreparation.h"
#include "platform/mesh/TakenMesh.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <optional>

namespace {

// Percentages at the end of each stage.
constexpr int gridDone = 10;
constexpr int copiesDone = 45;
constexpr int curvesDone = 85;

class SolidBoolean
{
public:
    SolidBoolean(MeshKernel const& part, MeshKernel const& tool,
                 std::span<BooleanPiece const> pieces, std::function<void(int)> const& progress,
                 CombiningNotes& notes, BooleanSurvey* survey)
        : m_partKernel(part),
          m_mesh(part.readMesh()),
          m_part(*m_mesh),
          m_pieces(pieces),
          m_progress(progress),
          m_notes(notes),
          m_survey(survey)
    {
        m_progress.begin(0, gridDone, 8 * tool.readMesh()->triangles.size());
        m_tool = prepareTool(tool, m_progress);
        m_toolCount = m_tool.mesh.triangles.size();
        m_isChecked = isToBeChecked();
    }

    std::vector<BooleanResult> run()
    {
        try {
            return combine();
        } catch (std::bad_alloc const&) {
            // Curves and facets take the more memory the more contacts there are.
            if (m_contactCount > m_part.triangles.size() + m_toolCount)
                Refusal::throwTooMuch();
            throw;
        }
    }

private:
    std::vector<BooleanResult> combine()
    {
        auto tool = m_tool.tree ? std::make_unique<ToolTree>(m_tool.mesh, std::move(m_tool.tree))
                                : std::make_unique<ToolTree>(m_tool.mesh, m_progress);
        auto grid = std::make_unique<ToolGrid>(*tool, boxOfPart(), cellCount(), m_progress);
        PartRays const rays(*grid, anchorPoints());
        ToolSides const sides(*grid, m_part.vertices.size(), rays);
        std::function<void(int)> const copyProgress = [this](int percent) {
            m_progress.begin(gridDone + percent * (copiesDone - gridDone) / 60, copiesDone, 1);
        };
        Copies copies(m_part, sides, wantedSides(), copyProgress);
        copies.copyTriangles();
        m_isPartClosed = copies.edgeSum() == 0;
        m_isPartInDoubt = !m_isPartClosed && !m_isChecked;
        m_isToolClosed = areClosed(m_tool.mesh.triangles, m_progress);
        m_near = gatherNear(copies, m_part.vertices.size(), m_tool.mesh, m_progress);
        setAnchors(rays.numbers(m_part, m_soup.mesh, m_soup.firstTriangleOfSecond, m_progress));
        if (hasFlatTriangle(m_soup.mesh, m_progress))
            return combineWithoutFlatTriangles();
        m_progress.begin(copiesDone, curvesDone, 3 * m_soup.triangleCount());
        SoupBoolean boolean(m_soup);
        std::vector<TrianglePair> contacts = contactsIn(*grid);
        // Memory that the curves need more, and that the results do.
        grid.reset();
        bool const isDone = resolve(boolean, std::move(contacts), *tool);
        if (m_isPartOpen)
            if (auto results = combineInOrder())
                return std::move(*results);
        tool.reset();
        m_progress.begin(curvesDone, 100, m_pieces.size() * m_soup.triangleCount());
        std::vector<BooleanResult> results =
            isDone ? writeAll(boolean, copies) : std::vector<BooleanResult>();
        if (results.size() < m_pieces.size())
            m_doubtful = boolean.doubtfulPlace();
        if (results.size() < m_pieces.size() || !holdAgainstOperands(results)) {
            m_notes = {};
            if (m_survey)
                m_survey->contours.clear();
            results = combineWholes(boolean);
        }
        m_progress.finish();
        return results;
    }

    using Copies = RecordCopies<ToolSides>;

    static bool isKept(BooleanPiece piece, bool isIn)
    {
        return BooleanRule(piece).timesOfFirst(isIn, isIn) > 0;
    }

    /// Of what is copied for a piece.
    static CutSide sideOf(BooleanPiece piece)
    {
        return isKept(piece, false) ? sideAbove : sideBelow;
    }

    Copies::Wanted wantedSides() const
    {
        Copies::Wanted wanted{};
        for (BooleanPiece const piece : m_pieces) {
            wanted[sideAbove] |= isKept(piece, false);
            wanted[sideBelow] |= isKept(piece, true);
        }
        return wanted;
    }

    /// Few enough to find and label quickly, many enough to leave few triangles near the tool.
    std::size_t cellCount() const
    {
        constexpr std::size_t few = 1 << 6, many = 1 << 12, most = 1 << 20;
        // Of small operands all triangles may be near each other: the cells would cost the most.
        std::size_t const least =
            std::clamp<std::size_t>(8 * (m_part.triangles.size() + m_toolCount), few, many);
        return std::clamp<std::size_t>(m_part.triangles.size() / 16, least, most);
    }

    TriangleTree::Box boxOfPart() const
    {
        using Box = TriangleTree::Box;
        using Range = tbb::blocked_range<std::size_t>;
        return tbb::parallel_reduce(
            Range(0, m_part.vertices.size(), 4096), Box(),
            [&](Range const& range, Box box) {
                for (std::size_t v = range.begin(); v != range.end(); ++v) {
                    UPoint3<float> const p = m_part.vertices[v]->cP();
                    box.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
                }
                return box;
            },
            [](Box a, Box const& b) {
                a.add(b);
                return a;
            });
    }

    /// How many contacts there may be. To ask the system for its memory takes a tenth of the time of a
    /// boolean of small operands, which cannot have more contacts than pairs of triangles.
    std::size_t contactsWithRoom() const
    {
        std::size_t const first = m_soup.firstTriangleOfSecond;
        std::size_t const pairs = first * (m_soup.mesh.triangles.size() - first);
        return pairs <= contactsThatFit ? pairs : mostContacts(availableMemory());
    }

    /// The contacts of the operands, and of the tool's triangles with each other.
    std::vector<TrianglePair> contactsIn(ToolGrid const& grid)
    {
        auto contacts = findContacts(m_soup, grid, contactsWithRoom(), m_progress);
        if (!contacts)
            Refusal::throwTooMuch();
        auto const ofTool = findSelfContacts(grid.tool(), m_tool.suspects, m_progress);
        m_contactCount = contacts->size() + ofTool.size();
        contacts->reserve(contacts->size() + ofTool.size());
        for (TrianglePair pair : ofTool) {
            pair.first += m_soup.firstTriangleOfSecond;
            pair.second += m_soup.firstTriangleOfSecond;
            contacts->push_back(pair);
        }
        return std::move(*contacts);
    }

    bool resolve(SoupBoolean& boolean, std::vector<TrianglePair> contacts, ToolTree const& tool)
    {
        WindingSources sources;
        sources.known = m_near.known;
        sources.anchors = m_anchors;
        sources.isFirstInDoubt = m_isPartInDoubt;
        sources.isFirstClosed = m_isPartClosed;
        sources.isSecondSimple = m_tool.isSimple;
        sources.ofFirst = [this](std::span<RayOrigin const> points) { return partAround(points); };
        sources.ofSecond = [&tool](RayOrigin const& point) { return tool.windingAt(point); };
        return boolean.resolve(std::move(contacts), sources, m_progress);
    }

    std::vector<UPoint3<float>> anchorPoints() const
    {
        std::vector<UPoint3<float>> points;
        for (std::uint32_t const vertex : m_tool.anchors)
            points.push_back(m_tool.mesh.points[vertex]);
        return points;
    }

    void setAnchors(std::vector<std::optional<int>> const& numbers)
    {
        for (std::size_t i = 0; i < numbers.size(); ++i)
            if (numbers[i])
                m_anchors.emplace_back(m_tool.anchors[i], *numbers[i]);
    }

    WindingSources::Numbers partAround(std::span<RayOrigin const> points)
    {
        PartWindings windings = windingsOfPart(m_part, points, m_progress);
        m_isPartOpen |= windings.isOpen;
        return std::move(windings.numbers);
    }

    /// All results, or none if one of them does not close.
    std::vector<BooleanResult> writeAll(SoupBoolean& boolean, Copies& copies)
    {
        std::vector<std::vector<PieceTriangle>> triangles;
        for (BooleanPiece const piece : m_pieces) {
            auto ofPiece = boolean.piece(piece, m_progress);
            if (!ofPiece)
                return {};
            triangles.push_back(std::move(*ofPiece));
        }
        auto const crossings = boolean.mendRounding(
            triangles,
            m_isChecked ? SoupBoolean::AfterMending::all : SoupBoolean::AfterMending::onlyPlaces,
            m_progress);
        for (std::size_t i = 0; i < m_pieces.size(); ++i)
            if (!closes(boolean, copies, m_pieces[i], triangles[i]))
                return {};
        if (!m_isChecked)
            freeOperands();
        if (m_survey)
            m_survey->contours =
                contoursOf(triangles, boolean, m_soup.firstTriangleOfSecond, m_progress);
        m_notes.crossing = crossings;
        std::vector<BooleanResult> results;
        for (std::size_t i = 0; i < m_pieces.size(); ++i)
            results.push_back(write(boolean, copies, m_pieces[i], triangles[i]));
        return results;
    }

    /// Whether a piece of closed operands is closed, with all that was copied for it.
    bool closes(SoupBoolean const& boolean, Copies& copies, BooleanPiece piece,
                std::vector<PieceTriangle> const& triangles)
    {
        if (!m_isPartClosed || !m_isToolClosed)
            return true;
        CutSide const side = sideOf(piece);
        PieceClosure const closure(m_near.places, std::uint32_t(m_part.vertices.size()));
        return closure.closes(copies.edgeSum(side), triangles, m_progress) ||
               closesByPlaces(copies.mesh(side), triangles, boolean.places(), m_progress);
    }

    /// Whether results are held against their operands. They are where it takes no time that a
    /// person would notice: of small solids always, for they may cross themselves where no curve
    /// tells, and of larger ones if the tool crosses itself or is open.
    bool isToBeChecked() const
    {
        constexpr std::size_t mostAlways = 10'000, mostWithSuspects = 100'000;
        return m_part.triangles.size() + m_tool.mesh.triangles.size() <=
               (m_tool.suspects.empty() ? mostAlways : mostWithSuspects);
    }

    /// Frees what of the operands is not needed to write results.
    void freeOperands()
    {
        constexpr std::size_t much = 200'000;
        bool const isMuch = m_soup.triangleCount() > much;
        m_tool.mesh = {};
        m_soup.mesh.points = {};
        auto& triangles = m_soup.mesh.triangles;
        triangles = {triangles.begin(),
                     triangles.begin() + std::ptrdiff_t(m_soup.firstTriangleOfSecond)};
        if (isMuch)
            giveFreeMemoryBack();
    }

    /// Whether results are what the rule says at points beside all surfaces.
    bool holdAgainstOperands(std::vector<BooleanResult>& results)
    {
        if (!m_isChecked)
            return true;
        MeshArrays const part = copyArrays(m_partKernel, Frame::World, m_progress);
        ResultCheck const check(part, m_tool.mesh, m_progress);
        for (std::size_t i = 0; i < results.size() && !m_doubtful; ++i)
            m_doubtful = check.findFault(results[i].mesh ? arraysOf(results[i]) : part,
                                         BooleanRule(m_pieces[i]));
        return !m_doubtful;
    }

    MeshArrays arraysOf(BooleanResult& result)
    {
        MeshKernel kernel(result.mesh.release());
        MeshArrays arrays = copyArrays(kernel, Frame::Local, m_progress);
        result.mesh = takeMesh(kernel);
        return arrays;
    }

    BooleanResult write(SoupBoolean const& boolean, Copies& copies, BooleanPiece piece,
                        std::vector<PieceTriangle> const& triangles)
    {
        CutSide const side = sideOf(piece);
        bool const keepsOutside = side == sideAbove;
        if (isWholePart(triangles, copies, side))
            return {};
        PieceWriter writer(copies.takeMesh(side), boolean);
        Polling polling(m_progress);
        for (std::uint32_t v = 0; v < m_soup.firstPointOfSecond; ++v, polling.step())
            if (copies.sideOf(m_near.places[v]) == (keepsOutside ? 1 : -1))
                writer.useVertex(v, copies.copyOf(m_near.places[v]));
        auto const normalOf = [&](PieceTriangle const& t) {
            return t.triangle < m_soup.firstTriangleOfSecond ? copies.meeting()[t.triangle]->cN()
                                                             : UVector3<float>();
        };
        writer.add(triangles, normalOf, m_progress);
        return {writer.finish(m_progress)};
    }

    /// Whether a result is the part as it was: all of its triangles, and none of the tool's.
    bool isWholePart(std::vector<PieceTriangle> const& triangles, Copies const& copies,
                     CutSide side) const
    {
        if (copies.countOf(side == sideAbove ? sideBelow : sideAbove) > 0 ||
            triangles.size() != m_soup.firstTriangleOfSecond)
            return false;
        for (std::uint32_t t = 0; t < triangles.size(); ++t)
            if (triangles[t].triangle != t || triangles[t].corners != m_soup.corners(t))
                return false;
        return true;
    }

    /// A corner of the first triangle of the soup without area.
    UPoint3<float> firstFlatPlace() const
    {
        MeshArrays const& mesh = m_soup.mesh;
        std::size_t t = 0;
        while (t + 1 < mesh.triangles.size() &&
               !ExactSigns::areCollinear(mesh.point(t, 0), mesh.point(t, 1), mesh.point(t, 2)))
            ++t;
        return mesh.point(t, 0);
    }

    /// The same for the part without its triangles that have no area.
    std::vector<BooleanResult> combineWithoutFlatTriangles()
    {
        MeshKernel clean(m_partKernel);
        requireFinite(m_soup.mesh, Operand::first, m_progress);
        std::size_t const removed = clean.getMesh()->DeleteDegenerateTris();
        clean.getMesh()->DeleteUnreferenceVerts();
        clean.getMesh()->UpdateVertsID();
        if (removed == 0)
            Refusal::throwFlat(firstFlatPlace());
        std::function<void(int)> const rest = [this](int percent) {
            m_progress.begin(copiesDone + percent * (100 - copiesDone) / 100, 100, 1);
        };
        auto results = combineSolids(clean, *toolKernel(), m_pieces, rest, m_notes, m_survey);
        for (BooleanResult& result : results)
            if (!result.mesh)
                result.mesh = takeMesh(clean);
        return results;
    }

    /// The same for operands put in order, the part where they may meet and the tool everywhere, for
    /// all of it tells what is solid; nothing if they are. A result that is the part as it was keeps
    /// what is out of order.
    std::optional<std::vector<BooleanResult>> combineInOrder()
    {
        TriangleTree::Box boxOfTool;
        for (UPoint3<float> const& p : m_tool.mesh.points)
            boxOfTool.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
        constexpr float much = std::numeric_limits<float>::max();
        TriangleTree::Box const everywhere{{-much, -much, -much, 0}, {much, much, much, 0}};
        auto const tool = toolKernel();
        auto const orderlyPart =
            operandInOrder(m_partKernel, Operand::first, boxOfTool, !m_survey, m_progress);
        auto const orderlyTool =
            operandInOrder(*tool, Operand::second, everywhere, !m_survey, m_progress);
        if (!orderlyPart && !orderlyTool)
            return {};
        std::function<void(int)> const rest = [this](int percent) {
            m_progress.begin(curvesDone + percent * (100 - curvesDone) / 100, 100, 1);
        };
        return combineSolids(orderlyPart ? *orderlyPart : m_partKernel,
                             orderlyTool ? *orderlyTool : *tool, m_pieces, rest, m_notes, m_survey);
    }

    std::unique_ptr<MeshKernel> toolKernel()
    {
        return std::make_unique<MeshKernel>(makeMesh(m_tool.mesh, m_progress).release());
    }

    /// The slow way, for solids that cross themselves where they meet. An operand that is open
    /// there is refused.
    std::vector<BooleanResult> combineWholes(SoupBoolean const& boolean)
    {
        if (auto results = combineInOrder())
            return std::move(*results);
        for (Operand const operand : {Operand::first, Operand::second})
            if (auto const place = boolean.openPlace(operand))
                Refusal::throwOpen(operand, *place);
        MeshArrays const part = copyArrays(m_partKernel, Frame::World, m_progress);
        if (!hasExactRoom(part.triangles.size() + m_tool.mesh.triangles.size(),
                          boolean.curveCount(), availableMemory()))
            Refusal::throwTooMuch();
        return combineExactly(part, m_tool.mesh, m_pieces, m_doubtful, m_notes, m_progress);
    }

    MeshKernel const& m_partKernel;
    std::shared_ptr<UMesh<float> const> m_mesh;
    UMesh<float> const& m_part;
    std::span<BooleanPiece const> m_pieces;
    StageProgress m_progress;
    CombiningNotes& m_notes;
    BooleanSurvey* m_survey;
    PreparedTool m_tool;
    std::size_t m_toolCount = 0;
    std::size_t m_contactCount = 0;
    /// Whether results are held against the operands.
    bool m_isChecked = false;
    /// Without points, and with the part's triangles only, once results are written that are not.
    NearSoup m_near;
    OperandSoup& m_soup = m_near.soup;
    /// Vertices of the tool with the part's winding number around them.
    std::vector<std::pair<std::uint32_t, int>> m_anchors;
    /// Whether the part's edges tell that it is closed.
    bool m_isPartClosed = false;
    /// The same of the tool's.
    bool m_isToolClosed = false;
    /// Whether they tell that it may be open, and its results are not checked.
    bool m_isPartInDoubt = false;
    /// Whether a line through a point tells that the part is open.
    bool m_isPartOpen = false;
    /// Where results were seen to be wrong.
    std::optional<UPoint3<float>> m_doubtful;
};

}  // namespace

std::vector<BooleanResult> combineSolids(MeshKernel const& part, MeshKernel const& tool,
                                         std::span<BooleanPiece const> pieces,
                                         std::function<void(int)> const& progress,
                                         CombiningNotes& notes, BooleanSurvey* survey)
{
    // Stages that are done over, or that several threads count, tell what was reached before.
    int reached = 0;
    std::function<void(int)> const rising = [&](int percent) {
        reached = std::max(reached, percent);
        progress(reached);
    };
    return SolidBoolean(part, tool, pieces, progress ? rising : progress, notes, survey).run();
}

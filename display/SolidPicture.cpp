// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/SolidPicture.h"

#include <algorithm>
#include <utility>

namespace Freecut {

namespace {

/// A closed line over each of some loops, which stand one after the other in a buffer.
class LoopRuns
{
public:
    explicit LoopRuns(GLenum mode, int first = 0) : m_mode(mode), m_first(first) {}

    /// repeats      how many points at the end of a loop are not in the buffer
    /// leastPoints  shorter loops are passed over
    std::vector<LineRun> over(Loops const& loops, int repeats = 0, std::size_t leastPoints = 0)
    {
        std::vector<LineRun> runs;
        for (Ring const& loop : loops) {
            int const count = std::max(int(loop.size()) - repeats, 0);
            if (loop.size() >= leastPoints)
                runs.push_back({m_mode, m_first, count});
            m_first += count;
        }
        return runs;
    }

private:
    GLenum m_mode;
    int m_first;
};

LinePass clearancePass(std::vector<float> const& buffer, Loops const& loops)
{
    return {&buffer, {{ToolColors::darkBlue, LoopRuns(GL_LINE_LOOP).over(loops)}}};
}

void appendClearance(LinePicture& picture, ToolOutlines const& outlines)
{
    picture.push_back(clearancePass(outlines.outerBuffer, outlines.outerLoops));
    picture.push_back(clearancePass(outlines.innerBuffer, outlines.innerLoops));
}

int vertexCount(std::vector<float> const& buffer)
{
    return int(buffer.size() / 3);
}

/// The sides of a prism: fans of four vertices each, up to an end.
void appendFans(std::vector<LineRun>& runs, int first, int end)
{
    for (; first < end; first += 4)
        runs.push_back({GL_TRIANGLE_FAN, first, 4, true});
}

}  // namespace

LinePicture pictureOfCuboid(ToolOutlines const& outlines, bool isRounded)
{
    LoopRuns loops(GL_LINE_LOOP);
    ColoredRuns const rounded{ToolColors::red, loops.over(outlines.roundedLoops)};
    ColoredRuns const nominal{isRounded ? ToolColors::pink : ToolColors::red,
                              loops.over(outlines.solidLoops)};
    LinePicture picture{{&outlines.outlineBuffer, {rounded, nominal}}};
    appendClearance(picture, outlines);
    return picture;
}

LinePicture pictureOfCylinder(ToolOutlines const& outlines)
{
    LinePicture picture{{&outlines.outlineBuffer,
                         {{ToolColors::red, LoopRuns(GL_LINE_LOOP).over(outlines.solidLoops)}}}};
    appendClearance(picture, outlines);
    return picture;
}

LinePicture pictureOfPolygon(ToolOutlines const& outlines, bool isRounded, std::size_t keyPoints)
{
    LinePicture picture;
    picture.push_back(
        {&outlines.teethBuffer,
         {{ToolColors::purple, LoopRuns(GL_LINE_STRIP).over(outlines.teethLoops, 0, 2)}}});
    LinePass outline{&outlines.outlineBuffer, {}};
    if (keyPoints == 2) {
        // Two points in one place leave nothing to draw.
        if (vertexCount(outlines.outlineBuffer) >= 2)
            outline.strokes.push_back({ToolColors::red, {{GL_LINE_LOOP, 0, 2}}});
    } else {
        LoopRuns loops(GL_LINE_LOOP);
        outline.strokes.push_back({ToolColors::cyan, loops.over(outlines.residualLoops, 1, 2)});
        outline.strokes.push_back({ToolColors::red, loops.over(outlines.roundedLoops)});
        outline.strokes.push_back({isRounded ? ToolColors::pink : ToolColors::red,
                                   loops.over(outlines.solidLoops, 1, 2)});
    }
    picture.push_back(std::move(outline));
    appendClearance(picture, outlines);
    return picture;
}

LinePass passOfFaces(ToolOutlines const& outlines, unsigned alpha, std::vector<LineRun> runs)
{
    Color255 color = ToolColors::yellow;
    color[3] = float(alpha);
    LinePass pass{&outlines.previewBuffer, {}, &outlines.normalBuffer};
    if (!runs.empty())
        pass.strokes.push_back({color, std::move(runs)});
    return pass;
}

std::vector<LineRun> facesAsTriangles(ToolOutlines const& outlines)
{
    if (outlines.topLoops.empty())
        return {};
    return {{GL_TRIANGLES, 0, vertexCount(outlines.previewBuffer), true}};
}

std::vector<LineRun> facesOfCuboid33(ToolOutlines const& outlines)
{
    int const n = int(outlines.topRing().size());
    std::vector<LineRun> runs{{GL_TRIANGLE_FAN, 0, n, true}, {GL_TRIANGLE_FAN, n, n, true}};
    appendFans(runs, 2 * n, 6 * n);
    return runs;
}

std::vector<LineRun> facesOfPrisms33(ToolOutlines const& outlines)
{
    int sides = 0;
    for (Ring const& loop : outlines.topLoops)
        sides += int(loop.size());
    std::vector<LineRun> runs;
    appendFans(runs, 0, 4 * sides);
    runs.push_back(
        {GL_TRIANGLES, 4 * sides, vertexCount(outlines.previewBuffer) - 4 * sides, true});
    return runs;
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/TeethShapes.h"

#include "tools/PuzzleTab.h"

namespace Freecut {

namespace {

using Point = UPoint3<float>;

void appendFoot(TeethRow& row, EdgeFrame const& edge, Point const& foot)
{
    if (foot != edge.a && (row.points.empty() || foot != row.points.back()))
        row.points.push_back(foot);
}

void appendLastFoot(TeethRow& row, EdgeFrame const& edge, Point const& foot)
{
    if (foot != edge.b)
        row.points.push_back(foot);
}

/// A triangle, with its handle in the middle of the far flank.
void appendJagged(TeethRow& row, TeethParas const& paras, EdgeFrame const& edge, Point const& p)
{
    float const width = paras.teethWidth, height = paras.teethHeight;
    appendFoot(row, edge, p - edge.dir * (width * 0.5f));
    row.points.push_back(p + edge.perp * height);
    appendLastFoot(row, edge, p + edge.dir * (width * 0.5f));
    row.handles.push_back(p + edge.dir * (width * 0.25f) + edge.perp * (height * 0.5f));
}

/// A trapezium, with its handle on the far upper corner.
void appendDovetail(TeethRow& row, TeethParas const& paras, EdgeFrame const& edge, Point const& p)
{
    Point const top = p + edge.perp * paras.doveHeight;
    Point const upperRight = top + edge.dir * (paras.upperWidth * 0.5f);
    appendFoot(row, edge, p - edge.dir * (paras.lowerWidth * 0.5f));
    row.points.push_back(top - edge.dir * (paras.upperWidth * 0.5f));
    row.points.push_back(upperRight);
    appendLastFoot(row, edge, p + edge.dir * (paras.lowerWidth * 0.5f));
    row.handles.push_back(upperRight);
}

}  // namespace

TeethRow rowOfTeeth(TeethParas const& paras, EdgeFrame const& edge,
                    std::vector<Point> const& centres)
{
    TeethRow row;
    if (paras.teethStyle == TEETH_PUZZLE) {
        PuzzleTab const tab(edge, paras.teethWidth, paras.teethHeight);
        for (Point const& centre : centres) {
            tab.appendOutline(row.points, centre);
            row.handles.push_back(tab.handle(centre));
        }
        return row;
    }
    auto const append = paras.teethStyle == TEETH_DOVETAIL ? appendDovetail : appendJagged;
    for (Point const& centre : centres)
        append(row, paras, edge, centre);
    return row;
}

}  // namespace Freecut

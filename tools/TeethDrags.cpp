// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/TeethDrags.h"

#include <cmath>

namespace Freecut {

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;

/// The start of the edge, the centres, and its end.
std::vector<Point> marksOnEdge(EdgeFrame const& edge, std::vector<Point> const& centres)
{
    std::vector<Point> marks{edge.a};
    marks.insert(marks.end(), centres.begin(), centres.end());
    marks.push_back(edge.b);
    return marks;
}

/// The gaps between neighbouring teeth, and between the outer teeth and the ends of the edge.
class Gaps
{
public:
    Gaps(EdgeFrame const& edge, std::vector<Point> const& centres)
        : m_marks(marksOnEdge(edge, centres))
    {}

    /// Whether a tooth that reaches so far to each side of its centre fits in between: one half of
    /// it before and behind the outer teeth, a half of each neighbour in the others.
    bool admit(float halfWidth) const
    {
        std::size_t const last = m_marks.size() - 2;
        for (std::size_t i = 0; i <= last; ++i) {
            bool const isOuter = i == 0 || i == last;
            if ((isOuter ? halfWidth : 2 * halfWidth) > (m_marks[i + 1] - m_marks[i]).GetLength())
                return false;
        }
        return true;
    }

private:
    std::vector<Point> m_marks;
};

void reshapeJagged(TeethParas& paras, Gaps const& gaps, float x, float y)
{
    paras.teethHeight = 2 * y;
    if (gaps.admit(2 * x))
        paras.teethWidth = 4 * x;
}

void reshapeDovetail(TeethParas& paras, Gaps const& gaps, float x, float y)
{
    paras.doveHeight = y;
    float const ratio = paras.lowerWidth / paras.upperWidth;
    if (!gaps.admit(x) || !gaps.admit(x * ratio))
        return;
    paras.upperWidth = 2 * x;
    paras.lowerWidth = 2 * x * ratio;
}

void reshapePuzzle(TeethParas& paras, Gaps const& gaps, float x, float y)
{
    if (!gaps.admit(x + y * 0.25f) || !(4 * x > y))
        return;
    paras.teethWidth = 2 * x + y * 0.5f;
    paras.teethHeight = y;
}

}  // namespace

Vector slideOfTooth(TeethParas const& paras, EdgeFrame const& edge,
                    std::vector<Point> const& centres, std::size_t tooth, Vector const& way)
{
    Vector const inPlane = alongPlane(way, edge.normal);
    Vector const slide = edge.dir * (inPlane | edge.dir);
    float const place = (centres[tooth] + slide - edge.a).GetLength();
    std::vector<Point> const marks = marksOnEdge(edge, centres);
    auto const placeOf = [&](std::size_t mark) { return (marks[mark] - edge.a).GetLength(); };
    float const width = paras.toothWidth();

    bool const isLast = tooth + 1 == centres.size();
    bool isAllowed;
    if (tooth == 0)
        isAllowed = place > width * 0.5f && place < placeOf(2) - width;
    else if (isLast)
        isAllowed = place < edge.length - width * 0.5f && place > placeOf(tooth) + width;
    else
        isAllowed = place > placeOf(tooth) + width && place < placeOf(tooth + 2) - width;
    return isAllowed ? slide : Vector();
}

TeethParas reshapedTeeth(TeethParas const& paras, EdgeFrame const& edge,
                         std::vector<Point> const& centres, Vector const& fromCentre)
{
    Gaps const gaps(edge, centres);
    float const x = std::abs(fromCentre | edge.dir);
    float const y = std::abs(fromCentre | edge.perp);
    TeethParas reshaped = paras;
    if (paras.teethStyle == TEETH_JAGGED)
        reshapeJagged(reshaped, gaps, x, y);
    else if (paras.teethStyle == TEETH_DOVETAIL)
        reshapeDovetail(reshaped, gaps, x, y);
    else
        reshapePuzzle(reshaped, gaps, x, y);
    return reshaped;
}

}  // namespace Freecut

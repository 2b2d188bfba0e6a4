// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/WideLines.h"

#include <QVector2D>
#include <QVector4D>

#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace {

/// Of more, many are shorter than a pixel.
constexpr std::size_t fewLines = 1000;

/// Of a line, in clip space.
struct End
{
    QVector2D place;
    float depth;
};

End endOf(QVector4D const& point)
{
    return {point.toVector2DAffine(), point.z() / point.w()};
}

/// Ends that lie in the same pixel are taken for the first of them, so that lines which meet still do.
class Ends
{
public:
    Ends(QVector2D toPixels, bool isJoining) : m_toPixels(toPixels), m_isJoining(isJoining) {}

    std::size_t enter(End const& end)
    {
        std::size_t const next = m_ends.size();
        bool const isSeen = std::abs(end.place.x()) <= 1 && std::abs(end.place.y()) <= 1;
        if (m_isJoining && isSeen) {
            auto const [place, isNew] = m_ofPixel.try_emplace(pixelOf(end), next);
            if (!isNew)
                return place->second;
        }
        m_ends.push_back({end, false});
        return next;
    }

    End const& operator[](std::size_t i) const { return m_ends[i].end; }

    void markDrawn(std::size_t i) { m_ends[i].isDrawn = true; }

    /// Where all lines were shorter than a pixel.
    std::vector<End> notDrawn() const
    {
        std::vector<End> ends;
        for (auto const& [end, isDrawn] : m_ends)
            if (!isDrawn)
                ends.push_back(end);
        return ends;
    }

private:
    std::uint64_t pixelOf(End const& end) const
    {
        QVector2D const pixel = (end.place + QVector2D(1, 1)) * m_toPixels;
        return std::uint64_t(pixel.x()) << 32 | std::uint64_t(pixel.y());
    }

    struct Entry
    {
        End end;
        bool isDrawn;
    };
    QVector2D m_toPixels;
    bool m_isJoining;
    std::vector<Entry> m_ends;
    std::unordered_map<std::uint64_t, std::size_t> m_ofPixel;
};

void addLine(std::vector<UPoint3<float>>& triangles, End const& from, End const& to,
             QVector2D toPixels, float width, bool joins)
{
    QVector2D along = ((to.place - from.place) * toPixels).normalized() * (width / 2);
    if (along.isNull())
        along = {width / 2, 0};
    QVector2D const ahead = joins ? along / toPixels : QVector2D();
    QVector2D const aside = QVector2D(-along.y(), along.x()) / toPixels;
    auto const corner = [](QVector2D const& p, End const& end) {
        return UPoint3<float>(p.x(), p.y(), end.depth);
    };
    UPoint3<float> const quad[4] = {
        corner(from.place - ahead - aside, from), corner(from.place - ahead + aside, from),
        corner(to.place + ahead - aside, to), corner(to.place + ahead + aside, to)};
    triangles.insert(triangles.end(), {quad[0], quad[2], quad[1], quad[1], quad[2], quad[3]});
}

}  // namespace

std::vector<UPoint3<float>> wideLines(std::vector<UPoint3<float>> const& points,
                                      QMatrix4x4 const& toClip, QSize size, float width, bool joins)
{
    QVector2D const toPixels(float(size.width()) / 2, float(size.height()) / 2);
    Ends ends(toPixels, points.size() > 2 * fewLines);
    std::vector<UPoint3<float>> result;
    result.reserve(3 * points.size());
    auto const clip = [&](UPoint3<float> const& p) {
        return toClip * QVector4D(p.X(), p.Y(), p.Z(), 1);
    };
    for (std::size_t i = 0; i + 1 < points.size(); i += 2) {
        QVector4D const a = clip(points[i]), b = clip(points[i + 1]);
        if (a.w() <= 0 || b.w() <= 0)
            continue;
        std::size_t const from = ends.enter(endOf(a)), to = ends.enter(endOf(b));
        if (from == to)
            continue;
        ends.markDrawn(from);
        ends.markDrawn(to);
        addLine(result, ends[from], ends[to], toPixels, width, joins);
    }
    for (End const& end : ends.notDrawn())
        addLine(result, end, end, toPixels, width, joins);
    return result;
}

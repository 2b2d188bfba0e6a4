// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawings/JoinedPaths.h"
#include "drawings/PathBuilder.h"
#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>
#include <numbers>
#include <sstream>

namespace Drawings {

namespace {

constexpr double pi = std::numbers::pi;

QString translated(char const* text)
{
    return QCoreApplication::translate("Drawings", text);
}

[[noreturn]] void refuseDamaged()
{
    refuse(translated(QT_TRANSLATE_NOOP("Drawings", "It is damaged. Save it anew as DXF.")));
}

/// The library makes room for as many points as a file announces; a damaged file must not announce
/// more than it can hold.
void checkCounts(QByteArray const& text)
{
    QByteArray entity;
    bool isValue = false;
    int code = 0;
    for (int from = 0; from < text.size();) {
        int end = text.indexOf('\n', from);
        end = end < 0 ? text.size() : end;
        QByteArray const line = text.mid(from, end - from).trimmed();
        from = end + 1;
        if (!isValue) {
            bool isNumber = false;
            code = line.toInt(&isNumber);
            if (!isNumber && !line.isEmpty())
                refuseDamaged();
        } else if (code == 0) {
            entity = line;
        } else if (code == 90 || (code >= 71 && code <= 78)) {
            if (line.toDouble() > text.size() || line.toDouble() < -1e6)
                refuseDamaged();
        }
        isValue = !isValue;
    }
}

/// A spline by the rule of de Boor.
class Spline
{
public:
    struct Control
    {
        double x, y, weight;
    };
    unsigned degree = 3;
    std::vector<double> knots;
    std::vector<Control> controls;

    bool isComplete() const
    {
        return degree >= 1 && degree <= 15 && controls.size() > degree &&
               knots.size() == controls.size() + degree + 1 &&
               std::is_sorted(knots.begin(), knots.end()) && knots[controls.size()] > knots[degree];
    }
    /// t goes from 0 to 1.
    Point at(double t) const
    {
        double const low = knots[degree], high = knots[controls.size()];
        double const u = std::min(low + (high - low) * t, high);
        std::size_t span =
            std::size_t(std::upper_bound(knots.begin(), knots.end(), u) - knots.begin());
        span = std::clamp<std::size_t>(span, degree + 1, controls.size()) - 1;
        std::vector<Control> d;
        for (std::size_t i = span - degree; i <= span; ++i)
            d.push_back({controls[i].x * controls[i].weight, controls[i].y * controls[i].weight,
                         controls[i].weight});
        for (unsigned r = 1; r <= degree; ++r)
            for (unsigned j = degree; j >= r; --j) {
                double const left = knots[span - degree + j], right = knots[span + 1 + j - r];
                double const share = right > left ? (u - left) / (right - left) : 0;
                auto const mix = [share](double a, double b) { return a + (b - a) * share; };
                d[j] = {mix(d[j - 1].x, d[j].x), mix(d[j - 1].y, d[j].y),
                        mix(d[j - 1].weight, d[j].weight)};
            }
        Control const& end = d[degree];
        double const weight = std::abs(end.weight) > 1e-12 ? end.weight : 1;
        return {end.x / weight, end.y / weight};
    }
};

/// Collects what the library reads. Its coordinates are in the drawing's units.
class DxfReader : public DL_CreationAdapter
{
public:
    explicit DxfReader(double unit) : m_unit(unit) {}

    std::vector<Path> take()
    {
        flush();
        return m_builder.take();
    }
    bool hasBlocks() const { return m_hasInserts; }

    void addBlock(DL_BlockData const&) override { m_isInBlock = true; }
    void endBlock() override { m_isInBlock = false; }
    void addInsert(DL_InsertData const&) override { m_hasInserts = m_hasInserts || !m_isInBlock; }

    void addLine(DL_LineData const& line) override
    {
        begin(false);
        if (m_isSkipped)
            return;
        m_builder.moveTo(place(line.x1, line.y1));
        m_builder.lineTo(place(line.x2, line.y2));
        m_builder.end();
    }
    void addArc(DL_ArcData const& arc) override
    {
        double const from = arc.angle1 * pi / 180;
        double sweep = std::fmod((arc.angle2 - arc.angle1) * pi / 180, 2 * pi);
        if (sweep <= 0)
            sweep += 2 * pi;
        addRound(arc.cx, arc.cy, arc.radius, 0, 1, from, sweep, true);
    }
    void addCircle(DL_CircleData const& circle) override
    {
        addRound(circle.cx, circle.cy, circle.radius, 0, 1, 0, 2 * pi, true);
    }
    void addEllipse(DL_EllipseData const& e) override
    {
        double sweep = std::fmod(e.angle2 - e.angle1, 2 * pi);
        if (sweep <= 1e-9)
            sweep += 2 * pi;
        addRound(e.cx, e.cy, e.mx, e.my, e.ratio, e.angle1, sweep, false);
    }
    void addPolyline(DL_PolylineData const& polyline) override
    {
        begin(true);
        m_isPolyline = true;
        m_isPolylineClosed = (polyline.flags & 1) != 0;
    }
    void addVertex(DL_VertexData const& vertex) override
    {
        if (m_isPolyline)
            m_vertices.push_back(vertex);
    }
    void addSpline(DL_SplineData const& data) override
    {
        begin(false);
        m_isSpline = true;
        m_spline.degree = data.degree;
    }
    void addKnot(DL_KnotData const& knot) override { m_spline.knots.push_back(knot.k); }
    void addControlPoint(DL_ControlPointData const& point) override
    {
        Point const p = place(point.x, point.y);
        m_spline.controls.push_back({p.X(), p.Y(), point.w});
    }
    void endEntity() override { flush(); }
    void endSequence() override { flush(); }

private:
    Point place(double x, double y) const { return {(m_isMirrored ? -x : x) * m_unit, y * m_unit}; }

    /// inOwnPlane  its coordinates are those of its own plane, which may be seen from behind
    void begin(bool inOwnPlane)
    {
        flush();
        double way[3] = {0, 0, 1};
        getExtrusion()->getDirection(way);
        bool const isLevel = std::abs(way[0]) < 1e-6 && std::abs(way[1]) < 1e-6;
        if (!isLevel && !m_isInBlock)
            refuse(translated(QT_TRANSLATE_NOOP(
                "Drawings", "It has shapes that stand upright on its plane. Lay them flat.")));
        m_isMirrored = inOwnPlane && way[2] < 0;
        m_isSkipped = m_isInBlock || getAttributes().isInPaperSpace();
    }

    /// The axis from the middle to the first corner of an ellipse, and the share of the other.
    void addRound(double cx, double cy, double ax, double ay, double ratio, double from,
                  double sweep, bool inOwnPlane)
    {
        begin(inOwnPlane);
        if (m_isSkipped)
            return;
        Point const middle = place(cx, cy), u = place(ax, ay), v = place(-ay * ratio, ax * ratio);
        m_builder.moveTo({middle.X() + u.X() * std::cos(from) + v.X() * std::sin(from),
                          middle.Y() + u.Y() * std::cos(from) + v.Y() * std::sin(from)});
        m_builder.arcTo(middle, u, v, from, sweep);
        sweep > 2 * pi - 1e-9 ? m_builder.close() : m_builder.end();
    }

    void flush()
    {
        if (m_isPolyline && !m_isSkipped)
            drawPolyline();
        if (m_isSpline && !m_isSkipped)
            drawSpline();
        m_vertices.clear();
        m_spline = {};
        m_isPolyline = m_isSpline = false;
    }

    void drawPolyline()
    {
        std::size_t const count = m_vertices.size();
        if (count < 2)
            return;
        m_builder.moveTo(place(m_vertices[0].x, m_vertices[0].y));
        for (std::size_t i = 0; i + (m_isPolylineClosed ? 0 : 1) < count; ++i)
            drawSegment(m_vertices[i], m_vertices[(i + 1) % count]);
        m_isPolylineClosed ? m_builder.close() : m_builder.end();
    }

    // A bulge is the tangent of a quarter of the arc's angle, above zero anticlockwise.
    void drawSegment(DL_VertexData const& a, DL_VertexData const& b)
    {
        double const dx = b.x - a.x, dy = b.y - a.y;
        if (std::abs(a.bulge) > 1e-9 && std::hypot(dx, dy) > 0) {
            double const sweep = 4 * std::atan(a.bulge);
            double const shift = (1 - a.bulge * a.bulge) / (4 * a.bulge);
            double const mx = (a.x + b.x) / 2 - dy * shift, my = (a.y + b.y) / 2 + dx * shift;
            double const ux = a.x - mx, uy = a.y - my;
            m_builder.arcTo(place(mx, my), place(ux, uy), place(-uy, ux), 0, sweep);
        }
        m_builder.lineTo(place(b.x, b.y));
    }

    void drawSpline()
    {
        if (!m_spline.isComplete())
            refuse(translated(QT_TRANSLATE_NOOP(
                "Drawings",
                "It has a spline without control points. Turn it into arcs or polylines.")));
        m_builder.moveTo(m_spline.at(0));
        m_builder.curveTo([this](double t) { return m_spline.at(t); },
                          int(std::min<std::size_t>(m_spline.controls.size(), mostPoints)));
        m_builder.end();
    }

    double m_unit;
    PathBuilder m_builder;
    bool m_isInBlock = false;
    bool m_hasInserts = false;
    bool m_isMirrored = false;
    bool m_isSkipped = false;
    bool m_isPolyline = false;
    bool m_isPolylineClosed = false;
    std::vector<DL_VertexData> m_vertices;
    bool m_isSpline = false;
    Spline m_spline;
};

/// The header's units, which come before all shapes.
class HeaderReader : public DL_CreationAdapter
{
public:
    void setVariableInt(std::string const& key, int value, int) override
    {
        if (key == "$INSUNITS")
            unit = value;
    }
    int unit = 0;
};

void readBy(DL_CreationInterface& reader, QByteArray const& text)
{
    std::istringstream stream(text.toStdString());
    DL_Dxf dxf;
    dxf.in(stream, &reader);
}

double unitOf(QByteArray const& text)
{
    HeaderReader header;
    readBy(header, text);
    switch (header.unit) {
        case 0:  // None is said.
        case 4:
            return 1;
        case 1:
            return 25.4;
        case 2:
            return 304.8;
        case 5:
            return 10;
        case 6:
            return 1000;
        case 8:
            return 25.4e-6;
        case 9:
            return 25.4e-3;
        case 10:
            return 914.4;
        case 13:
            return 1e-3;
        case 14:
            return 100;
        default:
            refuse(translated(QT_TRANSLATE_NOOP(
                                  "Drawings",
                                  "Its unit of number %1 is not known. Name the unit yourself."))
                       .arg(header.unit));
    }
}

}  // namespace

std::vector<Path> dxfPaths(QByteArray const& text, Unit unit)
{
    checkCounts(text);
    auto const orRefuse = [](auto const& work) {
        try {
            return work();
        } catch (std::exception const&) {
            refuseDamaged();
        }
    };
    DxfReader reader(unit ? *unit : orRefuse([&] { return unitOf(text); }));
    orRefuse([&] { readBy(reader, text); });
    if (reader.hasBlocks())
        refuse(translated(QT_TRANSLATE_NOOP(
            "Drawings", "It has inserted blocks, which are not read. Explode them first.")));
    return joinedPaths(reader.take());
}

}  // namespace Drawings

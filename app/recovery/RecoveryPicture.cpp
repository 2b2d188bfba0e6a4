// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recovery/RecoveryPicture.h"

#include "platform/geometry/UBox3.h"

#include <QColor>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

/// Across, up, and towards the eye; millimetres.
using Seen = std::array<double, 3>;

/// The isometric view: z is up, the eye stands in front, on the right and above.
Seen seen(UPoint3<float> const& p)
{
    double const x = p.X(), y = p.Y(), z = p.Z();
    double const half = std::sqrt(0.5), third = std::sqrt(1.0 / 6);
    return {half * (x + y), third * (y - x) + 2 * third * z, (x - y + z) / std::sqrt(3)};
}

bool isShown(RecoveryState::Object const& object)
{
    return object.mesh && object.look.isVisible;
}

template <typename Visit>
void forTriangles(RecoveryState const& state, Visit const& visit)
{
    for (RecoveryState::Object const& object : state.objects) {
        if (!isShown(object))
            continue;
        for (UTriangle<float> const* const triangle : object.mesh->triangles) {
            std::array<Seen, 3> corners;
            for (int k = 0; k < 3; ++k)
                corners[std::size_t(k)] = seen(object.matrix * triangle->cP(k));
            visit(corners, object.look.color);
        }
    }
}

/// The part of the seen plane that the picture has to hold.
struct Frame
{
    double low[2] = {std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
    double high[2] = {std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest()};

    void add(Seen const& p)
    {
        for (int k = 0; k < 2; ++k) {
            low[k] = std::min(low[k], p[std::size_t(k)]);
            high[k] = std::max(high[k], p[std::size_t(k)]);
        }
    }
    bool isEmpty() const { return high[0] < low[0]; }
};

/// Paints triangles the nearer of which hide the others.
class Canvas
{
public:
    Canvas(QSize size, Frame const& frame)
        : m_image(size, QImage::Format_ARGB32),
          m_depth(std::size_t(size.width()) * std::size_t(size.height()),
                  std::numeric_limits<double>::lowest()),
          m_scale(std::min((size.width() - 2 * margin) / widthOf(frame, 0),
                           (size.height() - 2 * margin) / widthOf(frame, 1))),
          m_left(size.width() / 2.0 - m_scale * (frame.low[0] + frame.high[0]) / 2),
          m_bottom(size.height() / 2.0 + m_scale * (frame.low[1] + frame.high[1]) / 2)
    {
        m_image.fill(Qt::transparent);
    }

    void paint(std::array<Seen, 3> const& corners, QColor const& color)
    {
        std::array<Seen, 3> p = corners;
        for (Seen& corner : p)
            corner = {m_left + m_scale * corner[0], m_bottom - m_scale * corner[1], corner[2]};
        double const area = cross(p[0], p[1], p[2]);
        if (!(std::abs(area) > 0) || !std::isfinite(area))
            return;
        QRgb const rgb = shaded(color, corners);
        auto const [left, right] = range(p, 0, m_image.width());
        auto const [top, bottom] = range(p, 1, m_image.height());
        for (int y = top; y <= bottom; ++y)
            for (int x = left; x <= right; ++x)
                paintAt(x, y, p, area, rgb);
    }

    QImage const& image() const { return m_image; }

private:
    static constexpr double margin = 4;

    static double widthOf(Frame const& frame, int axis)
    {
        return std::max(frame.high[axis] - frame.low[axis], 1e-9);
    }
    static double cross(Seen const& a, Seen const& b, Seen const& c)
    {
        return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
    }

    /// The pixels whose middles may lie in a triangle.
    static std::pair<int, int> range(std::array<Seen, 3> const& p, std::size_t axis, int size)
    {
        double const low = std::min({p[0][axis], p[1][axis], p[2][axis]});
        double const high = std::max({p[0][axis], p[1][axis], p[2][axis]});
        return {int(std::max(std::floor(low), 0.0)), int(std::min(std::ceil(high), size - 1.0))};
    }

    void paintAt(int x, int y, std::array<Seen, 3> const& p, double area, QRgb rgb)
    {
        Seen const middle = {x + 0.5, y + 0.5, 0};
        double const a = cross(p[1], p[2], middle) / area;
        double const b = cross(p[2], p[0], middle) / area;
        if (a < 0 || b < 0 || a + b > 1)
            return;
        double const depth = a * p[0][2] + b * p[1][2] + (1 - a - b) * p[2][2];
        double& nearest = m_depth[std::size_t(y) * std::size_t(m_image.width()) + std::size_t(x)];
        if (depth <= nearest)
            return;
        nearest = depth;
        reinterpret_cast<QRgb*>(m_image.scanLine(y))[x] = rgb;
    }

    /// The light comes from above the eye's left shoulder.
    static QRgb shaded(QColor const& color, std::array<Seen, 3> const& p)
    {
        double u[3], v[3];
        for (std::size_t k = 0; k < 3; ++k) {
            u[k] = p[1][k] - p[0][k];
            v[k] = p[2][k] - p[0][k];
        }
        double const n[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2],
                             u[0] * v[1] - u[1] * v[0]};
        double const length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
        double const light =
            length > 0 ? std::abs(-0.3 * n[0] + 0.5 * n[1] + 0.81 * n[2]) / length : 0;
        double const share = 0.35 + 0.65 * light;
        return qRgb(int(color.red() * share), int(color.green() * share),
                    int(color.blue() * share));
    }

    QImage m_image;
    std::vector<double> m_depth;
    double m_scale;
    double m_left;
    double m_bottom;
};

QColor colorOf(unsigned rgba)
{
    return rgba == 0 ? QColor(176, 184, 196)
                     : QColor(int(rgba >> 24), int(rgba >> 16 & 255), int(rgba >> 8 & 255));
}

}  // namespace

QImage recoveryPicture(RecoveryState const& state, QSize size)
{
    Frame frame;
    forTriangles(state, [&](std::array<Seen, 3> const& corners, unsigned) {
        std::ranges::for_each(corners, [&](Seen const& corner) { frame.add(corner); });
    });
    if (frame.isEmpty())
        return {};
    Canvas canvas(size, frame);
    forTriangles(state, [&](std::array<Seen, 3> const& corners, unsigned color) {
        canvas.paint(corners, colorOf(color));
    });
    return canvas.image();
}

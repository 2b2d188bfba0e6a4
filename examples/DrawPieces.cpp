// SPDX-License-Identifier: GPL-3.0-or-later
// Draws parts for the documentation: draw_pieces OUT.png FILE[,DX,DY,DZ]... The offsets, in
// millimetres, pull pieces apart.
#include "host/formats/PartFiles.h"

#include <QColor>
#include <QImage>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <vector>

namespace {

using Point = std::array<double, 3>;

struct Facet
{
    std::array<Point, 3> corners;
    Point normal;
    QColor colour;
};

Point turned(Point const& p)
{
    // Seen from the front right, a little from above.
    constexpr double around = 0.60;
    constexpr double tilt = 0.42;
    double const x = p[0] * std::cos(around) - p[1] * std::sin(around);
    double const y = p[0] * std::sin(around) + p[1] * std::cos(around);
    return {x, p[2] * std::cos(tilt) + y * std::sin(tilt),
            y * std::cos(tilt) - p[2] * std::sin(tilt)};
}

Point normalOf(std::array<Point, 3> const& t)
{
    Point u, v;
    for (std::size_t i = 0; i < 3; ++i) {
        u[i] = t[1][i] - t[0][i];
        v[i] = t[2][i] - t[0][i];
    }
    Point n = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    double const length = std::hypot(n[0], n[1], n[2]);
    for (double& c : n)
        c = length > 0 ? c / length : 0;
    return n;
}

void addFacets(QString const& argument, QColor const& colour, std::vector<Facet>& facets)
{
    QStringList const fields = argument.split(',');
    double offset[3] = {};
    for (int i = 1; i < fields.size() && i <= 3; ++i)
        offset[i - 1] = fields[i].toDouble();
    for (auto const& part : Formats::readParts(fields[0].toStdString(), {}))
        for (auto const* const triangle : part.kernel->readMesh()->triangles) {
            Facet facet;
            for (int i = 0; i < 3; ++i)
                for (int axis = 0; axis < 3; ++axis)
                    facet.corners[std::size_t(i)][std::size_t(axis)] =
                        triangle->cP(i)[axis] + offset[axis];
            facet.normal = normalOf(facet.corners);
            // The faces of a level cut stand out.
            bool const isCap = std::abs(facet.normal[2]) == 1;
            facet.colour = isCap ? QColor(236, 190, 92) : colour;
            for (Point& corner : facet.corners)
                corner = turned(corner);
            facets.push_back(facet);
        }
}

class Picture
{
public:
    Picture(int width, int height)
        : m_image(width, height, QImage::Format_RGB32),
          m_depth(std::size_t(width * height), std::numeric_limits<double>::max())
    {
        m_image.fill(Qt::white);
    }

    void fit(std::vector<Facet> const& facets)
    {
        double low[2] = {1e30, 1e30}, high[2] = {-1e30, -1e30};
        for (Facet const& facet : facets)
            for (Point const& p : facet.corners)
                for (int i = 0; i < 2; ++i) {
                    low[i] = std::min(low[i], p[std::size_t(i)]);
                    high[i] = std::max(high[i], p[std::size_t(i)]);
                }
        m_scale = 0.92 * std::min(m_image.width() / (high[0] - low[0]),
                                  m_image.height() / (high[1] - low[1]));
        m_shiftX = m_image.width() / 2.0 - m_scale * (low[0] + high[0]) / 2;
        m_shiftY = m_image.height() / 2.0 + m_scale * (low[1] + high[1]) / 2;
    }

    void draw(Facet const& facet)
    {
        std::array<Point, 3> p = facet.corners;
        for (Point& c : p)
            c = {m_shiftX + m_scale * c[0], m_shiftY - m_scale * c[1], c[2]};
        double const area =
            (p[1][0] - p[0][0]) * (p[2][1] - p[0][1]) - (p[1][1] - p[0][1]) * (p[2][0] - p[0][0]);
        if (area == 0)
            return;
        auto const bound = [&](std::size_t axis, int limit, bool isUpper) {
            auto const [a, b] = std::minmax({p[0][axis], p[1][axis], p[2][axis]});
            return std::clamp(int(isUpper ? std::ceil(b) : std::floor(a)), 0, limit - 1);
        };
        double const light =
            0.45 + 0.55 * std::abs(facet.normal[0] * 0.35 - facet.normal[1] * 0.55 +
                                   facet.normal[2] * 0.76);
        QRgb const colour = qRgb(int(facet.colour.red() * light), int(facet.colour.green() * light),
                                 int(facet.colour.blue() * light));
        for (int y = bound(1, m_image.height(), false); y <= bound(1, m_image.height(), true); ++y)
            for (int x = bound(0, m_image.width(), false); x <= bound(0, m_image.width(), true);
                 ++x)
                drawPixel(p, area, x, y, colour);
    }

    QImage smooth() const
    {
        return m_image.scaled(m_image.size() / 2, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }

private:
    void drawPixel(std::array<Point, 3> const& p, double area, int x, int y, QRgb colour)
    {
        double weight[3];
        for (std::size_t i = 0; i < 3; ++i) {
            Point const& a = p[(i + 1) % 3];
            Point const& b = p[(i + 2) % 3];
            weight[i] = ((b[0] - a[0]) * (y - a[1]) - (b[1] - a[1]) * (x - a[0])) / area;
            if (weight[i] < 0)
                return;
        }
        double const depth = weight[0] * p[0][2] + weight[1] * p[1][2] + weight[2] * p[2][2];
        double& nearest = m_depth[std::size_t(y * m_image.width() + x)];
        if (depth < nearest) {
            nearest = depth;
            m_image.setPixel(x, y, colour);
        }
    }

    QImage m_image;
    std::vector<double> m_depth;
    double m_scale = 1;
    double m_shiftX = 0;
    double m_shiftY = 0;
};

}  // namespace

int main(int argc, char** argv)
try {
    if (argc < 3) {
        std::fputs("usage: draw_pieces OUT.png FILE[,DX,DY,DZ]...\n", stderr);
        return 2;
    }
    static QColor const colours[] = {QColor(96, 150, 196), QColor(128, 178, 140),
                                     QColor(190, 120, 110)};
    std::vector<Facet> facets;
    for (int i = 2; i < argc; ++i)
        addFacets(QString::fromLocal8Bit(argv[i]), colours[(i - 2) % 3], facets);
    Picture picture(1600, 1000);
    picture.fit(facets);
    for (Facet const& facet : facets)
        picture.draw(facet);
    return picture.smooth().save(QString::fromLocal8Bit(argv[1])) ? 0 : 3;
} catch (Mell::Exception const& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 3;
}

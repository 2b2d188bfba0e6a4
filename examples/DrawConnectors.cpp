// SPDX-License-Identifier: GPL-3.0-or-later
// Draws docs/images/connectors.svg: draw_connectors OUT.svg. Each panel shows a section with its
// triangles, the centre lines drawn through them and the pins that stand on the lines.
#include "connectors/CentreLines.h"
#include "connectors/ContourDistance.h"
#include "connectors/PinPlacement.h"
#include "connectors/PlaneFrame.h"
#include "examples/SvgNumber.h"
#include "platform/jobs/Exceptions.h"
#include "platform/services/EarcutPolygon.h"
#include "platform/services/Intersect.h"
#include "tests/support/Soup.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

namespace {

using Point = UPoint3<float>;
/// In the plane z = 0; outer rings run anticlockwise, holes clockwise.
using Ring = std::vector<std::array<double, 2>>;

struct Panel
{
    char const* title;
    std::vector<Ring> rings;
    /// Of the panel, in millimetres of the section.
    float width;
    float height;
};

constexpr float gap = 6;
constexpr float titleHeight = 9;

char const* const faceColour = "#f0e2c4";
char const* const edgeColour = "#c9b98f";
char const* const contourColour = "#333a40";
char const* const lineColour = "#2f6fb0";
char const* const pinColour = "#d0453a";

std::string screen(Point const& p)
{
    return numberText(p.X()) + "," + numberText(-p.Y());
}

/// The upright prism of 20 mm over some rings, half of it below z = 0.
Soup prismOver(std::vector<Ring> const& rings)
{
    Soup soup;
    for (Ring const& ring : rings) {
        auto const first = std::uint32_t(soup.points.size());
        auto const count = std::uint32_t(ring.size());
        for (std::uint32_t i = 0; i < count; ++i) {
            for (float const z : {-10.0f, 10.0f})
                soup.add({float(ring[i][0]), float(ring[i][1]), z});
            std::uint32_t const a = first + 2 * i, b = first + 2 * ((i + 1) % count);
            soup.add(a, b, b + 1);
            soup.add(a, b + 1, a + 1);
        }
    }
    std::vector<int> const indices = EarcutPolygon::earcut(rings);
    for (std::size_t i = 0; i + 2 < indices.size(); i += 3) {
        auto const at = [&](std::size_t k) { return 2 * std::uint32_t(indices[i + k]); };
        soup.add(at(0), at(2), at(1));
        soup.add(at(0) + 1, at(1) + 1, at(2) + 1);
    }
    return soup;
}

Ring rectangle(double x, double y)
{
    return {{-x, -y}, {x, -y}, {x, y}, {-x, y}};
}

Ring circle(double radius, int points, bool isHole = false)
{
    Ring ring;
    for (int i = 0; i < points; ++i) {
        double const t = (isHole ? -2 : 2) * std::numbers::pi * i / points;
        ring.push_back({radius * std::cos(t), radius * std::sin(t)});
    }
    return ring;
}

/// The section of a part at z = 0 and what stands on it.
class PinnedSection
{
public:
    explicit PinnedSection(std::vector<Ring> const& rings)
    {
        constexpr float reach = 200;
        std::array<Point, 5> const corners{Point(0, 0, 0), Point(-reach, -reach, 0),
                                           Point(reach, -reach, 0), Point(reach, reach, 0),
                                           Point(-reach, reach, 0)};
        Soup plane;
        plane.points.assign(corners.begin() + 1, corners.end());
        plane.triangles = {{0, 1, 2}, {2, 3, 0}};
        MeshKernel above, below;
        Intersect::cutByPlane(kernelOf(prismOver(rings)).get(), kernelOf(plane).get(), &above,
                              &below, &m_cap, {}, true);
        contours = extractSectionContours(&m_cap);
        centreLines = extractCentreLines(*m_cap.getMesh(), ContourDistance(contours),
                                         paras.radius + paras.sideclearance);
        pins = PinPlacement(paras, PlaneFrame(corners)).computePositions(contours, &m_cap);
    }

    MeshKernel const& cap() const { return m_cap; }

    PinHoleParas paras;
    std::vector<SectionContour> contours;
    std::vector<std::vector<Point>> centreLines;
    std::vector<Point> pins;

private:
    MeshKernel m_cap;
};

std::string polyline(std::vector<Point> const& points, bool isClosed)
{
    std::string path = "<path d=\"";
    char command = 'M';
    for (Point const& p : points) {
        path += command + screen(p);
        command = 'L';
    }
    return path + (isClosed ? "Z" : "") + "\"/>\n";
}

std::string group(std::string const& attributes, std::string const& content)
{
    return "<g " + attributes + ">\n" + content + "</g>\n";
}

std::string moved(float x, float y, std::string const& content)
{
    return group("transform=\"translate(" + numberText(x) + " " + numberText(y) + ")\"", content);
}

std::string strokes(char const* colour, float width, std::string const& content)
{
    return group(std::string("fill=\"none\" stroke=\"") + colour + "\" stroke-width=\"" +
                     numberText(width) + "\"",
                 content);
}

std::string trianglesOf(MeshKernel const& cap)
{
    std::string svg;
    auto const mesh = cap.readMesh();
    for (UTriangle<float> const* const t : mesh->triangles)
        svg += polyline({t->cP(0), t->cP(1), t->cP(2)}, true);
    return group(std::string("fill=\"") + faceColour + "\" stroke=\"" + edgeColour +
                     "\" stroke-width=\"0.15\"",
                 svg);
}

std::string draw(PinnedSection const& section)
{
    std::string contours, lines, pins;
    for (SectionContour const& contour : section.contours)
        contours += polyline(contour, true);
    for (auto const& line : section.centreLines)
        lines += polyline(line, false);
    for (Point const& p : section.pins)
        pins += "<circle cx=\"" + numberText(p.X()) + "\" cy=\"" + numberText(-p.Y()) + "\" r=\"" +
                numberText(section.paras.radius) + "\"/>\n";
    return trianglesOf(section.cap()) + strokes(contourColour, 0.4f, contours) +
           strokes(lineColour, 0.5f, lines) +
           group(std::string("fill=\"") + pinColour + "\" fill-opacity=\"0.75\"", pins);
}

std::string text(float x, float y, std::string const& content)
{
    return "<text x=\"" + numberText(x) + "\" y=\"" + numberText(y) +
           "\" text-anchor=\"middle\" font-size=\"4\" fill=\"" + contourColour + "\">" + content +
           "</text>\n";
}

std::string draw(Panel const& panel)
{
    PinnedSection const section(panel.rings);
    return moved(panel.width / 2, panel.height / 2, draw(section)) +
           text(panel.width / 2, panel.height + 6,
                std::string(panel.title) + ": " + std::to_string(section.pins.size()) + " pins");
}

std::vector<std::vector<Panel>> rows()
{
    Ring const angle{{-20, -20}, {20, -20}, {20, -8}, {-8, -8}, {-8, 20}, {-20, 20}};
    return {{{"40 mm square", {rectangle(20, 20)}, 48, 44},
             {"100 × 10 mm bar", {rectangle(50, 5)}, 104, 44}},
            {{"L", {angle}, 46, 64},
             {"ring", {circle(30, 64), circle(18, 64, true)}, 62, 64},
             {"disc of six edges", {circle(20, 6)}, 46, 64}}};
}

std::string document()
{
    std::string svg;
    float width = 0;
    float y = gap;
    for (std::vector<Panel> const& row : rows()) {
        float x = gap;
        for (Panel const& panel : row) {
            svg += moved(x, y, draw(panel));
            x += panel.width + gap;
        }
        width = std::max(width, x);
        y += row.front().height + titleHeight + gap;
    }
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + numberText(width) + " " +
           numberText(y) + "\" width=\"900\" height=\"" + numberText(900 * y / width) +
           "\" font-family=\"sans-serif\" stroke-linejoin=\"round\" "
           "stroke-linecap=\"round\">\n<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n" +
           svg + "</svg>\n";
}

}  // namespace

int main(int argc, char** argv)
try {
    if (argc != 2) {
        std::fputs("usage: draw_connectors OUT.svg\n", stderr);
        return 2;
    }
    std::ofstream file(argv[1], std::ios::binary);
    file << document();
    return file.flush() ? 0 : 3;
} catch (Mell::Exception const& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 3;
}

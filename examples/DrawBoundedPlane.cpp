// SPDX-License-Identifier: GPL-3.0-or-later
// Draws docs/images/bounded-plane.svg: draw_bounded_plane OUT.svg. Small parts are cut by planes
// that end within them; each panel shows the part with the plane, and what the cut makes of it.
#include "examples/SvgNumber.h"
#include "platform/jobs/Exceptions.h"
#include "platform/services/Intersect.h"
#include "tests/support/MeshBuilders.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

using Point = UPoint3<float>;

struct Facet
{
    std::array<Point, 3> corners;
    std::string colour;
};

struct Panel
{
    char const* title;
    char const* result;
    std::vector<std::string> rows;
    float planeLow;
    float planeHigh;
    float height;
};

// Screen millimetres per millimetre of depth.
constexpr float depthRight = 0.40f;
constexpr float depthUp = 0.30f;
constexpr float panelWidth = 190;
constexpr float panelHeight = 95;
constexpr float gap = 8;
constexpr float frontOfPlane = -5;
constexpr float backOfPlane = 15;

char const* const partColour = "#b9c0c7";
char const* const sideAColour = "#5b93c7";
char const* const sideBColour = "#7db58a";
char const* const capColour = "#ecb84f";
char const* const planeColour = "#d0453a";
char const* const textColour = "#333a40";

std::string screen(Point const& p)
{
    return numberText(p.X() + depthRight * p.Y()) + "," + numberText(-(p.Z() + depthUp * p.Y()));
}

/// A hexadecimal colour under the light that falls on a face.
std::string shaded(std::string const& colour, UVector3<float> const& normal)
{
    float const light = 0.86f + 0.14f * normal.Z() - 0.16f * normal.X() - 0.02f * normal.Y();
    std::string result = "#";
    for (std::size_t i = 1; i < 7; i += 2) {
        int channel = 0;
        std::from_chars(colour.data() + i, colour.data() + i + 2, channel, 16);
        char digits[8];
        std::snprintf(digits, sizeof digits, "%02x",
                      std::clamp(int(float(channel) * light), 0, 255));
        result += digits;
    }
    return result;
}

class Drawing
{
public:
    void add(MeshKernel const& kernel, char const* colour, UVector3<float> const& offset)
    {
        auto const mesh = kernel.readMesh();
        for (UTriangle<float> const* const triangle : mesh->triangles) {
            UVector3<float> const normal = triangle->ComputeNormalizedNormal();
            // Only what faces the viewer is seen.
            if (normal.X() * depthRight - normal.Y() + normal.Z() * depthUp > 0)
                m_facets.push_back(
                    {{triangle->cP(0) + offset, triangle->cP(1) + offset, triangle->cP(2) + offset},
                     shaded(colour, normal)});
        }
    }

    /// The section as it shows on the pieces under it.
    void addCaps(MeshKernel const& section, UVector3<float> const& offset)
    {
        // A little above the piece that it closes.
        add(section, capColour, offset + UVector3<float>(0, 0, 0.01f));
    }

    /// What was added since the last call, the farthest first.
    void flush(std::string& svg)
    {
        auto const depth = [](Facet const& facet) {
            float sum = 0;
            for (Point const& p : facet.corners)
                sum += p.Y() - depthRight * p.X() - depthUp * p.Z();
            return sum;
        };
        std::stable_sort(m_facets.begin(), m_facets.end(),
                         [&](Facet const& a, Facet const& b) { return depth(a) > depth(b); });
        for (Facet const& f : m_facets)
            svg += "<path d=\"M" + screen(f.corners[0]) + "L" + screen(f.corners[1]) + "L" +
                   screen(f.corners[2]) + "Z\" fill=\"" + f.colour + "\" stroke=\"" + f.colour +
                   "\"/>\n";
        m_facets.clear();
    }

private:
    std::vector<Facet> m_facets;
};

std::unique_ptr<MeshKernel> planeOf(float low, float high, float height)
{
    Soup soup;
    soup.points = {{low, frontOfPlane, height},
                   {high, frontOfPlane, height},
                   {high, backOfPlane, height},
                   {low, backOfPlane, height}};
    soup.triangles = {{0, 1, 2}, {2, 3, 0}};
    return kernelOf(soup);
}

struct Pieces
{
    MeshKernel above;
    MeshKernel below;
    MeshKernel section;

    Pieces(MeshKernel& part, MeshKernel& plane)
    {
        Intersect::cutByPlane(&part, &plane, &above, &below, &section, {}, true);
    }
};

std::string text(float x, float y, char const* anchor, float size, std::string const& content)
{
    return "<text x=\"" + numberText(x) + "\" y=\"" + numberText(y) + "\" text-anchor=\"" + anchor +
           "\" font-size=\"" + numberText(size) + "\" fill=\"" + textColour + "\">" + content +
           "</text>\n";
}

std::string group(float x, float y, std::string const& content)
{
    return "<g transform=\"translate(" + numberText(x) + " " + numberText(y) + ")\">\n" + content +
           "</g>\n";
}

std::string outlineOf(Panel const& panel)
{
    std::string path = "<path d=\"";
    char command = 'M';
    for (Point const& p : {Point(panel.planeLow, frontOfPlane, panel.height),
                           Point(panel.planeHigh, frontOfPlane, panel.height),
                           Point(panel.planeHigh, backOfPlane, panel.height),
                           Point(panel.planeLow, backOfPlane, panel.height)}) {
        path += command + screen(p);
        command = 'L';
    }
    return path + "Z\" fill=\"" + planeColour + "\" fill-opacity=\"0.45\" stroke=\"" + planeColour +
           "\" stroke-width=\"0.6\"/>\n";
}

/// The part, the lower of its halves first, with the plane between the two.
std::string partWithPlane(Panel const& panel, MeshKernel& part)
{
    auto const everywhere = planeOf(-1000, 1000, panel.height);
    Pieces const halves(part, *everywhere);
    std::string svg;
    Drawing drawing;
    drawing.add(halves.below, partColour, {});
    drawing.flush(svg);
    svg += outlineOf(panel);
    drawing.add(halves.above, partColour, {});
    drawing.flush(svg);
    return svg;
}

/// The pieces, side A lifted.
std::string cutPart(Panel const& panel, MeshKernel& part)
{
    auto const plane = planeOf(panel.planeLow, panel.planeHigh, panel.height);
    Pieces const pieces(part, *plane);
    bool const isCut = !pieces.section.readMesh()->triangles.empty();
    UVector3<float> const lift(0, 0, isCut ? 9.0f : 0.0f);
    std::string svg;
    Drawing drawing;
    drawing.add(pieces.below, sideBColour, {});
    drawing.addCaps(pieces.section, {});
    drawing.add(pieces.above, sideAColour, lift);
    drawing.flush(svg);
    return svg;
}

std::string draw(Panel const& panel)
{
    auto const part = kernelOf(fromFrontView(panel.rows));
    constexpr float base = panelHeight - 26;
    std::string svg = "<rect width=\"" + numberText(panelWidth) + "\" height=\"" +
                      numberText(panelHeight) + "\" rx=\"3\" fill=\"#f6f7f8\"/>\n";
    svg += group(14, base, partWithPlane(panel, *part));
    svg += group(110, base, cutPart(panel, *part));
    svg += "<path d=\"M88," + numberText(base - 20) +
           "h9m-3,-3l3,3l-3,3\" fill=\"none\" stroke=\"" + textColour +
           "\" stroke-width=\"0.8\"/>\n";
    svg += text(10, panelHeight - 13, "start", 6.2f, panel.title);
    svg += text(10, panelHeight - 5, "start", 5.4f, panel.result);
    return svg;
}

std::vector<Panel> panels()
{
    std::vector<std::string> const figure = {"#.###",  //
                                             "#.###",  //
                                             "#.###",  //
                                             "#####"};
    std::vector<std::string> const ring = {"#####",  //
                                           "#...#",  //
                                           "#...#",  //
                                           "#####"};
    std::vector<std::string> const both = {"..####",  //
                                           "#.#.##",  //
                                           "#.#.##",  //
                                           "#...##",  //
                                           "######"};
    std::vector<std::string> const shells = {"#.....",  //
                                             "#.##.#",  //
                                             "#.##..",  //
                                             "#.##.#",  //
                                             "#....#"};
    return {
        {"The rectangle covers the limb’s face.", "The limb comes off, the torso stays whole.",
         figure, -5, 15, 25},
        {"It covers half of the limb’s face, and no other.", "Nothing is cut.", figure, -8, 5, 25},
        {"It covers one face of a ring.", "The cut would part nothing: the ring stays whole.", ring,
         -5, 15, 20},
        {"It covers both.", "The ring comes apart.", ring, -5, 55, 20},
        {"An arm would come off upwards, a bag downwards.",
         "One of each kind: what comes off upwards is cut.", both, -5, 35, 25},
        {"There are other shells, which the cut does not touch.",
         "Each goes whole to the side of its centroid.", shells, -5, 15, 22},
    };
}

std::string legend(float width)
{
    std::string svg;
    float x = 4;
    auto const entry = [&](char const* colour, char const* name, float advance) {
        svg += "<rect x=\"" + numberText(x) +
               "\" y=\"-5.5\" width=\"7\" height=\"7\" rx=\"1\" fill=\"" + colour + "\"/>\n" +
               text(x + 10, 0.2f, "start", 6, name);
        x += advance;
    };
    entry(partColour, "part", 34);
    entry(planeColour, "rectangle of the plane, its normal upwards", 150);
    entry(sideAColour, "side A", 38);
    entry(sideBColour, "side B", 38);
    entry(capColour, "face that was cut", 60);
    return group((width - x) / 2, 0, svg);
}

std::string document()
{
    std::vector<Panel> const list = panels();
    std::size_t const rows = (list.size() + 1) / 2;
    float const width = 2 * panelWidth + 3 * gap;
    float const height = float(rows) * (panelHeight + gap) + gap + 14;
    std::string svg =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + numberText(width) + " " +
        numberText(height) +
        "\" width=\"1000\" font-family=\"sans-serif\" stroke-width=\"0.25\" "
        "stroke-linejoin=\"round\">\n<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n";
    for (std::size_t i = 0; i < list.size(); ++i)
        svg += group(gap + float(i % 2) * (panelWidth + gap),
                     gap + float(i / 2) * (panelHeight + gap), draw(list[i]));
    return svg + group(0, height - 8, legend(width)) + "</svg>\n";
}

}  // namespace

int main(int argc, char** argv)
try {
    if (argc != 2) {
        std::fputs("usage: draw_bounded_plane OUT.svg\n", stderr);
        return 2;
    }
    std::ofstream file(argv[1], std::ios::binary);
    file << document();
    return file.flush() ? 0 : 3;
} catch (Mell::Exception const& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 3;
}

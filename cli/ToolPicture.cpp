// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ToolPicture.h"

#include "cli/Numbers.h"
#include "host/formats/OutputFile.h"
#include "platform/document/MeshDocumentObject.h"

#include <algorithm>

namespace {

using Freecut::Loops;

/// Collects paths and the box around them. The picture's y runs down.
class Picture
{
public:
    explicit Picture(ToolScene const& scene) : m_scene(scene) {}

    void addLine(UPoint3<float> const& a, UPoint3<float> const& b)
    {
        moveTo(a);
        lineTo(b);
    }
    void addLoop(Freecut::Ring const& ring)
    {
        if (ring.empty())
            return;
        moveTo(ring.front());
        for (std::size_t i = 1; i < ring.size(); ++i)
            lineTo(ring[i]);
        m_path.append("Z");
    }
    /// Ends what was added since the last call.
    void draw(std::string const& name, std::string const& style)
    {
        if (!m_path.empty())
            m_paths.push_back("<path id=\"" + name + "\" style=\"" + style + "\" d=\"" + m_path +
                              "\"/>\n");
        m_path.clear();
    }
    std::string text() const
    {
        float const spare = std::max(m_highX - m_lowX, m_highY - m_lowY) * 0.05f + 0.001f;
        float const width = m_highX - m_lowX + 2 * spare, height = m_highY - m_lowY + 2 * spare;
        std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + decimal(width) +
                           "mm\" height=\"" + decimal(height) + "mm\" viewBox=\"" +
                           decimal(m_lowX - spare) + " " + decimal(m_lowY - spare) + " " +
                           decimal(width) + " " + decimal(height) +
                           "\" fill=\"none\" stroke-width=\"1\">\n";
        for (std::string const& path : m_paths)
            text += path;
        return text + "</svg>\n";
    }

private:
    void moveTo(UPoint3<float> const& world) { m_path.append("M").append(textOf(world)); }
    void lineTo(UPoint3<float> const& world) { m_path.append("L").append(textOf(world)); }
    std::string textOf(UPoint3<float> const& world)
    {
        UPoint2<float> const p = m_scene.onScreen(world);
        m_lowX = std::min(m_lowX, p.X());
        m_highX = std::max(m_highX, p.X());
        m_lowY = std::min(m_lowY, -p.Y());
        m_highY = std::max(m_highY, -p.Y());
        return decimal(p.X()) + " " + decimal(-p.Y());
    }

    ToolScene const& m_scene;
    std::string m_path;
    std::vector<std::string> m_paths;
    float m_lowX = 1e9f, m_lowY = 1e9f, m_highX = -1e9f, m_highY = -1e9f;
};

/// The edges between what faces the viewer and what does not.
void addSilhouette(Picture& picture, MeshKernel const& part, UVector3<float> const& direction)
{
    MeshKernel copy(part);
    UMesh<float>& mesh = *copy.getMesh();
    mesh.BuildTopo({}, false);
    auto const facesViewer = [&](UTriangle<float> const& triangle) {
        return (triangle.ComputeNormalizedNormal() | direction) > 0;
    };
    for (UTriangle<float>* const triangle : mesh.triangles) {
        if (!facesViewer(*triangle))
            continue;
        for (int i = 0; i < 3; ++i) {
            UTriangle<float> const* const neighbour = triangle->cFFp(i);
            if (!neighbour || !facesViewer(*neighbour))
                picture.addLine(triangle->cP(i), triangle->cP(UTriangle<float>::Next(i)));
        }
    }
}

void drawLoops(Picture& picture, Loops const& loops, std::string const& name,
               std::string const& color)
{
    for (Freecut::Ring const& ring : loops)
        picture.addLoop(ring);
    picture.draw(name, "stroke:" + color + ";vector-effect:non-scaling-stroke");
}

}  // namespace

void writeToolPicture(std::string const& file, ToolScene const& scene,
                      Freecut::VolumeGraphicObject& tool, std::vector<CutPart> const& parts)
{
    Picture picture(scene);
    for (CutPart const& part : parts)
        if (part.object)
            addSilhouette(picture, *part.object->meshProperty->getMesh(), scene.direction());
    picture.draw("parts", "stroke:#888888;vector-effect:non-scaling-stroke");
    Freecut::ToolOutlines const& outlines = scene.outlinesOf(tool);
    drawLoops(picture, outlines.residualLoops, "dropped", "#00b0b0");
    drawLoops(picture, outlines.solidLoops, "nominal",
              outlines.roundedLoops.empty() ? "#ff0000" : "#ffc0cb");
    drawLoops(picture, outlines.roundedLoops, "rounded", "#ff0000");
    drawLoops(picture, outlines.innerLoops, "inner", "#082e54");
    drawLoops(picture, outlines.outerLoops, "outer", "#082e54");
    Formats::OutputFile output(file, Formats::Overwrite::Allow);
    output.write(picture.text());
    output.commit();
}

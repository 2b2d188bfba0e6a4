// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ThreeMfWriter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace Formats {
namespace {

constexpr char xmlHead[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr char contentTypes[] =
    "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">\n"
    " <Default Extension=\"rels\""
    " ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>\n"
    " <Default Extension=\"model\""
    " ContentType=\"application/vnd.ms-package.3dmanufacturing-3dmodel+xml\"/>\n"
    " <Default Extension=\"xml\" ContentType=\"application/xml\"/>\n"
    "</Types>\n";
constexpr char modelHead[] =
    "<model unit=\"millimeter\" xml:lang=\"en-US\""
    " xmlns=\"http://schemas.microsoft.com/3dmanufacturing/core/2015/02\""
    " xmlns:p=\"http://schemas.microsoft.com/3dmanufacturing/production/2015/06\">\n"
    " <resources>\n";

/// Readers refuse coordinates beyond that.
constexpr float largestCoordinate = 1e9f;
constexpr std::size_t flushBytes = 1 << 16;
/// Objects are numbered after the materials.
constexpr std::size_t materialsId = 1;
constexpr std::size_t firstObjectId = 2;

enum class Entry : unsigned
{
    Build = 1,
    Object = 2,
    Item = 3
};

/// Identifiers are counted, not drawn by chance: the same parts give the same file.
std::string identifier(Entry entry, std::size_t place)
{
    std::array<char, 48> text;
    std::snprintf(text.data(), text.size(), "%08x-0000-4000-8000-%012zx", unsigned(entry), place);
    return text.data();
}

std::string colorText(unsigned rgba)
{
    std::array<char, 10> text;
    std::snprintf(text.data(), text.size(), "#%08X", rgba);
    return text.data();
}

std::string relationships(char const* target, char const* type)
{
    return std::string(xmlHead) +
           "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
           "\n <Relationship Target=\"/" +
           target + "\" Id=\"rel0\" Type=\"" + type + "\"/>\n</Relationships>\n";
}

/// Line breaks in an attribute are read in different ways, so names are one line here.
std::string nameText(std::string name)
{
    for (char& c : name)
        if (c == '\n' || c == '\r' || c == '\t')
            c = ' ';
    return xmlEscaped(name);
}

}  // namespace

ThreeMfWriter::ThreeMfWriter(OutputFile& output, Progress const& progress)
    : m_output(output), m_progress(progress), m_zip(output)
{}

void ThreeMfWriter::write(std::span<NamedMesh const> parts)
{
    std::vector<Item> items;
    for (NamedMesh const& part : parts)
        items.push_back(
            {part.name, part.kernel, part.color, MeshSource::Frame::Placed, part.isSupport});
    m_zip.addEntry("[Content_Types].xml", std::string(xmlHead) + contentTypes);
    writeModel(items);
    m_zip.finish();
}

void ThreeMfWriter::writeProject(std::span<ProjectObject const> objects)
{
    std::vector<Item> items;
    std::vector<ProjectEntry> entries;
    for (ProjectObject const& object : objects) {
        entries.push_back({object, {}});
        MeshKernel const* const kernel = object.kernel.get();
        if (!kernel || kernel->readMesh()->triangles.empty())
            continue;
        entries.back().item = identifier(Entry::Item, items.size());
        items.push_back({object.name, kernel, object.color, MeshSource::Frame::Local});
    }
    m_zip.addEntry("[Content_Types].xml", std::string(xmlHead) + contentTypes);
    m_zip.addEntry(projectEntryName, projectXml(entries));
    m_zip.addEntry("3D/_rels/3dmodel.model.rels",
                   relationships(projectEntryName, projectRelationship));
    writeModel(items);
    m_zip.finish();
}

void ThreeMfWriter::writeModel(std::vector<Item> const& items)
{
    m_zip.addEntry("_rels/.rels",
                   relationships(modelEntryName,
                                 "http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel"));
    std::uint64_t total = 1;
    for (Item const& item : items)
        total +=
            item.kernel->readMesh()->triangles.size() + item.kernel->readMesh()->vertices.size();
    StepProgress steps(m_progress, total);
    m_zip.beginEntry(modelEntryName);
    m_text = xmlHead;
    m_text += modelHead;
    writeMaterials(items);
    for (std::size_t i = 0; i < items.size(); ++i)
        writeObject(items[i], i, steps);
    m_text += " </resources>\n";
    writeBuild(items);
    m_text += "</model>\n";
    m_zip.write(m_text);
    m_zip.endEntry();
}

void ThreeMfWriter::writeMaterials(std::vector<Item> const& items)
{
    std::string bases;
    for (Item const& item : items)
        if (item.color != 0 && m_materials.emplace(item.color, m_materials.size()).second) {
            std::string const color = colorText(item.color);
            bases += "   <base name=\"" + color + "\" displaycolor=\"" + color + "\"/>\n";
        }
    if (!bases.empty())
        m_text += "  <basematerials id=\"" + std::to_string(materialsId) + "\">\n" + bases +
                  "  </basematerials>\n";
}

void ThreeMfWriter::writeObject(Item const& item, std::size_t place, StepProgress& steps)
{
    m_text += "  <object id=\"" + std::to_string(firstObjectId + place) + "\" type=\"" +
              (item.isSupport ? "support" : "model") + "\" name=\"" + nameText(item.name) +
              "\" p:UUID=\"" + identifier(Entry::Object, place) + "\"";
    if (item.color != 0)
        m_text += " pid=\"" + std::to_string(materialsId) + "\" pindex=\"" +
                  std::to_string(m_materials.at(item.color)) + "\"";
    m_text += ">\n   <mesh>\n    <vertices>\n";
    MeshSource mesh(*item.kernel, item.frame);
    mesh.numberVertices();
    writeVertices(item, mesh, steps);
    m_text += "    </vertices>\n    <triangles>\n";
    writeTriangles(mesh, steps);
    m_text += "    </triangles>\n   </mesh>\n  </object>\n";
}

void ThreeMfWriter::writeVertices(Item const& item, MeshSource const& mesh, StepProgress& steps)
{
    for (std::size_t i = 0; i < mesh.vertexCount(); ++i) {
        steps.step();
        UPoint3<float> const p = mesh.point(i);
        for (int axis = 0; axis < 3; ++axis) {
            if (!(std::abs(p[axis]) <= largestCoordinate))
                throw FileError(m_output.path(),
                                FileError::tr("a coordinate of the part '%1' is not a number up "
                                              "to 1000000000 mm; repair the part or remove it.")
                                    .arg(QString::fromStdString(item.name)));
            constexpr char const* starts[] = {"<vertex x=\"", "\" y=\"", "\" z=\""};
            m_text += starts[axis];
            addNumber(p[axis]);
        }
        m_text += "\"/>\n";
        flush();
    }
}

void ThreeMfWriter::writeTriangles(MeshSource const& mesh, StepProgress& steps)
{
    for (std::size_t i = 0; i < mesh.triangleCount(); ++i) {
        steps.step();
        auto const [a, b, c] = mesh.indices(i);
        m_text += "<triangle v1=\"";
        addNumber(a);
        m_text += "\" v2=\"";
        addNumber(b);
        m_text += "\" v3=\"";
        addNumber(c);
        m_text += "\"/>\n";
        flush();
    }
}

void ThreeMfWriter::writeBuild(std::vector<Item> const& items)
{
    m_text += " <build p:UUID=\"" + identifier(Entry::Build, 0) + "\">\n";
    for (std::size_t i = 0; i < items.size(); ++i) {
        m_text += "  <item objectid=\"" + std::to_string(firstObjectId + i) + "\" p:UUID=\"" +
                  identifier(Entry::Item, i) + "\"";
        UMatrix4<float> const& matrix = items[i].kernel->getMatrix();
        if (items[i].frame == MeshSource::Frame::Local && !matrix.isIdentity()) {
            // Column after column, without the row that is always 0 0 0 1.
            m_text += " transform=\"";
            for (int column = 0; column < 4; ++column)
                for (int row = 0; row < 3; ++row) {
                    m_text += column + row > 0 ? " " : "";
                    addNumber(matrix(row, column));
                }
            m_text += "\"";
        }
        m_text += "/>\n";
    }
    m_text += " </build>\n";
}

void ThreeMfWriter::addNumber(float value)
{
    std::array<char, 24> digits;
    m_text.append(digits.data(),
                  std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
}

void ThreeMfWriter::addNumber(std::uint32_t value)
{
    std::array<char, 12> digits;
    m_text.append(digits.data(),
                  std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
}

void ThreeMfWriter::flush()
{
    if (m_text.size() < flushBytes)
        return;
    m_zip.write(m_text);
    m_text.clear();
}

}  // namespace Formats

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PlyReader.h"

#include "host/formats/MemoryNeed.h"

#include <algorithm>

namespace Formats {

PlyReader::PlyReader(InputFile& input)
    : m_input(input), m_lines(input), m_header(readPlyHeader(input, m_lines))
{
    checkHeader();
    checkSize();
    if (m_header.encoding == PlyEncoding::Ascii) {
        m_values = std::make_unique<PlyTextValues>(input, m_lines);
    } else {
        input.seek(m_lines.offset());
        m_values = std::make_unique<PlyBinaryValues>(
            input,
            m_header.encoding == PlyEncoding::BigEndian ? std::endian::big : std::endian::little);
    }
    m_builder = std::make_unique<MeshBuilder>(faceElement()->count, element("vertex")->count);
    m_builder->allowUnusedPoints();
    m_vertices = std::make_unique<NumberedPoints>(m_builder->points());
    m_splitter = std::make_unique<PolygonSplitter>(*m_builder);
}

std::unique_ptr<MeshKernel> PlyReader::read()
{
    for (PlyElement const& each : m_header.elements) {
        if (&each == element("vertex"))
            readVertices(each);
        else if (&each == faceElement())
            each.name == "face" ? readFaces(each) : readStrips(each);
        else
            skipElement(each);
    }
    if (m_builder->isEmpty())
        throw m_values->error(
            FileError::tr("no face has three different corners; a mesh was expected."));
    m_vertices.reset();
    return m_builder->finish();
}

PlyElement const* PlyReader::element(std::string_view name) const
{
    auto const found = std::ranges::find(m_header.elements, name, &PlyElement::name);
    return found == m_header.elements.end() ? nullptr : &*found;
}

PlyElement const* PlyReader::faceElement() const
{
    PlyElement const* const faces = element("face");
    return faces ? faces : element("tristrips");
}

void PlyReader::checkHeader() const
{
    auto const fail = [&](QString const& problem) {
        throw FileError::atLine(m_input.path(), m_lines.lineNumber(), problem);
    };
    PlyElement const* const vertices = element("vertex");
    PlyElement const* const faces = faceElement();
    if (!vertices ||
        std::ranges::count_if(vertices->properties, [](auto& p) { return axisOf(p) >= 0; }) != 3)
        fail(FileError::tr(
            "the header ends without an element 'vertex' with the properties x, y and z."));
    if (!faces || std::ranges::count_if(faces->properties, holdsCorners) != 1)
        fail(
            FileError::tr("the header ends without an element 'face' with a list "
                          "'vertex_indices'; a mesh was expected."));
    if (faces < vertices)
        fail(FileError::tr("the header has 'face' before 'vertex'; the other order was expected."));
    if (vertices->count == 0 || faces->count == 0)
        fail(FileError::tr("the header announces no vertices or no faces; a mesh was expected."));
}

void PlyReader::checkSize() const
{
    // A number and the blank behind it take two bytes of text at least.
    bool const isText = m_header.encoding == PlyEncoding::Ascii;
    std::uint64_t needed = 0;
    for (PlyElement const& each : m_header.elements)
        needed += each.count * (isText ? each.properties.size() * 2 : each.smallestSize());
    std::uint64_t const present = m_input.size() - m_lines.offset();
    if (needed > present + isText)
        throw FileError::atByte(
            m_input.path(), m_input.size(),
            FileError::tr("the file ends here, but what its header announces takes at least %1 "
                          "bytes behind the header; it is truncated.")
                .arg(needed));
    requireMemoryFor(std::max(faceElement()->count, element("vertex")->count / 2), m_input.path());
}

void PlyReader::readVertices(PlyElement const& vertices)
{
    m_vertices->reserve(vertices.count);
    for (std::uint64_t i = 0; i < vertices.count; ++i) {
        UPoint3<float> point;
        for (PlyProperty const& property : vertices.properties) {
            int const axis = axisOf(property);
            if (axis >= 0)
                point[axis] = float(m_values->next(property.type));
            else
                skip(property);
        }
        if (!m_vertices->add(point))
            throw m_values->error(
                FileError::tr("a coordinate of vertex %1 is not a finite number in "
                              "the range of single precision.")
                    .arg(i));
    }
}

void PlyReader::readFaces(PlyElement const& faces)
{
    for (std::uint64_t i = 0; i < faces.count; ++i)
        for (PlyProperty const& property : faces.properties) {
            if (holdsCorners(property))
                readFace(property, nextCount(property));
            else
                skip(property);
        }
}

void PlyReader::readFace(PlyProperty const& indices, std::uint64_t corners)
{
    if (corners < 3)
        throw m_values->error(
            FileError::tr("a face of three or more corners was expected, but there are %1.")
                .arg(corners));
    m_corners.clear();
    for (std::uint64_t i = 0; i < corners; ++i)
        m_corners.push_back(vertexAt(m_values->next(indices.type)));
    m_splitter->add(m_corners);
}

UVertex<float>* PlyReader::vertexAt(double index)
{
    if (!(index >= 0 && index < double(m_vertices->size())))
        throw m_values->error(
            FileError::tr(
                "the face refers to vertex %1, but there are %2 vertices, counted from 0.")
                .arg(std::int64_t(index))
                .arg(m_vertices->size()));
    return m_vertices->at(std::size_t(index));
}

void PlyReader::readStrips(PlyElement const& strips)
{
    for (std::uint64_t i = 0; i < strips.count; ++i)
        for (PlyProperty const& property : strips.properties) {
            if (holdsCorners(property))
                readStrip(property, nextCount(property));
            else
                skip(property);
        }
}

/// Each vertex makes a triangle with the two before it, every other one turned round; -1 begins a
/// new strip.
void PlyReader::readStrip(PlyProperty const& indices, std::uint64_t length)
{
    m_corners.clear();
    for (std::uint64_t i = 0; i < length; ++i) {
        double const index = m_values->next(indices.type);
        if (index == -1) {
            m_corners.clear();
            continue;
        }
        m_corners.push_back(vertexAt(index));
        std::size_t const n = m_corners.size();
        if (n < 3)
            continue;
        bool const isTurned = n % 2 == 0;
        m_builder->addTriangle(m_corners[n - 3 + isTurned], m_corners[n - 2 - isTurned],
                               m_corners[n - 1]);
    }
}

void PlyReader::skipElement(PlyElement const& element)
{
    for (std::uint64_t i = 0; i < element.count; ++i)
        for (PlyProperty const& property : element.properties)
            skip(property);
}

void PlyReader::skip(PlyProperty const& property)
{
    std::uint64_t const count = property.isList ? nextCount(property) : 1;
    for (std::uint64_t i = 0; i < count; ++i)
        m_values->next(property.type);
}

std::uint64_t PlyReader::nextCount(PlyProperty const& property)
{
    double const count = m_values->next(property.countType);
    if (!(count >= 0 && count <= double(m_input.size())))
        throw m_values->error(
            FileError::tr("the length of the list '%1' is negative or longer than the file.")
                .arg(QString::fromStdString(property.name)));
    return std::uint64_t(count);
}

}  // namespace Formats

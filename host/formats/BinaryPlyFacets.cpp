// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/BinaryPlyFacets.h"

#include "host/formats/FileError.h"
#include "host/formats/MappedFile.h"
#include "host/formats/PlyHeader.h"
#include "host/formats/PlyValues.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

namespace Formats {
namespace {

constexpr std::size_t facesPerBatch = 4096;
/// After so many batches the pages of the vertices are given back, so that they do not count as
/// memory that is used.
constexpr std::uint64_t batchesPerRelease = 256;

template <typename Number>
float numberAt(std::byte const* place, bool isSwapped)
{
    std::array<std::byte, sizeof(Number)> bytes;
    std::memcpy(bytes.data(), place, sizeof(Number));
    if (isSwapped)
        std::ranges::reverse(bytes);
    return float(std::bit_cast<Number>(bytes));
}

FileError notInOnePass(InputFile const& input, QString const& reason)
{
    return FileError(input.path(),
                     FileError::tr("it cannot be cut while it is read: %1").arg(reason));
}

/// The vertices behind a header, where they lie in the file.
class VertexTable
{
public:
    VertexTable(InputFile const& input, PlyElement const& vertices, std::uint64_t offset,
                bool isSwapped)
        : m_file(input), m_offset(offset), m_count(vertices.count), m_isSwapped(isSwapped)
    {
        for (PlyProperty const& property : vertices.properties) {
            if (property.isList)
                throw notInOnePass(input, FileError::tr("its vertices have lists."));
            int const axis = axisOf(property);
            if (axis >= 0)
                m_axes[std::size_t(axis)] = {m_stride, property.type};
            m_stride += sizeOf(property.type);
        }
        for (Axis const& axis : m_axes)
            if (axis.type != PlyType::Float && axis.type != PlyType::Double)
                throw notInOnePass(
                    input,
                    FileError::tr("its vertices have no x, y and z of type float or double."));
        if (end() > input.size())
            throw FileError::atByte(
                input.path(), input.size(),
                FileError::tr("the file ends here, but what its header announces takes at least %1 "
                              "bytes behind the header; it is truncated.")
                    .arg(m_count * m_stride));
    }

    std::uint64_t count() const { return m_count; }
    std::uint64_t end() const { return m_offset + m_count * m_stride; }

    UPoint3<float> operator[](std::uint64_t vertex) const
    {
        std::byte const* const record = m_file.data() + m_offset + vertex * m_stride;
        UPoint3<float> point;
        for (int i = 0; i < 3; ++i) {
            Axis const& axis = m_axes[std::size_t(i)];
            point[i] = axis.type == PlyType::Float
                           ? numberAt<float>(record + axis.offset, m_isSwapped)
                           : numberAt<double>(record + axis.offset, m_isSwapped);
        }
        return point;
    }

    void release() { m_file.release(); }

private:
    struct Axis
    {
        std::size_t offset = 0;
        PlyType type = PlyType::Int8;
    };

    MappedFile m_file;
    std::uint64_t m_offset;
    std::uint64_t m_count;
    bool m_isSwapped;
    std::array<Axis, 3> m_axes;
    std::size_t m_stride = 0;
};

/// Goes over the faces one by one.
class FaceReader
{
public:
    FaceReader(PlyElement const& faces, VertexTable& vertices, PlyBinaryValues& values,
               TakeFacets const& take)
        : m_faces(faces), m_vertices(vertices), m_values(values), m_take(take)
    {
        m_facets.reserve(facesPerBatch);
    }

    void read()
    {
        for (std::uint64_t i = 0; i < m_faces.count; ++i) {
            for (PlyProperty const& property : m_faces.properties)
                holdsCorners(property) ? readCorners(property) : skip(property);
            if (m_facets.size() == facesPerBatch)
                handOn();
        }
        if (!m_facets.empty())
            handOn();
    }

private:
    void readCorners(PlyProperty const& property)
    {
        double const count = m_values.next(property.countType);
        if (count != 3)
            throw m_values.error(
                FileError::tr("a face has %1 corners, but only triangles can be cut while they are "
                              "read.")
                    .arg(count));
        Facet& facet = m_facets.emplace_back();
        for (UPoint3<float>& corner : facet)
            corner = m_vertices[checked(m_values.next(property.type))];
    }

    std::uint64_t checked(double index) const
    {
        if (!(index >= 0 && index < double(m_vertices.count())))
            throw m_values.error(
                FileError::tr(
                    "the face refers to vertex %1, but there are %2 vertices, counted from 0.")
                    .arg(std::int64_t(index))
                    .arg(m_vertices.count()));
        return std::uint64_t(index);
    }

    void skip(PlyProperty const& property)
    {
        double const count = property.isList ? m_values.next(property.countType) : 1;
        for (double i = 0; i < count; ++i)
            m_values.next(property.type);
    }

    void handOn()
    {
        m_take(m_facets);
        m_facets.clear();
        if (++m_batches % batchesPerRelease == 0)
            m_vertices.release();
    }

    PlyElement const& m_faces;
    VertexTable& m_vertices;
    PlyBinaryValues& m_values;
    TakeFacets const& m_take;
    std::vector<Facet> m_facets;
    std::uint64_t m_batches = 0;
};

}  // namespace

void readBinaryPlyFacets(InputFile& input, TakeFacets const& take)
{
    LineReader lines(input);
    PlyHeader const header = readPlyHeader(input, lines);
    auto const& elements = header.elements;
    if (header.encoding == PlyEncoding::Ascii)
        throw notInOnePass(input, FileError::tr("it is a PLY file of text."));
    if (elements.size() < 2 || elements[0].name != "vertex" || elements[1].name != "face" ||
        std::ranges::count_if(elements[1].properties, holdsCorners) != 1)
        throw notInOnePass(
            input, FileError::tr("it does not begin with vertices and, behind them, faces."));
    auto const order =
        header.encoding == PlyEncoding::BigEndian ? std::endian::big : std::endian::little;
    VertexTable vertices(input, elements[0], lines.offset(), order != std::endian::native);
    input.seek(vertices.end());
    PlyBinaryValues values(input, order);
    FaceReader(elements[1], vertices, values, take).read();
}

}  // namespace Formats

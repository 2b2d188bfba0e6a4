// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/OwnModelReader.h"

#include "host/formats/MemoryNeed.h"
#include "host/memory/RecordStock.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <unordered_map>

namespace Formats {
namespace {

/// What a triangle with its half vertex takes in the text, about.
constexpr std::uint64_t textBytesPerTriangle = 70;
constexpr std::size_t chunkBytes = 1 << 18;
/// No line of ours is longer, whatever the name in it.
constexpr std::size_t longestLine = 1 << 20;

/// Lets the reader leave from anywhere.
struct OtherShape
{
};

/// The lines of an entry.
class Lines
{
public:
    explicit Lines(ZipEntryStream& stream) : m_stream(stream) {}

    /// Without its end; valid until the next call. Throws OtherShape after the last line.
    std::string_view next()
    {
        for (;;) {
            char const* const start = m_buffer.data() + m_place;
            std::size_t const left = m_buffer.size() - m_place;
            if (auto const* const end = static_cast<char const*>(std::memchr(start, '\n', left))) {
                m_place += std::size_t(end - start) + 1;
                return {start, std::size_t(end - start)};
            }
            refill();
        }
    }

    /// Whether nothing is left.
    bool isAtEnd()
    {
        char rest;
        return m_place == m_buffer.size() && m_stream.read({&rest, 1}) == 0;
    }

private:
    void refill()
    {
        m_buffer.erase(0, m_place);
        m_place = 0;
        std::size_t const kept = m_buffer.size();
        if (kept > longestLine)
            throw OtherShape();
        m_buffer.resize(kept + chunkBytes);
        std::size_t const count = m_stream.read(std::span(m_buffer).subspan(kept));
        m_buffer.resize(kept + count);
        if (count == 0)
            throw OtherShape();
    }

    ZipEntryStream& m_stream;
    std::string m_buffer;
    std::size_t m_place = 0;
};

/// Before a record is made, so that there is a place in the list that will own it.
template <typename Record>
void growIfFull(std::vector<Record*>& list)
{
    if (list.size() == list.capacity())
        list.reserve(list.size() * 2 + 64);
}

/// One line, from left to right.
class Line
{
public:
    explicit Line(std::string_view text) : m_text(text) {}

    bool isEmpty() const { return m_text.empty(); }
    bool startsWith(std::string_view text) const { return m_text.starts_with(text); }

    Line& skip(std::string_view text)
    {
        if (!m_text.starts_with(text))
            throw OtherShape();
        m_text.remove_prefix(text.size());
        return *this;
    }

    template <typename Number>
    Number number()
    {
        Number value{};
        auto const [end, error] =
            std::from_chars(m_text.data(), m_text.data() + m_text.size(), value);
        if (error != std::errc())
            throw OtherShape();
        m_text.remove_prefix(std::size_t(end - m_text.data()));
        return value;
    }

    std::string_view until(char end)
    {
        std::size_t const place = m_text.find(end);
        if (place == m_text.npos)
            throw OtherShape();
        std::string_view const text = m_text.substr(0, place);
        m_text.remove_prefix(place);
        return text;
    }

private:
    std::string_view m_text;
};

class Model
{
public:
    explicit Model(ZipEntryStream& stream) : m_lines(stream) {}

    std::vector<OwnModelItem> read()
    {
        expect("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
        Line(m_lines.next()).skip("<model unit=\"millimeter\" xml:lang=\"en-US\"");
        expect(" <resources>");
        readResources();
        std::vector<OwnModelItem> items = readBuild();
        expect("</model>");
        if (!m_lines.isAtEnd())
            throw OtherShape();
        return items;
    }

private:
    void expect(std::string_view text)
    {
        if (m_lines.next() != text)
            throw OtherShape();
    }

    void readResources()
    {
        for (std::string_view text = m_lines.next(); text != " </resources>";
             text = m_lines.next()) {
            if (text.starts_with("  <basematerials ")) {
                while (m_lines.next().starts_with("   <base ")) {
                }
                continue;
            }
            auto const number = Line(text).skip("  <object id=\"").number<std::uint32_t>();
            expect("   <mesh>");
            auto kernel = std::make_shared<MeshKernel>();
            kernel->replaceMesh(readMesh());
            expect("   </mesh>");
            expect("  </object>");
            m_objects[number] = std::move(kernel);
        }
    }

    std::unique_ptr<UMesh<float>> readMesh()
    {
        auto mesh = std::make_unique<UMesh<float>>();
        expect("    <vertices>");
        readVertices(mesh->vertices);
        expect("    <triangles>");
        readTriangles(*mesh);
        mesh->vertexCount = std::uint32_t(mesh->vertices.size());
        mesh->triangleCount = std::uint32_t(mesh->triangles.size());
        return mesh;
    }

    void readVertices(std::vector<UVertex<float>*>& vertices)
    {
        for (std::string_view text = m_lines.next(); text != "    </vertices>";
             text = m_lines.next()) {
            Line line(text);
            float const x = line.skip("<vertex x=\"").number<float>();
            float const y = line.skip("\" y=\"").number<float>();
            float const z = line.skip("\" z=\"").number<float>();
            if (!line.skip("\"/>").isEmpty() || !std::isfinite(x + y + z))
                throw OtherShape();
            growIfFull(vertices);
            auto* const vertex = new (m_vertices.take()) UVertex<float>({x, y, z});
            vertex->ID() = vertices.size();
            vertices.push_back(vertex);
        }
    }

    void readTriangles(UMesh<float>& mesh)
    {
        auto& triangles = mesh.triangles;
        for (std::string_view text = m_lines.next(); text != "    </triangles>";
             text = m_lines.next()) {
            Line line(text);
            std::uint32_t const corners[] = {line.skip("<triangle v1=\"").number<std::uint32_t>(),
                                             line.skip("\" v2=\"").number<std::uint32_t>(),
                                             line.skip("\" v3=\"").number<std::uint32_t>()};
            if (!line.skip("\"/>").isEmpty() ||
                std::max({corners[0], corners[1], corners[2]}) >= mesh.vertices.size())
                throw OtherShape();
            growIfFull(triangles);
            auto* const triangle = new (m_triangles.take()) UTriangle<float>();
            for (int i = 0; i < 3; ++i)
                triangle->V0(i) = mesh.vertices[corners[i]];
            triangle->ID() = std::uint32_t(triangles.size());
            triangle->N() = triangle->ComputeNormalizedNormal();
            triangles.push_back(triangle);
        }
    }

    std::vector<OwnModelItem> readBuild()
    {
        std::vector<OwnModelItem> items;
        Line(m_lines.next()).skip(" <build ");
        for (std::string_view text = m_lines.next(); text != " </build>"; text = m_lines.next())
            items.push_back(readItem(Line(text)));
        return items;
    }

    OwnModelItem readItem(Line line)
    {
        auto const number = line.skip("  <item objectid=\"").number<std::uint32_t>();
        auto const object = m_objects.find(number);
        // An object that is placed twice is not ours.
        if (object == m_objects.end() || !object->second)
            throw OtherShape();
        OwnModelItem item;
        item.kernel = std::move(object->second);
        item.identifier = line.skip("\" p:UUID=\"").until('"');
        line.skip("\"");
        if (line.startsWith(" transform=\"")) {
            line.skip(" transform=\"");
            for (int column = 0; column < 4; ++column)
                for (int row = 0; row < 3; ++row)
                    item.kernel->getMatrix()(row, column) =
                        line.skip(column + row > 0 ? " " : "").number<float>();
            line.skip("\"");
        }
        if (!line.skip("/>").isEmpty())
            throw OtherShape();
        item.kernel->UpdateBoundingBox();
        return item;
    }

    Lines m_lines;
    RecordStock<UVertex<float>> m_vertices;
    RecordStock<UTriangle<float>> m_triangles;
    std::unordered_map<std::uint32_t, std::shared_ptr<MeshKernel>> m_objects;
};

}  // namespace

std::optional<std::vector<OwnModelItem>> readOwnModel(ZipEntryStream& model,
                                                      std::uint64_t modelBytes,
                                                      std::filesystem::path const& path)
{
    requireMemoryFor(modelBytes / textBytesPerTriangle, path);
    try {
        return Model(model).read();
    } catch (OtherShape const&) {
        return {};
    }
}

}  // namespace Formats

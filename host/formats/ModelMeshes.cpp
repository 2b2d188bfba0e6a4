// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ModelMeshes.h"

#include "host/formats/Decimals.h"
#include "host/formats/MemoryNeed.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace Formats {
namespace {

constexpr std::size_t chunkBytes = 1 << 18;
/// A tag of a vertex or triangle is not longer.
constexpr std::size_t longestTag = 1 << 12;
/// A model with that much beside its meshes is not one that is mostly meshes.
constexpr std::size_t longestRest = 1 << 26;
/// Readers of the format refuse coordinates beyond that.
constexpr float largestCoordinate = 1e9f;
/// What a triangle with its half vertex takes in a text with much blank space; what it takes in
/// memory is asked again once the triangles are counted.
constexpr std::uint64_t textBytesPerTriangle = 100;

/// Lets the scanner leave from anywhere.
struct Unusual
{
};

bool isBlank(char c)
{
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

/// A window on the text of an entry, which moves forward.
class Window
{
public:
    explicit Window(ZipEntryStream& stream) : m_stream(stream) {}

    std::string_view view() const { return std::string_view(m_buffer).substr(m_place); }
    void skip(std::size_t bytes) { m_place += bytes; }

    /// So many bytes are in view then, if the entry has them.
    void ensure(std::size_t bytes)
    {
        while (m_buffer.size() - m_place < bytes && grow())
            continue;
    }

    /// Lets more of the entry come into view; false at its end.
    bool grow()
    {
        if (m_isAtEnd)
            return false;
        m_buffer.erase(0, m_place);
        m_place = 0;
        std::size_t const kept = m_buffer.size();
        if (kept > longestRest)
            throw Unusual();
        m_buffer.resize(kept + chunkBytes);
        std::size_t const count = m_stream.read(std::span(m_buffer).subspan(kept));
        m_buffer.resize(kept + count);
        m_isAtEnd = count < chunkBytes;
        return count > 0;
    }

    /// Where a text begins in the view; the view grows until it is there. npos if it never comes.
    std::size_t find(std::string_view text)
    {
        for (std::size_t from = 0;;) {
            std::size_t const found = view().find(text, from);
            if (found != std::string_view::npos)
                return found;
            std::size_t const seen = view().size();
            from = seen - std::min(seen, text.size() - 1);
            if (!grow())
                return std::string_view::npos;
        }
    }

private:
    ZipEntryStream& m_stream;
    std::string m_buffer;
    std::size_t m_place = 0;
    bool m_isAtEnd = false;
};

/// One tag, from left to right.
class Tag
{
public:
    explicit Tag(std::string_view text) : m_place(text.data()), m_end(text.data() + text.size()) {}

    char const* place() const { return m_place; }

    void blanks()
    {
        while (m_place != m_end && isBlank(*m_place))
            ++m_place;
    }

    bool takes(std::string_view text)
    {
        if (std::size_t(m_end - m_place) < text.size() ||
            std::memcmp(m_place, text.data(), text.size()) != 0)
            return false;
        m_place += text.size();
        return true;
    }

    void expect(std::string_view text)
    {
        if (!takes(text))
            throw Unusual();
    }

    /// The name of the next attribute and what stands up to its value; empty at the tag's end.
    std::string_view attribute()
    {
        char const* const before = m_place;
        blanks();
        if (takes("/>"))
            return {};
        if (m_place == before)
            throw Unusual();
        char const* const name = m_place;
        while (m_place != m_end && *m_place != '=' && !isBlank(*m_place))
            ++m_place;
        std::string_view const text(name, std::size_t(m_place - name));
        expect("=");
        if (!takes("\"")) {
            expect("'");
            m_quote = '\'';
        } else {
            m_quote = '"';
        }
        return text;
    }

    static std::from_chars_result read(char const* first, char const* last, float& value)
    {
        return fromDecimal(first, last, value);
    }
    template <typename Number>
    static std::from_chars_result read(char const* first, char const* last, Number& value)
    {
        return std::from_chars(first, last, value);
    }

    template <typename Number>
    Number number()
    {
        Number value{};
        auto const [end, error] = read(m_place, m_end, value);
        if (error != std::errc())
            throw Unusual();
        m_place = end;
        endOfValue();
        return value;
    }

    /// A value that does not matter here.
    void anyValue()
    {
        while (m_place != m_end && *m_place != m_quote)
            if (*m_place == '<' || *m_place++ == '&')
                throw Unusual();
        endOfValue();
    }

private:
    void endOfValue() { expect({&m_quote, 1}); }

    char const* m_place;
    char const* m_end;
    char m_quote = '"';
};

UPoint3<float> vertexFrom(Tag& tag)
{
    UPoint3<float> point;
    unsigned seen = 0;
    for (std::string_view name = tag.attribute(); !name.empty(); name = tag.attribute()) {
        unsigned const axis = name.size() == 1 ? unsigned(name[0] - 'x') : 3;
        if (axis > 2) {
            tag.anyValue();
            continue;
        }
        if (seen & 1u << axis)
            throw Unusual();
        seen |= 1u << axis;
        float const value = tag.number<float>();
        if (!(std::abs(value) <= largestCoordinate))
            throw Unusual();
        point[int(axis)] = value;
    }
    if (seen != 7)
        throw Unusual();
    return point;
}

std::array<std::uint32_t, 3> triangleFrom(Tag& tag, std::size_t vertices)
{
    std::array<std::uint32_t, 3> corners{};
    unsigned seen = 0;
    for (std::string_view name = tag.attribute(); !name.empty(); name = tag.attribute()) {
        unsigned const corner = name.size() == 2 && name[0] == 'v' ? unsigned(name[1] - '1') : 3;
        if (corner > 2) {
            // Colours and what slicers paint on triangles.
            tag.anyValue();
            continue;
        }
        if (seen & 1u << corner)
            throw Unusual();
        seen |= 1u << corner;
        corners[corner] = tag.number<std::uint32_t>();
        if (corners[corner] >= vertices)
            throw Unusual();
    }
    auto const [a, b, c] = corners;
    if (seen != 7 || a == b || b == c || c == a)
        throw Unusual();
    return corners;
}

class MeshTaker
{
public:
    explicit MeshTaker(ZipEntryStream& stream) : m_window(stream) {}

    ModelWithoutMeshes take()
    {
        while (passToTag()) {
            std::string_view const text = m_window.view();
            if (text.starts_with(meshStart))
                takeMesh();
            else if (text.starts_with("<!--"))
                passThrough("-->");
            else if (text.starts_with("<?"))
                passThrough("?>");
            else if (text.starts_with("<!"))
                throw Unusual();
            else
                pass(1);
        }
        return std::move(m_model);
    }

private:
    static constexpr std::string_view meshStart = "<mesh>";

    void pass(std::size_t bytes)
    {
        if (m_model.text.size() + bytes > longestRest)
            throw Unusual();
        m_model.text.append(m_window.view(), 0, bytes);
        m_window.skip(bytes);
    }

    /// False at the end of the text.
    bool passToTag()
    {
        std::size_t const found = m_window.find("<");
        bool const isThere = found != std::string_view::npos;
        pass(isThere ? found : m_window.view().size());
        m_window.ensure(meshStart.size());
        return isThere;
    }

    void passThrough(std::string_view end)
    {
        std::size_t const found = m_window.find(end);
        if (found == std::string_view::npos)
            throw Unusual();
        pass(found + end.size());
    }

    void takeMesh()
    {
        m_window.skip(meshStart.size());
        ModelMesh mesh;
        takeTag("<vertices>");
        while (tagStarts("<vertex")) {
            Tag tag(m_window.view());
            tag.expect("<vertex");
            mesh.vertices.push_back(vertexFrom(tag));
            skipTo(tag);
        }
        takeTag("</vertices>");
        takeTag("<triangles>");
        while (tagStarts("<triangle")) {
            Tag tag(m_window.view());
            tag.expect("<triangle");
            mesh.triangles.push_back(triangleFrom(tag, mesh.vertices.size()));
            skipTo(tag);
        }
        takeTag("</triangles>");
        takeTag("</mesh>");
        m_model.text += "<mesh><vertices><vertex x=\"" + std::to_string(m_model.meshes.size()) +
                        "\" y=\"0\" z=\"0\"/></vertices><triangles></triangles></mesh>";
        m_model.meshes.push_back(std::move(mesh));
    }

    /// Behind blanks; what follows the tag's name is in view.
    bool tagStarts(std::string_view start)
    {
        for (;;) {
            if (m_window.view().size() < longestTag)
                m_window.ensure(longestTag);
            std::string_view const text = m_window.view();
            std::size_t blanks = 0;
            while (blanks < text.size() && isBlank(text[blanks]))
                ++blanks;
            m_window.skip(blanks);
            if (blanks == 0 || blanks < text.size())
                break;
        }
        if (m_window.view().size() < longestTag)
            m_window.ensure(longestTag);
        return m_window.view().starts_with(start);
    }

    void takeTag(std::string_view tag)
    {
        if (!tagStarts(tag))
            throw Unusual();
        m_window.skip(tag.size());
    }

    void skipTo(Tag const& tag)
    {
        m_window.skip(std::size_t(tag.place() - m_window.view().data()));
    }

    Window m_window;
    ModelWithoutMeshes m_model;
};

}  // namespace

std::optional<ModelWithoutMeshes> takeMeshesOut(InputFile& input, ZipReader::Entry const& model)
{
    requireMemoryFor(model.size / textBytesPerTriangle, input.path());
    ZipEntryStream stream(input, model);
    try {
        return MeshTaker(stream).take();
    } catch (Unusual const&) {
        return {};
    }
}

std::optional<std::size_t> placeOfMesh(ModelWithoutMeshes const& model, std::size_t vertexCount,
                                       std::size_t triangleCount, UPoint3<float> const& firstVertex)
{
    // No mesh that was left has one vertex alone: it could have no triangle.
    if (vertexCount != 1 || triangleCount != 0 || !(firstVertex.X() >= 0) ||
        firstVertex.X() >= float(model.meshes.size()))
        return {};
    return std::size_t(firstVertex.X());
}

}  // namespace Formats

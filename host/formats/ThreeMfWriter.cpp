// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ThreeMfWriter.h"

#include "host/formats/MeshSource.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>

namespace Formats {
namespace {

/// The share of the progress that goes to filling the library's model.
constexpr int percentForFilling = 30;

/// What an entry of the package is identified by. The library would draw identifiers by chance, and
/// then the same parts would never give the same file.
enum class Entry : unsigned
{
    Build = 1,
    Object = 2,
    Item = 3
};

std::string identifier(Entry entry, std::size_t place)
{
    std::array<char, 40> text;
    std::snprintf(text.data(), text.size(), "%08x-0000-4000-8000-%012zx", unsigned(entry), place);
    return text.data();
}

/// Takes the package in memory, where writing can only fail for lack of it. The library must not be
/// told of a failure: it would throw from a destructor, which ends the process.
class PackageSink
{
public:
    static DWORD write(BYTE* bytes, DWORD count, void* self)
    {
        static_cast<PackageSink*>(self)->put({reinterpret_cast<char const*>(bytes), count});
        return success;
    }
    static DWORD seek(ULONG64 position, void* self)
    {
        static_cast<PackageSink*>(self)->m_position = position;
        return success;
    }

    std::string const& content() const { return m_content; }
    void rethrow() const
    {
        if (m_thrown)
            std::rethrow_exception(m_thrown);
    }

private:
    void put(std::string_view bytes)
    {
        try {
            m_content.resize(std::max(m_content.size(), m_position + bytes.size()));
            std::ranges::copy(bytes, m_content.begin() + std::ptrdiff_t(m_position));
        } catch (...) {
            m_thrown = std::current_exception();
        }
        m_position += bytes.size();
    }

    static constexpr DWORD success = 0;

    std::string m_content;
    std::size_t m_position = 0;
    std::exception_ptr m_thrown;
};

}  // namespace

ThreeMfWriter::ThreeMfWriter(OutputFile& output, Progress const& progress)
    : m_output(output), m_progress(progress)
{}

void ThreeMfWriter::write(std::span<NamedMesh const> parts)
{
    PointLocale const pointLocale;
    check(NMR::lib3mf_createmodel(m_model.out()), m_model);
    check(NMR::lib3mf_model_setunit(m_model.get(), NMR::MODELUNIT_MILLIMETER), m_model);
    check(NMR::lib3mf_model_setbuilduuidutf8(m_model.get(), identifier(Entry::Build, 0).c_str()),
          m_model);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (m_progress)
            m_progress(int(i * percentForFilling / parts.size()));
        addPart(parts[i], i);
    }
    writePackage();
}

void ThreeMfWriter::addPart(NamedMesh const& part, std::size_t place)
{
    ThreeMfHandle object;
    check(NMR::lib3mf_model_addmeshobject(m_model.get(), object.out()), m_model);
    check(NMR::lib3mf_object_setnameutf8(object.get(), part.name.c_str()), object);
    check(NMR::lib3mf_object_setuuidutf8(object.get(), identifier(Entry::Object, place).c_str()),
          object);
    fillMesh(object, *part.kernel);
    ThreeMfHandle item;
    check(NMR::lib3mf_model_addbuilditem(m_model.get(), object.get(), nullptr, item.out()),
          m_model);
    check(NMR::lib3mf_builditem_setuuidutf8(item.get(), identifier(Entry::Item, place).c_str()),
          item);
}

void ThreeMfWriter::fillMesh(ThreeMfHandle const& object, MeshKernel const& kernel)
{
    MeshSource mesh(kernel);
    mesh.numberVertices();
    for (std::size_t i = 0; i < mesh.vertexCount(); ++i) {
        UPoint3<float> const p = mesh.point(i);
        NMR::MODELMESHVERTEX vertex{{p.X(), p.Y(), p.Z()}};
        check(NMR::lib3mf_meshobject_addvertex(object.get(), &vertex, nullptr), object);
    }
    // Reported here, since a cancel must not wait for a mesh of millions.
    StepProgress steps(m_progress, mesh.triangleCount() * 100 / percentForFilling);
    for (std::size_t i = 0; i < mesh.triangleCount(); ++i) {
        steps.step();
        auto const [a, b, c] = mesh.indices(i);
        NMR::MODELMESHTRIANGLE triangle{{a, b, c}};
        check(NMR::lib3mf_meshobject_addtriangle(object.get(), &triangle, nullptr), object);
    }
}

void ThreeMfWriter::writePackage()
{
    ThreeMfHandle writer;
    check(NMR::lib3mf_model_querywriter(m_model.get(), MODELWRITERCLASS_3MF, writer.out()),
          m_model);
    ThreeMfProgress progress(m_progress, percentForFilling, 99);
    check(NMR::lib3mf_writer_setprogresscallback(writer.get(), &ThreeMfProgress::report, &progress),
          writer);
    PackageSink sink;
    auto const result = NMR::lib3mf_writer_writetocallback(
        writer.get(), reinterpret_cast<void*>(&PackageSink::write),
        reinterpret_cast<void*>(&PackageSink::seek), &sink);
    progress.rethrow();
    sink.rethrow();
    check(result, writer);
    m_output.write(sink.content());
}

void ThreeMfWriter::check(LIB3MFRESULT result, ThreeMfHandle const& object) const
{
    if (result != 0)
        throw FileError(m_output.path(), "the 3MF library reports: " + lastThreeMfError(object));
}

}  // namespace Formats

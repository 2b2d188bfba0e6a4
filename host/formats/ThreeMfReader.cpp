// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ThreeMfReader.h"

#include "host/formats/MemoryNeed.h"

#include <algorithm>
#include <array>

namespace Formats {
namespace {

/// Deeper assemblies, and more placements, are taken for a file that is meant to do harm.
constexpr int deepestAssembly = 64;
constexpr std::size_t mostParts = 100000;

}  // namespace

ThreeMfReader::ThreeMfReader(InputFile const& input, std::string const& defaultName,
                             Progress const& progress)
    : m_input(input), m_defaultName(defaultName)
{
    if (progress)
        m_progress = [&progress, told = 0](int percent) mutable {
            told = std::max(told, percent);
            progress(told);
        };
}

std::vector<LoadedPart> ThreeMfReader::read()
{
    PointLocale const pointLocale;
    load();
    Placement const scale = unitScale();
    forEachItem([&](ThreeMfHandle const& item) { readBuildItem(item, scale); });
    if (m_parts.empty())
        throw FileError(m_input.path(),
                        FileError::tr("its build places no mesh; at least one was expected."));
    return std::move(m_parts);
}

void ThreeMfReader::forEachItem(std::function<void(ThreeMfHandle const&)> const& visit) const
{
    ThreeMfHandle items;
    check(NMR::lib3mf_model_getbuilditems(m_model.get(), items.out()), m_model);
    for (;;) {
        BOOL hasNext = 0;
        check(NMR::lib3mf_builditemiterator_movenext(items.get(), &hasNext), items);
        if (!hasNext)
            break;
        ThreeMfHandle item;
        check(NMR::lib3mf_builditemiterator_getcurrent(items.get(), item.out()), items);
        visit(item);
    }
}

void ThreeMfReader::load()
{
    InputFile content(m_input.path(), [&](int percent) {
        if (m_progress)
            m_progress(percent * percentForLoading / 100);
    });
    m_light = readLightPackage(content);
    if (m_light)
        loadLight();
    else
        loadByLibrary([&](ThreeMfHandle const& reader) {
            return NMR::lib3mf_reader_readfromfileutf8(reader.get(), m_input.path().c_str());
        });
}

void ThreeMfReader::loadLight()
{
    for (ModelMesh const& mesh : m_light->model.meshes)
        m_meshSteps += mesh.vertices.size() + mesh.triangles.size();
    std::string bytes = std::move(m_light->bytes);
    loadByLibrary([&](ThreeMfHandle const& reader) {
        return NMR::lib3mf_reader_readfrombuffer(
            reader.get(), reinterpret_cast<BYTE*>(bytes.data()), bytes.size());
    });
}

void ThreeMfReader::loadByLibrary(
    std::function<LIB3MFRESULT(ThreeMfHandle const& reader)> const& read)
{
    check(NMR::lib3mf_createmodel(m_model.out()), m_model);
    ThreeMfHandle reader;
    check(NMR::lib3mf_model_queryreader(m_model.get(), MODELREADERCLASS_3MF, reader.out()),
          m_model);
    check(NMR::lib3mf_reader_addrelationtoreadutf8(reader.get(), projectRelationship), reader);
    ThreeMfProgress progress(m_progress, 0, percentForLoading);
    check(NMR::lib3mf_reader_setprogresscallback(reader.get(), &ThreeMfProgress::report, &progress),
          reader);
    auto const result = read(reader);
    progress.rethrow();
    if (result != 0)
        throw FileError(
            m_input.path(),
            FileError::tr("a complete 3MF package was expected, but the 3MF library reports: %1")
                .arg(lastThreeMfError(reader)));
}

double ThreeMfReader::millimetresPerUnit() const
{
    DWORD unit = NMR::MODELUNIT_MILLIMETER;
    check(NMR::lib3mf_model_getunit(m_model.get(), &unit), m_model);
    switch (unit) {
        case NMR::MODELUNIT_MICROMETER:
            return 0.001;
        case NMR::MODELUNIT_CENTIMETER:
            return 10;
        case NMR::MODELUNIT_INCH:
            return 25.4;
        case NMR::MODELUNIT_FOOT:
            return 304.8;
        case NMR::MODELUNIT_METER:
            return 1000;
        default:
            return 1;
    }
}

ThreeMfReader::Placement ThreeMfReader::unitScale() const
{
    Placement scale;
    for (int i = 0; i < 3; ++i)
        scale.m[i][i] = millimetresPerUnit();
    return scale;
}

void ThreeMfReader::readBuildItem(ThreeMfHandle const& item, Placement const& scale)
{
    NMR::MODELTRANSFORM transform{};
    BOOL hasTransform = 0;
    check(NMR::lib3mf_builditem_hasobjecttransform(item.get(), &hasTransform), item);
    Placement placement = scale;
    if (hasTransform) {
        check(NMR::lib3mf_builditem_getobjecttransform(item.get(), &transform), item);
        placement = combined(scale, placementFrom(transform));
    }
    ThreeMfHandle object;
    check(NMR::lib3mf_builditem_getobjectresource(item.get(), object.out()), item);
    readObject(object, placement, m_defaultName, 0);
}

void ThreeMfReader::readObject(ThreeMfHandle const& object, Placement const& placement,
                               std::string const& outerName, int depth)
{
    if (depth > deepestAssembly)
        throw FileError(m_input.path(),
                        FileError::tr("its components are nested more than 64 deep."));
    std::string const ownName = nameOf(object);
    std::string const name = ownName.empty() ? outerName : ownName;
    BOOL isMesh = 0;
    check(NMR::lib3mf_object_ismeshobject(object.get(), &isMesh), object);
    if (isMesh)
        readMesh(object, placement, name);
    else
        readComponents(object, placement, name, depth);
}

void ThreeMfReader::readComponents(ThreeMfHandle const& components, Placement const& placement,
                                   std::string const& name, int depth)
{
    DWORD count = 0;
    check(NMR::lib3mf_componentsobject_getcomponentcount(components.get(), &count), components);
    for (DWORD i = 0; i < count; ++i) {
        ThreeMfHandle component;
        check(NMR::lib3mf_componentsobject_getcomponent(components.get(), i, component.out()),
              components);
        NMR::MODELTRANSFORM transform{};
        check(NMR::lib3mf_component_gettransform(component.get(), &transform), component);
        ThreeMfHandle object;
        check(NMR::lib3mf_component_getobjectresource(component.get(), object.out()), component);
        readObject(object, combined(placement, placementFrom(transform)), name, depth + 1);
    }
}

ModelMesh const& ThreeMfReader::meshOf(ThreeMfHandle const& object, ModelMesh& room) const
{
    DWORD vertexCount = 0;
    DWORD triangleCount = 0;
    check(NMR::lib3mf_meshobject_getvertexcount(object.get(), &vertexCount), object);
    check(NMR::lib3mf_meshobject_gettrianglecount(object.get(), &triangleCount), object);
    requireMemoryFor(triangleCount, m_input.path());
    room.vertices.reserve(vertexCount);
    for (DWORD i = 0; i < vertexCount; ++i) {
        NMR::MODELMESHVERTEX vertex;
        check(NMR::lib3mf_meshobject_getvertex(object.get(), i, &vertex), object);
        auto const [x, y, z] = vertex.m_fPosition;
        room.vertices.emplace_back(x, y, z);
    }
    if (m_light && vertexCount > 0)
        if (auto const place =
                placeOfMesh(m_light->model, vertexCount, triangleCount, room.vertices[0]))
            return m_light->model.meshes[*place];
    room.triangles.reserve(triangleCount);
    for (DWORD i = 0; i < triangleCount; ++i) {
        NMR::MODELMESHTRIANGLE triangle;
        check(NMR::lib3mf_meshobject_gettriangle(object.get(), i, &triangle), object);
        auto const [a, b, c] = triangle.m_nIndices;
        room.triangles.push_back({a, b, c});
    }
    requireCornersInRange(object, room);
    return room;
}

void ThreeMfReader::requireCornersInRange(ThreeMfHandle const& object, ModelMesh const& mesh) const
{
    for (std::size_t i = 0; i < mesh.triangles.size(); ++i) {
        std::uint32_t const largest = std::ranges::max(mesh.triangles[i]);
        if (largest >= mesh.vertices.size())
            throw FileError(
                m_input.path(),
                FileError::tr(
                    "triangle %1 of the object '%4' refers to vertex %2, but there are %3.")
                    .arg(i)
                    .arg(largest)
                    .arg(mesh.vertices.size())
                    .arg(QString::fromStdString(nameOf(object))));
    }
}

void ThreeMfReader::readMesh(ThreeMfHandle const& object, Placement const& placement,
                             std::string const& name)
{
    ModelMesh room;
    ModelMesh const& mesh = meshOf(object, room);
    if (m_parts.size() >= mostParts)
        throw FileError(m_input.path(), FileError::tr("its build places more than 100000 meshes."));
    requireMemoryFor(mesh.triangles.size(), m_input.path());

    MeshBuilder builder(mesh.triangles.size(), mesh.vertices.size());
    builder.allowUnusedPoints();
    std::vector<UVertex<float>*> const vertices = joinVertices(builder, mesh, placement, name);
    bool const isReflected = placement.isReflection();
    for (auto [a, b, c] : mesh.triangles) {
        tellMeshStep();
        // A reflection turns the surface inside out unless the corners are taken the other way
        // round.
        if (isReflected)
            std::swap(b, c);
        builder.addTriangle(vertices[a], vertices[b], vertices[c]);
    }
    if (!builder.isEmpty())
        m_parts.push_back({uniqueName(name), builder.finish(), colorOf(object), isSupport(object)});
}

std::vector<UVertex<float>*> ThreeMfReader::joinVertices(MeshBuilder& builder,
                                                         ModelMesh const& mesh,
                                                         Placement const& placement,
                                                         std::string const& name)
{
    constexpr std::size_t batchSize = 1024;
    std::vector<UVertex<float>*> vertices(mesh.vertices.size());
    std::array<UPoint3<float>, batchSize> moved;
    for (std::size_t done = 0; done < vertices.size(); done += batchSize) {
        std::size_t const count = std::min(batchSize, vertices.size() - done);
        for (std::size_t i = 0; i < count; ++i) {
            tellMeshStep();
            moved[i] = placement.applied(mesh.vertices[done + i]);
        }
        std::size_t const joined =
            builder.points().join(std::span(moved).first(count), &vertices[done]);
        if (joined < count)
            throw FileError(m_input.path(),
                            FileError::tr("a coordinate of vertex %1 of the object '%2' is not a "
                                          "finite number in the range of single precision.")
                                .arg(done + joined)
                                .arg(QString::fromStdString(name)));
    }
    return vertices;
}

void ThreeMfReader::tellMeshStep()
{
    constexpr std::uint64_t stepsPerReport = 1 << 15;
    if (m_meshStepsDone++ % stepsPerReport != 0 || !m_progress)
        return;
    // A mesh may be placed several times, so there may be more steps than were counted.
    std::uint64_t const done = std::min(m_meshStepsDone, m_meshSteps);
    int const percent = m_meshSteps == 0 ? 0 : int((99 - percentForLoading) * done / m_meshSteps);
    m_progress(percentForLoading + percent);
}

bool ThreeMfReader::isSupport(ThreeMfHandle const& object) const
{
    DWORD type = NMR::MODELOBJECTTYPE_MODEL;
    check(NMR::lib3mf_object_gettype(object.get(), &type), object);
    return type == NMR::MODELOBJECTTYPE_SUPPORT;
}

unsigned ThreeMfReader::colorOf(ThreeMfHandle const& object) const
{
    ThreeMfHandle properties;
    check(NMR::lib3mf_object_createdefaultpropertyhandler(object.get(), properties.out()), object);
    NMR::eModelPropertyType type = NMR::MODELPROPERTYTYPE_NONE;
    check(NMR::lib3mf_defaultpropertyhandler_getpropertytype(properties.get(), &type), properties);
    std::array<BYTE, 4> rgba{};
    if (type == NMR::MODELPROPERTYTYPE_BASEMATERIALS) {
        DWORD group = 0;
        DWORD index = 0;
        check(NMR::lib3mf_defaultpropertyhandler_getbasematerial(properties.get(), &group, &index),
              properties);
        ThreeMfHandle material;
        check(NMR::lib3mf_model_getbasematerialbyid(m_model.get(), group, material.out()), m_model);
        check(NMR::lib3mf_basematerial_getdisplaycolor(material.get(), index, &rgba[0], &rgba[1],
                                                       &rgba[2], &rgba[3]),
              material);
    } else if (type == NMR::MODELPROPERTYTYPE_COLOR) {
        NMR::MODELMESHCOLOR_SRGB color{};
        check(NMR::lib3mf_defaultpropertyhandler_getcolor(properties.get(), 0, &color), properties);
        rgba = {color.m_Red, color.m_Green, color.m_Blue, color.m_Alpha};
    }
    return unsigned(rgba[0]) << 24 | unsigned(rgba[1]) << 16 | unsigned(rgba[2]) << 8 | rgba[3];
}

std::string ThreeMfReader::nameOf(ThreeMfHandle const& object) const
{
    ULONG length = 0;
    check(NMR::lib3mf_object_getnameutf8(object.get(), nullptr, 0, &length), object);
    std::string name(length + 1, '\0');
    check(NMR::lib3mf_object_getnameutf8(object.get(), name.data(), ULONG(name.size()), &length),
          object);
    name.resize(std::char_traits<char>::length(name.c_str()));
    return name;
}

std::string ThreeMfReader::uniqueName(std::string const& name) const
{
    std::string candidate = name;
    for (int i = 2; std::ranges::find(m_parts, candidate, &LoadedPart::name) != m_parts.end(); ++i)
        candidate = name + " " + std::to_string(i);
    return candidate;
}

UPoint3<float> ThreeMfReader::Placement::applied(UPoint3<float> const& p) const
{
    UPoint3<float> moved;
    for (int row = 0; row < 3; ++row)
        moved[row] = float(m[row][0] * p.X() + m[row][1] * p.Y() + m[row][2] * p.Z() + m[row][3]);
    return moved;
}

bool ThreeMfReader::Placement::isReflection() const
{
    return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
               m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
               m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]) <
           0;
}

ThreeMfReader::Placement ThreeMfReader::placementFrom(NMR::MODELTRANSFORM const& transform)
{
    Placement placement;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            placement.m[row][column] = transform.m_fFields[row][column];
    return placement;
}

ThreeMfReader::Placement ThreeMfReader::combined(Placement const& outer, Placement const& inner)
{
    Placement product;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column) {
            double sum = column == 3 ? outer.m[row][3] : 0;
            for (int k = 0; k < 3; ++k)
                sum += outer.m[row][k] * inner.m[k][column];
            product.m[row][column] = sum;
        }
    return product;
}

void ThreeMfReader::check(LIB3MFRESULT result, ThreeMfHandle const& object) const
{
    if (result != 0)
        throw FileError(m_input.path(),
                        FileError::tr("the 3MF library reports: %1").arg(lastThreeMfError(object)));
}

}  // namespace Formats

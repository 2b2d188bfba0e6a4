// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ThreeMfReader.h"

#include "host/formats/MemoryNeed.h"
#include "host/formats/MeshBuilder.h"

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
    : m_input(input), m_defaultName(defaultName), m_progress(progress)
{}

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
    check(NMR::lib3mf_createmodel(m_model.out()), m_model);
    ThreeMfHandle reader;
    check(NMR::lib3mf_model_queryreader(m_model.get(), MODELREADERCLASS_3MF, reader.out()),
          m_model);
    check(NMR::lib3mf_reader_addrelationtoreadutf8(reader.get(), projectRelationship), reader);
    ThreeMfProgress progress(m_progress, 0, percentForLoading);
    check(NMR::lib3mf_reader_setprogresscallback(reader.get(), &ThreeMfProgress::report, &progress),
          reader);
    auto const result = NMR::lib3mf_reader_readfromfileutf8(reader.get(), m_input.path().c_str());
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

void ThreeMfReader::readMesh(ThreeMfHandle const& mesh, Placement const& placement,
                             std::string const& name)
{
    DWORD vertexCount = 0;
    DWORD triangleCount = 0;
    check(NMR::lib3mf_meshobject_getvertexcount(mesh.get(), &vertexCount), mesh);
    check(NMR::lib3mf_meshobject_gettrianglecount(mesh.get(), &triangleCount), mesh);
    if (m_parts.size() >= mostParts)
        throw FileError(m_input.path(), FileError::tr("its build places more than 100000 meshes."));
    requireMemoryFor(triangleCount, m_input.path());
    if (m_progress)
        m_progress(percentForLoading);

    MeshBuilder builder(triangleCount, vertexCount);
    builder.allowUnusedPoints();
    auto const& m = placement.m;
    std::vector<UVertex<float>*> vertices(vertexCount);
    for (DWORD i = 0; i < vertexCount; ++i) {
        NMR::MODELMESHVERTEX vertex;
        check(NMR::lib3mf_meshobject_getvertex(mesh.get(), i, &vertex), mesh);
        float const* const p = vertex.m_fPosition;
        UPoint3<float> moved;
        for (int row = 0; row < 3; ++row)
            moved[row] = float(m[row][0] * p[0] + m[row][1] * p[1] + m[row][2] * p[2] + m[row][3]);
        vertices[i] = builder.points().join(moved);
        if (!vertices[i])
            throw FileError(m_input.path(),
                            FileError::tr("a coordinate of vertex %1 of the object '%2' is not a "
                                          "finite number in the range of single precision.")
                                .arg(i)
                                .arg(QString::fromStdString(name)));
    }
    // A reflection turns the surface inside out unless the corners are taken the other way round.
    bool const isReflected = m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
                                 m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
                                 m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]) <
                             0;
    for (DWORD i = 0; i < triangleCount; ++i) {
        NMR::MODELMESHTRIANGLE triangle;
        check(NMR::lib3mf_meshobject_gettriangle(mesh.get(), i, &triangle), mesh);
        auto [a, b, c] = triangle.m_nIndices;
        if (std::max({a, b, c}) >= vertexCount)
            throw FileError(
                m_input.path(),
                FileError::tr(
                    "triangle %1 of the object '%4' refers to vertex %2, but there are %3.")
                    .arg(i)
                    .arg(std::max({a, b, c}))
                    .arg(vertexCount)
                    .arg(QString::fromStdString(name)));
        if (isReflected)
            std::swap(b, c);
        builder.addTriangle(vertices[a], vertices[b], vertices[c]);
    }
    if (!builder.isEmpty())
        m_parts.push_back({uniqueName(name), builder.finish(), colorOf(mesh), isSupport(mesh)});
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

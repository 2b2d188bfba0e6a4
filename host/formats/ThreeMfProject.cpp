// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/MemoryNeed.h"
#include "host/formats/ThreeMfReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

// The side of the reader that knows projects.
namespace Formats {
namespace {

std::string const projectPath = std::string("/") + projectEntryName;

UMatrix4<float> matrixFrom(NMR::MODELTRANSFORM const& transform)
{
    UMatrix4<float> matrix;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            matrix(row, column) = transform.m_fFields[row][column];
    return matrix;
}

}  // namespace

std::vector<ProjectObject> ThreeMfReader::readProject()
{
    PointLocale const pointLocale;
    load();
    std::string const text = projectText();
    std::vector<ProjectEntry> entries;
    if (!text.empty())
        entries = parseProjectXml(text, m_input.path());
    std::unordered_map<std::string, ProjectObject*> byItem;
    for (ProjectEntry& entry : entries)
        if (!entry.item.empty() && entry.object.kind == ProjectObject::Kind::Part)
            byItem.emplace(entry.item, &entry.object);

    Placement const scale = unitScale();
    bool const isMillimetres = millimetresPerUnit() == 1;
    forEachItem([&](ThreeMfHandle const& item) {
        auto const found = byItem.find(itemIdentifier(item));
        if (isMillimetres && found != byItem.end() && !found->second->kernel)
            found->second->kernel = readPlain(item);
        if (found == byItem.end() || !found->second->kernel)
            readBuildItem(item, scale);
    });

    std::vector<ProjectObject> objects = completeObjects(std::move(entries));
    appendOtherParts(objects);
    if (objects.empty() && text.empty())
        throw FileError(m_input.path(),
                        FileError::tr("its build places no mesh; at least one was expected."));
    return objects;
}

void ThreeMfReader::appendOtherParts(std::vector<ProjectObject>& objects)
{
    for (LoadedPart& part : m_parts) {
        ProjectObject object;
        object.name = std::move(part.name);
        object.color = part.color;
        object.isSupport = part.isSupport;
        object.kernel = std::move(part.kernel);
        objects.push_back(std::move(object));
    }
}

std::string ThreeMfReader::projectText() const
{
    ThreeMfHandle attachment;
    std::string path = projectPath;
    // Not to be there is what the library calls a failure.
    if (NMR::lib3mf_model_findattachmentutf8(m_model.get(), path.data(), attachment.out()) != 0)
        return {};
    ULONG64 size = 0;
    check(NMR::lib3mf_attachment_getstreamsize(attachment.get(), &size), attachment);
    std::string text(size, '\0');
    check(NMR::lib3mf_attachment_writetobuffer(attachment.get(),
                                               reinterpret_cast<BYTE*>(text.data()), size),
          attachment);
    return text;
}

std::string ThreeMfReader::itemIdentifier(ThreeMfHandle const& item) const
{
    // The library asks for room for an identifier and its end; more does no harm.
    std::array<char, 64> text{};
    BOOL hasIdentifier = 0;
    check(NMR::lib3mf_builditem_getuuidutf8(item.get(), &hasIdentifier, text.data()), item);
    return hasIdentifier ? text.data() : std::string();
}

std::shared_ptr<MeshKernel> ThreeMfReader::readPlain(ThreeMfHandle const& item)
{
    ThreeMfHandle object;
    check(NMR::lib3mf_builditem_getobjectresource(item.get(), object.out()), item);
    BOOL isMesh = 0;
    check(NMR::lib3mf_object_ismeshobject(object.get(), &isMesh), object);
    if (!isMesh)
        return nullptr;
    auto kernel = std::make_shared<MeshKernel>();
    kernel->replaceMesh(readRecords(object));
    BOOL hasTransform = 0;
    check(NMR::lib3mf_builditem_hasobjecttransform(item.get(), &hasTransform), item);
    if (hasTransform) {
        NMR::MODELTRANSFORM transform{};
        check(NMR::lib3mf_builditem_getobjecttransform(item.get(), &transform), item);
        kernel->getMatrix() = matrixFrom(transform);
    }
    kernel->UpdateBoundingBox();
    return kernel;
}

std::unique_ptr<UMesh<float>> ThreeMfReader::readRecords(ThreeMfHandle const& object)
{
    ModelMesh room;
    ModelMesh const& source = meshOf(object, room);
    requireMemoryFor(source.triangles.size(), m_input.path());
    auto mesh = std::make_unique<UMesh<float>>();
    addVertices(*mesh, source);
    addTriangles(*mesh, source);
    mesh->UpdateVertsID();
    mesh->UpdateTrisID();
    return mesh;
}

void ThreeMfReader::addVertices(UMesh<float>& mesh, ModelMesh const& source)
{
    mesh.vertices.reserve(source.vertices.size());
    for (UPoint3<float> const& point : source.vertices) {
        tellMeshStep();
        if (!std::isfinite(point.X()) || !std::isfinite(point.Y()) || !std::isfinite(point.Z()))
            throw FileError(m_input.path(),
                            FileError::tr("a coordinate of vertex %1 is not a finite number.")
                                .arg(mesh.vertices.size()));
        mesh.AddVertex(new UVertex<float>(point));
    }
}

void ThreeMfReader::addTriangles(UMesh<float>& mesh, ModelMesh const& source)
{
    mesh.triangles.reserve(source.triangles.size());
    for (auto const& corners : source.triangles) {
        tellMeshStep();
        auto* const triangle = new UTriangle<float>();
        mesh.AddTriangle(triangle);
        for (int corner = 0; corner < 3; ++corner)
            triangle->V0(corner) = mesh.vertices[corners[std::size_t(corner)]];
        triangle->N() = triangle->ComputeNormalizedNormal();
    }
}

}  // namespace Formats

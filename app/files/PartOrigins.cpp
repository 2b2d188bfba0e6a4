// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/PartOrigins.h"

namespace {

std::shared_ptr<UMesh<float> const> meshOf(Mesh::DocumentObject const& part)
{
    MeshKernel const* const kernel = part.meshProperty->getMesh();
    return kernel ? kernel->readMesh() : nullptr;
}

}  // namespace

void PartOrigins::remember(Mesh::DocumentObject const& part, PartOrigin const& origin)
{
    std::erase_if(m_entries, [](auto const& item) { return item.second.mesh.expired(); });
    if (auto const mesh = meshOf(part))
        m_entries[mesh.get()] = {mesh, origin};
}

PartOrigin const* PartOrigins::of(Mesh::DocumentObject const& part) const
{
    auto const mesh = meshOf(part);
    auto const place = m_entries.find(mesh.get());
    return mesh && place != m_entries.end() && place->second.mesh.lock() == mesh
               ? &place->second.origin
               : nullptr;
}

void PartOrigins::accept(QString const& file, std::optional<FileStamp> stamp)
{
    for (auto& [mesh, entry] : m_entries)
        if (entry.origin.file == file)
            entry.origin.stamp = stamp;
}

std::map<QString, std::optional<FileStamp>> PartOrigins::filesOf(
    std::vector<Mesh::DocumentObject*> const& parts) const
{
    std::map<QString, std::optional<FileStamp>> files;
    for (Mesh::DocumentObject const* const part : parts)
        if (PartOrigin const* const origin = of(*part))
            files[origin->file] = origin->stamp;
    return files;
}

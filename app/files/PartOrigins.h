// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/files/ProjectGuard.h"
#include "platform/document/MeshDocumentObject.h"

#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

/// Where a mesh was read from.
struct PartOrigin
{
    /// An absolute path, and the version of the file that was read.
    QString file;
    std::optional<FileStamp> stamp;
    /// Which of the file's parts it is, of how many.
    std::size_t index = 0;
    std::size_t count = 0;
    /// How the file placed it.
    UMatrix4<float> matrix;
};

/// Remembers from which files the meshes of parts came. Copies of a part have its mesh, and what
/// was cut or mended has another one, which comes from no file.
///
/// thread  the user interface thread
class PartOrigins
{
public:
    void remember(Mesh::DocumentObject const& part, PartOrigin const& origin);
    /// Null for a mesh that is not as a file gave it.
    PartOrigin const* of(Mesh::DocumentObject const& part) const;

    /// A version of a file is known, and not worth a question any more.
    void accept(QString const& file, std::optional<FileStamp> stamp);
    /// The files of parts, each once, with the versions that were read or accepted last.
    std::map<QString, std::optional<FileStamp>> filesOf(
        std::vector<Mesh::DocumentObject*> const& parts) const;

private:
    struct Entry
    {
        std::weak_ptr<UMesh<float> const> mesh;
        PartOrigin origin;
    };
    std::unordered_map<UMesh<float> const*, Entry> m_entries;
};

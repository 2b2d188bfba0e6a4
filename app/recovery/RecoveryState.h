// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/ProjectFile.h"
#include "platform/document/MeshDocument.h"

#include <QDateTime>
#include <QString>

#include <memory>
#include <vector>

/// A document as it is at one moment, for another thread to write while the document goes on.
/// Meshes that lie in a document are replaced, not written to, so they are shared.
struct RecoveryState
{
    struct Object
    {
        /// Without its kernel.
        Formats::ProjectObject look;
        /// Null for a group.
        std::shared_ptr<UMesh<float> const> mesh = {};
        UMatrix4<float> matrix = {};
    };

    /// The project file of the document; empty if it has none.
    QString projectFile;
    QDateTime time;
    std::vector<Object> objects;
};

/// thread  the user interface thread
/// cost    no geometry is copied
RecoveryState recoveryStateOf(Mesh::Document const& document, QString const& projectFile);

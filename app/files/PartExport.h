// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/PartFiles.h"
#include "platform/document/MeshDocumentObject.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

/// Writes parts, as they are placed, to one file or to a file each. Made on the user interface
/// thread; it shares the kernels, which have to stay as they are until run() has returned.
class PartExport
{
public:
    /// Parts without triangles are left out.
    PartExport(std::vector<Mesh::DocumentObject*> const& parts, Formats::MeshFormat const& format);

    bool isEmpty() const { return m_parts.empty(); }

    /// All parts go to one file.
    void toFile(QString const& file);
    /// Each part goes to a file of the folder, named after the part; what a file name cannot hold
    /// becomes an underscore, and equal names get numbers.
    void toFolder(QString const& folder);

    /// The files that run() will write.
    QStringList files() const;

    /// Writes the files, replacing those that exist; each appears when it is complete, or not at
    /// all. On any thread.
    ///
    /// progress  percentages of the triangles; what it throws is let pass
    /// throws    Formats::FileError; of several files those before are then written
    void run(std::function<void(int)> const& progress) const;

private:
    struct Part
    {
        std::string name;
        std::shared_ptr<MeshKernel const> kernel;
        unsigned color;
        bool isSupport = false;
    };
    struct Target
    {
        QString file;
        std::vector<Formats::NamedMesh> parts;
    };

    static Formats::NamedMesh meshOf(Part const& part);

    Formats::MeshFormat const& m_format;
    std::vector<Part> m_parts;
    std::vector<Target> m_targets;
};

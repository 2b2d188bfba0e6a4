// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/files/PartOrigins.h"
#include "host/formats/ProjectFile.h"
#include "platform/document/MeshDocumentObject.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// What was read from files, ready to enter a document.
struct LoadedFiles
{
    /// Of the project; not set if none was asked for or it could not be read.
    std::optional<std::vector<Formats::ProjectObject>> project;
    /// Parts with names, colours, meshes and boxes, in no document yet.
    std::vector<std::unique_ptr<Mesh::DocumentObject>> parts;
    /// Where each of the parts came from.
    std::vector<PartOrigin> origins;
    /// The files that were read.
    QStringList good;
    /// One sentence for each file that was not.
    QStringList problems;
};

/// Reads files on the thread of a job. Everything that takes long is done here, so that the user
/// interface thread has only to hang the results into the document.
class PartLoader
{
public:
    using Progress = std::function<void(int)>;
    /// Called with each kernel that was read, on the loading thread, for what others want to have
    /// prepared of it. It reports percentages of its own work.
    using Preparation = std::function<void(MeshKernel const&, Progress const&)>;

    /// project  one of the files that is to be read as a project; empty for none
    PartLoader(QStringList files, QString project, Preparation preparation);

    /// A file that cannot be read becomes a problem, and the others are read on.
    ///
    /// progress  percentages of the bytes of all files, half of each for reading it and half for the
    /// preparation; what it throws is let pass, and everything
    /// read so far is dropped
    LoadedFiles load(Progress const& progress) const;

private:
    void loadFile(QString const& file, LoadedFiles& loaded, Progress const& progress) const;
    void prepare(std::vector<MeshKernel const*> const& kernels, Progress const& progress) const;
    static std::unique_ptr<Mesh::DocumentObject> partFrom(Formats::LoadedPart part);

    QStringList m_files;
    QString m_project;
    Preparation m_preparation;
};

/// A path as the file formats take it.
std::filesystem::path systemPath(QString const& path);

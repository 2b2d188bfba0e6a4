// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/PartLoader.h"

#include "host/formats/PartFiles.h"
#include "platform/document/SupportDocumentObject.h"
#include "platform/jobs/Exceptions.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

std::filesystem::path systemPath(QString const& path)
{
    return std::filesystem::path(QFile::encodeName(path).toStdString());
}

PartLoader::PartLoader(QStringList files, QString project, Preparation preparation)
    : m_files(std::move(files)),
      m_project(std::move(project)),
      m_preparation(std::move(preparation))
{}

LoadedFiles PartLoader::load(Progress const& progress) const
{
    std::vector<double> ends;
    double total = 0;
    for (QString const& file : m_files) {
        // A file without a size must not take the whole range to itself.
        total += double(std::max<qint64>(QFileInfo(file).size(), 1));
        ends.push_back(total);
    }
    LoadedFiles loaded;
    for (int i = 0; i < m_files.size(); ++i) {
        double const start = i > 0 ? ends[std::size_t(i) - 1] : 0;
        double const size = ends[std::size_t(i)] - start;
        auto const scaled = [&](int percent) {
            progress(int((start * 100 + size * std::clamp(percent, 0, 100)) / total));
        };
        try {
            loadFile(m_files[i], loaded, scaled);
            loaded.good.push_back(m_files[i]);
        } catch (Mell::AbortException const&) {
            throw;
        } catch (Mell::Exception const& error) {
            loaded.problems.push_back(QString::fromUtf8(error.what()));
        }
    }
    progress(100);
    return loaded;
}

void PartLoader::loadFile(QString const& file, LoadedFiles& loaded, Progress const& progress) const
{
    std::filesystem::path const path = systemPath(file);
    // Of a million triangles reading and preparing take about as long as each other.
    auto const reading = [&](int percent) { progress(m_preparation ? percent / 2 : percent); };
    auto const preparing = [&](int percent) { progress(50 + percent / 2); };
    std::vector<MeshKernel const*> kernels;
    if (file == m_project) {
        loaded.project = Formats::readProject(path, reading);
        for (Formats::ProjectObject const& object : *loaded.project)
            if (object.kernel)
                kernels.push_back(object.kernel.get());
        prepare(kernels, preparing);
        return;
    }
    // Nothing of a file is taken before all of it is ready.
    std::vector<std::unique_ptr<Mesh::DocumentObject>> parts;
    // Before it is read: what is changed meanwhile counts as changed.
    PartOrigin origin{file, stampOf(file), 0, 0, {}};
    for (Formats::LoadedPart& part : Formats::readParts(path, reading)) {
        parts.push_back(partFrom(std::move(part)));
        kernels.push_back(parts.back()->meshProperty->getMesh());
    }
    prepare(kernels, preparing);
    origin.count = parts.size();
    for (std::size_t i = 0; i < parts.size(); ++i) {
        origin.index = i;
        origin.matrix = parts[i]->getMatrix();
        loaded.origins.push_back(origin);
        loaded.parts.push_back(std::move(parts[i]));
    }
}

void PartLoader::prepare(std::vector<MeshKernel const*> const& kernels,
                         Progress const& progress) const
{
    if (!m_preparation)
        return;
    auto const sizeOf = [](MeshKernel const& kernel) {
        return double(kernel.readMesh()->triangles.size()) + 1;
    };
    double all = 0, done = 0;
    for (MeshKernel const* const kernel : kernels)
        all += sizeOf(*kernel);
    for (MeshKernel const* const kernel : kernels) {
        double const size = sizeOf(*kernel);
        m_preparation(*kernel,
                      [&](int percent) { progress(int((100 * done + size * percent) / all)); });
        done += size;
    }
}

std::unique_ptr<Mesh::DocumentObject> PartLoader::partFrom(Formats::LoadedPart part)
{
    std::unique_ptr<Mesh::DocumentObject> object = Support::makePart(part.isSupport);
    object->meshProperty->setMesh(std::shared_ptr<MeshKernel>(std::move(part.kernel)));
    object->setName(std::move(part.name));
    object->setColor(part.color);
    return object;
}

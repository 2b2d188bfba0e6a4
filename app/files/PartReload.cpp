// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/PartReload.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <map>

namespace {

using Part = Mesh::DocumentObject;

/// The parts that show what a file had, by their place in it.
std::map<std::pair<QString, std::size_t>, std::vector<Part*>> partsByOrigin(
    Mesh::Document const& document, PartOrigins const& origins)
{
    std::map<std::pair<QString, std::size_t>, std::vector<Part*>> parts;
    for (Part* const part : document.getMeshObjects())
        if (PartOrigin const* const origin = origins.of(*part))
            parts[{origin->file, origin->index}].push_back(part);
    return parts;
}

/// Whether a part shows what a file had at a place that it has no more.
bool isLeft(PartOrigin const& origin, LoadedFiles const& loaded)
{
    return std::any_of(loaded.origins.begin(), loaded.origins.end(), [&](PartOrigin const& fresh) {
        return fresh.file == origin.file && origin.index >= fresh.count;
    });
}

void replace(Part& part, MeshKernel const& fresh, PartOrigin const& was, PartOrigin const& is)
{
    auto kernel = std::make_shared<MeshKernel>();
    kernel->shareMeshOf(fresh);
    UMatrix4<float> const present = part.getMatrix();
    kernel->getMatrix() = present == was.matrix ? is.matrix : present;
    kernel->UpdateBoundingBox();
    part.meshProperty->setMesh(kernel);
}

}  // namespace

QStringList putReloaded(Mesh::Document& document, LoadedFiles& loaded, PartOrigins& origins)
{
    QStringList sentences;
    for (Part const* const part : document.getMeshObjects())
        if (PartOrigin const* const origin = origins.of(*part); origin && isLeft(*origin, loaded))
            sentences << QCoreApplication::translate(
                             "PartReload", "%1 is not in %2 any more; the part stays as it was.")
                             .arg(QString::fromStdString(part->getName()),
                                  QFileInfo(origin->file).fileName());
    auto const known = partsByOrigin(document, origins);
    if (loaded.parts.empty())
        return sentences;
    document.openTransaction(QT_TRANSLATE_NOOP("UndoRedoName", "Reload"));
    for (std::size_t i = 0; i < loaded.parts.size(); ++i) {
        std::unique_ptr<Part>& fresh = loaded.parts[i];
        PartOrigin const& origin = loaded.origins[i];
        origins.remember(*fresh, origin);
        auto const place = known.find({origin.file, origin.index});
        if (place == known.end()) {
            fresh->setName(
                document.getUniqueObjectName(fresh->getName().c_str(), "", false, false));
            document.addObject(fresh.release(), nullptr, true);
            continue;
        }
        for (Part* const part : place->second)
            replace(*part, *fresh->meshProperty->getMesh(), *origins.of(*part), origin);
    }
    document.commitTransaction();
    document.setModified(true);
    return sentences;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/PartPreparation.h"

#include "app/files/DocumentFiles.h"
#include "host/view/PreparedPart.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/ActiveDocument.h"

PartPreparation::PartPreparation(DocumentFiles& files)
{
    files.setPreparation([this](MeshKernel const& kernel, PartLoader::Progress const& progress) {
        prepare(kernel, progress);
    });
    QObject::connect(&files, &DocumentFiles::opened, &files,
                     [this] { handOver(activeDocument()); });
    // What was prepared for files whose opening was cancelled is of no use.
    QObject::connect(&files, &DocumentFiles::jobFinished, &files, [this] { drop(); });
}

PartPreparation::~PartPreparation() = default;

void PartPreparation::prepare(MeshKernel const& kernel, std::function<void(int)> const& progress)
{
    auto prepared = std::make_unique<PreparedPart>(kernel.readMesh(), progress);
    std::lock_guard const lock(m_lock);
    m_prepared[&kernel] = std::move(prepared);
}

void PartPreparation::handOver(Base::Document const* document)
{
    std::lock_guard const lock(m_lock);
    if (!document)
        return;
    for (Mesh::DocumentObject const* const part : document->getMeshObjects()) {
        auto const found = m_prepared.find(part->meshProperty->getMesh());
        if (found == m_prepared.end())
            continue;
        usePrepared(*part, std::move(*found->second));
        m_prepared.erase(found);
    }
}

void PartPreparation::drop()
{
    std::lock_guard const lock(m_lock);
    m_prepared.clear();
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PreparedPart.h"

#include "host/services/RecordArrays.h"
#include "host/view/MeshViewProvider.h"
#include "platform/document/Document.h"
#include "platform/document/MeshDocumentObject.h"

PreparedPart::PreparedPart(std::shared_ptr<UMesh<float> const> const& mesh)
{
    std::function<void(int)> const none;
    StageProgress progress(none);
    MeshArrays const copy = copyArrays(*mesh, progress);
    surface = std::make_unique<PartSurface>(copy);
    tree = std::make_shared<PickTree>(mesh, copy);
}

void usePrepared(Mesh::DocumentObject const& part, PreparedPart prepared)
{
    Base::Document const* const document = part.getDocument();
    auto* const provider =
        document ? dynamic_cast<Mesh::ViewProvider*>(document->getViewProvider(&part)) : nullptr;
    if (provider)
        provider->usePrepared(std::move(prepared));
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PreparedPart.h"

#include "host/services/RecordArrays.h"
#include "host/view/MeshViewProvider.h"
#include "platform/document/Document.h"
#include "platform/document/MeshDocumentObject.h"

PreparedPart::PreparedPart(std::shared_ptr<UMesh<float> const> const& mesh,
                           std::function<void(int)> const& progress)
{
    auto const report = [&](int percent) {
        if (progress)
            progress(percent);
    };
    std::function<void(int)> const none;
    StageProgress quiet(none);
    report(0);
    MeshArrays const copy = copyArrays(*mesh, quiet);
    // About what the three take.
    report(15);
    surface = std::make_unique<PartSurface>(copy);
    report(60);
    tree = std::make_shared<PickTree>(mesh, copy);
    report(100);
}

void usePrepared(Mesh::DocumentObject const& part, PreparedPart prepared)
{
    Base::Document const* const document = part.getDocument();
    auto* const provider =
        document ? dynamic_cast<Mesh::ViewProvider*>(document->getViewProvider(&part)) : nullptr;
    if (provider)
        provider->usePrepared(std::move(prepared));
}

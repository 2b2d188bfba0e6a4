// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PreparedPart.h"

#include "host/view/MeshViewProvider.h"
#include "platform/document/Document.h"
#include "platform/document/MeshDocumentObject.h"

PreparedPart::PreparedPart(MeshKernel const& kernel)
{
    std::function<void(int)> const none;
    StageProgress progress(none);
    MeshArrays const mesh = copyArrays(kernel, Frame::Local, progress);
    surface = std::make_unique<PartSurface>(mesh);
    tree = std::make_unique<PickTree>(kernel, mesh);
}

void usePrepared(Mesh::DocumentObject const& part, PreparedPart prepared)
{
    Base::Document const* const document = part.getDocument();
    auto* const provider =
        document ? dynamic_cast<Mesh::ViewProvider*>(document->getViewProvider(&part)) : nullptr;
    if (provider)
        provider->usePrepared(std::move(prepared));
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/RectangleSelection.h"

#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/view/GLView.h"

#include <QMouseEvent>

#include <algorithm>

namespace Base {

namespace {

bool isWithin(QRect const& band, UPoint3<float> const& point, GLView const& view)
{
    int x, y;
    view.getWidgetcoordFromWCS(point, x, y);
    return band.contains(x, y);
}

bool isWithin(QRect const& band, UBox3<float> const& box, GLView const& view)
{
    for (int corner = 0; corner < 8; ++corner) {
        UPoint3<float> const point(corner & 1 ? box.MaxX() : box.MinX(),
                                   corner & 2 ? box.MaxY() : box.MinY(),
                                   corner & 4 ? box.MaxZ() : box.MinZ());
        if (!isWithin(band, point, view))
            return false;
    }
    return true;
}

/// The box of a part reaches farther on the screen than the part, unless it is seen along an axis.
/// A part that is not within is found out at the first of its points that is not.
bool isWithin(QRect const& band, Mesh::DocumentObject const& part, GLView const& view)
{
    UBox3<float> const box = part.getBoundingBox();
    if (box.Isnullptr() || isWithin(band, box, view))
        return !box.Isnullptr();
    MeshKernel const& kernel = *part.meshProperty->getMesh();
    auto const mesh = kernel.readMesh();
    return std::ranges::all_of(mesh->vertices, [&](UVertex<float> const* vertex) {
        return isWithin(band, kernel.getMatrix() * vertex->cP(), view);
    });
}

}  // namespace

constinit Type RectangleSelection::classTypeId;

void RectangleSelection::init()
{
    initSubclass(classTypeId, "Base::RectangleSelection", "Base::RubberbandSelection", create);
}

void* RectangleSelection::create()
{
    return static_cast<BaseClass*>(new RectangleSelection);
}

Type RectangleSelection::getTypeId() const
{
    return classTypeId;
}

std::string RectangleSelection::getClassName() const
{
    return "Base::RectangleSelection";
}

void RectangleSelection::bandSpanned(QRect const& band, QMouseEvent* event)
{
    Document* const document = m_view->getDocument();
    if (!document)
        return;
    if (!(event->modifiers() & Qt::ControlModifier))
        document->clearSelection();
    for (Mesh::DocumentObject* const part : document->getMeshObjects()) {
        if (part->isVisible() && isWithin(band, *part, *m_view))
            part->setSelected(true, true, false);
    }
}

void RectangleSelection::clicked(QMouseEvent* event)
{
    bool const keepsOthers = event->modifiers() & Qt::ControlModifier;
    selectModel(event->x(), event->y(), keepsOthers, keepsOthers, true, false, false);
}

}  // namespace Base

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/RectangleSelection.h"

#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/view/GLView.h"

#include <QMouseEvent>

namespace Base {

namespace {

bool isWithin(QRect const& band, UBox3<float> const& box, GLView const& view)
{
    for (int corner = 0; corner < 8; ++corner) {
        UPoint3<float> const point(corner & 1 ? box.MaxX() : box.MinX(),
                                   corner & 2 ? box.MaxY() : box.MinY(),
                                   corner & 4 ? box.MaxZ() : box.MinZ());
        int x, y;
        view.getWidgetcoordFromWCS(point, x, y);
        if (!band.contains(x, y))
            return false;
    }
    return true;
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
        UBox3<float> const box = part->getBoundingBox();
        if (part->isVisible() && !box.Isnullptr() && isWithin(band, box, *m_view))
            part->setSelected(true, true, false);
    }
}

void RectangleSelection::clicked(QMouseEvent* event)
{
    bool const keepsOthers = event->modifiers() & Qt::ControlModifier;
    selectModel(event->x(), event->y(), keepsOthers, keepsOthers, true, false, false);
}

}  // namespace Base

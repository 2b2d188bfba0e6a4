// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/view/ViewAppearance.h"

#include "app/view/WindowSettings.h"
#include "platform/document/Document.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/view/MeshGLView.h"
#include "platform/view/ViewProvider.h"

namespace {

char const* const edgesKey = "View/Edges";
char const* const perspectiveKey = "View/Perspective";
char const* const plateKey = "View/Plate";
char const* const tintsKey = "View/Tints";

}  // namespace

ViewAppearance::ViewAppearance(Mesh::GLView& view, QObject* parent)
    : QObject(parent),
      m_view(view),
      m_showsEdges(WindowSettings::flag(edgesKey, false)),
      m_isPerspective(WindowSettings::flag(perspectiveKey, false)),
      m_showsPlate(WindowSettings::flag(plateKey, true)),
      m_tintsParts(WindowSettings::flag(tintsKey, true))
{
    apply();
}

void ViewAppearance::setShowsEdges(bool shows)
{
    m_showsEdges = shows;
    store(edgesKey, shows);
}

void ViewAppearance::setPerspective(bool isPerspective)
{
    m_isPerspective = isPerspective;
    store(perspectiveKey, isPerspective);
}

void ViewAppearance::setShowsPlate(bool shows)
{
    m_showsPlate = shows;
    store(plateKey, shows);
}

void ViewAppearance::setTintsParts(bool tints)
{
    m_tintsParts = tints;
    store(tintsKey, tints);
}

void ViewAppearance::store(char const* key, bool value)
{
    WindowSettings::setFlag(key, value);
    apply();
    emit changed();
}

void ViewAppearance::setDocument(Base::Document* document)
{
    disconnect_all();
    m_document = document;
    if (!document)
        return;
    document->signalNewObject.connect(this, &ViewAppearance::objectAdded);
    document->signalDocumentDeleted.connect(this, &ViewAppearance::documentDeleted);
    apply();
}

void ViewAppearance::objectAdded(Base::DocumentObject* object)
{
    if (!dynamic_cast<Mesh::DocumentObject*>(object))
        return;
    if (Base::ViewProvider* const provider = m_document->getViewProvider(object))
        provider->setRenderMode(m_showsEdges ? Base::ViewProvider::ShadedWithEdges
                                             : Base::ViewProvider::Shaded);
}

void ViewAppearance::apply()
{
    m_view.setProjection(m_isPerspective ? GLCamera::Projection::Perspective
                                         : GLCamera::Projection::Parallel);
    m_view.setPlateVisible(m_showsPlate);
    m_view.setPartsTinted(m_tintsParts);
    if (m_document)
        for (Base::DocumentObject* const object : m_document->getObjectArray())
            objectAdded(object);
    m_view.redraw();
}

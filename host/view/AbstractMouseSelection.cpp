// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/AbstractMouseSelection.h"

#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/view/MeshGLView.h"
#include "platform/view/NavigationStyle.h"

#include <utility>

namespace Base {

namespace {

Mesh::DocumentObject* partAt(GLView const* view, QPoint position, bool onlyFront, bool alsoGhosts)
{
    auto const* const meshView = dynamic_cast<Mesh::GLView const*>(view);
    Mesh::GLView::Pick pick;
    if (!meshView || !meshView->pickPoint(position, pick, false, onlyFront, alsoGhosts))
        return nullptr;
    return pick.part;
}

}  // namespace

constinit Type AbstractMouseSelection::classTypeId;

void AbstractMouseSelection::init()
{
    initSubclass(classTypeId, "Base::AbstractMouseSelection", "Base::BaseClass", nullptr);
}

AbstractMouseSelection::~AbstractMouseSelection() = default;

Type AbstractMouseSelection::getTypeId() const
{
    return classTypeId;
}

std::string AbstractMouseSelection::getClassName() const
{
    return "Base::AbstractMouseSelection";
}

void AbstractMouseSelection::initialize() {}

void AbstractMouseSelection::terminate() {}

void AbstractMouseSelection::grabMouseModel(GLView* view)
{
    m_view = view;
    initialize();
}

void AbstractMouseSelection::releaseMouseModel()
{
    terminate();
}

int AbstractMouseSelection::mousePressEvent(QMouseEvent*)
{
    return 0;
}

int AbstractMouseSelection::mouseMoveEvent(QMouseEvent*)
{
    return 0;
}

int AbstractMouseSelection::mouseReleaseEvent(QMouseEvent*)
{
    return 0;
}

int AbstractMouseSelection::mouseDoubleClickedEvent(QMouseEvent*)
{
    return 0;
}

int AbstractMouseSelection::keyPressEvent(QKeyEvent* event)
{
    return m_keyHandler && m_keyHandler(*event) ? 1 : 0;
}

void AbstractMouseSelection::setKeyHandler(std::function<bool(QKeyEvent&)> handler)
{
    m_keyHandler = std::move(handler);
}

int AbstractMouseSelection::keyReleaseEvent(QKeyEvent*)
{
    return 0;
}

int AbstractMouseSelection::wheelEvent(QWheelEvent*)
{
    return 0;
}

void AbstractMouseSelection::draw() {}

void AbstractMouseSelection::capturePress(std::function<void()> putBack)
{
    m_view->navigationStyle()->capturePress(std::move(putBack));
}

void AbstractMouseSelection::selectModel(int x, int y, bool keepOthers, bool toggle, bool notify,
                                         bool onlyFront, bool alsoGhosts)
{
    Document* const document = m_view ? m_view->getDocument() : nullptr;
    if (!document)
        return;
    Mesh::DocumentObject* const part = partAt(m_view, {x, y}, onlyFront, alsoGhosts);
    if (!part) {
        if (!keepOthers)
            document->clearSelection();
        return;
    }
    bool const isTakenOut = toggle && part->isSelected();
    part->setSelected(!isTakenOut, notify, !keepOthers);
}

void AbstractMouseSelection::unSelectModel(int x, int y)
{
    if (Mesh::DocumentObject* const part = partAt(m_view, {x, y}, false, false))
        part->setSelected(false, true, false);
}

}  // namespace Base

// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/DialogWidgetOneOff.h"

#include "platform/document/Document.h"
#include "platform/ui/Application.h"
#include "platform/view/GLView.h"

#include <QCloseEvent>

#include <algorithm>
#include <utility>

DialogWidget::DialogWidget(QWidget* parent, bool modal) : Dialog(parent, modal) {}

void DialogWidget::resetUI() {}

DialogWidgetOneOff::DialogWidgetOneOff(QWidget* parent, bool modal) : DialogWidget(parent, modal)
{
    if (Application::Instance)
        Application::Instance->signalActiveDocument.connect(this,
                                                            &DialogWidgetOneOff::slotModuleChanged);
}

DialogWidgetOneOff::~DialogWidgetOneOff()
{
    // Before the parts of the dialog go: no event may reach what is left of it.
    disconnect_all();
}

bool DialogWidgetOneOff::isOneoff() const
{
    return m_isOneoff;
}

void DialogWidgetOneOff::terminate()
{
    disconnect_all();
}

void DialogWidgetOneOff::resetUI() {}

void DialogWidgetOneOff::setDocument(Base::Document* document)
{
    m_document = document;
    hear(document);
}

void DialogWidgetOneOff::setDocumentPointer(Base::Document* document)
{
    m_document = document;
    if (document)
        hear(document);
}

void DialogWidgetOneOff::hear(Base::Document* document)
{
    if (document == m_heard)
        return;
    if (m_heard) {
        m_heard->signalObjectSelectionChanged.disconnect(this);
        m_heard->signalNewObject.disconnect(this);
        m_heard->signalDelObject.disconnect(this);
        m_heard->signalObjectChanged.disconnect(this);
        m_heard->signalDocumentDeleted.disconnect(this);
    }
    m_heard = document;
    m_visibleParts.clear();
    if (!document)
        return;
    m_visibleParts = document->getPartList();
    document->signalObjectSelectionChanged.connect(this,
                                                   &DialogWidgetOneOff::slotObjectSelectionChanged);
    document->signalNewObject.connect(this, &DialogWidgetOneOff::objectAdded);
    document->signalDelObject.connect(this, &DialogWidgetOneOff::objectDeleted);
    document->signalObjectChanged.connect(this, &DialogWidgetOneOff::objectChanged);
    document->signalDocumentDeleted.connect(this, &DialogWidgetOneOff::slotDocumentDeleted);
}

void DialogWidgetOneOff::objectAdded(Base::DocumentObject* object)
{
    slotNewObject(object);
    lookAtParts();
}

void DialogWidgetOneOff::objectDeleted(Base::DocumentObject* object, std::string className)
{
    slotDelObject(object, className);
    lookAtParts();
}

void DialogWidgetOneOff::objectChanged(Base::DocumentObject* object)
{
    slotReplaceObject(object);
    lookAtParts();
}

// Many parts may be hidden in a row, and one look at all of them is enough.
void DialogWidgetOneOff::lookAtParts()
{
    if (m_isPartChangePending || !m_heard)
        return;
    m_isPartChangePending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isPartChangePending = false;
            std::vector<Mesh::DocumentObject*> parts;
            if (m_heard && !m_isEnding)
                parts = m_heard->getPartList();
            if (!m_heard || m_isEnding || parts == m_visibleParts)
                return;
            m_visibleParts = std::move(parts);
            slotObjectSelectionChanged();
        },
        Qt::QueuedConnection);
}

void DialogWidgetOneOff::leaveView(std::vector<std::string> const& toolClasses)
{
    Base::GLView* const view = m_heard ? m_heard->getView() : nullptr;
    if (!view)
        return;
    view->removeEventFilter(this);
    if (std::ranges::find(toolClasses, view->getInteractModeName()) != toolClasses.end())
        view->stopSelection();
}

Base::Document* DialogWidgetOneOff::getDocument() const
{
    return m_document;
}

void DialogWidgetOneOff::setModuleName(std::string name)
{
    m_moduleName = std::move(name);
}

std::string DialogWidgetOneOff::getModuleName() const
{
    return m_moduleName;
}

void DialogWidgetOneOff::setOneoff(bool oneoff)
{
    m_isOneoff = oneoff;
}

void DialogWidgetOneOff::slotObjectSelectionChanged() {}

void DialogWidgetOneOff::slotNewObject(Base::DocumentObject*) {}

void DialogWidgetOneOff::slotDelObject(Base::DocumentObject*, std::string) {}

void DialogWidgetOneOff::slotReplaceObject(Base::DocumentObject*) {}

void DialogWidgetOneOff::slotModuleChanged() {}

void DialogWidgetOneOff::slotDocumentDeleted()
{
    destruct();
    m_document = nullptr;
    m_heard = nullptr;
}

void DialogWidgetOneOff::destruct()
{
    if (m_isEnding)
        return;
    m_isEnding = true;
    terminate();
    DialogWidget::setWidgetEnabled(true);
    close();
    hide();
    emit signalDestructed();
    deleteLater();
}

void DialogWidgetOneOff::closeEvent(QCloseEvent* event)
{
    DialogWidget::closeEvent(event);
    if (event->isAccepted() && isOneoff())
        destruct();
}

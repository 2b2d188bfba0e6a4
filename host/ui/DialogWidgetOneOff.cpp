// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/DialogWidgetOneOff.h"

#include "platform/document/Document.h"
#include "platform/ui/Application.h"

#include <QCloseEvent>
#include <QPointer>

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
    if (document == m_document)
        return;
    disconnectDocument();
    m_document = document;
    connectDocument();
}

void DialogWidgetOneOff::connectDocument()
{
    if (!m_document)
        return;
    m_document->signalObjectSelectionChanged.connect(
        this, &DialogWidgetOneOff::slotObjectSelectionChanged);
    m_document->signalNewObject.connect(this, &DialogWidgetOneOff::slotNewObject);
    m_document->signalDelObject.connect(this, &DialogWidgetOneOff::slotDelObject);
    m_document->signalObjectChanged.connect(this, &DialogWidgetOneOff::slotReplaceObject);
    m_document->signalDocumentDeleted.connect(this, &DialogWidgetOneOff::slotDocumentDeleted);
}

void DialogWidgetOneOff::disconnectDocument()
{
    if (!m_document)
        return;
    m_document->signalObjectSelectionChanged.disconnect(this);
    m_document->signalNewObject.disconnect(this);
    m_document->signalDelObject.disconnect(this);
    m_document->signalObjectChanged.disconnect(this);
    m_document->signalDocumentDeleted.disconnect(this);
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

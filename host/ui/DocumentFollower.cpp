// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/DocumentFollower.h"

#include "platform/document/Document.h"
#include "platform/ui/Application.h"

DocumentFollower::DocumentFollower(QObject* parent) : QObject(parent)
{
    follow();
}

void DocumentFollower::follow()
{
    disconnect_all();
    if (!Application::Instance)
        return;
    Application::Instance->signalActiveDocument.connect(this, &DocumentFollower::follow);
    m_document = Application::Instance->activeDocument();
    if (m_document) {
        m_document->signalNewObject.connect(this, &DocumentFollower::objectAdded);
        m_document->signalDelObject.connect(this, &DocumentFollower::objectDeleted);
        m_document->signalObjectChanged.connect(this, &DocumentFollower::objectChanged);
        m_document->signalObjectSelectionChanged.connect(this, &DocumentFollower::changeLater);
        m_document->signalStateChanged.connect(this, &DocumentFollower::changeLater);
        m_document->signalDocumentDeleted.connect(this, &DocumentFollower::documentDeleted);
    }
    emit replaced(m_document);
    changeLater();
}

void DocumentFollower::documentDeleted()
{
    m_document = nullptr;
    emit replaced(nullptr);
    changeLater();
}

void DocumentFollower::changeLater()
{
    if (m_isChangePending)
        return;
    m_isChangePending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isChangePending = false;
            emit changed();
        },
        Qt::QueuedConnection);
}

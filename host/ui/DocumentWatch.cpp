// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ui/DocumentWatch.h"

#include "platform/document/Document.h"
#include "platform/ui/Application.h"

DocumentWatch::DocumentWatch(QObject* parent) : QObject(parent)
{
    follow();
}

void DocumentWatch::follow()
{
    disconnect_all();
    if (!Application::Instance)
        return;
    Application::Instance->signalActiveDocument.connect(this, &DocumentWatch::follow);
    if (Base::Document* const document = Application::Instance->activeDocument()) {
        document->signalNewObject.connect(this, &DocumentWatch::objectAdded);
        document->signalDelObject.connect(this, &DocumentWatch::objectDeleted);
        document->signalObjectChanged.connect(this, &DocumentWatch::objectChanged);
        document->signalDocumentDeleted.connect(this, &DocumentWatch::changeLater);
    }
    changeLater();
}

void DocumentWatch::changeLater()
{
    if (m_isPending)
        return;
    m_isPending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isPending = false;
            emit changed();
        },
        Qt::QueuedConnection);
}

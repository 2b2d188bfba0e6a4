// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/sigslot.h"

#include <QObject>

#include <string>

namespace Base {
class Document;
class DocumentObject;
}  // namespace Base

/// Follows the application's active document, whichever that is.
class DocumentFollower : public QObject, public sigslot::has_slots<sigslot::single_threaded>
{
    Q_OBJECT

public:
    /// The application exists, or nothing is ever told.
    explicit DocumentFollower(QObject* parent = nullptr);

    /// The active document, or null; never one that is being destroyed.
    Base::Document* document() const { return m_document; }

signals:
    /// Another document has become the active one, or none.
    void replaced(Base::Document* document);
    /// Something that is told of the document has changed, the document itself included. Many
    /// changes in a row make one signal, sent when events are handled next.
    void changed();

private:
    void follow();
    void objectAdded(Base::DocumentObject*) { changeLater(); }
    void objectDeleted(Base::DocumentObject*, std::string) { changeLater(); }
    void objectChanged(Base::DocumentObject*) { changeLater(); }
    void documentDeleted();
    void changeLater();

    Base::Document* m_document = nullptr;
    bool m_isChangePending = false;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/sigslot.h"

#include <QObject>

#include <string>

namespace Base {
class DocumentObject;
}

/// Tells when the active document, or something in it, has changed. Many changes in a row make one
/// signal, sent when events are handled next.
class DocumentWatch : public QObject, public sigslot::has_slots<sigslot::single_threaded>
{
    Q_OBJECT

public:
    /// The application exists, or nothing is ever told.
    explicit DocumentWatch(QObject* parent);

signals:
    void changed();

private:
    void follow();
    void objectAdded(Base::DocumentObject*) { changeLater(); }
    void objectDeleted(Base::DocumentObject*, std::string) { changeLater(); }
    void objectChanged(Base::DocumentObject*) { changeLater(); }
    void changeLater();

    bool m_isPending = false;
};

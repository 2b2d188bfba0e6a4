// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/sigslot.h"

#include <QObject>

namespace Base {
class Document;
class DocumentObject;
}  // namespace Base
namespace Mesh {
class GLView;
}

/// How the view shows the parts, those that are still to come included: with edges or without, in
/// which projection, on the plate or not, and in colours of their own or in one. Remembered in the settings; what the settings hold
/// and nobody can mean falls back to the defaults.
class ViewAppearance : public QObject, public sigslot::has_slots<sigslot::single_threaded>
{
    Q_OBJECT

public:
    /// The view outlives this.
    explicit ViewAppearance(Mesh::GLView& view, QObject* parent = nullptr);

    bool showsEdges() const { return m_showsEdges; }
    void setShowsEdges(bool shows);
    bool isPerspective() const { return m_isPerspective; }
    void setPerspective(bool isPerspective);
    bool showsPlate() const { return m_showsPlate; }
    void setShowsPlate(bool shows);
    bool tintsParts() const { return m_tintsParts; }
    void setTintsParts(bool tints);

    /// The document that the view shows from now on; null for none.
    void setDocument(Base::Document* document);

signals:
    void changed();

private:
    void objectAdded(Base::DocumentObject* object);
    void documentDeleted() { setDocument(nullptr); }
    void apply();
    void store(char const* key, bool value);

    Mesh::GLView& m_view;
    Base::Document* m_document = nullptr;
    bool m_showsEdges;
    bool m_isPerspective;
    bool m_showsPlate;
    bool m_tintsParts;
};

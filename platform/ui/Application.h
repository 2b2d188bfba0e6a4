// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/sigslot.h"

#include <memory>
#include <string>
#include <vector>

namespace Base {
class CommandManager;
class Document;
}  // namespace Base

namespace Mesh {
class Document;
}

/// The application: its documents and its commands. There is one at a time; it needs no window, and
/// works with a QCoreApplication.
///
/// thread  the user interface thread
class Application
{
public:
    /// The application; null before it is made and after it is gone.
    static Application* Instance;

    Application();
    ~Application();
    Application(Application const&) = delete;
    Application& operator=(Application const&) = delete;

    Base::CommandManager& commandManager() const { return *m_commands; }

    /// The active document, or null.
    Base::Document* activeDocument() const { return m_active; }
    /// Makes one of the application's documents the active one, or none (null).
    void setActiveDocument(Base::Document* document);

    /// Makes a document, which becomes the active one. The application owns it.
    Mesh::Document* newDocument(std::string name);
    /// Destroys a document. If it was active, the last of the remaining ones becomes active.
    void closeDocument(Base::Document* document);
    std::vector<Base::Document*> documents() const;

    /// After the active document has changed.
    sigslot::signal0<sigslot::single_threaded> signalActiveDocument;

private:
    std::unique_ptr<Base::CommandManager> m_commands;
    std::vector<std::unique_ptr<Base::Document>> m_documents;
    Base::Document* m_active = nullptr;
};

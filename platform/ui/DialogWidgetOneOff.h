// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/sigslot.h"
#include "platform/ui/DialogWidget.h"

#include <string>
#include <vector>

namespace Base {
class Document;
class DocumentObject;
}  // namespace Base

namespace Mesh {
class DocumentObject;
}

/// A dialog that works on a document, receives its events, and is deleted when it closes.
class DialogWidgetOneOff : public DialogWidget, public sigslot::has_slots<sigslot::single_threaded>
{
    Q_OBJECT

public:
    DialogWidgetOneOff(QWidget* parent, bool modal);
    ~DialogWidgetOneOff() override;

    bool isOneoff() const override;
    /// Takes the dialog off its document and the application.
    void terminate() override;
    void resetUI() override;

    /// The document, borrowed, or null for none. From now on the slots below get its events.
    virtual void setDocument(Base::Document* document);
    virtual Base::Document* getDocument() const;
    /// The name of what the dialog was opened for, such as the document's.
    virtual void setModuleName(std::string name);
    virtual std::string getModuleName() const;
    /// False: closing hides the dialog, and opening it again shows the same one.
    virtual void setOneoff(bool oneoff);

    // The document's events; they do nothing unless said otherwise.

    /// Another selection. It also comes, when control is back in the event loop, after the list of
    /// visible parts has become another one: by hiding, showing, adding, removing.
    virtual void slotObjectSelectionChanged();
    virtual void slotNewObject(Base::DocumentObject* object);
    /// The object has left the document and still exists.
    virtual void slotDelObject(Base::DocumentObject* object, std::string className);
    /// The object has taken on other contents in its place: mesh, placement, name, colour, group or
    /// visibility.
    virtual void slotReplaceObject(Base::DocumentObject* object);
    /// Another document has become the active one.
    virtual void slotModuleChanged();
    /// The document is being destroyed; its objects still exist. Ends the dialog.
    virtual void slotDocumentDeleted();

    /// Ends the dialog: terminate(), closing as if by the user, also while a job runs, and deletion
    /// when control is back in the event loop. It may be called from the dialog's own slots, and
    /// twice. DialogWindowManager knows the dialog no more.
    virtual void destruct();

signals:
    /// The dialog has ended and will be deleted.
    void signalDestructed();

protected:
    /// Changes what getDocument() returns, as a dialog does that follows the active document. The
    /// events are those of the document from now on; with null those of the last one still come,
    /// its end included.
    void setDocumentPointer(Base::Document* document);
    /// Takes the dialog's event filter off the view of the document, and ends the mouse tool there
    /// if it is of one of these classes: another one is not the dialog's. Without a document or a
    /// view it does nothing.
    void leaveView(std::vector<std::string> const& toolClasses);

    void closeEvent(QCloseEvent* event) override;

private:
    void hear(Base::Document* document);
    void objectAdded(Base::DocumentObject* object);
    void objectDeleted(Base::DocumentObject* object, std::string className);
    void objectChanged(Base::DocumentObject* object);
    void lookAtParts();

    Base::Document* m_document = nullptr;
    /// Whose events come: the document, or the last one.
    Base::Document* m_heard = nullptr;
    std::vector<Mesh::DocumentObject*> m_visibleParts;
    bool m_isPartChangePending = false;
    std::string m_moduleName;
    bool m_isOneoff = true;
    bool m_isEnding = false;
};

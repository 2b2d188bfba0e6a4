// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/BaseClass.h"
#include "platform/document/sigslot.h"

#include <memory>
#include <string>
#include <vector>

namespace Mesh {
class DocumentObject;
}

namespace Base {

class DocumentEntry;
class DocumentObject;
class GLView;
class History;
class ViewProvider;

/// An ordered set of objects with a selection, a dirty flag and a history.
///
/// Between openTransaction and commitTransaction everything that happens to objects of the document
/// is recorded: adding, removing, selection, visibility, colour, name, group, and a part's mesh and
/// placement. One undo brings all of it back, with the very same objects in their old order;
/// geometry is shared, never copied. What is done in place behind a MeshKernel is not recorded.
/// Changes outside a transaction are applied at once, make no undo step, and leave the
/// history usable: an undo passes over what is no longer there.
///
/// A tool, a GraphicObject, belongs to whoever added it: no undo step holds or selects it, what
/// deselects parts leaves it selected, and it leaves by detachObject alone, before it is deleted.
///
/// A removed object stays alive as long as the history can bring it back.
///
/// thread  the user interface thread
class Document : public BaseClass
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();

    explicit Document(std::string name = {});
    ~Document() override;
    Document(Document const&) = delete;
    Document& operator=(Document const&) = delete;

    Type getTypeId() const override;
    std::string getClassName() const override;

    /// Appends an object, which the document then owns, and makes its view provider if the document
    /// is shown. An object that is in the document already only gets the name.
    ///
    /// object  in no other document
    /// name    the object's name from now on; null or empty keeps the one it has
    /// notify  tell the listeners
    virtual void addObject(DocumentObject* object, char const* name, bool notify);

    /// Takes an object out, of its group and the selection too. In a transaction the removal can be
    /// undone; without one the object is gone for good and freed, unless an older undo step still
    /// needs it. An object that is not in the document is left alone.
    virtual void removeObject(DocumentObject* object);

    /// All parts, and the parts over which the height of a plane ranges: here the same.
    virtual std::vector<Mesh::DocumentObject*> getMeshObjects() const;
    virtual std::vector<Mesh::DocumentObject*> getPartList() const;

    /// Takes an object out without an undo step and hands it to the caller, who owns it from now
    /// on. Undo steps forget it. Null if the object is not in the document.
    std::unique_ptr<DocumentObject> detachObject(DocumentObject* object);

    std::string const& getName() const { return m_name; }
    void setName(std::string name);

    /// All objects, in the order in which they were first added.
    std::vector<DocumentObject*> getObjectArray() const;
    bool contains(DocumentObject const* object) const;

    /// The selection, in the order in which it was made.
    std::vector<DocumentObject*> getSelectedObjects() const;
    bool isSelected(DocumentObject const* object) const;
    /// What DocumentObject::setSelected does; `exclusive` deselects all others but tools.
    void select(DocumentObject* object, bool selected, bool notify, bool exclusive);
    void removefromSelectedObjects(DocumentObject* object);
    /// Deselects all but tools.
    void clearSelection();

    /// A name that no object of the document bears.
    ///
    /// suffix     appended to `base`
    /// useSuffix  false ignores the suffix
    /// numbered   true: the lowest free number from 1 follows ("bunny_cut1", "bunny_cut2");
    ///            false: a number follows only if the plain name is taken
    std::string getUniqueObjectName(char const* base, std::string suffix, bool useSuffix,
                                    bool numbered) const;

    /// Unsaved changes. The flag is the caller's to set; an undo or redo sets it as well.
    bool isModified() const { return m_isModified; }
    void setModified(bool modified);

    /// Begins an undo step of that name; one that is open is committed first.
    void openTransaction(char const* name);
    /// Ends the open step and makes it undoable; redoable steps are dropped. A step in which
    /// nothing changed leaves no trace. Without an open transaction it does nothing.
    void commitTransaction();
    /// Ends the open step and puts back everything it changed, the dirty flag included. Without an
    /// open transaction it does nothing.
    void abortTransaction();
    bool hasOpenTransaction() const;

    // An open transaction is committed first. False if there is nothing to undo or redo.
    bool undo();
    bool redo();
    /// Names of the steps, the next one first.
    std::vector<std::string> undoNames() const;
    std::vector<std::string> redoNames() const;
    /// Drops all steps, and frees the objects that only they hold.
    void clearHistory();

    /// The view in which the document is shown, borrowed, or null. Setting it makes all view
    /// providers anew; the view outlives the document or takes itself out.
    GLView* getView() const { return m_view; }
    void setView(GLView* view);
    /// What shows an object in the view; null without a view or for an object that is not shown.
    ViewProvider* getViewProvider(DocumentObject const* object) const;

    using SingleThreaded = sigslot::single_threaded;
    sigslot::signal1<DocumentObject*, SingleThreaded> signalNewObject;
    /// The object has left the document and still exists; its class name comes with it.
    sigslot::signal2<DocumentObject*, std::string, SingleThreaded> signalDelObject;
    /// Visibility, colour, name, group or placement.
    sigslot::signal1<DocumentObject*, SingleThreaded> signalObjectChanged;
    sigslot::signal0<SingleThreaded> signalObjectSelectionChanged;
    /// The dirty flag, the name, or what can be undone.
    sigslot::signal0<SingleThreaded> signalStateChanged;
    /// The document is being destroyed; its objects still exist.
    sigslot::signal0<SingleThreaded> signalDocumentDeleted;

private:
    friend class DocumentObject;
    friend class History;
    using EntryPtr = std::shared_ptr<DocumentEntry>;

    EntryPtr find(DocumentObject const* object) const;
    void insert(EntryPtr const& entry);
    void takeOut(EntryPtr const& entry);
    void leave(EntryPtr const& entry);
    void makeViewProvider(DocumentEntry& entry) const;

    std::string m_name;
    std::vector<EntryPtr> m_entries;
    std::vector<EntryPtr> m_selection;
    unsigned long m_nextKey = 0;
    bool m_isModified = false;
    GLView* m_view = nullptr;
    std::unique_ptr<History> m_history;
};

}  // namespace Base

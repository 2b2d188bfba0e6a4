// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/partlist/PartNode.h"
#include "app/parts/PartEdits.h"
#include "app/view/BuildVolume.h"
#include "platform/document/sigslot.h"

#include <QAbstractItemModel>
#include <QPointer>

#include <functional>
#include <unordered_map>

class MeshSurvey;

/// The groups and parts of the active document as a tree. Changes of the document are taken over
/// together, when control returns to the event loop. What a user edits becomes an undo step; while
/// a job runs nothing can be edited.
class PartTreeModel : public QAbstractItemModel, public sigslot::has_slots<sigslot::single_threaded>
{
    Q_OBJECT

public:
    enum Column
    {
        NameColumn,
        TrianglesColumn,
        ClosedColumn,
        ColorColumn,
        EyeColumn,
        ColumnCount
    };
    enum Role
    {
        /// int of PartNode::Eye
        EyeRole = Qt::UserRole,
        /// QColor; invalid for the view's own choice
        ColorRole,
        /// bool; invalid while it is not known, and for groups
        ClosedRole,
        /// QString: by how much a part does not fit the build volume; empty if it does, for groups,
        /// and for parts that are not shown
        MisfitRole
    };

    explicit PartTreeModel(QObject* parent = nullptr);
    ~PartTreeModel() override;

    /// The active document; null if there is none or it is not one of parts.
    Mesh::Document* document() const { return m_document; }
    /// Null once the object has left the document.
    Base::DocumentObject* objectAt(QModelIndex const& index) const;
    /// Invalid for an object that is not listed.
    QModelIndex indexOf(Base::DocumentObject const* object) const;
    /// Takes over what has changed now.
    void synchronize();
    /// Parts in the list, and their triangles.
    std::size_t partCount() const;
    std::size_t triangleCount() const;

    QModelIndex index(int row, int column, QModelIndex const& parent = {}) const override;
    QModelIndex parent(QModelIndex const& index) const override;
    using QObject::parent;
    int rowCount(QModelIndex const& parent = {}) const override;
    int columnCount(QModelIndex const& parent = {}) const override;
    QVariant data(QModelIndex const& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(QModelIndex const& index) const override;
    bool setData(QModelIndex const& index, QVariant const& value, int role) override;

    QStringList mimeTypes() const override;
    QMimeData* mimeData(QModelIndexList const& indexes) const override;
    Qt::DropActions supportedDropActions() const override;
    bool canDropMimeData(QMimeData const* data, Qt::DropAction action, int row, int column,
                         QModelIndex const& parent) const override;
    bool dropMimeData(QMimeData const* data, Qt::DropAction action, int row, int column,
                      QModelIndex const& parent) override;

signals:
    /// Around a change of rows: what happens to a selection meanwhile is not the user's doing.
    void aboutToSynchronize();
    void synchronized();
    void documentSelectionChanged();

private:
    using Objects = std::vector<Base::DocumentObject*>;

    void followActiveDocument();
    void documentDeleted();
    void objectAdded(Base::DocumentObject* object);
    void objectRemoved(Base::DocumentObject* object, std::string className);
    void objectChanged(Base::DocumentObject* object);
    void selectionChanged() { emit documentSelectionChanged(); }
    void scheduleUpdate();
    void volumeChanged();

    void reconcile(PartNode& parent, Objects const& wanted);
    void removeMissing(PartNode& parent, Objects const& wanted);
    void insertNew(PartNode& parent, Objects const& wanted);
    void refresh(PartNode& node);
    PartNode::Look lookOf(PartNode const& node) const;
    /// All but the open edges.
    static PartNode::Look lookOfPart(Mesh::DocumentObject const& part);
    PartNode::Look lookOfGroup(PartNode const& node) const;
    void forgetNodes(PartNode const& node);

    PartNode* nodeAt(QModelIndex const& index) const;
    QModelIndex indexOf(PartNode const& node, int column) const;
    QString text(PartNode const& node, int column) const;
    QString toolTip(PartNode const& node, int column) const;
    Mesh::DocumentObjectGroup* dropTarget(QModelIndex const& parent) const;
    PartEdits::Parts draggedParts(QMimeData const* data) const;

    Mesh::Document* m_document = nullptr;
    std::shared_ptr<MeshSurvey> m_survey;
    PartNode m_root;
    std::unordered_map<Base::DocumentObject const*, PartNode*> m_nodes;
    bool m_isUpdateScheduled = false;
    BuildVolume m_room;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/partlist/PartTreeModel.h"

#include "app/parts/MeshSurvey.h"
#include "app/view/BuildVolumeChanges.h"
#include "platform/ui/Application.h"

#include <algorithm>

PartTreeModel::PartTreeModel(QObject* parent)
    : QAbstractItemModel(parent), m_survey(MeshSurvey::shared())
{
    connect(m_survey.get(), &MeshSurvey::measured, this, &PartTreeModel::scheduleUpdate);
    m_room = BuildVolume::stored();
    connect(&BuildVolumeChanges::instance(), &BuildVolumeChanges::changed, this,
            &PartTreeModel::volumeChanged);
    if (Application::Instance)
        Application::Instance->signalActiveDocument.connect(this,
                                                            &PartTreeModel::followActiveDocument);
    followActiveDocument();
}

PartTreeModel::~PartTreeModel() = default;

void PartTreeModel::volumeChanged()
{
    m_room = BuildVolume::stored();
    auto const tell = [this](QModelIndex const& parent) {
        if (int const rows = rowCount(parent))
            emit dataChanged(index(0, NameColumn, parent), index(rows - 1, NameColumn, parent));
    };
    tell({});
    for (int i = 0; i < rowCount(); ++i)
        tell(index(i, NameColumn));
}

void PartTreeModel::followActiveDocument()
{
    disconnect_all();
    Base::Document* active = nullptr;
    if (Application::Instance) {
        Application::Instance->signalActiveDocument.connect(this,
                                                            &PartTreeModel::followActiveDocument);
        active = Application::Instance->activeDocument();
    }
    auto* const document = dynamic_cast<Mesh::Document*>(active);
    if (document != m_document) {
        beginResetModel();
        m_root.children.clear();
        m_nodes.clear();
        m_document = document;
        endResetModel();
    }
    if (m_document) {
        m_document->signalNewObject.connect(this, &PartTreeModel::objectAdded);
        m_document->signalDelObject.connect(this, &PartTreeModel::objectRemoved);
        m_document->signalObjectChanged.connect(this, &PartTreeModel::objectChanged);
        m_document->signalObjectSelectionChanged.connect(this, &PartTreeModel::selectionChanged);
        m_document->signalDocumentDeleted.connect(this, &PartTreeModel::documentDeleted);
    }
    synchronize();
}

void PartTreeModel::documentDeleted()
{
    beginResetModel();
    m_root.children.clear();
    m_nodes.clear();
    m_document = nullptr;
    endResetModel();
}

void PartTreeModel::objectAdded(Base::DocumentObject* object)
{
    scheduleUpdate();
}

void PartTreeModel::objectRemoved(Base::DocumentObject* object, std::string className)
{
    // Another object may take its address before the rows are brought up to date.
    auto const place = m_nodes.find(object);
    if (place != m_nodes.end()) {
        place->second->object = nullptr;
        m_nodes.erase(place);
    }
    scheduleUpdate();
}

void PartTreeModel::objectChanged(Base::DocumentObject* object)
{
    // A part that looks as before has been changed in place. Nothing is measured now: whoever
    // changes it may not have finished.
    auto const* const part = dynamic_cast<Mesh::DocumentObject const*>(object);
    auto const place = m_nodes.find(object);
    if (part && place != m_nodes.end()) {
        PartNode::Look look = lookOfPart(*part);
        look.openEdges = place->second->look.openEdges;
        look.box = place->second->look.box;
        if (look == place->second->look)
            m_survey->forget(*part);
    }
    scheduleUpdate();
}

void PartTreeModel::scheduleUpdate()
{
    if (m_isUpdateScheduled)
        return;
    m_isUpdateScheduled = true;
    QMetaObject::invokeMethod(this, &PartTreeModel::synchronize, Qt::QueuedConnection);
}

void PartTreeModel::synchronize()
{
    m_isUpdateScheduled = false;
    if (!m_document)
        return;
    emit aboutToSynchronize();
    Objects top;
    std::unordered_map<Base::DocumentObject const*, Objects> members;
    for (Base::DocumentObject* const object : m_document->getObjectArray()) {
        auto const* const part = dynamic_cast<Mesh::DocumentObject const*>(object);
        if (part && part->getGroup())
            members[part->getGroup()].push_back(object);
        else if (part || dynamic_cast<Mesh::DocumentObjectGroup const*>(object))
            top.push_back(object);
    }
    reconcile(m_root, top);
    for (auto const& child : m_root.children)
        if (child->isGroup)
            reconcile(*child, members[child->object]);
    refresh(m_root);
    emit synchronized();
}

// Both lists are in the document's order, which objects keep for life, so what stays needs no
// move.
void PartTreeModel::reconcile(PartNode& parent, Objects const& wanted)
{
    removeMissing(parent, wanted);
    insertNew(parent, wanted);
}

void PartTreeModel::removeMissing(PartNode& parent, Objects const& wanted)
{
    auto isMissing = [&, next = wanted.begin()](PartNode const& node) mutable {
        auto const found = node.object ? std::find(next, wanted.end(), node.object) : wanted.end();
        if (found == wanted.end())
            return true;
        next = found + 1;
        return false;
    };
    std::vector<bool> missing;
    for (auto const& child : parent.children)
        missing.push_back(isMissing(*child));

    for (std::size_t end = missing.size(); end > 0;) {
        std::size_t begin = end;
        while (begin > 0 && missing[begin - 1])
            --begin;
        if (begin == end) {
            --end;
            continue;
        }
        beginRemoveRows(indexOf(parent, 0), int(begin), int(end) - 1);
        for (std::size_t i = begin; i < end; ++i)
            forgetNodes(*parent.children[i]);
        parent.children.erase(parent.children.begin() + long(begin),
                              parent.children.begin() + long(end));
        endRemoveRows();
        end = begin;
    }
}

void PartTreeModel::forgetNodes(PartNode const& node)
{
    auto const place = m_nodes.find(node.object);
    if (place != m_nodes.end() && place->second == &node)
        m_nodes.erase(place);
    for (auto const& child : node.children)
        forgetNodes(*child);
}

void PartTreeModel::insertNew(PartNode& parent, Objects const& wanted)
{
    for (std::size_t begin = 0; begin < wanted.size();) {
        auto const present = [&](std::size_t i) {
            return begin < parent.children.size() && parent.children[begin]->object == wanted[i];
        };
        std::size_t end = begin;
        while (end < wanted.size() && !present(end))
            ++end;
        if (end == begin) {
            ++begin;
            continue;
        }
        beginInsertRows(indexOf(parent, 0), int(begin), int(end) - 1);
        std::vector<std::unique_ptr<PartNode>> nodes;
        for (std::size_t i = begin; i < end; ++i) {
            auto node = std::make_unique<PartNode>();
            node->object = wanted[i];
            node->isGroup = dynamic_cast<Mesh::DocumentObjectGroup*>(wanted[i]);
            node->parent = &parent;
            node->look = lookOf(*node);
            m_nodes[wanted[i]] = node.get();
            nodes.push_back(std::move(node));
        }
        parent.children.insert(parent.children.begin() + long(begin),
                               std::make_move_iterator(nodes.begin()),
                               std::make_move_iterator(nodes.end()));
        endInsertRows();
        begin = end;
    }
}

void PartTreeModel::refresh(PartNode& node)
{
    std::size_t first = node.children.size();
    std::size_t last = 0;
    for (std::size_t i = 0; i < node.children.size(); ++i) {
        PartNode& child = *node.children[i];
        refresh(child);
        PartNode::Look look = lookOf(child);
        if (look == child.look)
            continue;
        child.look = std::move(look);
        first = std::min(first, i);
        last = i;
    }
    if (first < node.children.size())
        emit dataChanged(indexOf(*node.children[first], 0),
                         indexOf(*node.children[last], ColumnCount - 1));
}

PartNode::Look PartTreeModel::lookOf(PartNode const& node) const
{
    if (node.isGroup)
        return lookOfGroup(node);
    auto const& part = static_cast<Mesh::DocumentObject const&>(*node.object);
    PartNode::Look look = lookOfPart(part);
    if (auto const facts = m_survey->facts(part))
        look.openEdges = facts->openEdges();
    if (part.isVisible())
        look.box = part.getBoundingBox();
    return look;
}

PartNode::Look PartTreeModel::lookOfPart(Mesh::DocumentObject const& part)
{
    PartNode::Look look;
    look.name = QString::fromStdString(part.getName());
    look.eye = part.isVisible() ? PartNode::Eye::Open : PartNode::Eye::Closed;
    look.color = part.getColor();
    look.isGhost = part.isSemiVisible();
    look.isCandidate = part.isSemiSelected();
    look.group = part.getGroup();
    look.matrix = part.getMatrix();
    if (MeshKernel const* const kernel = part.meshProperty->getMesh()) {
        auto const mesh = kernel->readMesh();
        look.mesh = mesh.get();
        look.triangles = mesh ? mesh->triangles.size() : 0;
    }
    return look;
}

PartNode::Look PartTreeModel::lookOfGroup(PartNode const& node) const
{
    PartNode::Look look;
    look.name = QString::fromStdString(node.object->getName());
    std::size_t open = 0;
    for (auto const& child : node.children) {
        look.triangles += child->look.triangles;
        open += child->look.eye == PartNode::Eye::Open;
    }
    look.eye = open == node.children.size() ? PartNode::Eye::Open
               : open == 0                  ? PartNode::Eye::Closed
                                            : PartNode::Eye::Half;
    return look;
}

std::size_t PartTreeModel::partCount() const
{
    std::size_t count = 0;
    for (auto const& child : m_root.children)
        count += child->isGroup ? child->children.size() : 1;
    return count;
}

std::size_t PartTreeModel::triangleCount() const
{
    std::size_t count = 0;
    for (auto const& child : m_root.children)
        count += child->look.triangles;
    return count;
}

PartNode* PartTreeModel::nodeAt(QModelIndex const& index) const
{
    return index.isValid() ? static_cast<PartNode*>(index.internalPointer())
                           : const_cast<PartNode*>(&m_root);
}

QModelIndex PartTreeModel::indexOf(PartNode const& node, int column) const
{
    if (&node == &m_root)
        return {};
    return createIndex(node.row(), column, const_cast<PartNode*>(&node));
}

Base::DocumentObject* PartTreeModel::objectAt(QModelIndex const& index) const
{
    return nodeAt(index)->object;
}

QModelIndex PartTreeModel::indexOf(Base::DocumentObject const* object) const
{
    auto const place = m_nodes.find(object);
    return place == m_nodes.end() ? QModelIndex() : indexOf(*place->second, 0);
}

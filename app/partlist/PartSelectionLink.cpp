// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/partlist/PartSelectionLink.h"

#include "app/partlist/PartTreeModel.h"

#include <QSet>

#include <unordered_set>

namespace {

using ObjectSet = std::unordered_set<Base::DocumentObject const*>;

/// All children of a row, as one range.
QItemSelection childrenOf(QAbstractItemModel const& model, QModelIndex const& index)
{
    int const count = model.rowCount(index);
    if (count == 0)
        return {};
    return {model.index(0, 0, index),
            model.index(count - 1, PartTreeModel::ColumnCount - 1, index)};
}

/// Whether a group has several parts and all of them are selected.
bool areChildrenSelected(QItemSelection const& selection, QAbstractItemModel const& model,
                         QModelIndex const& index)
{
    int const count = model.rowCount(index);
    for (int row = 0; row < count; ++row)
        if (!selection.contains(model.index(row, 0, index)))
            return false;
    return count > 1;
}

/// The rows of a parent, and of the rows under it, whose objects are in a set.
void appendRows(PartTreeModel const& model, QModelIndex const& parent, ObjectSet const& objects,
                QItemSelection& rows)
{
    int const count = model.rowCount(parent);
    for (int begin = 0; begin < count; ++begin) {
        int end = begin;
        while (end < count && objects.contains(model.objectAt(model.index(end, 0, parent))))
            ++end;
        if (end > begin)
            rows.append(
                QItemSelectionRange(model.index(begin, 0, parent),
                                    model.index(end - 1, PartTreeModel::ColumnCount - 1, parent)));
        begin = end;
    }
    for (int row = 0; row < count; ++row)
        if (QModelIndex const index = model.index(row, 0, parent); model.rowCount(index) > 0)
            appendRows(model, index, objects, rows);
}

}  // namespace

PartSelectionLink::PartSelectionLink(PartTreeModel& model, QItemSelectionModel& selection,
                                     QObject* parent)
    : QObject(parent), m_model(model), m_selection(selection)
{
    connect(&selection, &QItemSelectionModel::selectionChanged, this, &PartSelectionLink::push);
    connect(&model, &PartTreeModel::documentSelectionChanged, this,
            &PartSelectionLink::schedulePull);
    connect(&model, &PartTreeModel::aboutToSynchronize, this, [this] { m_isForeign = true; });
    connect(&model, &PartTreeModel::synchronized, this, &PartSelectionLink::pull);
    pull();
}

void PartSelectionLink::schedulePull()
{
    if (m_isPullScheduled)
        return;
    m_isPullScheduled = true;
    QMetaObject::invokeMethod(this, &PartSelectionLink::pull, Qt::QueuedConnection);
}

void PartSelectionLink::pull()
{
    m_isPullScheduled = false;
    m_isForeign = true;
    QItemSelection rows;
    if (Mesh::Document const* const document = m_model.document()) {
        auto const objects = document->getSelectedObjects();
        appendRows(m_model, {}, ObjectSet(objects.begin(), objects.end()), rows);
    }
    m_selection.select(rows, QItemSelectionModel::ClearAndSelect);
    m_isForeign = false;
    emit pulled();
}

QItemSelection PartSelectionLink::followGroups(QItemSelection selection,
                                               QItemSelection const& selected,
                                               QItemSelection const& deselected) const
{
    for (QModelIndex const& index : selected.indexes())
        if (index.column() == 0)
            selection.merge(childrenOf(m_model, index), QItemSelectionModel::Select);

    QSet<QModelIndex> left;
    for (QModelIndex const& index : deselected.indexes()) {
        if (index.column() != 0)
            continue;
        // A click on a member, or a range of members, lets the group go but not the members.
        if (index == m_selection.currentIndex().siblingAtColumn(0) &&
            areChildrenSelected(selection, m_model, index))
            selection.merge(childrenOf(m_model, index), QItemSelectionModel::Deselect);
        if (index.parent().isValid() && !selected.contains(index.parent()))
            left.insert(index.parent());
    }
    for (QModelIndex const& group : left)
        selection.merge({group, group.siblingAtColumn(PartTreeModel::ColumnCount - 1)},
                        QItemSelectionModel::Deselect);
    return selection;
}

void PartSelectionLink::push(QItemSelection const& selected, QItemSelection const& deselected)
{
    Mesh::Document* const document = m_model.document();
    if (m_isForeign || !document)
        return;
    PartEdits::Objects wanted;
    QItemSelection const rows = followGroups(m_selection.selection(), selected, deselected);
    for (QModelIndex const& index : rows.indexes())
        if (index.column() == 0)
            if (Base::DocumentObject* const object = m_model.objectAt(index))
                wanted.push_back(object);

    auto const present = document->getSelectedObjects();
    ObjectSet const isWanted(wanted.begin(), wanted.end());
    ObjectSet const isPresent(present.begin(), present.end());
    std::vector<std::pair<Base::DocumentObject*, bool>> changes;
    for (Base::DocumentObject* const object : present)
        if (!isWanted.contains(object) && m_model.indexOf(object).isValid())
            changes.emplace_back(object, false);
    for (Base::DocumentObject* const object : wanted)
        if (!isPresent.contains(object))
            changes.emplace_back(object, true);
    for (std::size_t i = 0; i < changes.size(); ++i)
        document->select(changes[i].first, changes[i].second, i + 1 == changes.size(), false);
    if (changes.empty())
        schedulePull();
}

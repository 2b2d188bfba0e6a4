// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/JobGuard.h"
#include "app/panels/FitText.h"
#include "app/partlist/PartTreeModel.h"
#include "platform/document/q2s.h"

#include <QColor>
#include <QCoreApplication>
#include <QDataStream>
#include <QLocale>
#include <QMimeData>

// What the rows of the part list show, and what can be done to them.

namespace {

QString const partsMimeType = QStringLiteral("application/x-orbe-parts");

bool isBusy()
{
    return JobGuard::instance()->isBusy();
}

QVariant colorOf(PartNode const& node)
{
    unsigned const rgba = node.look.color;
    if (rgba == 0)
        return {};
    return QColor(int(rgba >> 24), int(rgba >> 16 & 255), int(rgba >> 8 & 255), int(rgba & 255));
}

QVariant closedOf(PartNode const& node)
{
    if (node.isGroup || !node.look.openEdges)
        return {};
    return *node.look.openEdges == 0 && node.look.triangles > 0;
}

}  // namespace

QModelIndex PartTreeModel::index(int row, int column, QModelIndex const& parent) const
{
    PartNode const& node = *nodeAt(parent);
    if (row < 0 || column < 0 || column >= ColumnCount || std::size_t(row) >= node.children.size())
        return {};
    return createIndex(row, column, node.children[std::size_t(row)].get());
}

QModelIndex PartTreeModel::parent(QModelIndex const& index) const
{
    return index.isValid() ? indexOf(*nodeAt(index)->parent, 0) : QModelIndex();
}

int PartTreeModel::rowCount(QModelIndex const& parent) const
{
    return parent.column() > 0 ? 0 : int(nodeAt(parent)->children.size());
}

int PartTreeModel::columnCount(QModelIndex const&) const
{
    return ColumnCount;
}

QVariant PartTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    switch (section) {
        case NameColumn:
            return tr("Name");
        case TrianglesColumn:
            return tr("Triangles");
        case ClosedColumn:
            return role == Qt::ToolTipRole ? tr("Whether the part is closed") : QString();
        case ColorColumn:
            return role == Qt::ToolTipRole ? tr("Colour") : QString();
        case EyeColumn:
            return role == Qt::ToolTipRole ? tr("Visibility") : QString();
        default:
            return {};
    }
}

QVariant PartTreeModel::data(QModelIndex const& index, int role) const
{
    if (!index.isValid())
        return {};
    PartNode const& node = *nodeAt(index);
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return text(node, index.column());
        case Qt::ToolTipRole:
            return toolTip(node, index.column());
        case Qt::TextAlignmentRole:
            return index.column() == TrianglesColumn ? int(Qt::AlignRight | Qt::AlignVCenter)
                                                     : int(Qt::AlignLeft | Qt::AlignVCenter);
        case EyeRole:
            return int(node.look.eye);
        case ColorRole:
            return colorOf(node);
        case ClosedRole:
            return closedOf(node);
        case MisfitRole:
            return FitText::misfit(node.look.box, m_room);
        default:
            return {};
    }
}

QString PartTreeModel::text(PartNode const& node, int column) const
{
    if (column == NameColumn)
        return node.look.name;
    if (column == TrianglesColumn)
        return QLocale().toString(qulonglong(node.look.triangles));
    return {};
}

QString PartTreeModel::toolTip(PartNode const& node, int column) const
{
    bool const isEditable = column == ColorColumn || column == EyeColumn;
    if (isEditable && isBusy())
        return JobGuard::instance()->reason();
    if (column == EyeColumn)
        return node.look.eye == PartNode::Eye::Closed ? tr("Hidden; click to show")
                                                      : tr("Shown; click to hide");
    if (column == ColorColumn)
        return tr("Click to choose a colour");
    QString const misfit = FitText::misfit(node.look.box, m_room);
    if (column != ClosedColumn || node.isGroup)
        return misfit.isEmpty() ? node.look.name : node.look.name + '\n' + misfit;
    if (!node.look.openEdges)
        return tr("Being checked...");
    if (node.look.triangles == 0)
        return tr("empty: no triangles");
    if (*node.look.openEdges == 0)
        return tr("closed");
    return tr("open: %n open edges", nullptr, int(*node.look.openEdges));
}

Qt::ItemFlags PartTreeModel::flags(QModelIndex const& index) const
{
    if (!index.isValid())
        return isBusy() ? Qt::NoItemFlags : Qt::ItemIsDropEnabled;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (isBusy())
        return flags;
    flags |= Qt::ItemIsDropEnabled;
    if (index.column() == NameColumn)
        flags |= Qt::ItemIsEditable;
    if (!nodeAt(index)->isGroup)
        flags |= Qt::ItemIsDragEnabled;
    return flags;
}

bool PartTreeModel::setData(QModelIndex const& index, QVariant const& value, int role)
{
    Base::DocumentObject* const object = index.isValid() ? objectAt(index) : nullptr;
    if (role != Qt::EditRole || index.column() != NameColumn || !object || isBusy())
        return false;
    bool const isRenamed = PartEdits::rename(*m_document, *object, q2s(value.toString()));
    if (isRenamed)
        synchronize();
    return isRenamed;
}

QStringList PartTreeModel::mimeTypes() const
{
    return {partsMimeType};
}

QMimeData* PartTreeModel::mimeData(QModelIndexList const& indexes) const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qint64(QCoreApplication::applicationPid());
    for (QModelIndex const& index : indexes)
        if (index.column() == NameColumn && objectAt(index))
            stream << quint64(reinterpret_cast<std::uintptr_t>(objectAt(index)));
    auto* const data = new QMimeData;
    data->setData(partsMimeType, bytes);
    return data;
}

PartEdits::Parts PartTreeModel::draggedParts(QMimeData const* data) const
{
    QByteArray const bytes = data->data(partsMimeType);
    QDataStream stream(bytes);
    qint64 process = 0;
    stream >> process;
    if (!m_document || process != QCoreApplication::applicationPid())
        return {};
    PartEdits::Objects objects;
    while (!stream.atEnd()) {
        quint64 address = 0;
        stream >> address;
        // Only an address that is in the list is an object's.
        auto const place = m_nodes.find(reinterpret_cast<Base::DocumentObject const*>(address));
        if (place != m_nodes.end())
            objects.push_back(place->second->object);
    }
    return PartEdits::partsAmong(objects);
}

Qt::DropActions PartTreeModel::supportedDropActions() const
{
    return Qt::MoveAction;
}

Mesh::DocumentObjectGroup* PartTreeModel::dropTarget(QModelIndex const& parent) const
{
    PartNode const* node = nodeAt(parent);
    if (!node->isGroup && node->parent)
        node = node->parent;
    return dynamic_cast<Mesh::DocumentObjectGroup*>(node->object);
}

bool PartTreeModel::canDropMimeData(QMimeData const* data, Qt::DropAction, int, int,
                                    QModelIndex const&) const
{
    return m_document && !isBusy() && data->hasFormat(partsMimeType);
}

bool PartTreeModel::dropMimeData(QMimeData const* data, Qt::DropAction action, int row, int column,
                                 QModelIndex const& parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    bool const isMoved =
        PartEdits::moveToGroup(*m_document, draggedParts(data), dropTarget(parent));
    if (isMoved)
        synchronize();
    return isMoved;
}

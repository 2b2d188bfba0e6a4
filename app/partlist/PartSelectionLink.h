// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QItemSelectionModel>
#include <QObject>

class PartTreeModel;

/// Keeps the selection of the part list and that of the document the same. A group that the user
/// selects or lets go takes its parts along, and a part that is let go takes its group along.
class PartSelectionLink : public QObject
{
    Q_OBJECT

public:
    /// model, selection  outlive the link
    PartSelectionLink(PartTreeModel& model, QItemSelectionModel& selection, QObject* parent);

    /// Shows the document's selection in the list.
    void pull();

signals:
    /// The document's selection has come into the list.
    void pulled();

private:
    void push(QItemSelection const& selected, QItemSelection const& deselected);
    QItemSelection followGroups(QItemSelection selection, QItemSelection const& selected,
                                QItemSelection const& deselected) const;
    void schedulePull();

    PartTreeModel& m_model;
    QItemSelectionModel& m_selection;
    bool m_isForeign = false;
    bool m_isPullScheduled = false;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/PartEdits.h"

#include <QColor>
#include <QWidget>

#include <functional>

class PartSelectionLink;
class PartTreeModel;
class PartTreeView;
class QLabel;
class QMenu;

/// The parts and groups of the active document, with their colours, triangles, visibility, and
/// whether they are closed. Its selection is the document's. All edits are undo steps; while a job
/// runs there are none.
class PartList : public QWidget
{
    Q_OBJECT

public:
    /// Asks for a colour; an invalid one means that none was chosen.
    using ColorChooser = std::function<QColor(QColor const& initial, QWidget* parent)>;

    explicit PartList(QWidget* parent = nullptr);
    ~PartList() override;

    /// Replaces the colour dialog.
    void setColorChooser(ColorChooser chooser) { m_chooseColor = std::move(chooser); }

    PartTreeView* view() const { return m_view; }
    PartTreeModel* model() const { return m_model; }
    /// Takes over now what has changed in the document.
    void synchronize();
    /// The menu for the selected parts, in which triggering an action does it; the caller owns it.
    /// Null without a document.
    QMenu* makeContextMenu();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildView();
    /// Hides the number of triangles where it would leave no room for names.
    void fitColumns();
    void retranslate();
    void updateSummary();
    void buttonClicked(QModelIndex const& index);
    void showMenu(QPoint position);
    void chooseColor(PartEdits::Parts const& parts);
    void renameCurrent();
    void revealSelected();
    /// The selected parts if the row is one of them, else those of the row.
    PartEdits::Parts partsAt(QModelIndex const& index) const;

    PartTreeModel* m_model;
    PartTreeView* m_view;
    QLabel* m_summary;
    PartSelectionLink* m_link;
    /// Of its column when it was last shown.
    int m_trianglesWidth = 0;
    ColorChooser m_chooseColor;
};

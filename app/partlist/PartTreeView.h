// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPersistentModelIndex>
#include <QTreeView>

/// The tree of the part list. A click on a colour or an eye is a click on a button: it leaves the
/// selection alone and begins no drag.
class PartTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit PartTreeView(QWidget* parent = nullptr);

    /// Shown in the middle while there are no rows.
    void setPlaceholder(QString const& text);

signals:
    void buttonClicked(QModelIndex const& index);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void rowsInserted(QModelIndex const& parent, int first, int last) override;

private:
    QModelIndex buttonUnder(QMouseEvent const& event) const;

    QString m_placeholder;
    QPersistentModelIndex m_pressed;
};

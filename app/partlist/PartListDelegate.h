// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyledItemDelegate>

/// Draws the rows of the part list: colour swatch, eye and the sign for a closed or open part.
class PartListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, QStyleOptionViewItem const& option,
               QModelIndex const& index) const override;
    QSize sizeHint(QStyleOptionViewItem const& option, QModelIndex const& index) const override;
    /// Leaves the text as it is typed unless the part got another name meanwhile.
    void setEditorData(QWidget* editor, QModelIndex const& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, QModelIndex const& index) const override;

private:
    void paintColor(QPainter& painter, QStyleOptionViewItem const& option,
                    QModelIndex const& index) const;
    void paintSign(QPainter& painter, QStyleOptionViewItem const& option, QString const& icon,
                   QString const& text, double opacity) const;
};

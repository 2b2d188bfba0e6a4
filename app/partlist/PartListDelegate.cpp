// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/partlist/PartListDelegate.h"

#include "app/panels/PanelIcon.h"
#include "app/partlist/PartTreeModel.h"

#include <QApplication>
#include <QPainter>

namespace {

using Eye = PartNode::Eye;

/// A property of the editor: the name that it was given last.
constexpr char const* shownName = "shownName";

Eye eyeOf(QModelIndex const& index)
{
    return Eye(index.data(PartTreeModel::EyeRole).toInt());
}

/// A triangle with an exclamation mark.
QIcon misfitSign(int side)
{
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF const rect = QRectF(picture.rect()).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(QColor(0xa8, 0x5a, 0x00), 1));
    painter.setBrush(QColor(0xff, 0xb4, 0x2e));
    painter.drawPolygon(
        QPolygonF({QPointF(rect.center().x(), rect.top()), rect.bottomRight(), rect.bottomLeft()}));
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(std::max(6, int(rect.height() * 0.7)));
    painter.setFont(font);
    painter.setPen(QColor(0x30, 0x20, 0x00));
    painter.drawText(rect.adjusted(0, rect.height() * 0.15, 0, 0), Qt::AlignCenter,
                     QStringLiteral("!"));
    QIcon sign(picture);
    // It has the same colours in the selection.
    sign.addPixmap(picture, QIcon::Selected);
    return sign;
}

}  // namespace

QSize PartListDelegate::sizeHint(QStyleOptionViewItem const& option, QModelIndex const& index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    int const height = option.fontMetrics.height() * 3 / 2;
    return {size.width() + option.fontMetrics.height() / 2, std::max(size.height(), height)};
}

void PartListDelegate::setEditorData(QWidget* editor, QModelIndex const& index) const
{
    // Any change of the row comes by here: its part may just have been found to be closed.
    QVariant const name = index.data(Qt::EditRole);
    if (editor->property(shownName) == name)
        return;
    editor->setProperty(shownName, name);
    QStyledItemDelegate::setEditorData(editor, index);
}

void PartListDelegate::initStyleOption(QStyleOptionViewItem* option, QModelIndex const& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // The current row's frame would look like an editor.
    option->state &= ~QStyle::State_HasFocus;
    if (eyeOf(index) == Eye::Closed)
        option->state &= ~QStyle::State_Enabled;
    if (index.column() == PartTreeModel::NameColumn && index.model()->rowCount(index) > 0)
        option->font.setBold(true);
    if (index.column() != PartTreeModel::NameColumn ||
        index.data(PartTreeModel::MisfitRole).toString().isEmpty())
        return;
    int const side = option->fontMetrics.height();
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->icon = misfitSign(side);
    option->decorationSize = {side, side};
    option->decorationPosition = QStyleOptionViewItem::Right;
}

void PartListDelegate::paint(QPainter* painter, QStyleOptionViewItem const& option,
                             QModelIndex const& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    switch (index.column()) {
        case PartTreeModel::ColorColumn:
            paintColor(*painter, option, index);
            break;
        case PartTreeModel::ClosedColumn: {
            QVariant const closed = index.data(PartTreeModel::ClosedRole);
            if (closed.isValid())
                paintSign(*painter, option, closed.toBool() ? "app_closed" : "app_open_part",
                          closed.toBool() ? QString(QChar(0x25cf)) : QString(QChar(0x25cb)), 1);
            break;
        }
        case PartTreeModel::EyeColumn: {
            Eye const eye = eyeOf(index);
            double const opacity = eye == Eye::Open ? 1 : eye == Eye::Half ? 0.5 : 0.6;
            paintSign(*painter, option, eye == Eye::Closed ? "app_eye_off" : "app_eye",
                      eye == Eye::Closed ? QString(QChar(0x2013)) : QString(QChar(0x25c9)),
                      opacity);
            break;
        }
        default:
            break;
    }
}

void PartListDelegate::paintColor(QPainter& painter, QStyleOptionViewItem const& option,
                                  QModelIndex const& index) const
{
    if (index.model()->rowCount(index.siblingAtColumn(PartTreeModel::NameColumn)) > 0)
        return;
    double const side = option.fontMetrics.height() * 0.75;
    QRectF rect(0, 0, side, side);
    rect.moveCenter(QRectF(option.rect).center());
    auto const color = index.data(PartTreeModel::ColorRole).value<QColor>();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor frame = option.palette.color(QPalette::Text);
    frame.setAlphaF(0.35);
    painter.setPen(QPen(frame, 1, color.isValid() ? Qt::SolidLine : Qt::DotLine));
    painter.setBrush(color.isValid() ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(rect, side / 5, side / 5);
    painter.restore();
}

void PartListDelegate::paintSign(QPainter& painter, QStyleOptionViewItem const& option,
                                 QString const& icon, QString const& text, double opacity) const
{
    int const side = option.fontMetrics.height();
    QRect rect(0, 0, side, side);
    rect.moveCenter(option.rect.center());
    painter.save();
    painter.setOpacity(opacity);
    QIcon const picture = panelIcon(icon);
    bool const isSelected = option.state & QStyle::State_Selected;
    painter.setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    if (picture.isNull())
        painter.drawText(option.rect, Qt::AlignCenter, text);
    else
        picture.paint(&painter, rect);
    painter.restore();
}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;
class QStyleOption;
class QWidget;

/// The shapes of which controls are drawn, in the colours of the theme.
namespace StyleShapes {

/// The triangle-less arrow that points to an edge: a bent line.
void chevron(QPainter& painter, QRectF const& room, Qt::Edge direction, QColor const& colour);

/// A filled rounded rectangle with an edge of one pixel.
void roundedBox(QPainter& painter, QRectF const& box, QColor const& fill, QColor const& edge);

/// The ground and edge of a field that takes input.
void field(QPainter& painter, QStyleOption const& option);

/// The ring around what has the keyboard focus.
void focusRing(QPainter& painter, QRectF const& box);

void pushButton(QPainter& painter, QStyleOption const& option, QWidget const* widget);
void toolButton(QPainter& painter, QStyleOption const& option);
void checkBox(QPainter& painter, QStyleOption const& option);
void radioButton(QPainter& painter, QStyleOption const& option);
/// The mark of a checked menu entry: a hook, or a dot where one of several is chosen.
void menuMark(QPainter& painter, QStyleOption const& option, bool isExclusive);
/// The ground of a row or cell in a list, tree or table.
void itemGround(QPainter& painter, QStyleOption const& option);
void progressBar(QPainter& painter, QStyleOption const& option);

}  // namespace StyleShapes

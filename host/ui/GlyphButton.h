// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QBrush>
#include <QPen>

/// A small flat button with a sign drawn in the colours of the theme.
class GlyphButton : public QAbstractButton
{
    Q_OBJECT

public:
    enum Glyph
    {
        Pin,
        Fold,
        Unfold,
        Maximize,
        Restore,
        Close
    };

    GlyphButton(Glyph glyph, QWidget* parent);

    void setGlyph(Glyph glyph);
    /// The text is the tool tip and what a screen reader says.
    void setName(QString const& name);

    /// Draws a sign in the middle of a place, `reach` pixels to each side.
    static void draw(QPainter& painter, Glyph glyph, QRectF const& place, double reach,
                     QPen const& pen, QBrush const& brush);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Glyph m_glyph;
};

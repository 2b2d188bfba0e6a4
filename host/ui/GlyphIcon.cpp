// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/GlyphIcon.h"

#include "platform/ui/Theme.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace {

class GlyphEngine : public QIconEngine
{
public:
    explicit GlyphEngine(GlyphButton::Glyph glyph) : m_glyph(glyph) {}

    void paint(QPainter* painter, QRect const& rect, QIcon::Mode mode, QIcon::State) override
    {
        double const side = std::min(rect.width(), rect.height());
        QColor const colour = themeColor(mode == QIcon::Disabled ? "disabledText" : "mutedText");
        GlyphButton::draw(*painter, m_glyph, rect, side * 0.3, QPen(colour, side / 12),
                          Qt::NoBrush);
    }

    QPixmap pixmap(QSize const& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return result;
    }

    QIconEngine* clone() const override { return new GlyphEngine(m_glyph); }

private:
    GlyphButton::Glyph m_glyph;
};

}  // namespace

QIcon glyphIcon(GlyphButton::Glyph glyph)
{
    return QIcon(new GlyphEngine(glyph));
}

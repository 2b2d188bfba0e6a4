// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/view/OverlayLabel.h"

#include <algorithm>

namespace {

constexpr QPoint offset(16, 14);

}  // namespace

OverlayLabel::OverlayLabel(QWidget& view, char const* name) : QLabel(&view)
{
    setObjectName(QLatin1String(name));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setStyleSheet(
        QStringLiteral("background: #fffbe6; color: #202020;"
                       "border: 1px solid #a09060; padding: 2px;"));
}

void OverlayLabel::putBeside(QPoint place)
{
    adjustSize();
    QSize const room = parentWidget()->size() - size();
    move(std::clamp(place.x() + offset.x(), 0, std::max(0, room.width())),
         std::clamp(place.y() + offset.y(), 0, std::max(0, room.height())));
}

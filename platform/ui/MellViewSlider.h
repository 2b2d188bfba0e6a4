// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace Base {

/// The height at which a horizontal plane cuts, in world millimetres, and its range.
class MellViewSlider : public QObject
{
    Q_OBJECT

public:
    /// The one that MainWindow::getViewSlider() gives: there without a window too, never null.
    static MellViewSlider* instance();

    explicit MellViewSlider(QObject* parent = nullptr);

    float getHeight() const { return m_height; }
    float getMinimum() const { return m_minimum; }
    float getMaximum() const { return m_maximum; }

    /// Takes any height; the range is for display.
    void setHeight(float height);

    /// Takes the range anew from the boxes of the active document's part list. Without a part the
    /// range is 0 to 0. The height stays as it is.
    void refresh();

signals:
    void heightChanged(float height);
    void rangeChanged(float minimum, float maximum);

private:
    float m_height = 0;
    float m_minimum = 0;
    float m_maximum = 0;
};

}  // namespace Base

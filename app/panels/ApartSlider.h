// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;
class QSlider;

namespace Mesh {
class GLView;
}

/// Draws the parts of a view apart from each other, as far as one drags; the parts stay where they
/// are. While a mouse tool runs, which goes by where they are, they are drawn there.
class ApartSlider : public QWidget
{
    Q_OBJECT

public:
    /// The view outlives this.
    explicit ApartSlider(Mesh::GLView& view, QWidget* parent = nullptr);

    QSlider& slider() const { return *m_slider; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
    void follow();

    Mesh::GLView& m_view;
    QLabel* m_label;
    QSlider* m_slider;
};

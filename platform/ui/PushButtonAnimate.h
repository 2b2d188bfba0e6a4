// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>

/// A push button whose colour fades when the pointer enters and leaves. It is pressed by Enter only
/// while it has the focus, so that Enter in a number field starts nothing.
class PushButtonAnimate : public QPushButton
{
    Q_OBJECT
    /// How far the button has taken on its colour under the pointer, 0 to 1; for the style.
    Q_PROPERTY(double hoverShare READ hoverShare WRITE setHoverShare)

public:
    explicit PushButtonAnimate(QWidget* parent = nullptr);
    PushButtonAnimate(QString const& text, QWidget* parent);

    double hoverShare() const { return m_hoverShare; }
    void setHoverShare(double share);

protected:
    bool event(QEvent* event) override;

private:
    void fadeTo(double share);

    double m_hoverShare = 0;
};

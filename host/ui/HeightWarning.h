// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace Base {
class Document;
}

/// Says beside the height that a cut there would not meet the selected parts, or where nothing is
/// selected any part; hidden where it meets them all. The tip has the names.
class HeightWarning : public QLabel
{
    Q_OBJECT

public:
    explicit HeightWarning(QWidget* parent);

    /// document  null for none
    /// height    in world millimetres
    void refresh(Base::Document const* document, float height);

protected:
    void changeEvent(QEvent* event) override;

private:
    /// What a cut would miss.
    struct Missed
    {
        int parts = 0;
        /// Of how many.
        int all = 0;
        bool isSelection = false;
        QString first;

        bool operator==(Missed const&) const = default;
    };

    void show(Missed const& missed);
    void setTexts();
    void setColor();

    Missed m_missed;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/HeightCut.h"

#include <QDialog>

class MellLineEdit;
class MellQuantitySpinBox;
class QComboBox;
class QLabel;
class QPushButton;
class QRadioButton;

/// Asks at which heights parts are to be cut, and which pieces are to stay.
class HeightCutDialog : public QDialog
{
    Q_OBJECT

public:
    /// box     around the parts; world millimetres
    /// height  that is proposed, of the slider
    HeightCutDialog(UBox3<float> const& box, double height, QWidget* parent);

    /// What the user wants; without a height while the dialog does not make sense.
    HeightCut::Plan plan() const;

    /// The numbers of a text, in the unit of the window, as millimetres: separated by blanks or
    /// semicolons, with a point or the decimal sign of the language. Sets `wrong` to the first word
    /// that is no number; else it is empty.
    static std::vector<double> heightsIn(QString const& text, QString& wrong);

private:
    void build();
    void refresh();
    std::vector<double> heights(QString& wrong) const;

    UBox3<float> m_box;
    QRadioButton* m_atHeights;
    QRadioButton* m_every;
    MellLineEdit* m_heights;
    MellQuantitySpinBox* m_distance;
    QComboBox* m_keep;
    QLabel* m_summary;
    QPushButton* m_cut = nullptr;
};

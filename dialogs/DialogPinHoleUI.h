// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/PinHoleParas.h"
#include "dialogs/DialogTexts.h"

#include <QWidget>

class MellQuantitySpinBox;
class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace Freecut {

/// The page with the parameters of pins and holes. They are stored when the user saves them.
class DialogPinHoleUI : public QWidget
{
    Q_OBJECT

public:
    explicit DialogPinHoleUI(QWidget* parent = nullptr);

    QSize sizeHint() const override;

    /// What the fields say now.
    PinHoleParas paras() const;
    /// Shows values that agree with each other.
    void setParas(PinHoleParas const& paras);

public slots:
    // Fields that depend on others keep to them.

    void on_line_radius_editing();
    void on_line_sideClear_editing();
    void on_save_clicked();
    void on_pin_clicked();
    void on_hole_clicked();
    void on_sidis_checked(bool checked);

protected:
    void changeEvent(QEvent* event) override;

private:
    void buildType();
    void buildCylinder();
    void buildClearances();
    void connectAll();
    void loadParas();
    void limitToRadius();
    void showPicture();
    double leastSpacing() const;

    DialogTexts m_texts;
    QRadioButton* pin;
    QRadioButton* hole;
    QLabel* m_picture;
    MellQuantitySpinBox* line_radius;
    MellQuantitySpinBox* line_tolerance;
    MellQuantitySpinBox* line_height;
    QCheckBox* sidis;
    MellQuantitySpinBox* line_sideDis;
    MellQuantitySpinBox* line_topClear;
    MellQuantitySpinBox* line_spacing;
    MellQuantitySpinBox* line_sideClear;
    MellQuantitySpinBox* line_faceClear;
    QPushButton* save;
};

}  // namespace Freecut

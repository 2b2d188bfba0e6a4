// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/LapJointParas.h"
#include "dialogs/DialogTexts.h"

#include <QWidget>

class MellQuantitySpinBox;
class QButtonGroup;
class QGridLayout;
class QLabel;

namespace Freecut {

/// The page with the parameters of a lap joint. It stores them when it goes.
class DialogLapJointUI : public QWidget
{
    Q_OBJECT

public:
    explicit DialogLapJointUI(QWidget* parent = nullptr);
    ~DialogLapJointUI() override;

    QSize sizeHint() const override;

    /// What the fields say now.
    LapJointParas paras() const;
    /// Shows values that agree with each other.
    void setParas(LapJointParas const& paras);

public slots:
    /// The front and back clearances reach up to the notch depth from now on.
    void on_line_notchDepth_editing();
    /// The notch clearance reaches up to the side distance from now on.
    void on_line_sideDistance_editing();

protected:
    void changeEvent(QEvent* event) override;

private:
    void buildParameters();
    void buildSideContours(QGridLayout* grid);
    void buildClearances();
    void loadParas();
    void saveParas() const;
    void slotThemeColorChanged();
    void showPicture(double width);

    DialogTexts m_texts;
    QLabel* m_picture;
    QButtonGroup* m_basedOn;
    MellQuantitySpinBox* line_notchDepth;
    MellQuantitySpinBox* line_sideDistance;
    MellQuantitySpinBox* line_notchClearance;
    MellQuantitySpinBox* line_frontClearance;
    MellQuantitySpinBox* line_backClearance;
};

}  // namespace Freecut

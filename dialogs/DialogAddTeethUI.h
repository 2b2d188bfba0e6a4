// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/DialogTexts.h"
#include "dialogs/PictureTip.h"
#include "platform/ui/Dialog.h"
#include "tools/TeethParas.h"

#include <array>

class DialogWidgetGroup;
class MellGridLayout;
class MellQuantitySpinBox;
class MellSpinBox;
class PushButtonAnimate;
class QCheckBox;
class QLabel;
class QRadioButton;
class QTabWidget;

namespace Freecut {

class DialogPolygoncut;
class PolygoncutSelection;

/// The window for the teeth of a polygon's edges. Each change makes the teeth under edit anew.
class DialogAddTeethUI : public Dialog
{
    Q_OBJECT

public:
    explicit DialogAddTeethUI(QWidget* parent);

    /// The dialog whose tool is edited, borrowed.
    void setDialog(DialogPolygoncut* dialog) { m_dialog = dialog; }

    /// Hands the fields to the mouse tool; false without one, or if the parameters do not fit.
    ///
    /// makesTeeth  the teeth under edit are made anew
    bool applyFields(bool makesTeeth);
    /// Shows the parameters of the mouse tool.
    void showParas();
    void retranslate() override;

public slots:
    void on_valueChanged();
    void on_bt_flipTeeth_clicked();
    void on_bt_apply_clicked();
    void on_bt_confirm_clicked();
    void on_bt_cancel_clicked();

private:
    /// The tabs, as TeethStyle counts them.
    QWidget* buildJagged();
    QWidget* buildDovetail();
    QWidget* buildPuzzle();
    QWidget* buildMethod();
    void buildButtons();
    QWidget* buildTab(QWidget* fields);
    MellQuantitySpinBox* addField(QWidget* content, MellGridLayout* grid, char const* source,
                                  char const* tag, double initial, PictureTip::Content const& tip);
    void addEmptyRow(QWidget* content, MellGridLayout* grid);
    void connectFields();
    void disconnectFields();
    void followChecks();
    void showPictures();
    void closeWindow();

    TeethParas typedParas() const;
    PolygoncutSelection* selection() const;

    DialogPolygoncut* m_dialog = nullptr;
    DialogTexts m_texts;
    QTabWidget* m_styles;
    std::array<QLabel*, 3> m_pictures{};
    /// Of jagged and puzzle teeth; nothing stands at the dovetail's place.
    std::array<MellQuantitySpinBox*, 3> m_width{};
    std::array<MellQuantitySpinBox*, 3> m_height{};
    MellQuantitySpinBox* m_upperWidth;
    MellQuantitySpinBox* m_lowerWidth;
    MellQuantitySpinBox* m_doveHeight;
    QRadioButton* m_byCount;
    MellSpinBox* m_count;
    QRadioButton* m_byDistance;
    MellQuantitySpinBox* m_distance;
    QCheckBox* m_useOffset;
    MellQuantitySpinBox* m_offset;
    QCheckBox* m_applyAll;
    PushButtonAnimate* m_flip;
};

}  // namespace Freecut

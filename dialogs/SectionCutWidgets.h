// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/DialogTexts.h"

#include <array>

class CutViewSlider;
class Dialog;
class DialogWidgetGroup;
class DialogWidgetGroup2rd;
class MellQuantitySpinBox;
class PushButtonAnimate;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QRadioButton;
class QWidget;

namespace Freecut {

class ConnectorPreview;
class MissedParts;
class DialogLapJointUI;
class DialogPinHoleUI;
class ToolButton;

/// The widgets of the section dialog, from top to bottom.
class SectionCutWidgets
{
public:
    using Fields = std::array<MellQuantitySpinBox*, 3>;

    /// Builds them into a dialog, which owns them.
    void build(Dialog& dialog);
    /// Sets all texts again.
    void retranslate() const { texts.retranslate(); }

    /// Enables what makes sense only where there are parts to cut.
    void setHasParts(bool hasParts);

    QRadioButton* allParts;
    QRadioButton* selectedParts;

    /// In the order of the plane types.
    std::array<ToolButton*, 6> planeButtons;
    Fields normal;
    Fields center;
    /// Along c1 - c0, and along c2 - c1.
    std::array<MellQuantitySpinBox*, 2> size;
    MissedParts* missed;
    CutViewSlider* slider;
    MellQuantitySpinBox* step;

    QCheckBox* removeOriginal;
    QCheckBox* useBoundary;

    DialogWidgetGroup* advancedGroup;
    QCheckBox* useAdvanced;
    QLabel* cutTypeLabel;
    QComboBox* cutType;
    DialogPinHoleUI* pinHole;
    DialogLapJointUI* lapJoint;
    ConnectorPreview* preview;

    PushButtonAnimate* ok;
    PushButtonAnimate* cancel;

private:
    QWidget* buildSelection();
    QWidget* buildPlane();
    QWidget* buildIndicatePlane();
    QWidget* buildNormal();
    QWidget* buildCenter();
    QWidget* buildSize();
    QWidget* buildOptions();
    QWidget* buildAdvanced();
    void buildButtons();
    Fields addVector(QWidget* parent, QGridLayout* grid, bool isLength);
    DialogWidgetGroup* addGroup(QWidget* content, char const* key, char const* context,
                                char const* source);
    DialogWidgetGroup2rd* addSubGroup(QWidget* content, char const* source);

    Dialog* m_dialog = nullptr;
    DialogTexts texts;
    DialogWidgetGroup2rd* m_indicateGroup;
    DialogWidgetGroup2rd* m_normalGroup;
    DialogWidgetGroup2rd* m_centerGroup;
    DialogWidgetGroup2rd* m_sizeGroup;
    DialogWidgetGroup* m_optionsGroup;
};

}  // namespace Freecut

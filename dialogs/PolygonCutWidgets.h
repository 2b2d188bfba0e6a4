// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/DialogTexts.h"

#include <array>

class DialogWidgetGroup;
class MellQuantitySpinBox;
class PushButtonAnimate;
class QCheckBox;
class QLabel;
class QRadioButton;
class QTabWidget;
class QWidget;

namespace Freecut {

class CutForecast;
class DialogPolygoncut;
class PolygonCutUI;
class SolidToolPage;
class ToolButton;

/// The widgets of the polygon dialog, from top to bottom.
class PolygonCutWidgets
{
public:
    /// Builds them into the dialog, which owns them.
    void build(DialogPolygoncut& dialog);
    /// Sets all texts again.
    void retranslate() const;

    /// Enables what makes sense only where there are parts to cut.
    void setHasParts(bool hasParts);
    /// Names the coordinate at which "Cut till" ends, and enables what the standard view offers; -1
    /// for a free view.
    void showView(int viewIndex, bool hasParts);
    /// Shows a sentence below the tabs; empty for none.
    void showProblem(QString const& sentence);

    QRadioButton* allParts;
    QRadioButton* selectedParts;

    QTabWidget* tabs;
    PolygonCutUI* polygon;
    /// As the tabs count them.
    std::array<SolidToolPage*, 3> pages;
    QLabel* problem;
    ToolButton* startPreview;
    ToolButton* stopPreview;
    ToolButton* reset;
    CutForecast* forecast;

    QCheckBox* removeOriginal;

    QCheckBox* cutTill;
    MellQuantitySpinBox* cutTillValue;
    PushButtonAnimate* addPoint;
    QCheckBox* showCoordinate;
    QLabel* moveLabel;
    std::array<QLabel*, 3> moveLabels;
    std::array<MellQuantitySpinBox*, 3> moveFields;

    PushButtonAnimate* ok;
    PushButtonAnimate* cancel;

private:
    QWidget* buildSelection();
    QWidget* buildType();
    QWidget* buildPreview();
    QWidget* buildOptions();
    QWidget* buildAdvanced();
    void buildMove(QWidget* content);
    void buildButtons();
    void showCutTillText();
    DialogWidgetGroup* addGroup(QWidget* content, char const* key, char const* context,
                                char const* source);

    DialogPolygoncut* m_dialog = nullptr;
    DialogTexts m_texts;
    DialogWidgetGroup* m_typeGroup;
    DialogWidgetGroup* m_optionsGroup;
    DialogWidgetGroup* m_advancedGroup;
    char const* m_cutTillAxis = " Z =";
};

}  // namespace Freecut

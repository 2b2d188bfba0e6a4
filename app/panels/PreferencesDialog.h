// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/view/BuildVolume.h"

#include <QDialog>

class MellQuantitySpinBox;
class MellSpinBox;
class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QFormLayout;
class QGroupBox;
class ViewAppearance;
class ViewPreferences;

/// What the user can choose about the whole application. Every choice takes effect at once and is
/// remembered, so there is nothing to confirm.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    /// appearance, view  outlive the dialog
    PreferencesDialog(ViewAppearance& appearance, ViewPreferences& view, QWidget* parent);

    // For tests.

    QComboBox& theme() const { return *m_theme; }
    QComboBox& language() const { return *m_language; }
    QComboBox& unit() const { return *m_unit; }
    QCheckBox& systemSize() const { return *m_systemSize; }
    MellSpinBox& size() const { return *m_size; }
    QComboBox& navigation() const { return *m_navigation; }
    QComboBox& projection() const { return *m_projection; }
    MellQuantitySpinBox& plateWidth() const { return *m_plateWidth; }
    MellQuantitySpinBox& plateDepth() const { return *m_plateDepth; }
    MellQuantitySpinBox& buildHeight() const { return *m_buildHeight; }
    /// The build volumes that are known, behind an entry that chooses none.
    QComboBox& printer() const { return *m_printer; }

    void changeEvent(QEvent* event) override;

private:
    void buildInterface();
    void buildView();
    void load();
    void connectInterface();
    void connectView();
    void retranslate();
    /// Gives texts of another language the room they need; the open dialog never shrinks.
    void growToTexts();
    void setPlate();
    void takePrinter(int index);

    ViewAppearance& m_appearance;
    ViewPreferences& m_preferences;
    QGroupBox* m_interfaceGroup;
    QGroupBox* m_viewGroup;
    QFormLayout* m_interfaceForm;
    QFormLayout* m_viewForm;
    QComboBox* m_theme;
    QComboBox* m_language;
    QComboBox* m_unit;
    QCheckBox* m_systemSize;
    MellSpinBox* m_size;
    QComboBox* m_navigation;
    QComboBox* m_projection;
    MellQuantitySpinBox* m_plateWidth;
    MellQuantitySpinBox* m_plateDepth;
    MellQuantitySpinBox* m_buildHeight;
    QComboBox* m_printer;
    std::vector<BuildVolume> m_volumes;
    QDialogButtonBox* m_buttons;
    bool m_isBuilt = false;
};

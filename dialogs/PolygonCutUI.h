// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/SolidToolPage.h"

class PushButtonAnimate;

namespace Freecut {

class DialogAddTeethUI;

/// The page of the polygon, from which the window for teeth is opened. While that window is open
/// the dialog's main page and its cut are not to be had.
class PolygonCutUI : public SolidToolPage
{
    Q_OBJECT

public:
    PolygonCutUI(DialogPolygoncut& dialog, QWidget* parent);

    char const* objectClass() const override;
    char const* selectionClass() const override;
    void write(VolumeGraphicObject& tool, SharedToolValues const& shared,
               std::function<float()> const& suitableSize) override;
    void refresh(VolumeGraphicObject* tool) override;
    void showValues(SolidValues const& values) override;
    /// Three vertices or more.
    bool isComplete(VolumeGraphicObject const& tool) const override;
    bool holdsCut() const override;
    /// The selected vertex.
    std::optional<UPoint3<float>> shownPoint(VolumeGraphicObject& tool,
                                             bool showsCoordinate) const override;

    /// The window for teeth; null before it was opened.
    DialogAddTeethUI* teethDialog() const { return m_teeth; }

public slots:
    void on_bt_addTeeth_clicked();
    void on_bt_addTeeth_closed();

protected:
    void followChecks() override;

private:
    void endTeeth();

    MellQuantitySpinBox* m_cornerRadius;
    QCheckBox* m_roundCorners;
    PushButtonAnimate* m_addTeeth;
    DialogAddTeethUI* m_teeth = nullptr;
};

}  // namespace Freecut

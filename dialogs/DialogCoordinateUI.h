// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/DialogTexts.h"
#include "platform/ui/Dialog.h"

#include <array>

class MellQuantitySpinBox;
class QLabel;

namespace Freecut {

class DialogPolygoncut;

/// The window in which a point of a tool is typed instead of clicked.
class DialogCoordinateUI : public Dialog
{
    Q_OBJECT

public:
    explicit DialogCoordinateUI(QWidget* parent);

    /// The dialog whose tool gets the points, borrowed.
    void setDialog(DialogPolygoncut* dialog) { m_dialog = dialog; }
    /// Enables the coordinates that the dialog's view leaves free; a free view changes nothing.
    void refresh();
    void retranslate() override;

public slots:
    void line_editing();
    void on_apply_clicked();
    void on_cancel_clicked();

private:
    DialogPolygoncut* m_dialog = nullptr;
    DialogTexts m_texts;
    std::array<QLabel*, 3> m_labels;
    std::array<MellQuantitySpinBox*, 3> m_fields;
};

}  // namespace Freecut

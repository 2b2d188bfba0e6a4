// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogCoordinateUI.h"

#include "dialogs/DialogPolygoncut.h"
#include "dialogs/SolidFields.h"
#include "platform/ui/MellGridLayout.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/view/GLView.h"
#include "tools/ViewAxes.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace Freecut {

DialogCoordinateUI::DialogCoordinateUI(QWidget* parent) : Dialog(parent, false)
{
    setObjectName(QStringLiteral("FreecutCoordinateDialog"));
    m_texts.add([this](QString const& text) { setWindowTitle(text); }, "DialogFreeCut",
                QT_TRANSLATE_NOOP("DialogFreeCut", "Coordinates"));
    auto* const content = new QWidget(this);
    auto* const grid = new MellGridLayout(content);
    constexpr std::array<char const*, 3> names = {"X:", "Y:", "Z:"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        m_labels[i] = new QLabel(QString::fromLatin1(names[i]), content);
        m_fields[i] = SolidFields::makeCoordinate(content);
        m_labels[i]->setBuddy(m_fields[i]);
        grid->addWidget(m_labels[i], int(i), 0);
        grid->addWidget(m_fields[i], int(i), 1);
        connect(m_fields[i], &QAbstractSpinBox::editingFinished, this,
                &DialogCoordinateUI::line_editing);
    }
    mainLayout()->addWidget(content);
    auto* const apply = new PushButtonAnimate(this);
    auto* const cancel = new PushButtonAnimate(this);
    m_texts.addText(apply, "MellCommons", QT_TRANSLATE_NOOP("MellCommons", "Apply"));
    m_texts.addText(cancel, "MellCommons", QT_TRANSLATE_NOOP("MellCommons", "Cancel"));
    connect(apply, &QAbstractButton::clicked, this, &DialogCoordinateUI::on_apply_clicked);
    connect(cancel, &QAbstractButton::clicked, this, &DialogCoordinateUI::on_cancel_clicked);
    buttonLayout()->addWidget(apply);
    buttonLayout()->addWidget(cancel);
}

void DialogCoordinateUI::retranslate()
{
    m_texts.retranslate();
}

void DialogCoordinateUI::refresh()
{
    int const viewIndex = m_dialog ? m_dialog->viewIndex() : -1;
    if (!isAxisView(viewIndex))
        return;
    for (int axis = 0; axis < 3; ++axis) {
        bool const isFree = axis != axisAlongView(viewIndex);
        m_labels[std::size_t(axis)]->setEnabled(isFree);
        m_fields[std::size_t(axis)]->setEnabled(isFree);
    }
}

void DialogCoordinateUI::line_editing()
{
    for (MellQuantitySpinBox* const field : m_fields)
        if (field->lineEdit()->text().isEmpty())
            field->setValue(0);
}

void DialogCoordinateUI::on_apply_clicked()
{
    if (!m_dialog)
        return;
    line_editing();
    int const viewIndex = m_dialog->viewIndex();
    UPoint3<float> point(float(m_fields[0]->value()), float(m_fields[1]->value()),
                         float(m_fields[2]->value()));
    // Along the view the tool's own depth counts. A free view is taken as one along X.
    point[isAxisView(viewIndex) ? axisAlongView(viewIndex) : 0] = 0;
    if (Base::GLView* const view = m_dialog->view()) {
        view->getEyePointFromWCSPoint(point);
        m_dialog->addPoint(point);
    }
    if (!isPinned())
        on_start_hide_animate();
}

void DialogCoordinateUI::on_cancel_clicked()
{
    on_start_hide_animate();
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ui/CutViewWidgets.h"
#include "platform/ui/MellGridLayout.h"
#include "platform/ui/MellHBoxLayout.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/Theme.h"

// The page of the live cut: its widgets and their texts.

namespace {

char const* const icons[] = {":/icons/icons/app_flip.png", ":/icons/icons/app_flip_dark.png"};

QToolButton* axisButton(QWidget* parent, QString const& name)
{
    auto* const button = new QToolButton(parent);
    button->setObjectName(name);
    button->setCheckable(true);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setFixedHeight(themePixels("controlHeight"));
    return button;
}

MellQuantitySpinBox* numberField(QWidget* parent, QString const& name)
{
    auto* const box = new MellQuantitySpinBox(parent);
    box->setObjectName(name);
    box->setAlignment(Qt::AlignRight);
    return box;
}

}  // namespace

void CutView::build()
{
    Widgets& w = *m_widgets;
    auto* const column = new MellVBoxLayout(this);
    w.active = new QCheckBox(this);
    w.active->setObjectName("active");
    w.acrossLabel = new QLabel(this);
    w.axes = new QButtonGroup(this);
    auto* const axisRow = new MellHBoxLayout;
    for (int axis = AlongX; axis <= Free; ++axis) {
        auto* const button = axisButton(this, QString("axis%1").arg(axis));
        w.axes->addButton(button, axis);
        axisRow->addWidget(button);
    }
    w.axes->button(AlongZ)->setChecked(true);
    w.normalRow = new QWidget(this);
    auto* const normals = new MellHBoxLayout(w.normalRow);
    for (int i = 0; i < 3; ++i) {
        w.normal[i] = numberField(w.normalRow, QString("normal%1").arg(i));
        w.normal[i]->setRange(-1e6, 1e6);
        w.normal[i]->setSingleStep(0.1);
        w.normal[i]->setValue(i == 2 ? 1 : 0);
        normals->addWidget(w.normal[i]);
    }
    w.normalHint = new QLabel(this);
    w.normalHint->setWordWrap(true);
    w.positionLabel = new QLabel(this);
    w.slider = new CutViewSlider(this);
    w.slider->setObjectName("slider");
    w.position = numberField(this, "position");
    w.position->setUnit(Base::Unit(Base::Unit::length));
    auto* const place = new MellHBoxLayout;
    place->addWidget(w.slider, 3);
    place->addWidget(w.position, 2);
    w.flip = new QToolButton(this);
    w.flip->setObjectName("flip");
    w.flip->setCheckable(true);
    w.flip->setFixedHeight(themePixels("controlHeight"));
    w.caps = new QCheckBox(this);
    w.caps->setObjectName("caps");
    w.caps->setChecked(true);
    auto* const options = new MellHBoxLayout;
    options->addWidget(w.caps, 1);
    options->addWidget(w.flip);
    column->addWidget(w.active);
    column->addWidget(w.acrossLabel);
    column->addLayout(axisRow);
    column->addWidget(w.normalRow);
    column->addWidget(w.normalHint);
    column->addWidget(w.positionLabel);
    column->addLayout(place);
    column->addLayout(options);
    showIcons();
}

void CutView::showIcons()
{
    QIcon const icon(icons[g_ThemeColor & 16 ? 1 : 0]);
    bool const hasIcon = !icon.pixmap(g_pixelSize).isNull();
    m_widgets->flip->setIcon(icon);
    m_widgets->flip->setToolButtonStyle(hasIcon ? Qt::ToolButtonTextBesideIcon
                                                : Qt::ToolButtonTextOnly);
}

void CutView::retranslate()
{
    Widgets const& w = *m_widgets;
    w.active->setText(tr("Live cut view"));
    w.active->setToolTip(tr("Cuts the parts open in the view. The parts stay whole."));
    w.acrossLabel->setText(tr("Direction"));
    QString const names[] = {"X", "Y", "Z", tr("Free")};
    for (int axis = AlongX; axis <= Free; ++axis)
        w.axes->button(axis)->setText(names[axis]);
    QString const fields[] = {tr("Direction along X"), tr("Direction along Y"),
                              tr("Direction along Z")};
    for (int i = 0; i < 3; ++i)
        w.normal[i]->setToolTip(fields[i]);
    w.normalHint->setText(tr("Enter a direction other than 0, 0, 0."));
    w.positionLabel->setText(tr("Position"));
    w.slider->setToolTip(tr("Moves the cut along its direction."));
    w.position->setToolTip(tr("The distance of the cut from the origin along its direction."));
    w.flip->setText(tr("Flip"));
    w.flip->setToolTip(tr("Cuts away the other side."));
    w.caps->setText(tr("Fill the cut"));
    w.caps->setToolTip(tr("Shows the parts solid where they are cut."));
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogZcut.h"

#include "platform/ui/DialogWidgetGroup.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/SeparateLine.h"
#include "platform/ui/Theme.h"

namespace Freecut {

DialogZcut::DialogZcut(QWidget* parent) : DialogWidgetOneOff(parent, false)
{
    setupUi();
}

void* DialogZcut::create(QWidget* parent)
{
    return static_cast<DialogWidget*>(new DialogZcut(parent));
}

void DialogZcut::setupUi()
{
    setWindowTitle(tr("Section Cut"));
    auto* const content = new QWidget(this);
    new MellVBoxLayout(content);
    m_parameters = new DialogWidgetGroup(tr("Cut parameters"), content,
                                         QStringLiteral("DialogZcut/CutParameters"), true, this);
    m_parameters->setExpandable(false);
    auto* const column = new MellVBoxLayout;
    int const margin = themePixels("dialogWidegtMargin");
    column->setSpacing(0);
    column->setContentsMargins(margin, 0, margin, margin);
    column->addWidget(m_parameters);
    column->addWidget(new SeparateLine(this));
    mainLayout()->insertLayout(0, column);
    m_cut = new PushButtonAnimate(tr("Cut"), this);
    buttonLayout()->addWidget(m_cut);
}

void DialogZcut::setDocument(Base::Document*) {}

void DialogZcut::retranslate() {}

}  // namespace Freecut

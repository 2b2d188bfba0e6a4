// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ToolButton.h"

#include "platform/ui/Application.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/Theme.h"

#include <QAction>

namespace Freecut {

namespace {

constexpr double iconFactor = 2.17;

}  // namespace

ToolButton::ToolButton(char const* command, QWidget* parent) : QToolButton(parent)
{
    setObjectName(QStringLiteral("FreeCutButton"));
    if (Application::Instance)
        Application::Instance->commandManager().addTo(command, this);
    if (!actions().isEmpty())
        setDefaultAction(actions().last());
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setArrowType(Qt::NoArrow);
    int const size = int(g_pixelSize * iconFactor);
    setIconSize({size, size});
}

void ToolButton::setEnabled(bool enabled)
{
    m_isEnabled = enabled;
    followAction();
}

void ToolButton::actionEvent(QActionEvent* event)
{
    QToolButton::actionEvent(event);
    // The base has given the button the action's state.
    followAction();
}

void ToolButton::followAction()
{
    QAction const* const action = defaultAction();
    QToolButton::setEnabled(m_isEnabled && (!action || action->isEnabled()));
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/Action.h"

#include "platform/ui/Command.h"

#include <QIcon>
#include <QToolButton>
#include <QWidget>

namespace Base {

Action::Action(Command* command, QObject* parent)
    : QObject(parent), m_command(command), m_action(new QAction(this))
{
    m_action->setObjectName(QString::fromStdString(command->getName()));
    // Only the user's trigger; toggled() would also come with every setChecked.
    connect(m_action, &QAction::triggered, this, [this](bool checked) {
        if (m_action->isCheckable())
            onToggled(checked);
        else
            onActivated();
    });
}

Action::~Action() = default;

void Action::setEnabled(bool enabled)
{
    m_action->setEnabled(enabled);
}

void Action::setVisible(bool visible)
{
    m_action->setVisible(visible);
}

void Action::setCheckable(bool checkable)
{
    m_action->setCheckable(checkable);
}

void Action::setChecked(bool checked)
{
    m_action->setChecked(checked);
}

void Action::setShowAsCheckBox(bool show)
{
    m_showAsCheckBox = show;
    // The style draws the buttons of the action by that.
    m_action->setProperty("showAsCheckBox", show);
}

bool Action::isShowAsCheckBox() const
{
    return m_showAsCheckBox;
}

bool Action::isChecked() const
{
    return m_action->isChecked();
}

void Action::setShortcut(QString const& keys)
{
    m_action->setShortcut(keys);
}

QString Action::shortcut() const
{
    return m_action->shortcut().toString();
}

void Action::setIcon(QIcon const& icon)
{
    m_action->setIcon(icon);
}

void Action::setStatusTip(QString const& text)
{
    m_action->setStatusTip(text);
}

QString Action::statusTip() const
{
    return m_action->statusTip();
}

void Action::setText(QString const& text)
{
    m_action->setText(text);
}

QString Action::text() const
{
    return m_action->text();
}

void Action::setToolTip(QString const& text)
{
    m_action->setToolTip(text);
}

QString Action::toolTip() const
{
    return m_action->toolTip();
}

void Action::setWhatsThis(QString const& text)
{
    m_action->setWhatsThis(text);
}

QString Action::whatsThis() const
{
    return m_action->whatsThis();
}

void Action::setMenuRole(QAction::MenuRole role)
{
    m_action->setMenuRole(role);
}

QAction* Action::getQAction() const
{
    return m_action;
}

void Action::addTo(QWidget* widget)
{
    if (auto* const button = qobject_cast<QToolButton*>(widget))
        button->setDefaultAction(m_action);
    else
        widget->addAction(m_action);
}

void Action::onActivated()
{
    m_command->invoke(0);
}

void Action::onToggled(bool checked)
{
    m_command->invoke(checked ? 1 : 0);
}

}  // namespace Base

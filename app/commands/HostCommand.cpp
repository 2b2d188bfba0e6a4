// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/HostCommand.h"

#include "app/jobs/JobGuard.h"
#include "platform/document/MeshDocument.h"
#include "platform/ui/ActiveDocument.h"

#include <QCoreApplication>
#include <QFile>

namespace {

std::string iconPath(char const* name, char const* suffix)
{
    std::string const path = std::string(":/icons/icons/") + name + suffix + ".png";
    return QFile::exists(QString::fromStdString(path)) ? path : std::string();
}

QString generalReason()
{
    Base::Document const* const document = activeDocument();
    if (!document || document->getMeshObjects().empty())
        return QCoreApplication::translate("HostCommand", "Open a part first.");
    return QCoreApplication::translate("HostCommand", "Select a part first.");
}

}  // namespace

HostCommand::HostCommand(char const* name, Texts const& texts) : Base::Command(name)
{
    m_menuText = QString::fromUtf8(texts.menu);
    m_toolTipText = QString::fromUtf8(texts.toolTip);
    m_statusTip = m_toolTipText;
    m_whatsThis = m_toolTipText;
    m_accel = texts.accelerator;
    if (!texts.icon)
        return;
    m_icon = iconPath(texts.icon, "");
    m_iconDark = iconPath(texts.icon, "_dark");
    m_pixmap = m_icon.empty() ? nullptr : m_icon.c_str();
    m_pixmapDark = m_iconDark.empty() ? nullptr : m_iconDark.c_str();
}

QString HostCommand::whyInactive() const
{
    return {};
}

QString HostCommand::currentText() const
{
    return translated(getMenuText().toUtf8().constData());
}

QString HostCommand::translated(char const* text) const
{
    return QCoreApplication::translate(className(), text);
}

QString HostCommand::whyNoPart() const
{
    Mesh::Document const* const document = activeMeshDocument();
    return document && !document->getMeshObjects().empty() ? QString() : generalReason();
}

QString HostCommand::whyNothingSelected() const
{
    Mesh::Document const* const document = activeMeshDocument();
    return document && !document->getSelectedMeshObjects().empty() ? QString() : generalReason();
}

bool HostCommand::isActive()
{
    return (!changesDocument() || !JobGuard::instance()->isBusy()) && whyInactive().isEmpty();
}

Mesh::Document* HostCommand::activeMeshDocument()
{
    Base::Document* const document = activeDocument();
    return dynamic_cast<Mesh::Document*>(document);
}

bool changesDocument(Base::Command const& command)
{
    auto const* const own = dynamic_cast<HostCommand const*>(&command);
    return !own || own->changesDocument();
}

QString whyInactive(Base::Command& command)
{
    if (changesDocument(command) && JobGuard::instance()->isBusy())
        return JobGuard::instance()->reason();
    if (auto const* const own = dynamic_cast<HostCommand const*>(&command))
        return own->whyInactive();
    return command.isActive() ? QString() : generalReason();
}

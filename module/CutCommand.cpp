// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/CutCommand.h"

#include "platform/document/MeshDocument.h"
#include "platform/ui/ActiveDocument.h"

CutCommand::CutCommand(CommandTexts const& texts)
    : Base::Command(texts.name), m_className(texts.className)
{
    m_group = QString::fromUtf8(texts.group);
    m_menuText = QString::fromUtf8(texts.menuText);
    m_toolTipText = QString::fromUtf8(texts.toolTip);
    m_toolTipExtText = QString::fromUtf8(texts.toolTipPicture);
    m_statusTip = QString::fromUtf8(texts.statusTip);
    m_whatsThis = m_statusTip;
    m_pixmap = texts.pixmap;
    m_pixmapDark = texts.pixmapDark;
    m_accel = texts.accelerator;
}

Mesh::Document* activeMeshDocument()
{
    Base::Document* const document = activeDocument();
    if (!document || !document->getTypeId().isDerivedFrom(Mesh::Document::getClassTypeId()))
        return nullptr;
    return static_cast<Mesh::Document*>(document);
}

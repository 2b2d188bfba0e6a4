// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ToolFindings.h"

#include "dialogs/ToolProblem.h"
#include "display/VolumeViewProvider.h"
#include "tools/VolumeGraphicObject.h"

#include <utility>

namespace Freecut {

ToolFindings::ToolFindings(Tool tool, IsComplete isComplete, QObject* parent)
    : QObject(parent), m_tool(std::move(tool)), m_isComplete(std::move(isComplete))
{}

void ToolFindings::follow(VolumeGraphicObject const* tool)
{
    disconnect(m_outlines);
    auto const* const provider =
        tool ? dynamic_cast<VolumeViewProvider const*>(tool->getViewProvider()) : nullptr;
    if (provider)
        m_outlines = connect(&provider->background(), &NewestWork::ready, this,
                             &ToolFindings::derived, Qt::QueuedConnection);
}

void ToolFindings::refresh()
{
    if (VolumeGraphicObject* const tool = m_tool(); !tool || hasDerivedOutlines(*tool))
        emit found(problem());
}

QString ToolFindings::problem() const
{
    VolumeGraphicObject* const tool = m_tool();
    return tool && m_isComplete(*tool) ? problemOfTool(*tool) : QString();
}

}  // namespace Freecut

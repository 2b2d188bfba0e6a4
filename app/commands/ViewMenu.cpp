// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/ViewMenu.h"

#include "app/commands/HostCommand.h"
#include "platform/ui/Action.h"
#include "platform/ui/CommandManager.h"
#include "platform/view/MeshGLView.h"

#include <QMenu>

#include <span>
#include <string_view>

namespace {

// Names of commands; "-" is a separator.

constexpr char const* onParts[] = {"Std_FitSelection",
                                   "Std_Hide",
                                   "Std_Isolate",
                                   "-",
                                   "Std_Handles",
                                   "Std_DropToPlate",
                                   "Std_LayFlat",
                                   "Std_FaceDown",
                                   "Std_CutFaceDown",
                                   "-",
                                   "Std_Duplicate",
                                   "Std_DuplicateRow",
                                   "Std_Delete",
                                   "-",
                                   "Std_Group",
                                   "Std_Ungroup",
                                   "-",
                                   "Std_Join",
                                   "Std_TakeAway",
                                   "Std_Intersect",
                                   "Std_SplitByParts",
                                   "Std_Merge",
                                   "Std_SplitShells",
                                   "-",
                                   "Std_Sectioncut",
                                   "Std_Polygoncut",
                                   "-",
                                   "Std_Check",
                                   "Std_Repair",
                                   "Std_ExportSelected"};
constexpr char const* besideParts[] = {
    "Std_FitAll", "Std_View6",     "Std_View2",      "Std_View0",
    "-",          "Std_SelectAll", "Std_SelectNone", "Std_ShowAll",
    "-",          "Std_ShowEdges", "Std_ShowPlate",  "Std_Open"};

bool makesSense(Base::Command& command)
{
    auto const* const own = dynamic_cast<HostCommand const*>(&command);
    return !own || own->whyInactive().isEmpty();
}

void fill(QMenu& menu, Base::CommandManager& manager, std::span<char const* const> entries)
{
    bool isSeparated = true;
    for (char const* const entry : entries) {
        Base::Command* const command = manager.getCommandByName(entry);
        if (std::string_view(entry) == "-")
            isSeparated = false;
        if (!command || !makesSense(*command))
            continue;
        if (!isSeparated && !menu.isEmpty())
            menu.addSeparator();
        isSeparated = true;
        manager.addTo(entry, &menu);
    }
}

}  // namespace

ViewMenu::ViewMenu(Mesh::GLView& view, Base::CommandManager& manager)
    : QObject(&view), m_view(view), m_manager(manager)
{
    connect(&view, &Mesh::GLView::contextMenuRequested, this, &ViewMenu::show);
}

void ViewMenu::show(QPoint position, bool isOnPart)
{
    auto* const menu = new QMenu(&m_view);
    menu->setObjectName(QStringLiteral("ViewMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setToolTipsVisible(true);
    if (isOnPart)
        fill(*menu, m_manager, onParts);
    else
        fill(*menu, m_manager, besideParts);
    emit aboutToShow();
    menu->popup(m_view.mapToGlobal(position));
}

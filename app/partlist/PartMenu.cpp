// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/partlist/PartMenu.h"

#include "app/jobs/JobGuard.h"
#include "app/panels/PanelIcon.h"
#include "platform/document/q2s.h"

#include <algorithm>

PartMenu::PartMenu(Mesh::Document& document, QWidget* parent)
    : QMenu(parent),
      m_document(document),
      m_objects(PartEdits::selectedObjects(document)),
      m_parts(PartEdits::partsAmong(m_objects))
{
    setToolTipsVisible(true);
    addVisibility();
    addSeparator();
    addGroups();
    addSeparator();
    addParts();
}

// Time passes between the opening of a menu and a click, so edits look at the selection again.
PartEdits::Parts PartMenu::selectedParts() const
{
    return PartEdits::partsAmong(PartEdits::selectedObjects(m_document));
}

void PartMenu::add(QString const& text, QString const& icon, QString const& why,
                   std::function<void()> const& edit)
{
    QAction* const action = addAction(panelIcon(icon), text);
    QString const running = JobGuard::instance()->reason();
    QString const reason = running.isEmpty() ? why : running;
    action->setEnabled(reason.isEmpty());
    action->setToolTip(reason);
    connect(action, &QAction::triggered, this, [edit] {
        if (!JobGuard::instance()->isBusy())
            edit();
    });
}

void PartMenu::addVisibility()
{
    auto const isVisible = [](auto const* part) { return part->isVisible(); };
    bool const anyVisible = std::any_of(m_parts.begin(), m_parts.end(), isVisible);
    bool const allVisible = std::all_of(m_parts.begin(), m_parts.end(), isVisible);
    QString const select = m_parts.empty() ? tr("Select a part first.") : QString();
    add(tr("Hide"), "app_hide",
        select.isEmpty() && !anyVisible ? tr("The selected parts are hidden already.") : select,
        [this] { PartEdits::setVisible(m_document, selectedParts(), false); });
    add(tr("Show"), "app_show",
        select.isEmpty() && allVisible ? tr("The selected parts are shown already.") : select,
        [this] { PartEdits::setVisible(m_document, selectedParts(), true); });
    PartEdits::Parts const all = m_document.getMeshObjects();
    add(tr("Show All"), "app_show_all",
        std::all_of(all.begin(), all.end(), isVisible) ? tr("No part is hidden.") : QString(),
        [this] { PartEdits::showAll(m_document); });
}

void PartMenu::addGroups()
{
    auto const groups = PartEdits::groupsAround(m_objects);
    auto const isGrouped = [](auto const* part) { return part->getGroup() != nullptr; };
    bool const anyGrouped = std::any_of(m_parts.begin(), m_parts.end(), isGrouped);
    add(tr("Group"), "app_group", m_parts.empty() ? tr("Select a part first.") : QString(),
        [this] { PartEdits::group(m_document, selectedParts(), q2s(tr("Group"))); });
    add(tr("Ungroup"), "app_ungroup",
        groups.empty() ? tr("Select a group or a part of one first.") : QString(), [this] {
            PartEdits::ungroup(m_document,
                               PartEdits::groupsAround(PartEdits::selectedObjects(m_document)));
        });
    add(tr("Take Out of Group"), {}, anyGrouped ? QString() : tr("Select a part of a group first."),
        [this] { PartEdits::moveToGroup(m_document, selectedParts(), nullptr); });
}

void PartMenu::addParts()
{
    QString const select = m_parts.empty() ? tr("Select a part first.") : QString();
    QString const selectAny = m_objects.empty() ? tr("Select a part first.") : QString();
    add(tr("Rename"), "app_rename", selectAny, [this] { emit renameRequested(); });
    add(tr("Colour..."), "app_color", select, [this] { emit colorRequested(); });
    add(tr("No Colour of Its Own"), {}, select,
        [this] { PartEdits::setColor(m_document, selectedParts(), 0); });
    add(tr("Duplicate"), "app_duplicate", select,
        [this] { PartEdits::duplicate(m_document, selectedParts()); });
    add(tr("Delete"), "app_delete", selectAny,
        [this] { PartEdits::remove(m_document, PartEdits::selectedObjects(m_document)); });
}

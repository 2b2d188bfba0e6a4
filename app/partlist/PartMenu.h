// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/PartEdits.h"

#include <QMenu>

#include <functional>

/// The context menu of the part list: what can be done to the selected parts and groups. What
/// cannot be done now is disabled, with the reason as its tool tip.
class PartMenu : public QMenu
{
    Q_OBJECT

public:
    /// document  outlives the menu
    PartMenu(Mesh::Document& document, QWidget* parent);

signals:
    void renameRequested();
    void colorRequested();

private:
    /// why  empty if the action makes sense; a running job's reason comes before it
    void add(QString const& text, QString const& icon, QString const& why,
             std::function<void()> const& edit);
    PartEdits::Parts selectedParts() const;
    void addVisibility();
    void addGroups();
    void addParts();

    Mesh::Document& m_document;
    PartEdits::Objects m_objects;
    PartEdits::Parts m_parts;
};

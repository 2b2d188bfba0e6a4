// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/Command.h"

namespace Mesh {
class Document;
}

/// A command of the application itself. Its texts are translated in the context "HostCommand"
/// (QT_TRANSLATE_NOOP) unless className() is overridden.
class HostCommand : public Base::Command
{
public:
    /// What the command shows; null is left out.
    struct Texts
    {
        char const* menu;
        char const* toolTip = nullptr;
        /// The icon's name, such as "app_undo", under ":/icons/icons/"; the dark one ends in
        /// "_dark".
        char const* icon = nullptr;
        char const* accelerator = nullptr;
    };

    HostCommand(char const* name, Texts const& texts);

    char const* className() const override { return "HostCommand"; }

    /// One sentence that says what to do before the command makes sense; empty if it does now. A
    /// running job is not its matter.
    virtual QString whyInactive() const;
    /// The translated text that menus show now: the menu text, unless it says more at times.
    virtual QString currentText() const;
    /// Whether a job that runs forbids the command: true for all but viewing and selecting.
    virtual bool changesDocument() const { return true; }

    /// Whether nothing stands in the way, a running job included.
    bool isActive() override;

protected:
    /// The active document if it is a mesh document, else null.
    static Mesh::Document* activeMeshDocument();
    /// Translated in the context of the class name.
    QString translated(char const* text) const;

    // Reasons; empty if there is such a part.
    QString whyNoPart() const;
    QString whyNothingSelected() const;

private:
    std::string m_icon;
    std::string m_iconDark;
};

/// Why a command cannot be used now, in one translated sentence; empty if it can. For commands of
/// modules, which give no reason, it is a general one.
QString whyInactive(Base::Command& command);

/// Whether a job that runs forbids a command.
bool changesDocument(Base::Command const& command);

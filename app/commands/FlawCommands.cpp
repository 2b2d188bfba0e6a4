// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/FlawCommands.h"

#include "app/commands/HostCommand.h"
#include "app/panels/FlawList.h"
#include "app/panels/PartInformation.h"
#include "app/window/WindowPanels.h"
#include "platform/ui/CommandManager.h"

#include <QCoreApplication>
#include <QPointer>

namespace {

class FlawCommand : public HostCommand
{
public:
    FlawCommand(char const* name, Texts const& texts, WindowPanels& panels, int rows)
        : HostCommand(name, texts), m_panels(&panels), m_rows(rows)
    {}

    bool changesDocument() const override { return false; }

    QString whyInactive() const override
    {
        if (QString const why = whyNothingSelected(); !why.isEmpty())
            return why;
        return m_panels && m_panels->information().flaws().count() > 0
                   ? QString()
                   : translated(QT_TRANSLATE_NOOP(
                         "HostCommand", "No errors are listed: check the selected parts first."));
    }

    void activated(int) override
    {
        if (!m_panels)
            return;
        m_panels->showInformation();
        m_panels->information().flaws().step(m_rows);
    }

private:
    QPointer<WindowPanels> m_panels;
    int m_rows;
};

}  // namespace

void registerFlawCommands(Base::CommandManager& manager, WindowPanels& panels)
{
    manager.addCommand(new FlawCommand(
        "Std_NextFlaw",
        {QT_TRANSLATE_NOOP("HostCommand", "Next Error"),
         QT_TRANSLATE_NOOP("HostCommand", "Show the next place of an error that Check has found."),
         "app_next_flaw", "F8"},
        panels, 1));
    manager.addCommand(new FlawCommand(
        "Std_PreviousFlaw",
        {QT_TRANSLATE_NOOP("HostCommand", "Previous Error"),
         QT_TRANSLATE_NOOP("HostCommand",
                           "Show the place of an error that Check has found before this one."),
         "app_previous_flaw", "Shift+F8"},
        panels, -1));
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/PreferencesCommand.h"

#include "app/commands/HostCommand.h"
#include "app/panels/PreferencesDialog.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"

#include <QPointer>

namespace {

class PreferencesCommand : public HostCommand
{
public:
    PreferencesCommand(ViewAppearance& appearance, ViewPreferences& view)
        : HostCommand("Std_Preferences",
                      {QT_TRANSLATE_NOOP("HostCommand", "&Preferences"),
                       QT_TRANSLATE_NOOP("HostCommand",
                                         "Choose theme, language, units and the use of the mouse."),
                       "app_settings", "Ctrl+,"}),
          m_appearance(appearance),
          m_view(view)
    {}

    bool changesDocument() const override { return false; }

    void activated(int) override
    {
        if (!m_dialog) {
            m_dialog = new PreferencesDialog(m_appearance, m_view, MainWindow::getInstance());
            m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        }
        m_dialog->show();
        m_dialog->raise();
        m_dialog->activateWindow();
    }

private:
    ViewAppearance& m_appearance;
    ViewPreferences& m_view;
    QPointer<PreferencesDialog> m_dialog;
};

}  // namespace

void registerPreferencesCommand(Base::CommandManager& manager, ViewAppearance& appearance,
                                ViewPreferences& view)
{
    manager.addCommand(new PreferencesCommand(appearance, view));
}

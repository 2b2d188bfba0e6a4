// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/PanelCommands.h"

#include "app/commands/CheckableCommand.h"
#include "app/panels/PartInformation.h"
#include "app/panels/PreferencesDialog.h"
#include "app/parts/PartPlacement.h"
#include "app/view/ViewAppearance.h"
#include "app/window/WindowPanels.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/CutView.h"
#include "platform/ui/MainWindow.h"

#include <QCoreApplication>
#include <QPointer>

#include <functional>

namespace {

/// An operation on the selected parts.
class PartsCommand : public HostCommand
{
public:
    using Operation = std::function<void(Mesh::Document&)>;

    PartsCommand(char const* name, Texts const& texts, Operation operation)
        : HostCommand(name, texts), m_operation(std::move(operation))
    {}

    QString whyInactive() const override { return whyNothingSelected(); }
    void activated(int) override { m_operation(*activeMeshDocument()); }

private:
    Operation m_operation;
};

class CutViewCommand : public CheckableCommand
{
public:
    explicit CutViewCommand(WindowPanels& panels)
        : CheckableCommand("Std_CutView",
                           {QT_TRANSLATE_NOOP("HostCommand", "&Cut Open"),
                            QT_TRANSLATE_NOOP("HostCommand",
                                              "Show the parts cut open by a plane; they stay "
                                              "whole."),
                            "app_cutview", "X"}),
          m_panels(&panels)
    {}

    bool changesDocument() const override { return false; }
    QString whyInactive() const override { return isChecked() ? QString() : whyNoPart(); }

    bool isChecked() const override
    {
        return m_panels && m_panels->cutView() && m_panels->cutView()->isActive();
    }

    void activated(int) override
    {
        if (!m_panels || !m_panels->cutView())
            return;
        bool const isOn = !isChecked();
        m_panels->cutView()->setActive(isOn);
        if (isOn)
            m_panels->showCutView();
    }

private:
    QPointer<WindowPanels> m_panels;
};

class PreferencesCommand : public HostCommand
{
public:
    PreferencesCommand(WindowPanels& panels, ViewAppearance& appearance)
        : HostCommand("Std_Preferences",
                      {QT_TRANSLATE_NOOP("HostCommand", "Pr&eferences..."),
                       QT_TRANSLATE_NOOP("HostCommand",
                                         "Choose theme, language, units and how the mouse works."),
                       "app_settings", "Ctrl+,"}),
          m_panels(&panels),
          m_appearance(&appearance)
    {}

    bool changesDocument() const override { return false; }

    void activated(int) override
    {
        if (!m_panels || !m_appearance)
            return;
        PreferencesDialog dialog(*m_appearance, m_panels->viewPreferences(),
                                 MainWindow::getInstance());
        dialog.exec();
    }

private:
    QPointer<WindowPanels> m_panels;
    QPointer<ViewAppearance> m_appearance;
};

void layFlat(Mesh::Document& document)
{
    PartPlacement::Parts left;
    PartPlacement::layOnLargestFace(document, document.getSelectedMeshObjects(), left);
    for (Mesh::DocumentObject const* const part : left)
        Base::ConsoleSingleton::Instance().Log(
            QCoreApplication::translate(
                "PartPlacement",
                "%1 has no flat face to stand on. Choose one by Lay Flat on a Face.")
                .arg(QString::fromStdString(part->getName()))
                .toStdString());
}

void registerPlacement(Base::CommandManager& manager)
{
    manager.addCommand(new PartsCommand(
        "Std_DropToPlate",
        {QT_TRANSLATE_NOOP("HostCommand", "&Drop to Plate"),
         QT_TRANSLATE_NOOP("HostCommand", "Let the selected parts down onto the build plate."),
         "app_drop", "D"},
        [](Mesh::Document& document) {
            PartPlacement::dropToPlate(document, document.getSelectedMeshObjects());
        }));
    manager.addCommand(new PartsCommand(
        "Std_CentreOnPlate",
        {QT_TRANSLATE_NOOP("HostCommand", "&Centre on Plate"),
         QT_TRANSLATE_NOOP("HostCommand", "Move the selected parts to the middle of the plate."),
         "app_place"},
        [](Mesh::Document& document) {
            PartPlacement::centreOnPlate(document, document.getSelectedMeshObjects());
        }));
    manager.addCommand(new PartsCommand(
        "Std_LayFlat",
        {QT_TRANSLATE_NOOP("HostCommand", "&Lay on the Largest Flat Face"),
         QT_TRANSLATE_NOOP("HostCommand",
                           "Turn each selected part until its largest flat face, such as that of a "
                           "cut, lies on the plate."),
         "app_lay_flat", "Shift+L"},
        layFlat));
}

}  // namespace

void registerPanelCommands(Base::CommandManager& manager, WindowPanels& panels,
                           ViewAppearance& appearance)
{
    QPointer<WindowPanels> const pointer(&panels);
    manager.addCommand(new PartsCommand(
        "Std_Check",
        {QT_TRANSLATE_NOOP("HostCommand", "Chec&k"),
         QT_TRANSLATE_NOOP("HostCommand", "Look for errors in the selected parts."), "app_check"},
        [pointer](Mesh::Document&) {
            if (!pointer)
                return;
            pointer->showInformation();
            pointer->information().checkSelected();
        }));
    manager.addCommand(new PartsCommand(
        "Std_Repair",
        {QT_TRANSLATE_NOOP("HostCommand", "&Repair"),
         QT_TRANSLATE_NOOP("HostCommand", "Mend the errors of the selected parts."), "app_repair"},
        [pointer](Mesh::Document&) {
            if (!pointer)
                return;
            pointer->showInformation();
            pointer->information().repairSelected();
        }));
    registerPlacement(manager);
    manager.addCommand(new CutViewCommand(panels));
    manager.addCommand(new PreferencesCommand(panels, appearance));
}

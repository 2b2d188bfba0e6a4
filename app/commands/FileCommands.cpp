// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/FileCommands.h"

#include "app/commands/HostCommand.h"
#include "app/files/DocumentFiles.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"

#include <QCoreApplication>
#include <QPointer>

#include <functional>

namespace {

/// A command that is one operation of the files.
class FileCommand : public HostCommand
{
public:
    using Operation = std::function<void(DocumentFiles&)>;
    /// Why the command makes no sense now; null if it does. Source text in "HostCommand".
    using Reason = char const* (*)(Mesh::Document const*);

    FileCommand(char const* name, Texts const& texts, DocumentFiles& files, Operation operation,
                Reason reason = nullptr)
        : HostCommand(name, texts),
          m_files(&files),
          m_operation(std::move(operation)),
          m_reason(reason)
    {}

    QString whyInactive() const override
    {
        char const* const reason = m_reason ? m_reason(activeMeshDocument()) : nullptr;
        return reason ? translated(reason) : QString();
    }
    void activated(int) override
    {
        if (m_files)
            m_operation(*m_files);
    }

private:
    QPointer<DocumentFiles> m_files;
    Operation m_operation;
    Reason m_reason;
};

/// Closing the window waits for a running job by itself.
class QuitCommand : public HostCommand
{
public:
    QuitCommand()
        : HostCommand("Std_Quit", {QT_TRANSLATE_NOOP("HostCommand", "&Quit"),
                                   QT_TRANSLATE_NOOP("HostCommand", "Close the application."),
                                   "app_quit", "Ctrl+Q"})
    {}

    bool changesDocument() const override { return false; }
    void activated(int) override
    {
        if (MainWindow* const window = MainWindow::getInstance())
            window->close();
    }
};

char const* noDocument(Mesh::Document const* document)
{
    return document ? nullptr : QT_TRANSLATE_NOOP("HostCommand", "Open a part first.");
}

char const* noParts(Mesh::Document const* document)
{
    return document && !document->getMeshObjects().empty()
               ? nullptr
               : QT_TRANSLATE_NOOP("HostCommand", "Open a part first.");
}

char const* noSelection(Mesh::Document const* document)
{
    if (char const* const reason = noParts(document))
        return reason;
    return document->getSelectedMeshObjects().empty()
               ? QT_TRANSLATE_NOOP("HostCommand", "Select a part first.")
               : nullptr;
}

void addOpening(Base::CommandManager& commands, DocumentFiles& files)
{
    commands.addCommand(
        new FileCommand("Std_New",
                        {QT_TRANSLATE_NOOP("HostCommand", "&New"),
                         QT_TRANSLATE_NOOP("HostCommand", "Start anew with an empty project."),
                         "app_new", "Ctrl+N"},
                        files, [](DocumentFiles& f) { f.newDocument(); }));
    commands.addCommand(new FileCommand(
        "Std_Open",
        {QT_TRANSLATE_NOOP("HostCommand", "&Open..."),
         QT_TRANSLATE_NOOP("HostCommand", "Add parts from files, or open a project."), "app_open",
         "Ctrl+O"},
        files, [](DocumentFiles& f) { f.open(); }));
}

void addSaving(Base::CommandManager& commands, DocumentFiles& files)
{
    commands.addCommand(new FileCommand(
        "Std_Save",
        {QT_TRANSLATE_NOOP("HostCommand", "&Save"),
         QT_TRANSLATE_NOOP("HostCommand",
                           "Save all parts with names, groups, visibility and colours."),
         "app_save", "Ctrl+S"},
        files, [](DocumentFiles& f) { f.save(); }, noDocument));
    commands.addCommand(new FileCommand(
        "Std_SaveAs",
        {QT_TRANSLATE_NOOP("HostCommand", "Save &As..."),
         QT_TRANSLATE_NOOP("HostCommand", "Save the project in another file."), "app_save_as",
         "Ctrl+Shift+S"},
        files, [](DocumentFiles& f) { f.saveAs(); }, noDocument));
}

void addExporting(Base::CommandManager& commands, DocumentFiles& files)
{
    commands.addCommand(new FileCommand(
        "Std_Export",
        {QT_TRANSLATE_NOOP("HostCommand", "&Export..."),
         QT_TRANSLATE_NOOP("HostCommand", "Write all parts to STL, OBJ, PLY, OFF or 3MF."),
         "app_export", "Ctrl+E"},
        files, [](DocumentFiles& f) { f.exportParts(false); }, noParts));
    commands.addCommand(new FileCommand(
        "Std_ExportSelected",
        {QT_TRANSLATE_NOOP("HostCommand", "Export Se&lected..."),
         QT_TRANSLATE_NOOP("HostCommand", "Write the selected parts to STL, OBJ, PLY, OFF or 3MF."),
         "app_export", "Ctrl+Shift+E"},
        files, [](DocumentFiles& f) { f.exportParts(true); }, noSelection));
}

}  // namespace

void registerFileCommands(Base::CommandManager& commands, DocumentFiles& files)
{
    addOpening(commands, files);
    addSaving(commands, files);
    addExporting(commands, files);
    commands.addCommand(new QuitCommand);
}

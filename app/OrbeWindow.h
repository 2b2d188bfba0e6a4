// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/window/PanelPlaces.h"
#include "platform/ui/MainWindow.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

class AutoSave;
class CommandGate;
class DockTitles;
class DocumentFiles;
class DocumentFollower;
class FileQuestions;
class NoticeBar;
class PartPreparation;
class QHBoxLayout;
class QVBoxLayout;
class SavedViews;
class StatusLine;
class ToolLock;
class ViewAppearance;
class WindowMenus;
class WindowPanels;

/// The window that people work in: one view of the active document, menus, tool bar, panels in
/// docks and the status line. The Application exists before it and after it.
///
/// Closing it while a job runs asks what to become of the job, and happens when the job has ended.
/// There is one window per Application, since it registers the commands.
class OrbeWindow : public MainWindow, public PanelPlaces
{
    Q_OBJECT

public:
    OrbeWindow();
    /// questions  how the user is asked about files
    explicit OrbeWindow(std::unique_ptr<FileQuestions> questions);
    ~OrbeWindow() override;

    /// Shows commands that have been registered since, such as those of a module.
    ///
    /// ofOthers  names of those that have a menu of their own, of modules that the window does not know
    void commandsAdded(std::vector<std::string> const& ofOthers = {});

    Mesh::GLView& view() const override { return *m_view; }
    QDockWidget* addPanel(QWidget* panel, QString const& name, Qt::DockWidgetArea area) override;
    void addBesideView(QWidget* widget) override;
    void resetLayout() override;

    /// Shows a message in a strip above the view.
    void addNotice(QString const& message);

    /// From now on keeps unsaved changes below a folder, and offers there what an earlier program
    /// could not save. Where the folder cannot be used a notice says so.
    void keepUnsavedWork(std::filesystem::path const& root);

    WindowMenus& menus() const { return *m_menus; }
    WindowPanels& panels() const { return *m_panels; }
    StatusLine& statusLine() const { return *m_status; }
    DocumentFiles& files() const { return *m_files; }
    NoticeBar& notices() const { return *m_notices; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    bool isOnPanelBehind(QWidget const* widget) const;
    void buildCentre();
    void buildFiles(std::unique_ptr<FileQuestions> questions);
    void buildCommands();
    void buildMenus();
    void buildStatusLine();
    void followDocument();
    void restorePlaces();

    void retranslate();
    void refresh();
    void endRefusal();
    bool mayCloseDuringJob();
    void jobsChanged(bool busy);

    Mesh::GLView* m_view = nullptr;
    ToolLock* m_toolLock = nullptr;
    NoticeBar* m_notices = nullptr;
    QVBoxLayout* m_viewColumn = nullptr;
    QHBoxLayout* m_viewRow = nullptr;
    ViewAppearance* m_appearance = nullptr;
    CommandGate* m_gate = nullptr;
    WindowMenus* m_menus = nullptr;
    SavedViews* m_savedViews = nullptr;
    DockTitles* m_dockTitles = nullptr;
    std::vector<QDockWidget*> m_panelDocks;
    WindowPanels* m_panels = nullptr;
    StatusLine* m_status = nullptr;
    DocumentFollower* m_follower = nullptr;
    DocumentFiles* m_files = nullptr;
    std::unique_ptr<PartPreparation> m_preparation;
    std::unique_ptr<AutoSave> m_autoSave;
    QString m_refusal;
    QByteArray m_firstPlaces;
    bool m_hasStoredPlaces = false;
    bool m_closesAfterJob = false;
    bool m_isAskingToClose = false;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/OrbeWindow.h"

#include "app/commands/ArrangeCommand.h"
#include "app/commands/CombineCommands.h"
#include "app/commands/CommandGate.h"
#include "app/commands/CopyMeasureCommand.h"
#include "app/commands/CutFaceCommand.h"
#include "app/commands/EditCommands.h"
#include "app/commands/FileCommands.h"
#include "app/commands/FlawCommands.h"
#include "app/commands/HeightCutCommand.h"
#include "app/commands/PanelCommands.h"
#include "app/commands/SavedViewCommands.h"
#include "app/commands/SavedViews.h"
#include "app/commands/SelectCommands.h"
#include "app/commands/ViewCommands.h"
#include "app/commands/ViewMenu.h"
#include "app/commands/WindowCommands.h"
#include "app/files/DocumentFiles.h"
#include "app/files/FileDrop.h"
#include "app/files/RecentMenu.h"
#include "app/files/ReloadOffer.h"
#include "app/files/UnitQuestion.h"
#include "app/files/WindowFileQuestions.h"
#include "app/files/WindowTitle.h"
#include "app/jobs/JobGuard.h"
#include "app/panels/MisfitMarks.h"
#include "app/panels/SectionAreaNote.h"
#include "app/recovery/RecoveryDialog.h"
#include "app/view/ViewAppearance.h"
#include "app/view/WindowSettings.h"
#include "app/window/DockTitles.h"
#include "app/window/FirstSize.h"
#include "app/window/JobProgressBar.h"
#include "app/window/KeyBindings.h"
#include "app/window/NoticeBar.h"
#include "app/window/PartPreparation.h"
#include "app/window/StatusLine.h"
#include "app/window/ToolLock.h"
#include "app/window/WindowMenus.h"
#include "app/window/WindowPanels.h"
#include "platform/document/Document.h"
#include "platform/jobs/BackgroundWork.h"
#include "platform/jobs/Exceptions.h"
#include "platform/ui/Application.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/DocumentFollower.h"
#include "platform/ui/MellMessageBox.h"
#include "platform/ui/MellViewSlider.h"
#include "platform/view/MeshGLView.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDockWidget>
#include <QHBoxLayout>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {

char const* const geometryKey = "Window/Geometry";
char const* const stateKey = "Window/State";
/// Raised when docks or tool bars change so that stored places make no sense any more.
constexpr int stateVersion = 2;
constexpr int isometricView = 6;
constexpr int secondOfferMilliseconds = 4000;

}  // namespace

OrbeWindow::OrbeWindow() : OrbeWindow(std::make_unique<WindowFileQuestions>()) {}

OrbeWindow::OrbeWindow(std::unique_ptr<FileQuestions> questions)
{
    BackgroundWork::setGivingWay(true);
    setObjectName(QStringLiteral("OrbeWindow"));
    setDockNestingEnabled(true);
    setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    buildCentre();
    buildStatusLine();
    buildFiles(std::move(questions));
    m_dockTitles = new DockTitles(*this);
    m_panels = new WindowPanels(*this, *this);
    // When the job that has opened them is over for everybody.
    connect(m_files, &DocumentFiles::opened, m_panels, &WindowPanels::lookAtOpened,
            Qt::QueuedConnection);
    buildCommands();
    buildMenus();
    followDocument();
    setActiveGLView(m_view);
    connect(JobGuard::instance(), &JobGuard::busyChanged, this, &OrbeWindow::jobsChanged);
    restorePlaces();
    retranslate();
}

OrbeWindow::~OrbeWindow()
{
    m_autoSave.reset();
    // Waits for a job that still runs, while all that it reports to is there.
    delete m_files;
    setActiveGLView(nullptr);
}

void OrbeWindow::buildCentre()
{
    auto* const centre = new QWidget(this);
    m_view = new Mesh::GLView(centre);
    m_view->setMinimumSize(200, 150);
    m_notices = new NoticeBar(centre);
    m_viewRow = new QHBoxLayout;
    m_viewRow->setSpacing(0);
    m_viewRow->addWidget(m_view, 1);
    m_viewColumn = new QVBoxLayout(centre);
    m_viewColumn->setContentsMargins(0, 0, 0, 0);
    m_viewColumn->setSpacing(0);
    m_viewColumn->addWidget(m_notices);
    m_viewColumn->addLayout(m_viewRow, 1);
    setCentralWidget(centre);
    m_toolLock = new ToolLock(*m_view);
    m_view->OnViewType(isometricView);
    m_appearance = new ViewAppearance(*m_view, this);
    new MisfitMarks(*m_view, *m_appearance);
}

void OrbeWindow::buildStatusLine()
{
    m_status = new StatusLine(this);
    setStatusBar(m_status);
}

void OrbeWindow::buildFiles(std::unique_ptr<FileQuestions> questions)
{
    m_files = new DocumentFiles(std::move(questions), this);
    m_preparation = std::make_unique<PartPreparation>(*m_files);
    new FileDrop(this, *m_view, *m_files);
    new WindowTitle(this, *m_files);
    m_viewColumn->insertWidget(0, new ReloadOffer(*m_files, centralWidget()));
    // When the job that has opened them is over for everybody.
    connect(m_files, &DocumentFiles::opened, new UnitQuestion(*m_files, this), &UnitQuestion::look,
            Qt::QueuedConnection);
    connect(m_files, &DocumentFiles::written, m_status, &StatusLine::showWritten);
}

void OrbeWindow::buildCommands()
{
    Base::CommandManager& manager = Application::Instance->commandManager();
    registerFileCommands(manager, *m_files);
    registerEditCommands(manager);
    registerCombineCommands(manager, *m_view);
    registerSelectCommands(manager);
    registerViewCommands(manager, *m_appearance);
    m_savedViews = new SavedViews(*m_view, *m_appearance, *m_files, this);
    registerSavedViewCommands(manager, *m_savedViews);
    registerPanelCommands(manager, *m_panels, *m_appearance);
    registerFlawCommands(manager, *m_panels);
    auto* const area = new SectionAreaNote(*m_view);
    registerCopyMeasureCommand(manager, *area);
    registerArrangeCommand(manager);
    registerCutFaceCommand(manager);
    registerHeightCutCommand(manager);
    registerWindowCommands(manager);
    m_gate = new CommandGate(manager, this);
    auto const tell = [this](QString const& reason) {
        m_refusal = reason;
        m_status->showMessage(reason, 5000);
    };
    connect(m_gate, &CommandGate::refused, this, tell);
    connect(area, &SectionAreaNote::changed, m_gate, &CommandGate::refreshLater);
    connect(m_toolLock, &ToolLock::refused, this, tell);
    connect(m_view, &Base::GLView::signalInteractModeChanged, this, [this] {
        // What was said of the tool.
        if (m_view->getInteractModeName().empty())
            m_status->clearMessage();
    });
    // Buttons of tools have gone down with the press already, and read their state anew.
    connect(m_gate, &CommandGate::refused, this, &MainWindow::signalUpdateToolbuttonState);
    connect(m_toolLock, &ToolLock::refused, this, &MainWindow::signalUpdateToolbuttonState);
    connect(m_appearance, &ViewAppearance::changed, m_gate, &CommandGate::refreshLater);
    connect(this, &MainWindow::signalUpdateToolbuttonState, this, &OrbeWindow::refresh);
}

void OrbeWindow::buildMenus()
{
    m_menus = new WindowMenus(*this, Application::Instance->commandManager());
    m_menus->setRecentFiles(new RecentMenu(*m_files, this));
    auto* const keptViews = new QMenu(this);
    keptViews->setToolTipsVisible(true);
    m_menus->setKeptViews(keptViews);
    auto const fillViews = [this, keptViews] {
        fillSavedViewMenu(*keptViews, Application::Instance->commandManager());
        m_gate->refresh();
    };
    connect(m_savedViews, &SavedViews::changed, keptViews, fillViews);
    connect(m_menus, &WindowMenus::filled, keptViews, fillViews);
    connect(m_menus, &WindowMenus::aboutToShow, m_gate, &CommandGate::refresh);
    connect(new ViewMenu(*m_view, Application::Instance->commandManager()), &ViewMenu::aboutToShow,
            m_gate, &CommandGate::refresh);
    connect(m_menus, &WindowMenus::filled, this, [this] {
        m_menus->windowMenu()->addSeparator();
        for (QDockWidget* const dock : m_panelDocks)
            m_menus->windowMenu()->addAction(dock->toggleViewAction());
        m_menus->windowMenu()->addAction(m_menus->toolBars().back()->toggleViewAction());
    });
    m_menus->fill();
}

void OrbeWindow::followDocument()
{
    m_follower = new DocumentFollower(this);
    auto const show = [this](Base::Document* document) {
        m_view->setDocument(document);
        m_appearance->setDocument(document);
        getViewSlider()->refresh();
    };
    connect(m_follower, &DocumentFollower::replaced, this, show);
    connect(m_follower, &DocumentFollower::changed, this, &OrbeWindow::refresh);
    connect(m_follower, &DocumentFollower::changed, this, &OrbeWindow::endRefusal);
    show(m_follower->document());
}

void OrbeWindow::restorePlaces()
{
    m_firstPlaces = saveState(stateVersion);
    if (!restoreGeometry(WindowSettings::bytes(geometryKey)))
        resize(FirstSize::ofWindow(screen()->availableSize()));
    m_hasStoredPlaces = restoreState(WindowSettings::bytes(stateKey), stateVersion);
}

void OrbeWindow::resetLayout()
{
    restoreState(m_firstPlaces, stateVersion);
    m_panels->resizeDocks();
}

void OrbeWindow::showEvent(QShowEvent* event)
{
    MainWindow::showEvent(event);
    // Docks take a size only in a window that has one.
    if (!m_hasStoredPlaces)
        m_panels->resizeDocks();
    m_hasStoredPlaces = true;
}

void OrbeWindow::commandsAdded(std::vector<std::string> const& ofOthers)
{
    m_menus->setCommandsOfOthers(ofOthers);
    m_menus->fill();
    KeyBindings::apply(Application::Instance->commandManager());
    m_gate->refresh();
}

QDockWidget* OrbeWindow::addPanel(QWidget* panel, QString const& name, Qt::DockWidgetArea area)
{
    auto* const dock = new QDockWidget(panel->windowTitle(), this);
    dock->setObjectName(name);
    dock->setWidget(panel);
    connect(panel, &QWidget::windowTitleChanged, dock, &QWidget::setWindowTitle);
    addDockWidget(area, dock);
    m_dockTitles->add(dock);
    m_panelDocks.push_back(dock);
    if (m_menus)
        m_menus->windowMenu()->addAction(dock->toggleViewAction());
    return dock;
}

void OrbeWindow::addBesideView(QWidget* widget)
{
    m_viewRow->addWidget(widget);
}

void OrbeWindow::addNotice(QString const& message)
{
    m_notices->add(message);
}

void OrbeWindow::keepUnsavedWork(std::filesystem::path const& root)
{
    try {
        m_autoSave = std::make_unique<AutoSave>(*m_files, RecoveryFolder::make(root));
    } catch (Mell::Exception const& error) {
        addNotice(tr("Unsaved changes will not be kept for recovery.") + ' ' +
                  QString::fromUtf8(error.what()));
        return;
    }
    connect(m_autoSave.get(), &AutoSave::failed, this, &OrbeWindow::addNotice);
    auto const offer = [this, root] {
        return offerRecovery(root, *m_files, *m_autoSave, [this](auto const& works) {
            return RecoveryDialog::ask(works, this);
        });
    };
    // A program that has just been killed holds its folder until the system has cleaned up.
    if (!offer())
        QTimer::singleShot(secondOfferMilliseconds, this, offer);
}

void OrbeWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    MainWindow::changeEvent(event);
}

void OrbeWindow::retranslate()
{
    Application::Instance->commandManager().languageChange();
    m_menus->retranslate();
    emit m_savedViews->changed();
    m_panels->retranslate();
    refresh();
}

void OrbeWindow::keyPressEvent(QKeyEvent* event)
{
    // A tool that makes use of the key does not let it come here.
    if (event->key() == Qt::Key_Escape && m_toolLock->escape())
        return;
    // The shortcut of an action that is off does nothing by itself.
    if (!m_gate->explain(QKeySequence(event->key() | int(event->modifiers()))))
        MainWindow::keyPressEvent(event);
}

/// Takes back why something was refused, for that may be over.
void OrbeWindow::endRefusal()
{
    if (!m_refusal.isEmpty() && m_status->currentMessage() == m_refusal)
        m_status->clearMessage();
    m_refusal.clear();
}

void OrbeWindow::refresh()
{
    m_status->refresh(*m_view, m_follower->document());
    m_gate->refresh();
    getViewSlider()->refresh();
}

bool OrbeWindow::focusNextPrevChild(bool next)
{
    QWidget const* const first = focusWidget();
    while (MainWindow::focusNextPrevChild(next))
        if (focusWidget() == first || !isOnPanelBehind(focusWidget()))
            return true;
    return false;
}

/// The tabs of docks keep panels that are not in front shown, but beside the window.
bool OrbeWindow::isOnPanelBehind(QWidget const* widget) const
{
    return std::ranges::any_of(m_panelDocks, [&](QDockWidget const* dock) {
        return !dock->isFloating() && dock->isAncestorOf(widget) &&
               !rect().intersects(dock->geometry());
    });
}

void OrbeWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    if (m_isAskingToClose)
        return;
    m_isAskingToClose = true;
    bool const mayClose = (!JobGuard::instance()->isBusy() || mayCloseDuringJob()) &&
                          m_files->mayDiscard() && DialogWindowManager::instance()->closeAll();
    m_isAskingToClose = false;
    if (!mayClose)
        return;
    WindowSettings::setBytes(geometryKey, saveGeometry());
    WindowSettings::setBytes(stateKey, saveState(stateVersion));
    event->accept();
}

// True if the job has ended meanwhile.
bool OrbeWindow::mayCloseDuringJob()
{
    enum Answer
    {
        Finish,
        Cancel,
        KeepOpen
    };
    if (m_closesAfterJob)
        return false;
    int const answer = MellMessageBox::warning(
        this, tr("A job is running"),
        tr("Close the window when the job has finished, or cancel the job and close it?"),
        tr("Finish and Close"), tr("Cancel and Close"), tr("Keep Open"), KeepOpen, KeepOpen);
    if (answer == KeepOpen)
        return false;
    if (!JobGuard::instance()->isBusy())
        return true;
    m_closesAfterJob = true;
    if (answer == Cancel)
        m_status->progress().cancel();
    return false;
}

void OrbeWindow::jobsChanged(bool busy)
{
    refresh();
    if (!busy)
        endRefusal();
    // Jobs of commands tell no dialog that they start.
    for (DialogWidget* const dialog : DialogWindowManager::instance()->openDialogs())
        dialog->setWidgetEnabled(!busy);
    if (busy || !m_closesAfterJob)
        return;
    m_closesAfterJob = false;
    QTimer::singleShot(0, this, &QWidget::close);
}

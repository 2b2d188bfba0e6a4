// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <memory>

class FarParts;
class CutView;
class LogRecorder;
class MainWindow;
class PanelPlaces;
class PartInformation;
class QDockWidget;
class SideControlTab;
class ViewPreferences;

/// The panels around the view, and what they share.
class WindowPanels : public QObject
{
    Q_OBJECT

public:
    /// Makes the panels and puts them into the window's docks and beside its view; the window
    /// becomes the parent.
    ///
    /// places  those of the window
    WindowPanels(MainWindow& window, PanelPlaces& places);
    ~WindowPanels() override;

    PartInformation& information() const { return *m_information; }
    ViewPreferences& viewPreferences() const { return *m_viewPreferences; }
    /// Null if there is no page with it.
    CutView* cutView() const;

    /// Gives the docks the sizes that they have at first.
    void resizeDocks();
    void retranslate();

    /// Files have brought parts: those that nobody can cut well are asked about.
    void lookAtOpened();

    /// Brings a panel in front, also one that is closed.
    void showInformation();
    void showCutView();

private:
    void giveTitlesRoom();
    QDockWidget* addScrolled(QWidget* panel, QString const& name, Qt::DockWidgetArea area);
    void buildLeft();
    void buildRight();
    void buildBottom();
    void buildHeightSlider();

    MainWindow& m_window;
    PanelPlaces& m_places;
    std::unique_ptr<LogRecorder> m_log;
    ViewPreferences* m_viewPreferences = nullptr;
    FarParts* m_farParts = nullptr;
    PartInformation* m_information = nullptr;
    SideControlTab* m_sideControl = nullptr;
    QDockWidget* m_partsDock = nullptr;
    QDockWidget* m_informationDock = nullptr;
    QDockWidget* m_sideDock = nullptr;
    QDockWidget* m_logDock = nullptr;
};

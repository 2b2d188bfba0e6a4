// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTabWidget>

class DockWidget;

/// The pages beside the view. From the beginning it has the page "Preparing" with the live cut
/// view.
class SideControlTab : public QTabWidget
{
    Q_OBJECT

public:
    explicit SideControlTab(QWidget* parent = nullptr);

    /// The page of that name, or null.
    DockWidget* getDock(QString const& name) const;

    /// Adds a page, which it then owns. The title is shown as it is; pages that translate theirs
    /// set it anew by setTabText.
    void addDock(DockWidget* dock, QString const& title);

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
};

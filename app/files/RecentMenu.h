// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMenu>

class DocumentFiles;

/// The menu of recent files. It is made anew whenever it opens, and disabled while there are none.
class RecentMenu : public QMenu
{
    Q_OBJECT

public:
    /// files  borrowed; outlives the menu
    RecentMenu(DocumentFiles& files, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void fill();
    void update();

    DocumentFiles& m_files;
};

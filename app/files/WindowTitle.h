// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class DocumentFiles;
class QWidget;

/// Keeps a window's title and its modified mark in line with the document.
class WindowTitle : public QObject
{
    Q_OBJECT

public:
    /// window  becomes the parent
    /// files   borrowed; outlives the window
    WindowTitle(QWidget* window, DocumentFiles& files);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void update();

    QWidget* m_window;
    DocumentFiles& m_files;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

class DocumentFiles;
class DropHighlight;
class QMimeData;
class QWidget;

/// Lets files be dropped onto a widget and its children. While a job runs, drops are refused.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    /// target       becomes the parent
    /// highlighted  within it, what is lit while files hover that a drop would open
    /// files        borrowed; outlives the target
    FileDrop(QWidget* target, QWidget& highlighted, DocumentFiles& files);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The local files in what is dragged.
    static QStringList filesIn(QMimeData const* data);

    DocumentFiles& m_files;
    DropHighlight* m_highlight;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

class DocumentFiles;
class QMimeData;
class QWidget;

/// Lets files be dropped onto a widget and its children. While a job runs, drops are refused.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    /// target  becomes the parent
    /// files   borrowed; outlives the target
    FileDrop(QWidget* target, DocumentFiles& files);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The local files in what is dragged.
    static QStringList filesIn(QMimeData const* data);

    DocumentFiles& m_files;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStatusBar>
#include <QTimer>

class JobProgressBar;
class QLabel;

namespace Base {
class Document;
class GLView;
}  // namespace Base
namespace Mesh {
class Document;
}

/// The line at the bottom: what the running tool waits for, what is selected, and the progress of a
/// job. A message in another language than that of the interface goes.
class StatusLine : public QStatusBar
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    /// Takes hint and selection anew.
    ///
    /// view      the view in front
    /// document  what it shows, or null
    void refresh(Base::GLView const& view, Base::Document const* document);

    /// Says for a while what was written, with a link that opens its folder. A message, or what is
    /// written next, takes its place.
    void showWritten(QString const& sentence, QString const& folder);

    QString hint() const;
    JobProgressBar& progress() const { return *m_progress; }

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void keepHeight();
    void showHint();
    QString writtenText() const;
    static QString selectionSummary(Mesh::Document const* document);

    QString m_hintText;
    QString m_written;
    QString m_writtenFolder;
    QTimer m_writtenTime;
    /// Shows the hint, or a message for as long as there is one.
    QLabel* m_hint;
    QLabel* m_selection;
    JobProgressBar* m_progress;
};

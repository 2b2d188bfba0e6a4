// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStatusBar>

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
/// job.
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

    QString hint() const;
    JobProgressBar& progress() const { return *m_progress; }

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void keepHeight();
    void showHint();
    static QString selectionSummary(Mesh::Document const* document);

    QString m_hintText;
    /// Shows the hint, or a message for as long as there is one.
    QLabel* m_hint;
    QLabel* m_selection;
    JobProgressBar* m_progress;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>

#include <atomic>
#include <memory>

class JobProgress;
class QLabel;
class QProgressBar;
class QShortcut;
class QToolButton;

/// Shows the progress of the job that runs: title, bar and, if the job can be cancelled, a button
/// for that, which Esc presses too, wherever the keyboard is. Hidden without a job. While it lives,
/// jobs report to it.
class JobProgressBar : public QWidget
{
    Q_OBJECT

public:
    explicit JobProgressBar(QWidget* parent = nullptr);
    ~JobProgressBar() override;

    bool canCancel() const;
    void cancel();

protected:
    void changeEvent(QEvent* event) override;

private:
    void build();
    void progressChanged();
    void refreshSoon();
    void refresh();
    static QString leftText(int seconds);
    void retranslate();

    std::shared_ptr<JobProgress> m_progress;
    QLabel* m_title;
    QProgressBar* m_bar;
    QToolButton* m_cancel;
    QShortcut* m_escape;
    std::atomic<bool> m_isRefreshPending = false;
    QTimer m_pause;
    bool m_isRefreshDue = false;
};

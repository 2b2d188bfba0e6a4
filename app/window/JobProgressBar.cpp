// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/JobProgressBar.h"

#include "app/jobs/JobGuard.h"
#include "app/jobs/JobProgress.h"
#include "app/panels/PanelIcon.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QShortcut>
#include <QThread>
#include <QToolButton>

namespace {

/// Between two updates: each makes the window system put the whole window together, which takes the
/// job's time where that is done in software.
constexpr int pauseMs = 80;

}  // namespace

JobProgressBar::JobProgressBar(QWidget* parent)
    : QWidget(parent),
      m_progress(std::make_shared<JobProgress>()),
      m_title(new QLabel(this)),
      m_bar(new QProgressBar(this)),
      m_cancel(new QToolButton(this)),
      m_escape(new QShortcut(Qt::Key_Escape, this))
{
    build();
    connect(m_cancel, &QToolButton::clicked, this, &JobProgressBar::cancel);
    connect(m_escape, &QShortcut::activated, this, &JobProgressBar::cancel);
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMs);
    connect(&m_pause, &QTimer::timeout, this, [this] {
        if (m_isRefreshDue)
            refreshSoon();
    });
    retranslate();
    refresh();
    m_progress->setListener([this] { progressChanged(); });
    Base::setProgressSink(m_progress);
}

void JobProgressBar::build()
{
    setObjectName(QStringLiteral("JobProgressBar"));
    m_bar->setRange(0, 100);
    m_bar->setFixedWidth(fontMetrics().averageCharWidth() * 28);
    m_bar->setMaximumHeight(fontMetrics().height());
    m_cancel->setObjectName(QStringLiteral("CancelJob"));
    m_cancel->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_cancel->setAutoRaise(true);
    m_cancel->setIcon(panelIcon(QStringLiteral("app_cancel")));
    m_escape->setContext(Qt::ApplicationShortcut);

    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_title);
    row->addWidget(m_bar);
    row->addWidget(m_cancel);
}

JobProgressBar::~JobProgressBar()
{
    // A job that is still running keeps the sink, but not this.
    m_progress->setListener({});
    if (Base::progressSink() == m_progress)
        Base::setProgressSink(nullptr);
}

bool JobProgressBar::canCancel() const
{
    return m_progress->state().canCancel;
}

void JobProgressBar::cancel()
{
    m_progress->requestCancel();
}

void JobProgressBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::StyleChange || event->type() == QEvent::PaletteChange)
        m_cancel->setIcon(panelIcon(QStringLiteral("app_cancel")));
    QWidget::changeEvent(event);
}

void JobProgressBar::progressChanged()
{
    if (QThread::currentThread() == thread()) {
        // The job keeps the event loop from painting.
        refresh();
        repaint();
        return;
    }
    if (!m_isRefreshPending.exchange(true))
        QMetaObject::invokeMethod(this, &JobProgressBar::refreshSoon, Qt::QueuedConnection);
}

void JobProgressBar::refreshSoon()
{
    m_isRefreshPending = false;
    if (m_pause.isActive()) {
        m_isRefreshDue = true;
        return;
    }
    refresh();
    m_pause.start();
}

void JobProgressBar::refresh()
{
    m_isRefreshDue = false;
    JobProgress::State const state = m_progress->state();
    m_escape->setEnabled(state.isOpen && state.canCancel);
    setVisible(state.isOpen);
    // What follows a job may keep the window from painting; until then the bar stays full.
    if (!state.isOpen)
        return;
    QString const title = JobGuard::translatedTitle(state.title);
    m_title->setText(state.isCancelRequested && state.canCancel ? tr("Cancelling: %1").arg(title)
                                                                : title);
    m_bar->setValue(state.percent);
    m_bar->setFormat(state.secondsLeft ? leftText(*state.secondsLeft) : QStringLiteral("%p%"));
    m_cancel->setVisible(state.canCancel);
    m_cancel->setEnabled(!state.isCancelRequested);
}

// With the place of the percentage still in it.
QString JobProgressBar::leftText(int seconds)
{
    if (seconds < 60)
        return tr("%p% - %1 s left").arg(seconds);
    return tr("%p% - %1 min left").arg(seconds / 60);
}

void JobProgressBar::retranslate()
{
    m_cancel->setText(tr("Cancel"));
    m_cancel->setToolTip(tr("Stop the job and leave the parts as they were (Esc)."));
}

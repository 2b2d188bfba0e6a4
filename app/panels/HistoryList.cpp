// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/HistoryList.h"

#include "app/jobs/JobGuard.h"
#include "platform/document/Document.h"
#include "platform/ui/DocumentFollower.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>

namespace {

QStringList translated(std::vector<std::string> const& names)
{
    QStringList texts;
    for (std::string const& name : names)
        texts << QCoreApplication::translate("UndoRedoName", name.c_str());
    return texts;
}

}  // namespace

HistoryList::HistoryList(QWidget* parent)
    : QListWidget(parent), m_follower(new DocumentFollower(this))
{
    setObjectName("HistoryList");
    setFrameShape(QFrame::NoFrame);
    setUniformItemSizes(true);
    setSelectionMode(SingleSelection);
    connect(m_follower, &DocumentFollower::changed, this, &HistoryList::refresh);
    connect(m_follower, &DocumentFollower::replaced, this, &HistoryList::refresh);
    connect(JobGuard::instance(), &JobGuard::busyChanged, this, &HistoryList::refresh);
    connect(this, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { goTo(row(item)); });
    connect(this, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { goTo(row(item)); });
    retranslate();
}

void HistoryList::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange) {
        m_shown.clear();
        refresh();
    }
    QListWidget::changeEvent(event);
}

void HistoryList::retranslate()
{
    setWindowTitle(tr("History"));
    setAccessibleName(tr("History"));
    m_shown.clear();
    refresh();
}

void HistoryList::refresh()
{
    bool const isBusy = JobGuard::instance()->isBusy();
    setEnabled(!isBusy);
    setToolTip(isBusy ? JobGuard::instance()->reason()
                      : tr("Click a step to go back or forth to it."));
    Base::Document const* const document = m_follower->document();
    QStringList done;
    QStringList undone;
    if (document) {
        done = translated(document->undoNames());
        std::reverse(done.begin(), done.end());
        done.prepend(tr("Start"));
        undone = translated(document->redoNames());
    }
    if (done + undone != m_shown || int(done.size()) - 1 != m_step)
        fill(done, undone);
}

void HistoryList::fill(QStringList const& done, QStringList const& undone)
{
    m_shown = done + undone;
    m_step = std::max(0, int(done.size()) - 1);
    clear();
    addItems(m_shown);
    for (int i = m_step + 1; i < count(); ++i)
        item(i)->setForeground(palette().brush(QPalette::Disabled, QPalette::Text));
    if (count() == 0)
        return;
    QFont bold = font();
    bold.setBold(true);
    item(m_step)->setFont(bold);
    setCurrentRow(m_step);
    scrollToItem(item(m_step));
}

void HistoryList::goTo(int row)
{
    Base::Document* const document = m_follower->document();
    if (!document || row < 0 || JobGuard::instance()->isBusy())
        return;
    std::size_t const wanted = std::size_t(row);
    while (document->undoNames().size() > wanted && document->undo()) {
    }
    while (document->undoNames().size() < wanted && document->redo()) {
    }
    refresh();
}

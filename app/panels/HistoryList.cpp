// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/HistoryList.h"

#include "app/jobs/JobGuard.h"
#include "app/panels/StepText.h"
#include "platform/document/Document.h"
#include "platform/document/StepFacts.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/DocumentFollower.h"

#include <QEvent>

namespace {

QStringList textsOf(Base::Document const& document)
{
    QStringList texts;
    for (Base::StepFacts const& facts : Base::stepFacts(document))
        texts << stepText(facts);
    return texts;
}

}  // namespace

HistoryList::HistoryList(QWidget* parent)
    : QListWidget(parent), m_follower(new DocumentFollower(this))
{
    setObjectName("HistoryList");
    setFrameShape(QFrame::NoFrame);
    setUniformItemSizes(true);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(SingleSelection);
    connect(m_follower, &DocumentFollower::changed, this, &HistoryList::refresh);
    connect(m_follower, &DocumentFollower::replaced, this, &HistoryList::refresh);
    connect(JobGuard::instance(), &JobGuard::busyChanged, this, &HistoryList::refresh);
    connect(&DisplayUnit::instance(), &DisplayUnit::changed, this, &HistoryList::refresh);
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
    QStringList steps;
    int current = 0;
    if (document) {
        steps = textsOf(*document);
        steps.prepend(tr("Start"));
        current = int(document->undoNames().size());
    }
    if (steps != m_shown || current != m_step)
        fill(steps, current);
}

void HistoryList::fill(QStringList const& steps, int current)
{
    m_shown = steps;
    m_step = current;
    clear();
    addItems(m_shown);
    for (int i = m_step + 1; i < count(); ++i)
        item(i)->setForeground(palette().brush(QPalette::Disabled, QPalette::Text));
    // What does not fit is cut off in the middle, and told whole under the mouse.
    for (int i = 0; i < count(); ++i)
        item(i)->setToolTip(m_shown[i]);
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

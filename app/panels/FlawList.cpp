// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/FlawList.h"

#include "app/panels/CheckReport.h"
#include "app/view/FlawMarks.h"
#include "platform/document/Document.h"
#include "platform/ui/DocumentFollower.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/view/PlaceMark.h"

#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QSignalBlocker>

#include <algorithm>
#include <array>

namespace {

using Counts = PartCheck::Counts;

constexpr std::size_t mostLines = 30000;

/// In the order of the kinds.
constexpr std::array<std::size_t Counts::*, 7> fields = {
    &Counts::borderEdges,         &Counts::nonManifoldEdges,   &Counts::inconsistentEdges,
    &Counts::degenerateTriangles, &Counts::duplicateTriangles, &Counts::selfIntersections,
    &Counts::misorientedShells};

QString inWords(Repair::FlawPlace const& place)
{
    Counts counts;
    counts.*fields[std::size_t(place.kind)] = place.count;
    return CheckReport::errorsInWords(counts);
}

}  // namespace

FlawList::FlawList(QWidget* parent)
    : QWidget(parent),
      m_follower(new DocumentFollower(this)),
      m_title(new QLabel(this)),
      m_list(new QListWidget(this))
{
    m_title->setWordWrap(true);
    m_list->setUniformItemSizes(true);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* const layout = new MellVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_title);
    layout->addWidget(m_list, 1);
    connect(m_follower, &DocumentFollower::changed, this, &FlawList::refresh);
    connect(m_follower, &DocumentFollower::replaced, this, &FlawList::refresh);
    connect(m_list, &QListWidget::currentRowChanged, this, &FlawList::showChosen);
    connect(m_list, &QListWidget::itemClicked, this, &FlawList::showChosen);
    setVisible(false);
}

FlawList::~FlawList() = default;

void FlawList::take(PartCheck::Findings const& findings)
{
    for (PartCheck::Finding const& finding : findings) {
        std::erase_if(m_rows, [&](Row const& row) { return row.part == finding.part; });
        MeshKernel const& kernel = finding.mended ? *finding.mended : *finding.kernel;
        for (Repair::FlawPlace const& place : finding.places)
            m_rows.push_back({finding.part, kernel.readMesh(), kernel.getMatrix(), place});
    }
    m_shown.clear();
    refresh();
}

bool FlawList::isTrue(Row const& row, Base::Document const& document)
{
    if (!document.contains(row.part))
        return false;
    MeshKernel const* const kernel = row.part->meshProperty->getMesh();
    return kernel && kernel->readMesh() == row.mesh.lock() && kernel->getMatrix() == row.matrix;
}

void FlawList::refresh()
{
    Base::Document const* const document = m_follower->document();
    std::size_t const before = m_rows.size();
    std::erase_if(m_rows, [&](Row const& row) { return !document || !isTrue(row, *document); });
    std::vector<std::size_t> shown;
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        if (document->isSelected(m_rows[i].part))
            shown.push_back(i);
    if (m_rows.size() == before && shown == m_shown && !shown.empty())
        return;
    m_shown = std::move(shown);
    fill();
    mark();
}

void FlawList::fill()
{
    QSignalBlocker const blocker(m_list);
    m_list->clear();
    for (std::size_t const index : m_shown) {
        Row const& row = m_rows[index];
        QString const text = QStringLiteral("%1: %2").arg(
            QString::fromStdString(row.part->getName()), inWords(row.place));
        m_list->addItem(text);
        m_list->item(m_list->count() - 1)->setToolTip(text);
    }
    m_title->setText(tr("Places of errors: %1. Choose one to see it.")
                         .arg(QLocale().toString(qulonglong(m_shown.size()))));
    m_list->setAccessibleName(tr("Places of errors"));
    setVisible(!m_shown.empty());
}

void FlawList::mark()
{
    Base::Document const* const document = m_follower->document();
    Base::GLView* const view = document ? document->getView() : nullptr;
    m_marks.reset();
    if (m_shown.empty() || !view)
        return;
    m_marks = std::make_unique<FlawMarks>(*view);
    FlawMarks::Lines lines;
    for (std::size_t const index : m_shown) {
        FlawMarks::Lines const& more = m_rows[index].place.lines;
        if (lines.size() + more.size() <= 2 * mostLines)
            lines.insert(lines.end(), more.begin(), more.end());
    }
    m_marks->setLines(std::move(lines));
}

void FlawList::showChosen()
{
    int const row = m_list->currentRow();
    if (row < 0 || !m_marks)
        return;
    Row const& chosen = m_rows[m_shown[std::size_t(row)]];
    m_marks->setChosen(chosen.place.lines);
    if (Base::GLView* const view = m_follower->document()->getView())
        Base::PlaceMark::show(*view, chosen.place.point, chosen.part);
}

void FlawList::step(int rows)
{
    if (m_shown.empty())
        return;
    int const row = m_list->currentRow();
    int const from = row >= 0 ? row : rows > 0 ? -1 : 0;
    m_list->setCurrentRow((from + rows + count()) % count());
    m_list->scrollToItem(m_list->currentItem());
    // Also of the only place, which is not chosen anew.
    if (m_list->currentRow() == row)
        showChosen();
}

void FlawList::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        fill();
    QWidget::changeEvent(event);
}

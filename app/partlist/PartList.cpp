// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/partlist/PartList.h"

#include "app/jobs/JobGuard.h"
#include "app/panels/ElidedLabel.h"
#include "app/partlist/PartListDelegate.h"
#include "app/partlist/PartMenu.h"
#include "app/partlist/PartSelectionLink.h"
#include "app/partlist/PartTreeModel.h"
#include "app/partlist/PartTreeView.h"

#include <QColorDialog>
#include <QEvent>
#include <QHeaderView>
#include <QLocale>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace {

QColor askForColor(QColor const& initial, QWidget* parent)
{
    return QColorDialog::getColor(initial, parent, PartList::tr("Colour of the Part"));
}

unsigned rgbaOf(QColor const& color)
{
    return unsigned(color.red()) << 24 | unsigned(color.green()) << 16 |
           unsigned(color.blue()) << 8 | unsigned(color.alpha());
}

}  // namespace

PartList::PartList(QWidget* parent)
    : QWidget(parent),
      m_model(new PartTreeModel(this)),
      m_view(new PartTreeView(this)),
      m_summary(new ElidedLabel(this)),
      m_chooseColor(askForColor)
{
    setObjectName("PartList");
    buildView();
    m_link = new PartSelectionLink(*m_model, *m_view->selectionModel(), this);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_view);
    layout->addWidget(m_summary);

    connect(m_view, &PartTreeView::buttonClicked, this, &PartList::buttonClicked);
    connect(m_view, &QWidget::customContextMenuRequested, this, &PartList::showMenu);
    connect(m_link, &PartSelectionLink::pulled, this, &PartList::revealSelected);
    connect(m_link, &PartSelectionLink::pulled, this, &PartList::updateSummary);
    connect(m_model, &QAbstractItemModel::modelReset, this, &PartList::updateSummary);
    connect(JobGuard::instance(), &JobGuard::busyChanged, m_view->viewport(),
            qOverload<>(&QWidget::update));
    retranslate();
}

PartList::~PartList() = default;

void PartList::buildView()
{
    m_view->setModel(m_model);
    m_view->setItemDelegate(new PartListDelegate(m_view));
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setAlternatingRowColors(true);
    m_view->expandAll();
    QHeaderView* const header = m_view->header();
    header->setSectionsMovable(false);
    header->setStretchLastSection(false);
    header->setMinimumSectionSize(fontMetrics().height());
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionResizeMode(PartTreeModel::NameColumn, QHeaderView::Stretch);
    header->setSectionResizeMode(PartTreeModel::TrianglesColumn, QHeaderView::ResizeToContents);
    for (int const column : {int(PartTreeModel::ClosedColumn), int(PartTreeModel::ColorColumn),
                             int(PartTreeModel::EyeColumn)})
        header->resizeSection(column, fontMetrics().height() * 3 / 2);
    connect(header, &QHeaderView::sectionResized, this, [this](int column, int, int size) {
        if (column == PartTreeModel::TrianglesColumn && size > 0)
            fitColumns();
    });
    int const height = fontMetrics().height();
    m_summary->setContentsMargins(height / 4, 0, height / 4, height / 3);
    m_summary->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void PartList::synchronize()
{
    m_model->synchronize();
}

/// Which part is which matters more than how many triangles it has.
void PartList::fitColumns()
{
    QHeaderView* const header = m_view->header();
    if (!header->isSectionHidden(PartTreeModel::TrianglesColumn))
        m_trianglesWidth = header->sectionSize(PartTreeModel::TrianglesColumn);
    int room = width() - m_trianglesWidth - m_view->indentation();
    for (int const column : {int(PartTreeModel::ClosedColumn), int(PartTreeModel::ColorColumn),
                             int(PartTreeModel::EyeColumn)})
        room -= header->sectionSize(column);
    constexpr int fewestLetters = 12;
    header->setSectionHidden(PartTreeModel::TrianglesColumn,
                             room < fewestLetters * fontMetrics().averageCharWidth());
}

void PartList::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitColumns();
}

void PartList::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void PartList::retranslate()
{
    setWindowTitle(tr("Parts"));
    m_view->setPlaceholder(tr("Open a part, or drop a file into the window."));
    m_view->setAccessibleName(tr("Parts"));
    emit m_model->headerDataChanged(Qt::Horizontal, 0, PartTreeModel::ColumnCount - 1);
    updateSummary();
}

void PartList::updateSummary()
{
    QStringList texts;
    std::size_t const count = m_model->partCount();
    texts << (count == 1 ? tr("1 part")
                         : tr("%1 parts").arg(QLocale().toString(qulonglong(count))));
    auto const triangles = qulonglong(m_model->triangleCount());
    texts << (triangles == 1 ? tr("1 triangle")
                             : tr("%1 triangles").arg(QLocale().toString(triangles)));
    std::size_t const selected =
        m_model->document() ? m_model->document()->getSelectedMeshObjects().size() : 0;
    if (selected > 0)
        texts << tr("%1 selected").arg(QLocale().toString(qulonglong(selected)));
    m_summary->setText(texts.join(QStringLiteral(" \u00b7 ")));
    m_summary->setVisible(m_model->partCount() > 0);
}

void PartList::revealSelected()
{
    auto const rows = m_view->selectionModel()->selectedRows();
    QRect const shown = m_view->viewport()->rect();
    bool const isSeen = std::any_of(rows.begin(), rows.end(), [&](QModelIndex const& row) {
        return shown.contains(m_view->visualRect(row).center());
    });
    if (!isSeen && !rows.isEmpty())
        m_view->scrollTo(*std::min_element(rows.begin(), rows.end()));
}

PartEdits::Parts PartList::partsAt(QModelIndex const& index) const
{
    Base::DocumentObject* const object = m_model->objectAt(index);
    if (!object)
        return {};
    auto parts = PartEdits::partsAmong({object});
    auto const selected = PartEdits::partsAmong(m_model->document()->getSelectedObjects());
    bool const isSelected = std::all_of(parts.begin(), parts.end(), [&](auto* part) {
        return std::find(selected.begin(), selected.end(), part) != selected.end();
    });
    return isSelected && !parts.empty() ? selected : parts;
}

void PartList::buttonClicked(QModelIndex const& index)
{
    if (JobGuard::instance()->isBusy()) {
        QToolTip::showText(QCursor::pos(), JobGuard::instance()->reason(), m_view);
        return;
    }
    auto const parts = partsAt(index);
    if (parts.empty())
        return;
    if (index.column() == PartTreeModel::ColorColumn)
        return chooseColor(parts);
    bool const isOpen = index.data(PartTreeModel::EyeRole).toInt() == int(PartNode::Eye::Open);
    PartEdits::setVisible(*m_model->document(), parts, !isOpen);
    synchronize();
}

void PartList::chooseColor(PartEdits::Parts const& parts)
{
    unsigned const rgba = parts.front()->getColor();
    QColor const initial = rgba == 0 ? palette().color(QPalette::Mid)
                                     : QColor(int(rgba >> 24), int(rgba >> 16 & 255),
                                              int(rgba >> 8 & 255), int(rgba & 255));
    QColor const chosen = m_chooseColor(initial, this);
    // The dialog lets time pass, in which a job may start or a part may go.
    Mesh::Document* const document = m_model->document();
    if (!chosen.isValid() || !document || JobGuard::instance()->isBusy())
        return;
    PartEdits::Parts present;
    for (Mesh::DocumentObject* const part : parts)
        if (document->contains(part))
            present.push_back(part);
    PartEdits::setColor(*document, present, rgbaOf(chosen));
    synchronize();
}

void PartList::renameCurrent()
{
    QModelIndexList const rows = m_view->selectionModel()->selectedRows();
    QModelIndex const current = m_view->currentIndex().siblingAtColumn(0);
    if (!rows.isEmpty())
        m_view->edit(rows.contains(current) ? current : rows.front());
}

QMenu* PartList::makeContextMenu()
{
    if (!m_model->document())
        return nullptr;
    auto* const menu = new PartMenu(*m_model->document(), this);
    connect(menu, &PartMenu::renameRequested, this, &PartList::renameCurrent);
    connect(menu, &PartMenu::colorRequested, this, [this] {
        chooseColor(PartEdits::partsAmong(m_model->document()->getSelectedObjects()));
    });
    return menu;
}

void PartList::showMenu(QPoint position)
{
    std::unique_ptr<QMenu> const menu(makeContextMenu());
    if (menu)
        menu->exec(m_view->viewport()->mapToGlobal(position));
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/PartCombiner.h"

#include "app/panels/CombinationDialog.h"
#include "app/panels/RowDialog.h"
#include "app/parts/PartEdits.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellMessageBox.h"
#include "platform/view/GLView.h"
#include "platform/view/PlaceMark.h"

#include <QLocale>
#include <QStatusBar>

#include <algorithm>

namespace {

Mesh::Document* activeParts()
{
    return dynamic_cast<Mesh::Document*>(activeDocument());
}

QString nameOf(Mesh::DocumentObject const* part)
{
    return QString::fromStdString(part->getName());
}

void warn(QString const& text)
{
    MellMessageBox::warning(MainWindow::getInstance(), PartCombiner::tr("Attention"), text,
                            PartCombiner::tr("OK"), "", "", 0, -1);
}

/// On the status line and in the log.
void tell(QString const& text)
{
    constexpr int milliseconds = 10000;
    Base::ConsoleSingleton::Instance().Log(text.toStdString());
    if (MainWindow* const window = MainWindow::getInstance())
        window->statusBar()->showMessage(text, milliseconds);
}

}  // namespace

PartCombiner::PartCombiner(Base::GLView& view) : QObject(&view), m_view(view)
{
    connect(&m_job, &PartCombination::finished, this, &PartCombiner::finish);
}

std::vector<Mesh::DocumentObject*> PartCombiner::chosen()
{
    Mesh::Document const* const document = activeParts();
    return document ? PartEdits::partsAmong(PartEdits::selectedObjects(*document))
                    : std::vector<Mesh::DocumentObject*>();
}

bool PartCombiner::canTake(Operation operation, std::size_t parts)
{
    return operation == Operation::Shells ? parts == 1 : parts >= 2;
}

void PartCombiner::combine(Operation operation)
{
    PartCombination::Task task;
    task.operation = operation;
    task.parts = chosen();
    if (!canTake(operation, task.parts.size()) || JobGuard::instance()->isBusy())
        return;
    bool const isAboutOne = operation == Operation::TakeAway || operation == Operation::Split;
    if (isAboutOne && !askWhatStays(task))
        return;
    // What was said of an earlier one.
    MainWindow::getInstance()->statusBar()->clearMessage();
    m_job.start(*activeParts(), task);
}

bool PartCombiner::askWhatStays(PartCombination::Task& task) const
{
    bool const isSplit = task.operation == Operation::Split;
    QStringList names;
    std::ranges::transform(task.parts, std::back_inserter(names), nameOf);
    CombinationDialog dialog(
        {isSplit ? tr("Split by Parts") : tr("Take Away"),
         isSplit ? tr("Split") : tr("Take away from"), isSplit ? tr("Split") : tr("Take Away")},
        names, MainWindow::getInstance());
    if (dialog.exec() != QDialog::Accepted)
        return false;
    auto const first = task.parts.begin() + dialog.first();
    std::rotate(task.parts.begin(), first, first + 1);
    task.keepsOthers = dialog.keepsOthers();
    return true;
}

void PartCombiner::duplicateInRow()
{
    auto const parts = chosen();
    if (parts.empty() || JobGuard::instance()->isBusy())
        return;
    RowDialog dialog(MainWindow::getInstance());
    if (dialog.exec() == QDialog::Accepted)
        PartRow::duplicate(*activeParts(), parts, dialog.row());
}

void PartCombiner::finish(PartCombination::Report const& report)
{
    switch (report.outcome) {
        case PartCombination::Outcome::Done:
            tellFlaws(report);
            break;
        case PartCombination::Outcome::Cancelled:
            tell(tr("The operation was cancelled; the parts are as they were."));
            break;
        case PartCombination::Outcome::Nothing:
            tellNothing(report);
            break;
        case PartCombination::Outcome::Failed:
            tellFailure(report);
            break;
    }
}

void PartCombiner::tellFlaws(PartCombination::Report const& report) const
{
    QString const first = nameOf(m_job.task().parts.front());
    QStringList told;
    if (report.isOpen)
        told << tr("%1 is open somewhere. Check shows where, and Repair may close it.").arg(first);
    if (report.isCrossing)
        told << tr("%1 crosses itself where coordinates had to be rounded. Check shows where, and "
                   "Repair may mend it.")
                    .arg(first);
    if (!told.isEmpty())
        tell(told.join(' '));
}

void PartCombiner::tellNothing(PartCombination::Report const& report) const
{
    QString const first = nameOf(m_job.task().parts.front());
    switch (report.nothing) {
        case SolidOperations::Nothing::No:
            break;
        case SolidOperations::Nothing::NotCommon:
            warn(tr("The selected parts have nothing in common; they stay as they are."));
            break;
        case SolidOperations::Nothing::AllTaken:
            warn(tr("%1 lies within the other parts: nothing would be left of it. It stays as it "
                    "is.")
                     .arg(first));
            break;
        case SolidOperations::Nothing::OneBody:
            warn(tr("%1 is one piece; there is nothing to split.").arg(first));
            break;
        case SolidOperations::Nothing::TooMany:
            warn(tr("%1 consists of %2 pieces, too many for parts of their own. It stays as it "
                    "is.")
                     .arg(first, QLocale().toString(qulonglong(report.bodies))));
            break;
    }
}

void PartCombiner::tellFailure(PartCombination::Report const& report)
{
    PartCombination::Task const task = m_job.task();
    Mesh::DocumentObject const* const part =
        report.operand >= 0 ? task.parts[std::size_t(report.operand)] : nullptr;
    QString reason = report.reason;
    QStringList buttons{tr("OK")};
    int show = -1, repair = -1;
    if (report.place) {
        show = int(buttons.size());
        buttons << tr("Show in View");
    }
    if (report.repairMayHelp && task.toMend.contains(report.operand)) {
        reason +=
            ' ' + tr("The repair has not mended it. Move one of the parts a little, or mend this "
                     "one in the program that it comes from.");
    } else if (report.repairMayHelp) {
        repair = int(buttons.size());
        buttons << tr("Repair and Try Again");
    }
    int const answer = MellMessageBox::failure(
        MainWindow::getInstance(), tr("Attention"),
        tr("The parts could not be combined; they stay as they are."), reason, buttons);
    if (answer == show && report.place)
        Base::PlaceMark::show(m_view, *report.place, part);
    if (answer != repair)
        return;
    PartCombination::Task again = task;
    again.toMend.insert(report.operand);
    Mesh::Document* const document = activeParts();
    bool const isThere =
        document && std::ranges::all_of(again.parts, [&](Mesh::DocumentObject const* p) {
            return document->contains(p);
        });
    if (isThere)
        m_job.start(*document, again);
}

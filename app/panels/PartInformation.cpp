// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/PartInformation.h"

#include "app/panels/CheckReport.h"
#include "app/panels/FitText.h"
#include "app/panels/FlawList.h"
#include "app/panels/PanelIcon.h"
#include "app/parts/EditStep.h"
#include "app/parts/MeshSurvey.h"
#include "app/parts/PartPlacement.h"
#include "app/view/MeasureText.h"
#include "platform/document/CutMemory.h"
#include "platform/document/MeshDocument.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/DocumentFollower.h"
#include "platform/ui/MellGridLayout.h"
#include "platform/ui/MellHBoxLayout.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/Theme.h"

#include <QEvent>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>

#include <algorithm>

namespace {

void addTo(PartCheck::Counts& sum, PartCheck::Counts const& counts)
{
    sum.borderEdges += counts.borderEdges;
    sum.nonManifoldEdges += counts.nonManifoldEdges;
    sum.inconsistentEdges += counts.inconsistentEdges;
    sum.degenerateTriangles += counts.degenerateTriangles;
    sum.duplicateTriangles += counts.duplicateTriangles;
    sum.selfIntersections += counts.selfIntersections;
    sum.misorientedShells += counts.misorientedShells;
}

}  // namespace

PartInformation::PartInformation(QWidget* parent)
    : QWidget(parent), m_follower(new DocumentFollower(this)), m_survey(MeshSurvey::shared())
{
    setObjectName("PartInformation");
    build();
    connect(m_follower, &DocumentFollower::changed, this, &PartInformation::refresh);
    connect(m_follower, &DocumentFollower::replaced, this, &PartInformation::refresh);
    connect(m_survey.get(), &MeshSurvey::measured, this, &PartInformation::refresh);
    connect(JobGuard::instance(), &JobGuard::busyChanged, this, &PartInformation::refresh);
    connect(&DisplayUnit::instance(), &DisplayUnit::changed, this, &PartInformation::refresh);
    connect(m_check, &QPushButton::clicked, this, &PartInformation::checkSelected);
    connect(m_repair, &QPushButton::clicked, this, &PartInformation::repairSelected);
    connect(&m_job, &PartCheck::finished, this, &PartInformation::finish);
    retranslate();
}

PartInformation::~PartInformation() = default;

void PartInformation::build()
{
    m_hint = new QLabel(this);
    m_hint->setWordWrap(true);
    m_facts = new QWidget(this);
    auto* const grid = new MellGridLayout(m_facts);
    for (int line = 0; line < LineCount; ++line) {
        auto& title = m_titles[std::size_t(line)] = new QLabel(m_facts);
        auto& value = m_values[std::size_t(line)] = new QLabel(m_facts);
        title->setForegroundRole(QPalette::PlaceholderText);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        value->setWordWrap(true);
        grid->addWidget(title, line, 0, Qt::AlignTop);
        grid->addWidget(value, line, 1);
    }
    grid->setColumnStretch(1, 1);
    m_check = new PushButtonAnimate({}, this);
    m_repair = new PushButtonAnimate({}, this);
    m_report = new QPlainTextEdit(this);
    m_report->setReadOnly(true);
    m_report->setVisible(false);
    m_flaws = new FlawList(this);

    auto* const layout = new MellVBoxLayout(this);
    int const margin = themePixels("dialogWidegtMargin");
    layout->setContentsMargins(margin, margin, margin, margin);
    // First, so that nothing that is found out moves them under the mouse.
    auto* const buttons = new MellHBoxLayout;
    buttons->addWidget(m_check);
    buttons->addWidget(m_repair);
    layout->addLayout(buttons);
    layout->addWidget(m_hint);
    layout->addWidget(m_facts);
    layout->addWidget(m_report, 1);
    layout->addWidget(m_flaws, 2);
    layout->addStretch();
}

void PartInformation::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void PartInformation::retranslate()
{
    setWindowTitle(tr("Information"));
    QStringList const titles{tr("Name"), tr("Triangles"), tr("Size"),   tr("Volume"),
                             tr("Area"), tr("Surface"),   tr("Errors"), tr("Printer")};
    for (int line = 0; line < LineCount; ++line)
        m_titles[std::size_t(line)]->setText(titles[line]);
    m_check->setText(tr("Check"));
    m_repair->setText(tr("Repair"));
    m_report->setAccessibleName(tr("What was found"));
    refresh();
}

QString PartInformation::text(Line line) const
{
    return m_values[line]->text();
}

QString PartInformation::report() const
{
    return m_report->toPlainText();
}

PartInformation::Parts PartInformation::parts() const
{
    auto const* const document = dynamic_cast<Mesh::Document*>(m_follower->document());
    return document ? document->getSelectedMeshObjects() : Parts();
}

QString PartInformation::whyInactive() const
{
    if (JobGuard::instance()->isBusy())
        return JobGuard::instance()->reason();
    return parts().empty() ? tr("Select a part first.") : QString();
}

void PartInformation::refresh()
{
    Parts const selected = parts();
    m_hint->setText(tr("Select a part first."));
    m_hint->setVisible(selected.empty());
    m_facts->setVisible(!selected.empty());
    if (!selected.empty())
        showFacts(selected);
    QString const why = whyInactive();
    for (PushButtonAnimate* const button : {m_check, m_repair})
        button->setEnabled(why.isEmpty());
    m_check->setToolTip(why.isEmpty() ? tr("Count what a printable part must not have.") : why);
    m_repair->setToolTip(why.isEmpty() ? tr("Close holes and mend what else can be mended.") : why);
    m_check->setIcon(panelIcon("app_check"));
    m_repair->setIcon(panelIcon("app_repair"));
}

void PartInformation::showFacts(Parts const& selected)
{
    MeshFacts sum;
    bool isComplete = true;
    std::size_t open = 0;
    for (Mesh::DocumentObject const* const part : selected) {
        auto const facts = m_survey->facts(*part);
        isComplete = isComplete && facts.has_value();
        if (!facts)
            continue;
        sum.triangles += facts->triangles;
        sum.volume += facts->volume;
        sum.area += facts->area;
        open += !facts->closed;
    }
    UBox3<float> const box = PartPlacement::boxOf(selected);
    auto const show = [this](Line line, QString const& text) { m_values[line]->setText(text); };
    auto const known = [&](QString const& text) { return isComplete ? text : tr("..."); };
    int const count = int(selected.size());
    show(Name, count == 1 ? QString::fromStdString(selected.front()->getName())
                          : tr("%1 parts").arg(count));
    show(Triangles, known(QLocale().toString(qulonglong(sum.triangles))));
    show(Size, box.Isnullptr() ? tr("empty") : MeasureText::boxMm(box));
    show(Volume,
         known(open > 0 ? tr("none, the surface is open") : MeasureText::volumeMm3(sum.volume)));
    show(Area, known(MeasureText::areaMm2(sum.area)));
    show(Closed, known(open == 0    ? tr("closed")
                       : count == 1 ? tr("open")
                                    : tr("%1 of %2 parts are open").arg(open).arg(count)));
    show(Errors, errorsOf(selected));
    show(Fit, fitOf(selected));
}

QString PartInformation::fitOf(Parts const& selected)
{
    BuildVolume const room = BuildVolume::stored();
    QString const fits = FitText::of({}, room);
    QStringList lines;
    for (Mesh::DocumentObject const* const part : selected) {
        QString const text = FitText::of(part->getBoundingBox(), room);
        if (selected.size() == 1)
            return text;
        if (text != fits)
            lines << QString::fromStdString(part->getName()) + ": " + text;
    }
    constexpr int mostLines = 5;
    if (lines.size() > mostLines) {
        lines = lines.mid(0, mostLines);
        lines << QStringLiteral("...");
    }
    return lines.isEmpty() ? fits : lines.join('\n');
}

QString PartInformation::errorsOf(Parts const& selected) const
{
    PartCheck::Counts sum;
    for (Mesh::DocumentObject const* const part : selected) {
        MeshKernel const* const kernel = part->meshProperty->getMesh();
        auto const mesh = kernel ? kernel->readMesh() : nullptr;
        auto const place = m_known.find(mesh.get());
        if (place == m_known.end() || place->second.mesh.lock() != mesh)
            return tr("not checked yet");
        addTo(sum, place->second.counts);
    }
    return sum.total() == 0 ? tr("none") : CheckReport::errorsInWords(sum);
}

void PartInformation::checkSelected()
{
    start(PartCheck::Kind::Check);
}

void PartInformation::repairSelected()
{
    start(PartCheck::Kind::Repair);
}

void PartInformation::start(PartCheck::Kind kind)
{
    if (whyInactive().isEmpty() && m_job.start(kind, parts()))
        refresh();
}

void PartInformation::finish(PartCheck::Kind kind, PartCheck::Outcome outcome,
                             PartCheck::Findings const& findings, QString const& reason)
{
    bool const isRepair = kind == PartCheck::Kind::Repair;
    if (outcome == PartCheck::Outcome::Cancelled)
        return showReport(isRepair ? tr("The repair was cancelled; the parts are as they were.")
                                   : tr("The check was cancelled."));
    if (outcome == PartCheck::Outcome::Failed)
        return showReport(reason);
    if (isRepair)
        takeOver(findings);
    for (PartCheck::Finding const& finding : findings) {
        remember(*finding.kernel, finding.before);
        if (finding.mended)
            remember(*finding.mended, finding.after);
    }
    m_flaws->take(findings);
    showReport(isRepair ? CheckReport::ofRepair(findings) : CheckReport::ofCheck(findings));
    refresh();
}

void PartInformation::takeOver(PartCheck::Findings const& findings)
{
    auto* const document = dynamic_cast<Mesh::Document*>(m_follower->document());
    bool const isAnyMended = std::any_of(findings.begin(), findings.end(),
                                         [](auto const& f) { return f.mended != nullptr; });
    if (!document || !isAnyMended)
        return;
    EditStep const step(*document, QT_TRANSLATE_NOOP("UndoRedoName", "Repair"));
    for (PartCheck::Finding const& finding : findings)
        if (finding.mended && document->contains(finding.part) &&
            finding.part->meshProperty->shareMesh() == finding.kernel) {
            Mesh::rememberAs(*finding.kernel, *finding.mended);
            finding.part->meshProperty->setMesh(finding.mended);
        }
}

void PartInformation::remember(MeshKernel const& kernel, PartCheck::Counts const& counts)
{
    std::erase_if(m_known, [](auto const& item) { return item.second.mesh.expired(); });
    auto const mesh = kernel.readMesh();
    m_known[mesh.get()] = {mesh, counts};
}

void PartInformation::showReport(QString const& text)
{
    m_report->setPlainText(text);
    m_report->setVisible(true);
    for (QString const& line : text.split(QLatin1Char('\n')))
        Base::ConsoleSingleton::Instance().Log(line.toStdString());
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ConnectorPreview.h"

#include "cutjobs/common/PartMesh.h"
#include "dialogs/ConnectorPicking.h"
#include "dialogs/ConnectorShaping.h"
#include "dialogs/PresetButton.h"
#include "display/ConnectorItem.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/view/GLView.h"
#include "selection/EditHistory.h"
#include "selection/PlanecutSelection.h"
#include "selection/RunningTool.h"

#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>

namespace Freecut {

namespace {

/// How far a place snaps, in pixels.
constexpr float snapReach = 12;
/// In the status line, in milliseconds.
constexpr int messageTime = 4000;

ConnectorPicking::Sight sightAt(Base::GLView const& view, QPoint position)
{
    UPoint3<float> point = view.getEyePointOnScreen({float(position.x()), float(position.y())});
    view.getWCSPointFromEyePoint(point);
    return {point, view.getViewDirection()};
}

float millimetresPerPixel(Base::GLView const& view)
{
    UPoint3<float> const a = view.getEyePointOnScreen({0, 0});
    return (view.getEyePointOnScreen({1, 0}) - a).GetLength();
}

bool isOf(SurveyRequest const& request, SectionSurvey const& survey)
{
    return request.object == survey.object;
}

}  // namespace

ConnectorPreview::ConnectorPreview(QWidget* parent) : QWidget(parent)
{
    auto* const column = new MellVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    m_presets = new PresetButton(this);
    m_byHand = new QCheckBox(this);
    m_anew = new PushButtonAnimate(this);
    m_text = new QLabel(this);
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::RichText);
    m_anew->setEnabled(false);
    column->addWidget(m_presets);
    column->addWidget(m_byHand);
    column->addWidget(m_anew);
    column->addWidget(m_text);
    connect(m_byHand, &QAbstractButton::toggled, this, &ConnectorPreview::refresh);
    connect(m_anew, &QAbstractButton::clicked, this, [this] {
        m_choices.clear();
        edited();
    });
    connect(&m_runner, &SurveyRunner::ready, this, &ConnectorPreview::show);
    retranslate();
}

ConnectorPreview::~ConnectorPreview()
{
    end();
}

void ConnectorPreview::end()
{
    m_scene = {};
    m_runner.drop();
    m_requests.clear();
    moveTo(nullptr);
}

void ConnectorPreview::follow(QWidget const& page)
{
    for (MellQuantitySpinBox* const field : page.findChildren<MellQuantitySpinBox*>())
        connect(field, &MellQuantitySpinBox::valueChanged, this, &ConnectorPreview::refresh);
    for (QAbstractButton* const button : page.findChildren<QAbstractButton*>())
        connect(button, &QAbstractButton::toggled, this, &ConnectorPreview::refresh);
}

void ConnectorPreview::refresh()
{
    if (std::exchange(m_isAsking, true))
        return;
    // Several changes of one event are one.
    QTimer::singleShot(0, this, [this] {
        m_isAsking = false;
        ask();
    });
}

void ConnectorPreview::objectGoes(Base::DocumentObject const* object)
{
    m_choices.objectGoes(object);
    refresh();
}

void ConnectorPreview::ask()
{
    PreviewScene const scene = m_scene ? m_scene() : PreviewScene();
    bool const isPins = std::holds_alternative<PinHoleParas>(scene.connectors);
    m_byHand->setVisible(isPins);
    m_anew->setVisible(isPins);
    moveTo(scene.view);
    bool const hasWork = scene.plane && scene.view && !scene.parts.empty() &&
                         !std::holds_alternative<std::monostate>(scene.connectors);
    takeClicks(hasWork && isPins && m_byHand->isChecked());
    m_requests.clear();
    if (!hasWork) {
        m_runner.drop();
        m_shown.clear();
        showText();
        return;
    }
    SectionPlanes const planes(*scene.plane, scene.parts, scene.isBounded);
    for (Mesh::DocumentObject* const part : scene.parts)
        if (MeshKernel const* const kernel = kernelOfPart(part)) {
            SurveyRequest& request =
                m_requests.emplace_back(SurveyRequest{part, PlacedMesh(*kernel), planes});
            request.connectors = scene.connectors;
            request.wantsCentreLines = isPins && m_byHand->isChecked();
            if (isPins)
                request.choice = m_choices.of(part);
        }
    m_runner.ask(m_requests);
}

void ConnectorPreview::show()
{
    ConnectorShapes shapes;
    for (SectionSurvey const& survey : m_runner.result().surveys)
        for (SurveyRequest const& request : m_requests)
            if (isOf(request, survey))
                appendShapes(shapes, request, survey);
    m_shown.show([&](ConnectorItem& item) { item.setShapes(shapes); });
    showText();
}

QString ConnectorPreview::text() const
{
    return m_text->text();
}

void ConnectorPreview::showText()
{
    SurveyRunner::Result const& result = m_runner.result();
    std::size_t standing = 0, listed = 0;
    QStringList lines;
    for (SectionSurvey const& survey : result.surveys) {
        standing += standingPositions(survey.connectors).size();
        listed += survey.connectors.size();
    }
    bool const isPins =
        !m_requests.empty() && std::holds_alternative<PinHoleParas>(m_requests[0].connectors);
    if (isPins && !result.surveys.empty())
        lines += standing == listed ? tr("Connectors: %1").arg(standing)
                                    : tr("Connectors: %1 of %2").arg(standing).arg(listed);
    for (SectionSurvey const& survey : result.surveys)
        for (CutRemark const& remark : survey.remarks)
            lines += QStringLiteral("<span style=\"color:#d02020\">%1</span>")
                         .arg(QString::fromStdString(remark.text).toHtmlEscaped());
    for (std::string const& failure : result.failures)
        lines += QStringLiteral("<span style=\"color:#d02020\">%1</span>")
                     .arg(QString::fromStdString(failure).toHtmlEscaped());
    lines.removeDuplicates();
    m_text->setText(lines.join(QStringLiteral("<br>")));
    m_text->setVisible(!lines.isEmpty());
    m_anew->setEnabled(std::any_of(
        m_requests.begin(), m_requests.end(),
        [this](SurveyRequest const& request) { return !m_choices.of(request.object).isEmpty(); }));
}

ConnectorPositions ConnectorPreview::positions()
{
    // What was changed a moment ago may not have been asked for.
    if (!m_choices.isEmpty() && std::exchange(m_isAsking, false))
        ask();
    m_runner.finish();
    ConnectorPositions positions;
    for (SectionSurvey const& survey : m_runner.result().surveys)
        if (!m_choices.of(survey.object).isEmpty())
            positions[survey.object] = standingPositions(survey.connectors);
    return positions;
}

// By hand.

void ConnectorPreview::moveTo(Base::GLView* view)
{
    auto const join = [this](EditsBeside* beside) {
        if (auto* const tool = runningTool<PlanecutSelection>(m_shown.view()))
            tool->setEditsBeside(beside);
    };
    // A view that has gone leaves its picture here.
    if (!m_shown.view() || m_shown.view() != view) {
        takeClicks(false);
        join(nullptr);
        m_shown.clear();
    }
    m_shown.setView(view);
    join(this);
}

void ConnectorPreview::takeClicks(bool isTaking)
{
    if (auto* const tool = runningTool<PlanecutSelection>(m_shown.view()))
        tool->setClickTaker(isTaking ? this : nullptr);
}

std::optional<ConnectorPreview::Aim> ConnectorPreview::aimAt(QMouseEvent const& event) const
{
    auto const& surveys = m_runner.result().surveys;
    if (!m_shown.view() || m_requests.empty() || surveys.empty())
        return {};
    auto const* const paras = std::get_if<PinHoleParas>(&m_requests[0].connectors);
    PlaneFrame const& frame = m_requests[0].planes.frame();
    ConnectorPicking::Sight const sight = sightAt(*m_shown.view(), event.pos());
    for (std::size_t i = 0; paras && i < surveys.size(); ++i)
        if (auto const hit = ConnectorPicking::connectorAt(sight, *paras, frame, surveys[i]))
            return Aim{i, hit, surveys[i].connectors[*hit].position};
    auto const place = ConnectorPicking::placeOnPlane(sight, frame);
    if (!paras || !place)
        return {};
    float const reach = snapReach * millimetresPerPixel(*m_shown.view());
    for (std::size_t i = 0; i < surveys.size(); ++i) {
        if (event.modifiers() & Qt::ShiftModifier)
            if (auto const snapped = ConnectorPicking::snapped(*place, surveys[i], reach))
                return Aim{i, {}, *snapped};
        if (ConnectorPicking::isOnSection(*place, frame, surveys[i]))
            return Aim{i, {}, *place};
    }
    return {};
}

void ConnectorPreview::hovered(QMouseEvent const& event)
{
    std::optional<Aim> const aim = aimAt(event);
    m_shown.view()->setCursor(aim ? Qt::CrossCursor : Qt::ArrowCursor);
    if (!aim)
        return say({});
    auto const text = [&](int axis) { return QString::number(double(aim->place[axis]), 'f', 3); };
    say(tr("X %1  Y %2  Z %3 mm").arg(text(0), text(1), text(2)));
}

void ConnectorPreview::clicked(QMouseEvent const& event)
{
    std::optional<Aim> const aim = aimAt(event);
    if (!aim)
        return say(tr("There is no section of a part at that place."));
    SectionSurvey const& survey = m_runner.result().surveys[aim->part];
    if (!aim->connector)
        return addAt(*aim);
    toggle(survey.object, survey.connectors[*aim->connector]);
}

void ConnectorPreview::toggle(Mesh::DocumentObject const* part, ChosenConnector const& connector)
{
    auto const& paras = std::get<PinHoleParas>(m_requests[0].connectors);
    ConnectorChoice choice = m_choices.of(part);
    switch (connector.state) {
        case ChosenConnector::State::Stands:
            choice.leftOut.push_back(connector.position);
            break;
        case ChosenConnector::State::LeftOut:
            std::erase_if(choice.leftOut, [&](UPoint3<float> const& place) {
                return (place - connector.position).GetLength() < paras.spacing / 2;
            });
            break;
        case ChosenConnector::State::GivesWay:
            return say(tr("Another connector stands too near; leave that one out first."));
    }
    m_choices.set(part, choice);
    edited();
}

void ConnectorPreview::addAt(Aim const& aim)
{
    auto const& paras = std::get<PinHoleParas>(m_requests[0].connectors);
    SectionSurvey const& survey = m_runner.result().surveys[aim.part];
    for (ChosenConnector const& connector : survey.connectors)
        if (connector.isAdded && connector.stands() &&
            (connector.position - aim.place).GetLength() < leastDistance(paras))
            return say(tr("Connectors must be %1 mm apart.").arg(double(leastDistance(paras))));
    ConnectorChoice choice = m_choices.of(survey.object);
    choice.added.push_back(aim.place);
    m_choices.set(survey.object, choice);
    edited();
}

void ConnectorPreview::edited()
{
    if (EditHistory* const history = runningHistory(m_shown.view()))
        history->edited();
    refresh();
}

void ConnectorPreview::setEdits(std::shared_ptr<void const> const& edits)
{
    m_choices.setState(edits);
    refresh();
}

void ConnectorPreview::say(QString const& text) const
{
    if (MainWindow* const window = MainWindow::getInstance())
        window->statusBar()->showMessage(text, messageTime);
}

void ConnectorPreview::retranslate()
{
    m_byHand->setText(tr("Place connectors by hand"));
    m_byHand->setToolTip(
        tr("A click on a connector leaves it out or brings it back; a click on a free place of the "
           "section adds one. With Shift it snaps to contours and centre lines."));
    m_anew->setText(tr("Place anew"));
    m_anew->setToolTip(tr("Forgets all that was changed by hand."));
    showText();
}

void ConnectorPreview::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        refresh();
    }
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CutForecast.h"

#include "cutjobs/common/PartMesh.h"
#include "dialogs/ToolProblem.h"
#include "display/VolumeViewProvider.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/MellVBoxLayout.h"
#include "tools/VolumeGraphicObject.h"
#include "tools/VolumeOutline.h"

#include <QEvent>
#include <QLabel>
#include <QTimer>

#include <algorithm>

namespace Freecut {

namespace {

QString paragraphs(QStringList const& lines, QString const& pattern)
{
    QStringList escaped;
    for (QString const& line : lines)
        escaped << pattern.arg(line.toHtmlEscaped());
    return escaped.join(QStringLiteral("<br>"));
}

bool isSamePart(VolumeRequest::Part const& a, VolumeRequest::Part const& b)
{
    return a.object == b.object && a.kernel->readMesh() == b.kernel->readMesh() &&
           a.kernel->getMatrix() == b.kernel->getMatrix();
}

VolumeOutline const* outlineOf(VolumeGraphicObject* tool)
{
    auto const* const provider =
        tool ? dynamic_cast<VolumeViewProvider const*>(tool->getViewProvider()) : nullptr;
    return provider ? provider->getOutline() : nullptr;
}

}  // namespace

CutForecast::CutForecast(QWidget* parent) : QWidget(parent)
{
    auto* const column = new MellVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    m_text = new QLabel(this);
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::RichText);
    m_text->hide();
    column->addWidget(m_text);
    connect(&m_work, &NewestWork::ready, this, &CutForecast::show);
    connect(&DisplayUnit::instance(), &DisplayUnit::changed, this, &CutForecast::showText);
}

void CutForecast::end()
{
    m_scene = {};
    clear();
}

void CutForecast::refresh()
{
    if (std::exchange(m_isAsking, true))
        return;
    // Several changes of one event are one.
    QTimer::singleShot(0, this, [this] {
        m_isAsking = false;
        ask();
    });
}

void CutForecast::objectChanges(Base::DocumentObject const* object)
{
    std::erase_if(m_request.cut.parts, [&](VolumeRequest::Part const& part) {
        return static_cast<Base::DocumentObject const*>(part.object) == object;
    });
    refresh();
}

void CutForecast::clear()
{
    m_work.drop();
    m_request = {};
    m_result = {};
    m_lines.setView(nullptr);
    showText();
}

bool CutForecast::Request::isSame(Request const& other) const
{
    return names == other.names && fit == other.fit &&
           std::equal(cut.parts.begin(), cut.parts.end(), other.cut.parts.begin(),
                      other.cut.parts.end(), isSamePart);
}

VolumeRequest::Part CutForecast::partOf(Mesh::DocumentObject* object) const
{
    MeshKernel const* const kernel = kernelOfPart(object);
    if (!kernel)
        return {};
    // The copy that was made before serves as long as it is one.
    for (VolumeRequest::Part const& known : m_request.cut.parts)
        if (known.object == object && known.kernel->readMesh() == kernel->readMesh() &&
            known.kernel->getMatrix() == kernel->getMatrix())
            return known;
    return {object, std::make_shared<MeshKernel>(*kernel)};
}

CutForecast::Request CutForecast::requestOf(Scene const& scene)
{
    Request request;
    VolumeOutline const* const outline = outlineOf(scene.tool);
    if (!outline || !scene.view || scene.parts.empty())
        return request;
    request.fit = FitRequest::of(*outline);
    request.cut.tool = request.fit.solids;
    for (Mesh::DocumentObject* const object : scene.parts)
        if (auto const part = partOf(object); part.kernel) {
            request.cut.parts.push_back(part);
            request.names << QString::fromStdString(object->getName());
        }
    return request;
}

void CutForecast::ask()
{
    Scene const scene = m_scene ? m_scene() : Scene();
    // Refreshed once they are there.
    if (scene.tool && !hasDerivedOutlines(*scene.tool))
        return;
    Request request = requestOf(scene);
    bool const hasSolid = !request.fit.solids.inner.empty() || !request.fit.solids.outer.empty();
    if (request.cut.parts.empty() || !hasSolid) {
        clear();
        return;
    }
    m_lines.setView(scene.view);
    if (request.isSame(m_request))
        return;
    m_request = std::move(request);
    m_work.ask([this, asked = m_request](NewestWork::Poll const& poll) {
        auto const result = std::make_shared<ForecastResult>();
        result->names = asked.names;
        result->forecasts = surveyVolumeCut(asked.cut, poll);
        result->fit = fitOf(asked.fit, poll);
        return [this, result] { m_result = std::move(*result); };
    });
}

void CutForecast::show()
{
    if (!m_work.failure().isEmpty())
        m_result = {};
    ContourLines lines;
    for (VolumeForecast const& forecast : m_result.forecasts)
        lines.insert(lines.end(), forecast.contours.begin(), forecast.contours.end());
    m_lines.show(
        [&](ContourItem& item) { item.setLines(lines, m_request.fit.solids.extrudeVector); });
    showText();
}

QString CutForecast::text() const
{
    return m_text->text();
}

void CutForecast::showText()
{
    QStringList parts;
    if (auto const facts = ForecastTexts::facts(m_result); !facts.isEmpty())
        parts << paragraphs(facts, QStringLiteral("%1"));
    QStringList warnings = ForecastTexts::warnings(m_result);
    if (!m_work.failure().isEmpty())
        warnings << m_work.failure();
    if (!warnings.isEmpty())
        parts << paragraphs(warnings, QStringLiteral("<span style=\"color:#d02020\">%1</span>"));
    m_text->setText(parts.join(QStringLiteral("<br>")));
    m_text->setVisible(!parts.isEmpty());
}

void CutForecast::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        showText();
        // Remarks come in the language of the time at which they are found.
        m_request = {};
        refresh();
    }
    QWidget::changeEvent(event);
}

}  // namespace Freecut

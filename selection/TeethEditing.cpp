// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/TeethEditing.h"

#include "messages/Attention.h"
#include "platform/view/GLView.h"
#include "selection/ContourRules.h"
#include "selection/HandleHit.h"
#include "selection/ToolEdit.h"
#include "tools/PolygonGraphicObject.h"

#include <QCoreApplication>

namespace Freecut {

namespace {

QString textOf(TeethFault fault)
{
    auto const ours = [](char const* text) {
        return QCoreApplication::translate("Freecut::PolygoncutSelection", text);
    };
    auto const common = [](char const* text) {
        return QCoreApplication::translate("DialogFreeCut", text);
    };
    switch (fault) {
        case TeethFault::HeightAboveWidth:
            return ours(QT_TRANSLATE_NOOP("Freecut::PolygoncutSelection",
                                          "Width(W) must be larger or equal to Height(H)."));
        case TeethFault::OffsetTooLarge:
            return ours(QT_TRANSLATE_NOOP("Freecut::PolygoncutSelection",
                                          "Offset(O) is too large for some edge."));
        case TeethFault::DovetailTooWide:
            return common(QT_TRANSLATE_NOOP("DialogFreeCut",
                                            "Upper width(W1) or lower width(W2) are too large."));
        case TeethFault::TooMany:
            return ours(QT_TRANSLATE_NOOP(
                "Freecut::PolygoncutSelection",
                "There would be too many teeth on some edge. Choose a larger distance(D)."));
        default:
            return common(QT_TRANSLATE_NOOP("DialogFreeCut", "Width(W) is too large."));
    }
}

/// The points of the teeth have changed, and nothing that dialogs show.
constexpr EditSteps teethAlone{.updatesRecord = false, .tellsListeners = false};
/// The same, and the parameters have changed too.
constexpr EditSteps teethAndParas{.updatesRecord = false};

}  // namespace

std::optional<ToothHit> toothAt(Base::GLView const& view, QPoint mouse,
                                PolygonGraphicObject const& polygon)
{
    std::vector<TeethEdge> const& edges = polygon.getProperty().getEdgeRecords();
    for (std::size_t i = 0; i < edges.size(); ++i) {
        if (!edges[i].hasTeeth || !edges[i].editing)
            continue;
        if (std::optional<int> const base = handleAt(view, mouse, edges[i].basePoints))
            return ToothHit{int(i), *base, false};
        if (std::optional<int> const handle = handleAt(view, mouse, edges[i].handlePoints))
            return ToothHit{int(i), *handle, true};
    }
    return {};
}

TeethEdge TeethEditing::freshEdge() const
{
    return m_generator.freshEdge();
}

bool TeethEditing::report(PolygonGraphicObject& polygon, TeethFault fault)
{
    if (fault == TeethFault::None)
        return true;
    warnAttention(textOf(fault));
    finishEdit(polygon, teethAlone);
    return false;
}

bool TeethEditing::placeTeeth(PolygonGraphicObject& polygon)
{
    return report(polygon, m_generator.placeTeeth(polygon.getProperty()));
}

void TeethEditing::shapeTeeth(PolygonGraphicObject& polygon)
{
    m_generator.shapeTeeth(polygon.getProperty());
    finishEdit(polygon, teethAlone);
}

bool TeethEditing::generate(PolygonGraphicObject& polygon)
{
    if (!report(polygon, m_generator.generate(polygon.getProperty())))
        return false;
    finishEdit(polygon, teethAlone);
    return true;
}

void TeethEditing::confirm(PolygonGraphicObject& polygon)
{
    m_generator.confirm(polygon.getProperty());
    finishEdit(polygon, teethAlone);
}

void TeethEditing::chooseEdgeAt(PolygonGraphicObject& polygon, UPoint3<float> const& point)
{
    PolygonProperty& record = polygon.getProperty();
    int const index = insertionIndex(record.getKeyPoints(), point, record.getExtrudeVector());
    int const edge = dividedEdge(int(record.getEdgeRecords().size()), index);
    if (m_generator.beginEdge(record, edge))
        polygon.signalChanged();
    if (generate(polygon))
        return;
    TeethGenerator::giveUpEdge(record, edge);
    finishEdit(polygon, teethAlone);
}

void TeethEditing::slide(PolygonGraphicObject& polygon, int edge, int tooth,
                         UVector3<float> const& way)
{
    if (m_generator.slide(polygon.getProperty(), edge, std::size_t(tooth), way))
        finishEdit(polygon, teethAlone);
}

void TeethEditing::reshape(PolygonGraphicObject& polygon, int edge, int tooth,
                           UVector3<float> const& way)
{
    m_generator.reshape(polygon.getProperty(), edge, std::size_t(tooth), way);
    finishEdit(polygon, teethAndParas);
}

}  // namespace Freecut

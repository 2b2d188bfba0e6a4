// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/view/ViewPreferences.h"

#include "app/view/BuildVolumeChanges.h"
#include "platform/ui/StoredSettings.h"
#include "platform/view/MeshGLView.h"

#include <algorithm>
#include <array>

namespace {

QString const navigationKey = QStringLiteral("/View/navigation");
QString const plateWidthKey = QStringLiteral("/View/plateWidth");
QString const plateDepthKey = QStringLiteral("/View/plateDepth");
/// In the order of the presets.
std::array<QString, 4> const navigationNames{"turnByRight", "turnByMiddle", "moveByRight",
                                             "turnByLeft"};

double storedPlate(QString const& key)
{
    bool isNumber = false;
    double const value = storedValue(key).toDouble(&isNumber);
    bool const isSense = isNumber && value >= ViewPreferences::smallestPlateMm &&
                         value <= ViewPreferences::largestPlateMm;
    return isSense ? value : ViewPreferences::defaultPlateMm;
}

double bounded(double millimetres)
{
    // In this order a NaN becomes the smallest.
    return std::min(std::max(ViewPreferences::smallestPlateMm, millimetres),
                    ViewPreferences::largestPlateMm);
}

}  // namespace

ViewPreferences::ViewPreferences(Mesh::GLView& view, QObject* parent)
    : QObject(parent), m_view(view), m_plate(storedPlate(plateWidthKey), storedPlate(plateDepthKey))
{
    QString const name = storedValue(navigationKey).toString();
    auto const place = std::find(navigationNames.begin(), navigationNames.end(), name);
    if (place != navigationNames.end())
        m_navigation = Preset(place - navigationNames.begin());
    apply();
}

void ViewPreferences::setNavigation(Preset preset)
{
    m_navigation = preset;
    storeValue(navigationKey, navigationNames[std::size_t(preset)]);
    apply();
}

void ViewPreferences::setPlateSize(QSizeF const& millimetres)
{
    m_plate = {bounded(millimetres.width()), bounded(millimetres.height())};
    storeValue(plateWidthKey, m_plate.width());
    storeValue(plateDepthKey, m_plate.height());
    apply();
    emit BuildVolumeChanges::instance().changed();
}

void ViewPreferences::apply()
{
    m_view.navigationStyle()->setPreset(m_navigation);
    m_view.setPlateSize(float(m_plate.width()), float(m_plate.height()));
    m_view.redraw();
}

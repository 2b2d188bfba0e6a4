// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ForecastTexts.h"

#include "platform/ui/DisplayUnit.h"
#include "platform/ui/Quantity.h"

#include <QCoreApplication>

#include <algorithm>

namespace Freecut::ForecastTexts {

namespace {

/// More parts are counted, not listed.
constexpr std::size_t mostListed = 6;

QString translated(char const* text)
{
    return QCoreApplication::translate("Freecut::CutForecast", text);
}

QString lengthText(double millimetres)
{
    DisplayUnit const& unit = DisplayUnit::instance();
    return QStringLiteral("%1 %2").arg(
        Base::Quantity::toUserString(millimetres, Base::Unit::length, 'f', unit.decimals(), ' ',
                                     true),
        unit.symbol());
}

/// A line that names its part where there are several.
QString lineOf(ForecastResult const& result, std::size_t index, QString const& text)
{
    if (result.forecasts.size() == 1)
        return text;
    return QStringLiteral("%1: %2").arg(result.names.value(int(index)), text);
}

QString piecesText(VolumeForecast const& forecast)
{
    return translated(QT_TRANSLATE_NOOP("Freecut::CutForecast",
                                        "Pieces: %1 (inside the tool %2, outside %3)"))
        .arg(forecast.pieces())
        .arg(forecast.inside)
        .arg(forecast.outside);
}

/// The lines that `lineOfPart` has for parts, an empty one for none.
template <typename LineOfPart>
QStringList listed(ForecastResult const& result, LineOfPart const& lineOfPart)
{
    QStringList lines;
    std::size_t more = 0;
    for (std::size_t i = 0; i < result.forecasts.size(); ++i) {
        QString const line = lineOfPart(result.forecasts[i]);
        if (line.isEmpty())
            continue;
        if (std::size_t(lines.size()) < mostListed)
            lines << lineOf(result, i, line);
        else
            ++more;
    }
    if (more > 0)
        lines
            << translated(QT_TRANSLATE_NOOP("Freecut::CutForecast", "Further parts: %1")).arg(more);
    return lines;
}

bool staysWhole(VolumeForecast const& forecast)
{
    return forecast.remark && forecast.remark->kind == CutRemark::Kind::NothingCut;
}

bool isAnyCut(ForecastResult const& result)
{
    return std::any_of(
        result.forecasts.begin(), result.forecasts.end(),
        [](VolumeForecast const& each) { return each.pieces() > 0 && !staysWhole(each); });
}

QString warningOf(VolumeForecast const& forecast)
{
    if (!staysWhole(forecast))
        return QString::fromStdString(forecast.remark ? forecast.remark->text : forecast.failure);
    return forecast.inside == 0
               ? translated(QT_TRANSLATE_NOOP("Freecut::CutForecast",
                                              "The part stays whole: the tool misses it."))
               : translated(QT_TRANSLATE_NOOP("Freecut::CutForecast",
                                              "The part stays whole: it lies within the tool."));
}

}  // namespace

QStringList facts(ForecastResult const& result)
{
    QStringList lines = listed(result, [](VolumeForecast const& forecast) {
        return !forecast.failure.empty() || staysWhole(forecast) ? QString() : piecesText(forecast);
    });
    auto const whole = std::count_if(result.forecasts.begin(), result.forecasts.end(), staysWhole);
    if (whole > 0 && isAnyCut(result))
        lines << translated(QT_TRANSLATE_NOOP("Freecut::CutForecast", "Parts that stay whole: %1"))
                     .arg(whole);
    if (result.fit.pieceGap)
        lines << translated(QT_TRANSLATE_NOOP("Freecut::CutForecast",
                                              "Gap between the pieces: at least %1"))
                     .arg(lengthText(toldGap(*result.fit.pieceGap, result.fit.askedGap)));
    if (result.fit.toothGap)
        lines << translated(
                     QT_TRANSLATE_NOOP("Freecut::CutForecast", "Smallest gap between teeth: %1"))
                     .arg(lengthText(*result.fit.toothGap));
    return lines;
}

QStringList warnings(ForecastResult const& result)
{
    bool const tellsOfWhole = !isAnyCut(result);
    QStringList lines = listed(result, [&](VolumeForecast const& forecast) {
        return staysWhole(forecast) && !tellsOfWhole ? QString() : warningOf(forecast);
    });
    if (result.fit.closesNeck)
        lines << translated(QT_TRANSLATE_NOOP(
            "Freecut::CutForecast",
            "The clearance closes a neck inside the outline: what lies beyond it comes off or is "
            "lost. Choose a smaller clearance."));
    if (result.fit.losesTooth)
        lines << translated(QT_TRANSLATE_NOOP(
            "Freecut::CutForecast",
            "A tooth is too narrow for the clearance and is lost. Choose a smaller clearance or "
            "wider teeth."));
    if (result.fit.closesGap)
        lines << translated(QT_TRANSLATE_NOOP(
            "Freecut::CutForecast",
            "The clearance closes the room between two teeth or a bay of the outline. Choose a "
            "smaller clearance or more room."));
    return lines;
}

}  // namespace Freecut::ForecastTexts

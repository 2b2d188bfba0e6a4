// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/StepText.h"

#include "platform/document/StepFacts.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/Quantity.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <cmath>

namespace {

/// Names and heights beyond these are counted.
constexpr std::size_t mostNames = 1, mostHeights = 3;
constexpr char const* axisNames[] = {"x", "y", "z"};
/// What is shown has three decimals.
constexpr double leastShown = 0.0005;

struct StepText
{
    Q_DECLARE_TR_FUNCTIONS(StepText)
};

QString number(double value)
{
    return QLocale().toString(std::round(value * 1000) / 1000, 'g', 9);
}

/// With as many decimals as it has.
QString length(double millimetres)
{
    DisplayUnit const& unit = DisplayUnit::instance();
    int decimals = 0;
    for (double shown = std::abs(millimetres) / unit.millimetres();
         decimals < unit.decimals() && std::abs(shown - std::round(shown)) > 1e-3; shown *= 10)
        ++decimals;
    return Base::Quantity::toUserString(millimetres, Base::Unit::length, 'f', decimals,
                                        QLatin1Char(' '), false);
}

QString partsText(std::vector<std::string> const& parts)
{
    if (parts.size() > mostNames)
        return StepText::tr("%n part(s)", nullptr, int(parts.size()));
    return QString::fromStdString(parts[0]);
}

QString movedText(UVector3<double> const& way)
{
    QStringList ways;
    for (int axis = 0; axis < 3; ++axis)
        if (std::abs(way[axis]) >= leastShown)
            ways << StepText::tr("%1 in %2").arg(length(way[axis]), axisNames[axis]);
    return ways.isEmpty() ? QString() : StepText::tr("by %1").arg(ways.join(QStringLiteral(", ")));
}

QString turnedText(Base::StepFacts::Turn const& turn)
{
    QString const degrees = number(turn.degrees) + QChar(0xb0);
    for (int axis = 0; axis < 3; ++axis)
        if (std::abs(std::abs(turn.axis[axis]) - 1) < 1e-6)
            return StepText::tr("by %1 about %2")
                .arg((turn.axis[axis] < 0 ? QStringLiteral("-") : QString()) + degrees,
                     axisNames[axis]);
    return StepText::tr("by %1").arg(degrees);
}

QString scaledText(UVector3<double> const& factors)
{
    auto const percent = [](double factor) { return number(100 * factor) + QStringLiteral(" %"); };
    bool const isOne = std::abs(factors[0] - factors[1]) < 1e-5 * factors[0] &&
                       std::abs(factors[0] - factors[2]) < 1e-5 * factors[0];
    if (isOne)
        return StepText::tr("to %1").arg(percent(factors[0]));
    QStringList ways;
    for (int axis = 0; axis < 3; ++axis)
        if (std::abs(factors[axis] - 1) > 1e-5)
            ways << StepText::tr("%1 in %2").arg(percent(factors[axis]), axisNames[axis]);
    return StepText::tr("to %1").arg(ways.join(QStringLiteral(", ")));
}

QString heightsText(std::vector<double> const& heights)
{
    if (heights.size() > mostHeights)
        return StepText::tr("at %n height(s)", nullptr, int(heights.size()));
    QStringList texts;
    for (double const height : heights)
        texts << length(height);
    return StepText::tr("at %1").arg(texts.join(QStringLiteral(", ")));
}

QString amountText(Base::StepFacts const& facts)
{
    if (facts.renamed)
        return StepText::tr("to %1").arg(QString::fromStdString(*facts.renamed));
    if (facts.moved)
        return movedText(*facts.moved);
    if (facts.turned)
        return turnedText(*facts.turned);
    if (facts.scaled)
        return scaledText(*facts.scaled);
    return facts.heights.empty() ? QString() : heightsText(facts.heights);
}

}  // namespace

QString stepText(Base::StepFacts const& facts)
{
    QString const name = QCoreApplication::translate("UndoRedoName", facts.name.c_str());
    if (facts.parts.empty())
        return name;
    QString const amount = amountText(facts);
    QString const text = QStringLiteral("%1: %2").arg(name, partsText(facts.parts));
    return amount.isEmpty() ? text : text + QLatin1Char(' ') + amount;
}

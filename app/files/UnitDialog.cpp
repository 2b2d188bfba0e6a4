// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/UnitDialog.h"

#include "platform/ui/StoredSettings.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr char unitKey[] = "/Files/unitOfSmallParts";
/// The longest side of a part of common size, in millimetres.
constexpr double commonSize = 10;

struct Unit
{
    char const* key;
    char const* title;
    double millimetres;
};

constexpr Unit units[] = {
    {"mm", QT_TRANSLATE_NOOP("UnitDialog", "Millimetres: %1 mm"), 1},
    {"cm", QT_TRANSLATE_NOOP("UnitDialog", "Centimetres: %1 mm"), 10},
    {"in", QT_TRANSLATE_NOOP("UnitDialog", "Inches: %1 mm"), 25.4},
    {"m", QT_TRANSLATE_NOOP("UnitDialog", "Metres: %1 mm"), 1000},
};

QString sizeText(UBox3<float> const& box, double factor)
{
    QStringList sides;
    for (int axis = 0; axis < 3; ++axis)
        sides << QLocale().toString(factor * (double(box.max[axis]) - double(box.min[axis])), 'g',
                                    4);
    return sides.join(QString::fromUtf8(" \u00d7 "));
}

/// The unit chosen last, or else the first in which the part has a common size.
int suggestionFor(double longest)
{
    QString const known = storedValue(QLatin1String(unitKey)).toString();
    auto const end = std::end(units);
    auto place = std::find_if(std::begin(units), end,
                              [&](Unit const& unit) { return known == QLatin1String(unit.key); });
    if (place == end)
        place = std::find_if(std::begin(units), end, [&](Unit const& unit) {
            return longest * unit.millimetres >= commonSize;
        });
    return place == end ? 0 : int(place - std::begin(units));
}

}  // namespace

UnitDialog::UnitDialog(QString const& name, int parts, UBox3<float> const& box, QWidget* parent)
    : QDialog(parent), m_units(new QComboBox(this))
{
    setObjectName(QStringLiteral("UnitDialog"));
    setWindowTitle(tr("Unit of the File"));
    QString const who = parts > 1 ? tr("%1 and %n more", nullptr, parts - 1).arg(name) : name;
    auto* const text = new QLabel(
        tr("%1: too small to be meant in millimetres. In which unit are the numbers of the file?")
            .arg(who),
        this);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    fillUnits(box);
    auto* const buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("Take This Unit"), QDialogButtonBox::AcceptRole);
    buttons->addButton(tr("Leave as It Is"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(text);
    column->addWidget(m_units);
    column->addWidget(buttons);
    setMinimumWidth(fontMetrics().height() * 26);
    m_units->setFocus();
}

void UnitDialog::fillUnits(UBox3<float> const& box)
{
    double longest = 0;
    for (int axis = 0; axis < 3; ++axis)
        longest = std::max(longest, double(box.max[axis]) - double(box.min[axis]));
    for (Unit const& unit : units)
        m_units->addItem(tr(unit.title).arg(sizeText(box, unit.millimetres)));
    m_units->setCurrentIndex(suggestionFor(longest));
}

double UnitDialog::factor() const
{
    return units[std::size_t(m_units->currentIndex())].millimetres;
}

void UnitDialog::remember() const
{
    storeValue(QLatin1String(unitKey),
               QLatin1String(units[std::size_t(m_units->currentIndex())].key));
}

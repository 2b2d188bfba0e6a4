// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/MellQuantitySpinBox.h"

#include "host/ui/QuantityExpression.h"
#include "host/ui/UnitLineEdit.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/Theme.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyleOptionSpinBox>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace {

constexpr int decimalsOfPlainNumbers = 3;
constexpr double millimetresPerInch = 25.4;

/// 1, 2 or 5 times a power of ten, near a positive number.
double roundStep(double step)
{
    double const power = std::pow(10, std::floor(std::log10(step)));
    double const lead = step / power;
    return power * (lead < 1.5 ? 1 : lead < 3.5 ? 2 : lead < 7.5 ? 5 : 10);
}

bool isWrong(MellQuantitySpinBox const& box, QString const& text)
{
    return !text.trimmed().isEmpty() && !QuantityExpression::read(text, box.unit()).isValid();
}

/// Keeps Tab in a field whose text is wrong: the text would be lost on the way out.
class WrongTextKeeper : public QObject
{
public:
    WrongTextKeeper(MellQuantitySpinBox& box, QLineEdit& edit)
        : QObject(&box), m_box(box), m_edit(edit)
    {
        box.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        auto const* const key = static_cast<QKeyEvent*>(event);
        bool const leaves = key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
        if (!leaves || !m_edit.isModified() || !isWrong(m_box, m_edit.text()))
            return false;
        QString const why = QuantityExpression::read(m_edit.text(), m_box.unit()).error;
        QToolTip::showText(m_box.mapToGlobal(QPoint(0, m_box.height())), why, &m_box);
        return true;
    }

private:
    MellQuantitySpinBox& m_box;
    QLineEdit& m_edit;
};

}  // namespace

MellQuantitySpinBox::MellQuantitySpinBox(QWidget* parent) : QAbstractSpinBox(parent)
{
    auto* const edit = new UnitLineEdit(this);
    edit->setObjectName("qt_spinbox_lineedit");
    setLineEdit(edit);
    new WrongTextKeeper(*this, *edit);
    setKeyboardTracking(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    connect(&DisplayUnit::instance(), &DisplayUnit::changed, this, &MellQuantitySpinBox::resetUnit);
    showValue();
}

void MellQuantitySpinBox::setUnit(Base::Unit const& unit)
{
    m_quantity.setUnit(unit);
    resetUnit();
}

void MellQuantitySpinBox::setUnitTextVisible(bool visible)
{
    m_isUnitTextVisible = visible;
    showUnit();
}

void MellQuantitySpinBox::setRange(double minimum, double maximum)
{
    m_minimum = minimum;
    m_maximum = std::max(minimum, maximum);
    setValue(value());
    updateGeometry();
}

void MellQuantitySpinBox::setMinimum(double minimum)
{
    setRange(minimum, std::max(minimum, m_maximum));
}

void MellQuantitySpinBox::setMaximum(double maximum)
{
    setRange(std::min(m_minimum, maximum), maximum);
}

void MellQuantitySpinBox::setSingleStep(double step)
{
    if (step > 0)
        m_step = step;
}

void MellQuantitySpinBox::setDecimals(int decimals)
{
    m_decimals = std::clamp(decimals, -1, 9);
    showValue();
}

void MellQuantitySpinBox::setValue(double value)
{
    if (std::isnan(value))
        return;
    take(value);
    showValue();
}

void MellQuantitySpinBox::take(double value)
{
    double const bounded = std::clamp(value, m_minimum, m_maximum);
    if (bounded == m_quantity.value())
        return;
    m_quantity.setValue(bounded);
    showValue();
    emit valueChanged(bounded);
}

void MellQuantitySpinBox::resetUnit()
{
    showUnit();
    showValue();
    updateGeometry();
}

QString MellQuantitySpinBox::textOf(double value) const
{
    int const automatic =
        unit().isLength() ? DisplayUnit::instance().decimals() : decimalsOfPlainNumbers;
    return Base::Quantity::toUserString(value, unit(), 'f', m_decimals < 0 ? automatic : m_decimals,
                                        ' ', true);
}

QString MellQuantitySpinBox::unitText() const
{
    return unit().isLength() && m_isUnitTextVisible ? DisplayUnit::instance().symbol() : QString();
}

void MellQuantitySpinBox::showValue()
{
    QString const text = textOf(value());
    if (lineEdit()->text() != text)
        lineEdit()->setText(text);
    lineEdit()->setModified(false);
    update();
}

void MellQuantitySpinBox::showUnit()
{
    static_cast<UnitLineEdit*>(lineEdit())->setUnitText(unitText());
}

double MellQuantitySpinBox::stepInDisplayUnit() const
{
    bool const isInch = unit().isLength() && DisplayUnit::instance().length() == DisplayUnit::Inch;
    return isInch ? roundStep(m_step / millimetresPerInch) * millimetresPerInch : m_step;
}

void MellQuantitySpinBox::stepBy(int steps)
{
    readText();
    setValue(value() + steps * stepInDisplayUnit());
    selectAll();
}

QAbstractSpinBox::StepEnabled MellQuantitySpinBox::stepEnabled() const
{
    if (isReadOnly())
        return StepNone;
    StepEnabled enabled = StepNone;
    if (value() < m_maximum)
        enabled |= StepUpEnabled;
    if (value() > m_minimum)
        enabled |= StepDownEnabled;
    return enabled;
}

QValidator::State MellQuantitySpinBox::validate(QString& text, int&) const
{
    return QuantityExpression::read(text, unit()).isValid() ? QValidator::Acceptable
                                                            : QValidator::Intermediate;
}

void MellQuantitySpinBox::readText()
{
    QString const text = lineEdit()->text();
    if (text == textOf(value()) || text.trimmed().isEmpty())
        return;
    QuantityExpression const typed = QuantityExpression::read(text, unit());
    if (!typed.isValid()) {
        complain(typed.error);
    } else {
        if (typed.value < m_minimum || typed.value > m_maximum)
            complain(tr("The value has to lie between %1 and %2.")
                         .arg(textOf(m_minimum), textOf(m_maximum)));
        take(typed.value);
    }
    showValue();
}

void MellQuantitySpinBox::complain(QString const& sentence)
{
    if (isVisible())
        QToolTip::showText(mapToGlobal(QPoint(0, height())), sentence, this);
}

void MellQuantitySpinBox::keyPressEvent(QKeyEvent* event)
{
    bool const ends = event->key() == Qt::Key_Enter || event->key() == Qt::Key_Return;
    if (event->key() == Qt::Key_Escape && lineEdit()->isModified()) {
        showValue();
        selectAll();
        return;
    }
    if (ends && isWrong(*this, lineEdit()->text())) {
        // To be mended where it stands; Esc brings the value back.
        complain(QuantityExpression::read(lineEdit()->text(), unit()).error);
        return;
    }
    if (ends)
        readText();
    QAbstractSpinBox::keyPressEvent(event);
    if (ends)
        showValue();
}

void MellQuantitySpinBox::focusInEvent(QFocusEvent* event)
{
    QAbstractSpinBox::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        selectAll();
}

void MellQuantitySpinBox::focusOutEvent(QFocusEvent* event)
{
    readText();
    QAbstractSpinBox::focusOutEvent(event);
    showValue();
}

void MellQuantitySpinBox::wheelEvent(QWheelEvent* event)
{
    // The wheel scrolls the page unless the user works in this very field.
    if (hasFocus())
        QAbstractSpinBox::wheelEvent(event);
    else
        event->ignore();
}

void MellQuantitySpinBox::changeEvent(QEvent* event)
{
    QAbstractSpinBox::changeEvent(event);
    if (event->type() == QEvent::LocaleChange || event->type() == QEvent::LanguageChange ||
        event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        resetUnit();
}

QSize MellQuantitySpinBox::sizeFor(QString const& text) const
{
    ensurePolished();
    int const unitWidth = lineEdit()->textMargins().right();
    int const height = std::max(themePixels("controlHeight"), lineEdit()->sizeHint().height());
    QSize const content(fontMetrics().horizontalAdvance(text) + unitWidth + g_pixelSize / 2,
                        height);
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    QSize const whole = style()->sizeFromContents(QStyle::CT_SpinBox, &option, content, this);
    return {whole.width(), height};
}

QSize MellQuantitySpinBox::sizeHint() const
{
    return sizeFor(QStringLiteral("-00000.000"));
}

QSize MellQuantitySpinBox::minimumSizeHint() const
{
    return sizeFor(QStringLiteral("-00.000"));
}

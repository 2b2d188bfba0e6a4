// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/Quantity.h"

#include <QAbstractSpinBox>

/// A spin box for a number with a unit. It takes sums such as "25.4/2" or "1 in + 3mm".
///
/// Lengths are shown and typed in the unit of DisplayUnit; all values in code, steps and limits
/// too, are millimetres. The text is rounded, the value is not: it stays what setValue gave until
/// the user changes the text. What the user types becomes the value when the editing ends. A text
/// that cannot be read is explained in a tip; it stays on Return and Tab, else the value comes back.
///
/// The line edit holds the number alone, so that a validator may be set on it; the unit stands
/// beside it. An empty text lasts until editingFinished() has been emitted.
class MellQuantitySpinBox : public QAbstractSpinBox
{
    Q_OBJECT

public:
    explicit MellQuantitySpinBox(QWidget* parent = nullptr);

    void setUnit(Base::Unit const& unit);
    Base::Unit const& unit() const { return m_quantity.unit(); }
    void setUnitTextVisible(bool visible);
    bool isUnitTextVisible() const { return m_isUnitTextVisible; }

    /// From 0 to ten million at first, more than any part has in millimetres: a field that is given
    /// a minimum alone clamps nothing that makes sense. A value outside the new range goes to its nearer end. With a maximum below the minimum both
    /// are the minimum.
    void setRange(double minimum, double maximum);
    void setMinimum(double minimum);
    void setMaximum(double maximum);
    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }

    /// In another display unit a step of similar size is used: 1, 2 or 5 times a power of ten.
    void setSingleStep(double step);
    double singleStep() const { return m_step; }

    /// Decimals of the text; -1, the default, lets the display unit decide.
    void setDecimals(int decimals);

    double value() const { return m_quantity.value(); }

    /// The line edit with the number.
    QLineEdit* lineEdit() const { return QAbstractSpinBox::lineEdit(); }

    void stepBy(int steps) override;
    QValidator::State validate(QString& text, int& position) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    /// Takes the value, or the nearer end of the range. Ignores what is no number (NaN).
    void setValue(double value);
    /// Shows the value anew, after the display unit has changed.
    void resetUnit();

signals:
    /// The value has changed, by the user or by code; not while the user is still typing.
    void valueChanged(double value);

protected:
    StepEnabled stepEnabled() const override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QString textOf(double value) const;
    QString unitText() const;
    double stepInDisplayUnit() const;
    void showValue();
    void showUnit();
    void readText();
    void take(double value);
    void complain(QString const& sentence);
    QSize sizeFor(QString const& text) const;

    Base::Quantity m_quantity;
    double m_minimum = 0;
    double m_maximum = 1e7;
    double m_step = 1;
    int m_decimals = -1;
    bool m_isUnitTextVisible = true;
};

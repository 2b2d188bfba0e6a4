// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/QuantityExpression.h"

#include "platform/ui/DisplayUnit.h"

#include <QCoreApplication>
#include <QLocale>

#include <charconv>
#include <cmath>
#include <optional>
#include <string>

namespace {

struct Failure
{
    QString text;
};

/// A value in millimetres to the given power: 0 a plain number, 1 a length.
struct Term
{
    double value;
    int power;
};

/// Deeper than anybody types, and far from the end of the stack.
constexpr int deepestBrackets = 100;

class Parser
{
    Q_DECLARE_TR_FUNCTIONS(MellQuantitySpinBox)

public:
    Parser(QString const& text, bool isLength) : m_text(text), m_isLength(isLength) {}

    double read()
    {
        Term const result = sum();
        if (peek() == ')')
            throw Failure{tr("There is a closing bracket without an opening one.")};
        if (!atEnd())
            failHere();
        double const value = m_isLength ? asLength(result).value : result.value;
        if (!std::isfinite(value))
            throw Failure{tr("The number is too large.")};
        return value;
    }

private:
    Term sum()
    {
        Term left = product();
        for (;;) {
            if (take('+'))
                left = added(left, product(), 1);
            else if (take('-') || take(QChar(0x2212)))
                left = added(left, product(), -1);
            else
                return left;
        }
    }

    Term product()
    {
        Term left = signedTerm();
        for (;;) {
            if (take('*') || take(QChar(0x00d7)) || take(QChar(0x00b7)))
                left = multiplied(left, signedTerm());
            else if (take('/') || take(QChar(0x00f7)) || take(':'))
                left = divided(left, signedTerm());
            else
                return left;
        }
    }

    Term signedTerm()
    {
        double sign = 1;
        for (;;) {
            if (take('-') || take(QChar(0x2212)))
                sign = -sign;
            else if (!take('+'))
                break;
        }
        Term term = withUnit(peek() == '(' ? bracket() : number());
        term.value *= sign;
        return term;
    }

    Term bracket()
    {
        if (++m_depth > deepestBrackets)
            throw Failure{tr("There are too many brackets.")};
        take('(');
        Term const inside = sum();
        if (!take(')'))
            throw Failure{tr("A closing bracket is missing.")};
        --m_depth;
        return inside;
    }

    Term number()
    {
        skipBlanks();
        std::string digits;
        while (m_at < m_text.size() && isPartOfNumber(m_text[m_at], digits))
            digits += isDecimalSign(m_text[m_at]) ? '.' : m_text[m_at].toLatin1(), ++m_at;
        double value = 0;
        auto const end = digits.data() + digits.size();
        auto const read = std::from_chars(digits.data(), end, value);
        if (read.ec == std::errc::result_out_of_range)
            throw Failure{tr("The number is too large.")};
        if (digits.empty() || read.ec != std::errc() || read.ptr != end)
            failHere();
        return {value, 0};
    }

    static bool isDecimalSign(QChar sign)
    {
        return sign == '.' || sign == QLocale().decimalPoint();
    }

    bool isPartOfNumber(QChar sign, std::string const& before) const
    {
        if ((sign >= '0' && sign <= '9') || isDecimalSign(sign))
            return true;
        bool const afterExponent = !before.empty() && before.back() == 'e';
        if (sign == '+' || sign == '-')
            return afterExponent;
        // An "e" that no digit follows is no exponent.
        QString const rest = m_text.mid(m_at + 1, 2);
        bool const hasExponent =
            !rest.isEmpty() && (rest[0].isDigit() || rest[0] == '+' || rest[0] == '-');
        return sign == 'e' && !before.empty() && before.find('e') == std::string::npos &&
               hasExponent;
    }

    Term withUnit(Term term)
    {
        skipBlanks();
        int const start = m_at;
        QString name;
        while (m_at < m_text.size() && (m_text[m_at].isLetter() || isQuote(m_text[m_at])))
            name += m_text[m_at++];
        if (name.isEmpty())
            return term;
        std::optional<double> const factor = millimetresOf(name);
        if (!factor || !m_isLength || term.power != 0) {
            m_at = start;
            throw Failure{unknownUnit(name, factor.has_value())};
        }
        return {term.value * *factor, 1};
    }

    static bool isQuote(QChar sign)
    {
        return sign == '"' || sign == '\'' || sign == QChar(0x2032) || sign == QChar(0x2033);
    }

    static std::optional<double> millimetresOf(QString const& name)
    {
        if (name == "mm")
            return 1;
        if (name == "cm")
            return 10;
        if (name == "m")
            return 1000;
        if (name == "um" || name == QString::fromUtf8("\xc2\xb5m") ||
            name == QString::fromUtf8("\xce\xbcm"))
            return 0.001;
        if (name == "in" || name == "inch" || name == "\"" || name == QChar(0x2033))
            return 25.4;
        if (name == "ft" || name == "'" || name == QChar(0x2032))
            return 304.8;
        return {};
    }

    QString unknownUnit(QString const& name, bool isKnown) const
    {
        if (isKnown && m_isLength)
            return tr("A length takes one unit only.");
        if (isKnown)
            return tr("This field takes a plain number; leave out \"%1\".").arg(name);
        return tr("\"%1\" is no unit; use mm, cm, m or in.").arg(name);
    }

    static Term asLength(Term const& term)
    {
        if (term.power == 1)
            return term;
        if (term.power == 0)
            return {term.value * DisplayUnit::instance().millimetres(), 1};
        throw Failure{tr("The result is not a length.")};
    }

    static Term added(Term left, Term right, double sign)
    {
        if (left.power != right.power) {
            left = asLength(left);
            right = asLength(right);
        }
        return {left.value + sign * right.value, left.power};
    }

    static Term multiplied(Term const& left, Term const& right)
    {
        return {left.value * right.value, left.power + right.power};
    }

    static Term divided(Term const& left, Term const& right)
    {
        if (right.value == 0)
            throw Failure{tr("A division by zero has no result.")};
        return {left.value / right.value, left.power - right.power};
    }

    void skipBlanks()
    {
        while (m_at < m_text.size() && m_text[m_at].isSpace())
            ++m_at;
    }

    bool atEnd()
    {
        skipBlanks();
        return m_at == m_text.size();
    }

    QChar peek() { return atEnd() ? QChar() : m_text[m_at]; }

    bool take(QChar sign)
    {
        if (peek() != sign)
            return false;
        ++m_at;
        return true;
    }

    [[noreturn]] void failHere()
    {
        if (atEnd())
            throw Failure{tr("A number is missing at the end.")};
        throw Failure{tr("A number is expected before \"%1\".").arg(m_text.mid(m_at, 12))};
    }

    QString m_text;
    bool m_isLength;
    int m_at = 0;
    int m_depth = 0;
};

}  // namespace

QuantityExpression QuantityExpression::read(QString const& text, Base::Unit const& unit)
{
    try {
        return {Parser(text, unit.isLength()).read(), {}};
    } catch (Failure const& failure) {
        return {0, failure.text};
    }
}

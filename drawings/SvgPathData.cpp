// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawings/SvgPathData.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <numbers>

namespace Drawings {

namespace {

constexpr double pi = std::numbers::pi;

QString quoted(std::string_view text)
{
    return QString::fromUtf8(text.data(), int(std::min<std::size_t>(text.size(), 40)));
}

/// The path data of one attribute, command by command.
class PathData
{
public:
    PathData(PathBuilder& builder, Affine const& matrix, std::string_view data)
        : m_builder(builder), m_matrix(matrix), m_text(data)
    {}

    void read()
    {
        for (char command = m_text.letter(); command; command = m_text.letter()) {
            m_isRelative = std::islower(static_cast<unsigned char>(command));
            if (!run(char(std::toupper(static_cast<unsigned char>(command)))))
                break;
        }
        m_builder.end();
    }

private:
    bool run(char command)
    {
        // The first command moves; what stands before it means nothing.
        if (!m_hasStart && command != 'M')
            return false;
        if (command == 'Z') {
            m_builder.close();
            m_at = m_start;
            m_last = 0;
            m_isClosed = true;
            return true;
        }
        bool isFirst = true;
        while (step(command, isFirst)) {
            m_last = command;
            // Further pairs after a move are lines.
            if (command == 'M')
                command = 'L';
            isFirst = false;
        }
        return !isFirst;
    }

    bool step(char command, bool isFirst)
    {
        if (command != 'M' && m_isClosed)
            startAnew();
        switch (command) {
            case 'M':
                return isFirst && move();
            case 'L':
                return line(true, true);
            case 'H':
                return line(true, false);
            case 'V':
                return line(false, true);
            case 'C':
                return cubic(false);
            case 'S':
                return cubic(true);
            case 'Q':
                return quadratic(false);
            case 'T':
                return quadratic(true);
            case 'A':
                return arc();
            default:
                return false;
        }
    }

    /// A path that goes on after it was closed begins where that one began.
    void startAnew()
    {
        m_builder.moveTo(m_matrix(m_start));
        m_isClosed = false;
    }

    std::optional<Point> point()
    {
        auto const x = m_text.number();
        auto const y = x ? m_text.number() : std::nullopt;
        if (!y)
            return {};
        return m_isRelative ? Point(m_at.X() + *x, m_at.Y() + *y) : Point(*x, *y);
    }

    bool move()
    {
        auto const p = point();
        if (!p)
            return false;
        m_at = m_start = *p;
        m_hasStart = true;
        m_isClosed = false;
        m_builder.moveTo(m_matrix(m_at));
        return true;
    }

    bool line(bool hasX, bool hasY)
    {
        auto const x = hasX ? m_text.number() : std::optional(m_isRelative ? 0 : m_at.X());
        auto const y = hasY && x ? m_text.number() : std::optional(m_isRelative ? 0 : m_at.Y());
        if (!x || !y)
            return false;
        m_at = m_isRelative ? Point(m_at.X() + *x, m_at.Y() + *y) : Point(*x, *y);
        m_builder.lineTo(m_matrix(m_at));
        return true;
    }

    /// The control point of the curve before, mirrored, if that was of the same kind.
    Point mirrored(std::string_view kinds) const
    {
        if (kinds.find(m_last) == std::string_view::npos || !m_last)
            return m_at;
        return {2 * m_at.X() - m_control.X(), 2 * m_at.Y() - m_control.Y()};
    }

    bool cubic(bool isSmooth)
    {
        auto const b = isSmooth ? std::optional(mirrored("CS")) : point();
        auto const c = b ? point() : std::nullopt;
        auto const d = c ? point() : std::nullopt;
        if (!d)
            return false;
        m_builder.cubicTo(m_matrix(*b), m_matrix(*c), m_matrix(*d));
        m_control = *c;
        m_at = *d;
        // A smooth curve goes on within one command, too.
        m_last = 'C';
        return true;
    }

    bool quadratic(bool isSmooth)
    {
        auto const b = isSmooth ? std::optional(mirrored("QT")) : point();
        auto const c = b ? point() : std::nullopt;
        if (!c)
            return false;
        auto const between = [&](Point const& p) {
            return Point((p.X() + 2 * b->X()) / 3, (p.Y() + 2 * b->Y()) / 3);
        };
        m_builder.cubicTo(m_matrix(between(m_at)), m_matrix(between(*c)), m_matrix(*c));
        m_control = *b;
        m_at = *c;
        m_last = 'Q';
        return true;
    }

    // The centre of an arc from its ends: SVG 1.1, "Elliptical arc implementation notes".
    bool arc()
    {
        auto const rx = m_text.number();
        auto const ry = rx ? m_text.number() : std::nullopt;
        auto const turn = ry ? m_text.number() : std::nullopt;
        auto const isLarge = turn ? m_text.flag() : std::nullopt;
        auto const isPositive = isLarge ? m_text.flag() : std::nullopt;
        auto const end = isPositive ? point() : std::nullopt;
        if (!end)
            return false;
        addArc(std::abs(*rx), std::abs(*ry), *turn * pi / 180, *isLarge, *isPositive, *end);
        m_at = *end;
        m_builder.lineTo(m_matrix(m_at));
        return true;
    }

    void addArc(double rx, double ry, double turn, bool isLarge, bool isPositive, Point const& end)
    {
        double const c = std::cos(turn), s = std::sin(turn);
        double const hx = (m_at.X() - end.X()) / 2, hy = (m_at.Y() - end.Y()) / 2;
        if (rx == 0 || ry == 0 || (hx == 0 && hy == 0))
            return;
        double const x = c * hx + s * hy, y = -s * hx + c * hy;
        double const excess = (x / rx) * (x / rx) + (y / ry) * (y / ry);
        if (excess > 1) {
            rx *= std::sqrt(excess);
            ry *= std::sqrt(excess);
        }
        double const below = (x / rx) * (x / rx) + (y / ry) * (y / ry);
        double const factor =
            (isLarge == isPositive ? -1 : 1) * std::sqrt(std::max(0.0, (1 - below) / below));
        double const mx = factor * rx * y / ry, my = -factor * ry * x / rx;
        Point const middle(c * mx - s * my + (m_at.X() + end.X()) / 2,
                           s * mx + c * my + (m_at.Y() + end.Y()) / 2);
        double const from = std::atan2((y - my) / ry, (x - mx) / rx);
        double sweep = std::atan2((-y - my) / ry, (-x - mx) / rx) - from;
        if (isPositive && sweep < 0)
            sweep += 2 * pi;
        if (!isPositive && sweep > 0)
            sweep -= 2 * pi;
        m_builder.arcTo(m_matrix(middle), m_matrix.turned({c * rx, s * rx}),
                        m_matrix.turned({-s * ry, c * ry}), from, sweep);
    }

    PathBuilder& m_builder;
    Affine m_matrix;
    SvgText m_text;
    Point m_at, m_start, m_control;
    char m_last = 0;
    bool m_isRelative = false;
    bool m_hasStart = false;
    bool m_isClosed = false;
};

}  // namespace

void SvgText::skipSpace(bool withComma)
{
    std::size_t at = 0;
    bool mayHaveComma = withComma;
    for (; at < m_rest.size(); ++at) {
        if (m_rest[at] == ',' && mayHaveComma)
            mayHaveComma = false;
        else if (!std::isspace(static_cast<unsigned char>(m_rest[at])))
            break;
    }
    m_rest.remove_prefix(at);
}

std::optional<double> SvgText::number()
{
    skipSpace(true);
    std::string_view text = m_rest;
    if (text.starts_with('+'))
        text.remove_prefix(1);
    // No "inf" or "nan".
    std::size_t const first = text.starts_with('-') ? 1 : 0;
    if (first >= text.size() ||
        !(std::isdigit(static_cast<unsigned char>(text[first])) || text[first] == '.'))
        return {};
    double value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || !std::isfinite(value))
        return {};
    m_rest.remove_prefix(std::size_t(end - m_rest.data()));
    return value;
}

std::optional<bool> SvgText::flag()
{
    skipSpace(true);
    if (m_rest.empty() || (m_rest.front() != '0' && m_rest.front() != '1'))
        return {};
    bool const isSet = m_rest.front() == '1';
    m_rest.remove_prefix(1);
    return isSet;
}

char SvgText::letter()
{
    skipSpace(false);
    if (m_rest.empty() || !std::isalpha(static_cast<unsigned char>(m_rest.front())))
        return 0;
    char const found = m_rest.front();
    m_rest.remove_prefix(1);
    return found;
}

std::optional<std::string_view> SvgText::until(char end)
{
    std::size_t const at = m_rest.find(end);
    if (at == std::string_view::npos)
        return {};
    std::string_view const before = m_rest.substr(0, at);
    m_rest.remove_prefix(at + 1);
    return before;
}

bool SvgText::isAtEnd()
{
    skipSpace(true);
    return m_rest.empty();
}

double svgLength(std::string_view text)
{
    SvgText reader(text);
    auto const value = reader.number();
    std::string unit;
    for (char letter = reader.letter(); letter; letter = reader.letter())
        unit += letter;
    constexpr double inch = 96;
    struct Known
    {
        char const* name;
        double pixels;
    };
    for (Known const& known : {Known{"", 1},
                               {"px", 1},
                               {"in", inch},
                               {"mm", inch / 25.4},
                               {"cm", inch / 2.54},
                               {"pt", inch / 72},
                               {"pc", inch / 6}})
        if (value && unit == known.name && reader.isAtEnd())
            return *value * known.pixels;
    refuse(QCoreApplication::translate(
               "Drawings", "The length \"%1\" cannot be read. Give it in px, mm, cm, in, pt or pc.")
               .arg(quoted(text)));
}

Affine svgTransform(std::string_view text)
{
    SvgText reader(text);
    Affine all;
    while (!reader.isAtEnd()) {
        std::string name;
        for (char letter = reader.letter(); letter; letter = reader.letter())
            name += letter;
        if (!reader.until('('))
            break;
        SvgText list(reader.until(')').value_or(std::string_view()));
        std::vector<double> n;
        for (auto number = list.number(); number && n.size() < 7; number = list.number())
            n.push_back(*number);
        auto const or0 = [&](std::size_t i) { return i < n.size() ? n[i] : 0; };
        Affine one;
        double const angle = or0(0) * pi / 180;
        if (name == "matrix" && n.size() == 6)
            one = {n[0], n[1], n[2], n[3], n[4], n[5]};
        else if (name == "translate" && (n.size() == 1 || n.size() == 2))
            one = {1, 0, 0, 1, n[0], or0(1)};
        else if (name == "scale" && (n.size() == 1 || n.size() == 2))
            one = {n[0], 0, 0, n.size() == 2 ? n[1] : n[0], 0, 0};
        else if (name == "rotate" && (n.size() == 1 || n.size() == 3))
            one = Affine{1, 0, 0, 1, or0(1), or0(2)}
                      .after({std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle),
                              0, 0})
                      .after({1, 0, 0, 1, -or0(1), -or0(2)});
        else if (name == "skewX" && n.size() == 1)
            one = {1, 0, std::tan(angle), 1, 0, 0};
        else if (name == "skewY" && n.size() == 1)
            one = {1, std::tan(angle), 0, 1, 0, 0};
        else
            refuse(QCoreApplication::translate("Drawings",
                                               "The transform \"%1\" cannot be read. Apply it in "
                                               "the drawing program.")
                       .arg(quoted(text)));
        all = all.after(one);
    }
    return all;
}

void addSvgPath(PathBuilder& builder, Affine const& toMillimetres, std::string_view data)
{
    PathData(builder, toMillimetres, data).read();
}

}  // namespace Drawings

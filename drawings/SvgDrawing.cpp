// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawings/SvgPathData.h"
#include "drawings/SvgStyles.h"

#include <QCoreApplication>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Drawings {

namespace {

constexpr double pixel = 25.4 / 96;

QString translated(char const* text)
{
    return QCoreApplication::translate("Drawings", text);
}

/// Walks through the elements of a drawing and collects their paths.
class SvgReader
{
public:
    SvgReader(QByteArray const& text, Unit unit) : m_xml(text), m_styles(text), m_unit(unit) {}

    std::vector<Path> read()
    {
        while (!m_xml.atEnd()) {
            m_xml.readNext();
            if (m_xml.isStartElement())
                enter();
            else if (m_xml.isEndElement() && !m_matrices.empty())
                m_matrices.pop_back();
        }
        if (m_xml.hasError())
            refuse(
                translated(QT_TRANSLATE_NOOP(
                               "Drawings", "It is no SVG at line %1, column %2: %3. Save it anew."))
                    .arg(m_xml.lineNumber())
                    .arg(m_xml.columnNumber())
                    .arg(m_xml.errorString()));
        return m_builder.take();
    }

private:
    using Name = QLatin1String;

    bool has(char const* name) const { return m_attributes.hasAttribute(Name(name)); }
    std::string text(char const* name) const
    {
        return m_attributes.value(Name(name)).toString().toStdString();
    }
    double length(char const* name) const { return has(name) ? svgLength(text(name)) : 0; }

    void enter()
    {
        m_attributes = m_xml.attributes();
        QString const name = m_xml.name().toString();
        if (m_matrices.empty()) {
            if (name != Name("svg"))
                refuse(translated(QT_TRANSLATE_NOOP("Drawings", "It is no SVG. Save it as SVG.")));
            m_matrices.push_back(pageMatrix());
            return;
        }
        if (name == Name("use") || name == Name("svg"))
            refuse(
                translated(QT_TRANSLATE_NOOP(
                               "Drawings",
                               "It has a clone or a drawing within the drawing at line %1, which "
                               "are not read. Turn them into paths in the drawing program."))
                    .arg(m_xml.lineNumber()));
        bool const isGroup = name == Name("g") || name == Name("a") || name == Name("switch");
        if (isHidden(name) || (!isGroup && !isShape(name))) {
            m_xml.skipCurrentElement();
            return;
        }
        refuseMoves(name);
        m_matrices.push_back(m_matrices.back().after(svgTransform(text("transform"))));
        if (!isGroup)
            addShape(name);
    }

    bool isHidden(QString const& name) const
    {
        return style(name, "display") == Name("none") ||
               style(name, "visibility") == Name("hidden");
    }
    QString style(QString const& name, char const* property) const
    {
        return m_styles.valueOf(name, m_attributes, Name(property));
    }
    /// A shape that is moved by its style would come out elsewhere than it is drawn.
    void refuseMoves(QString const& name) const
    {
        QString value = style(name, "transform");
        QString attribute = m_attributes.value(Name("transform")).toString();
        if (value != Name("none") && value.remove(' ') != attribute.remove(' '))
            refuse(translated(QT_TRANSLATE_NOOP(
                                  "Drawings",
                                  "It moves a shape by its style at line %1, which is not read. "
                                  "Turn its shapes into paths in the drawing program."))
                       .arg(m_xml.lineNumber()));
    }

    /// From user units to millimetres, y upwards, from the lower left corner of the page.
    Affine pageMatrix() const
    {
        std::string const viewBox = text("viewBox");
        SvgText box(viewBox);
        auto const x = box.number(), y = box.number(), w = box.number(), h = box.number();
        bool const hasBox = h && *w > 0 && *h > 0;
        auto const sizeOf = [&](char const* name) -> std::optional<double> {
            if (!has(name) || text(name).find('%') != std::string::npos)
                return {};
            return svgLength(text(name));
        };
        auto const width = sizeOf("width"), height = sizeOf("height");
        double const left = hasBox ? *x : 0, top = hasBox ? *y : 0;
        double const tall = hasBox ? *h : height.value_or(0);
        double scale = pixel;
        if (m_unit)
            scale = *m_unit;
        else if (hasBox && width && height)
            scale = pixel * std::min(*width / *w, *height / *h);
        else if (hasBox && (width || height))
            scale = pixel * (width ? *width / *w : *height / *h);
        if (!(scale > 0) || !std::isfinite(scale))
            refuse(translated(QT_TRANSLATE_NOOP(
                "Drawings", "Its page has no size. Save it with a width and a height.")));
        return {scale, 0, 0, -scale, -left * scale, (top + tall) * scale};
    }

    static bool isShape(QString const& name)
    {
        for (char const* const known :
             {"path", "rect", "circle", "ellipse", "line", "polyline", "polygon"})
            if (name == Name(known))
                return true;
        return false;
    }

    void addShape(QString const& name)
    {
        if (name == Name("path"))
            addSvgPath(m_builder, m_matrices.back(), text("d"));
        else if (name == Name("rect"))
            addRectangle();
        else if (name == Name("circle"))
            addEllipse(length("r"), length("r"));
        else if (name == Name("ellipse"))
            addEllipse(length("rx"), length("ry"));
        else if (name == Name("line"))
            addLines({{length("x1"), length("y1")}, {length("x2"), length("y2")}}, false);
        else
            addPoints(name == Name("polygon"));
    }

    void addLines(std::vector<Point> const& points, bool isClosed)
    {
        for (std::size_t i = 0; i < points.size(); ++i)
            i == 0 ? m_builder.moveTo(m_matrices.back()(points[i]))
                   : m_builder.lineTo(m_matrices.back()(points[i]));
        isClosed ? m_builder.close() : m_builder.end();
    }

    void addPoints(bool isClosed)
    {
        std::string const list = text("points");
        SvgText reader(list);
        std::vector<Point> points;
        for (auto x = reader.number(); x; x = reader.number())
            if (auto const y = reader.number())
                points.emplace_back(*x, *y);
        addLines(points, isClosed);
    }

    void addEllipse(double rx, double ry)
    {
        if (!(rx > 0 && ry > 0))
            return;
        Affine const& matrix = m_matrices.back();
        Point const middle(length("cx"), length("cy"));
        m_builder.moveTo(matrix({middle.X() + rx, middle.Y()}));
        m_builder.arcTo(matrix(middle), matrix.turned({rx, 0}), matrix.turned({0, ry}), 0,
                        2 * std::numbers::pi);
        m_builder.close();
    }

    void addRectangle()
    {
        double const x = length("x"), y = length("y"), w = length("width"), h = length("height");
        if (!(w > 0 && h > 0))
            return;
        double rx = has("rx") ? length("rx") : length("ry");
        double ry = has("ry") ? length("ry") : length("rx");
        rx = std::clamp(rx, 0.0, w / 2);
        ry = std::clamp(ry, 0.0, h / 2);
        if (rx == 0 || ry == 0) {
            addLines({{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}}, true);
            return;
        }
        Affine const& matrix = m_matrices.back();
        m_builder.moveTo(matrix({x + rx, y}));
        // The corners in the order of the outline, each with the angle at which its arc begins.
        double const right = x + w - rx, left = x + rx, top = y + ry, bottom = y + h - ry;
        Point const middles[] = {{right, top}, {right, bottom}, {left, bottom}, {left, top}};
        for (int i = 0; i < 4; ++i) {
            double const from = (i - 1) * std::numbers::pi / 2;
            m_builder.lineTo(matrix(
                {middles[i].X() + rx * std::cos(from), middles[i].Y() + ry * std::sin(from)}));
            m_builder.arcTo(matrix(middles[i]), matrix.turned({rx, 0}), matrix.turned({0, ry}),
                            from, std::numbers::pi / 2);
        }
        m_builder.close();
    }

    QXmlStreamReader m_xml;
    SvgStyles m_styles;
    Unit m_unit;
    QXmlStreamAttributes m_attributes;
    std::vector<Affine> m_matrices;
    PathBuilder m_builder;
};

}  // namespace

std::vector<Path> svgPaths(QByteArray const& text, Unit unit)
{
    return SvgReader(text, unit).read();
}

}  // namespace Drawings

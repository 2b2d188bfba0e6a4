// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawings/SvgStyles.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

namespace Drawings {

SvgStyles::SvgStyles(QByteArray const& file)
{
    QXmlStreamReader xml(file);
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement &&
            xml.name() == QLatin1String("style"))
            readSheet(xml.readElementText(QXmlStreamReader::IncludeChildElements));
}

void SvgStyles::readSheet(QString sheet)
{
    static QRegularExpression const comment(QStringLiteral("/\\*.*?\\*/"),
                                            QRegularExpression::DotMatchesEverythingOption);
    static QRegularExpression const rule(QStringLiteral("([^{}]*)\\{([^{}]*)\\}"));
    static QRegularExpression const plain(QStringLiteral("^[.#]?[A-Za-z_][\\w-]*$"));
    sheet.remove(comment);
    for (auto rules = rule.globalMatch(sheet); rules.hasNext(); ++m_rules) {
        QRegularExpressionMatch const found = rules.next();
        Declarations const declarations = declarationsIn(found.captured(2));
        for (QString const& selector : found.captured(1).split(QLatin1Char(',')))
            if (plain.match(selector.trimmed()).hasMatch())
                for (auto each = declarations.begin(); each != declarations.end(); ++each)
                    m_values[selector.trimmed()][each.key()] = {each.value(), m_rules};
    }
}

SvgStyles::Declarations SvgStyles::declarationsIn(QString const& text)
{
    Declarations declarations;
    for (QString const& each : text.split(QLatin1Char(';'))) {
        int const colon = each.indexOf(QLatin1Char(':'));
        if (colon < 0)
            continue;
        QString value = each.mid(colon + 1).simplified();
        value.remove(QLatin1Char(' ')).remove(QStringLiteral("!important"));
        declarations[each.left(colon).trimmed()] = value;
    }
    return declarations;
}

SvgStyles::Value SvgStyles::valueFor(QString const& selector, QString const& property) const
{
    return m_values.value(selector).value(property);
}

QString SvgStyles::valueOf(QString const& element, QXmlStreamAttributes const& attributes,
                           QString const& property) const
{
    auto const attribute = [&](QString const& name) { return attributes.value(name).toString(); };
    Declarations const own = declarationsIn(attribute(QStringLiteral("style")));
    if (own.contains(property))
        return own[property];
    Value value = valueFor(QLatin1Char('#') + attribute(QStringLiteral("id")), property);
    if (value.rule >= 0)
        return value.text;
    for (QString const& name :
         attribute(QStringLiteral("class")).simplified().split(QLatin1Char(' '))) {
        Value const ofClass = valueFor(QLatin1Char('.') + name, property);
        if (ofClass.rule > value.rule)
            value = ofClass;
    }
    if (value.rule < 0)
        value = valueFor(element, property);
    return value.rule < 0 ? attribute(property) : value.text;
}

}  // namespace Drawings

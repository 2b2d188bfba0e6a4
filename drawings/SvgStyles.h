// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QXmlStreamAttributes>

namespace Drawings {

/// The style sheets of an SVG file, as far as they are plain: rules for elements by name, class or
/// identifier, and lists of those. Rules of another kind count for nothing.
class SvgStyles
{
public:
    /// Reads the style elements of a file, wherever they stand. What is no XML has none.
    explicit SvgStyles(QByteArray const& file);

    /// The value of a property of an element, without white space: that of its style attribute, or
    /// else that of the rule for its identifier, for one of its classes, for its name; of equals the
    /// last one in the file. Or else its attribute of that name. Empty if there is none.
    QString valueOf(QString const& element, QXmlStreamAttributes const& attributes,
                    QString const& property) const;

private:
    /// By property.
    using Declarations = QHash<QString, QString>;
    struct Value
    {
        QString text;
        /// The number of its rule in the file.
        int rule = -1;
    };

    void readSheet(QString sheet);
    static Declarations declarationsIn(QString const& text);
    Value valueFor(QString const& selector, QString const& property) const;

    /// By selector, which is ".class", "#identifier" or a name, and by property.
    QHash<QString, QHash<QString, Value>> m_values;
    int m_rules = 0;
};

}  // namespace Drawings

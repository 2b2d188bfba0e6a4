// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/JsonPlace.h"

#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

QString translated(char const* text)
{
    return QCoreApplication::translate("Freecut::JsonPlace", text);
}

QString numberText(double value)
{
    return QString::number(value, 'g', 9);
}

/// Where a text has a byte, as editors count.
QString lineAndColumn(QByteArray const& text, int offset)
{
    QByteArray const before = text.left(offset);
    int const line = int(before.count('\n')) + 1;
    return translated(QT_TRANSLATE_NOOP("Freecut::JsonPlace", "line %1, column %2"))
        .arg(line)
        .arg(before.size() - before.lastIndexOf('\n'));
}

}  // namespace

JsonPlace JsonPlace::ofText(QByteArray const& text)
{
    QJsonParseError error;
    QJsonDocument const document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        throw Mell::Exception(
            translated(QT_TRANSLATE_NOOP("Freecut::JsonPlace",
                                         "It is not JSON at %1 (%2). Mend it there."))
                .arg(lineAndColumn(text, error.offset), error.errorString())
                .toStdString());
    JsonPlace const whole(document.isObject() ? QJsonValue(document.object()) : QJsonValue(),
                          translated(QT_TRANSLATE_NOOP("Freecut::JsonPlace", "The text")));
    whole.expectRecord();
    return {document.object(), {}};
}

void JsonPlace::refuse(QString const& sentence) const
{
    throw Mell::Exception((m_path + ' ' + sentence).toStdString());
}

QString JsonPlace::pathTo(QString const& key) const
{
    return m_path.isEmpty() ? key : m_path + '.' + key;
}

void JsonPlace::expectRecord() const
{
    if (!m_value.isObject())
        refuse(translated(
            QT_TRANSLATE_NOOP("Freecut::JsonPlace", "must be a record in braces, { }.")));
}

std::optional<JsonPlace> JsonPlace::find(char const* key) const
{
    expectRecord();
    QString const name = QString::fromLatin1(key);
    QJsonValue const value = m_value.toObject().value(name);
    if (value.isUndefined())
        return {};
    return JsonPlace(value, pathTo(name));
}

JsonPlace JsonPlace::at(char const* key) const
{
    std::optional<JsonPlace> found = find(key);
    if (!found)
        JsonPlace({}, pathTo(QString::fromLatin1(key)))
            .refuse(translated(QT_TRANSLATE_NOOP("Freecut::JsonPlace", "is missing. Add it.")));
    return *found;
}

void JsonPlace::allowOnly(std::initializer_list<char const*> keys) const
{
    expectRecord();
    for (QString const& key : m_value.toObject().keys()) {
        bool const isKnown = std::any_of(keys.begin(), keys.end(), [&](char const* known) {
            return key == QLatin1String(known);
        });
        if (!isKnown)
            JsonPlace({}, pathTo(key))
                .refuse(translated(
                    QT_TRANSLATE_NOOP("Freecut::JsonPlace", "has no meaning here. Remove it.")));
    }
}

std::vector<JsonPlace> JsonPlace::items(std::size_t least, std::size_t most) const
{
    QJsonArray const list = m_value.toArray();
    if (!m_value.isArray() || std::size_t(list.size()) < least || std::size_t(list.size()) > most)
        refuse(translated(QT_TRANSLATE_NOOP("Freecut::JsonPlace",
                                            "must be a list of %1 to %2 values in brackets, [ ]."))
                   .arg(least)
                   .arg(most));
    std::vector<JsonPlace> items;
    items.reserve(std::size_t(list.size()));
    for (int i = 0; i < list.size(); ++i)
        items.push_back({list.at(i), m_path + '[' + QString::number(i + 1) + ']'});
    return items;
}

double JsonPlace::number(double least, double most) const
{
    double const value = m_value.toDouble();
    if (!m_value.isDouble() || !(value >= least && value <= most))
        refuse(translated(QT_TRANSLATE_NOOP("Freecut::JsonPlace",
                                            "must be a number from %1 to %2. Change it."))
                   .arg(numberText(least), numberText(most)));
    return value;
}

int JsonPlace::wholeNumber(int least, int most) const
{
    double const value = m_value.toDouble(0.5);
    if (value != std::floor(value) || value < least || value > most)
        refuse(translated(QT_TRANSLATE_NOOP("Freecut::JsonPlace",
                                            "must be a whole number from %1 to %2. Change it."))
                   .arg(least)
                   .arg(most));
    return int(value);
}

QString JsonPlace::text() const
{
    if (!m_value.isString())
        refuse(translated(QT_TRANSLATE_NOOP("Freecut::JsonPlace", "must be a text in quotes.")));
    return m_value.toString();
}

int JsonPlace::choice(std::initializer_list<char const*> names) const
{
    QStringList all;
    for (char const* const name : names) {
        if (m_value.toString() == QLatin1String(name))
            return int(all.size());
        all += '"' + QString::fromLatin1(name) + '"';
    }
    refuse(translated(QT_TRANSLATE_NOOP("Freecut::JsonPlace", "must be one of %1. Change it."))
               .arg(all.join(QStringLiteral(", "))));
}

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonValue>
#include <QString>

#include <initializer_list>
#include <optional>
#include <vector>

namespace Freecut {

/// A value of a JSON text and the way to it, such as "teeth[2].width", for reading what a person may
/// have written. What is not as it should be is refused by a Mell::Exception whose sentence names
/// the place and says what to do there.
class JsonPlace
{
public:
    /// The whole text, which must hold one record.
    static JsonPlace ofText(QByteArray const& text);

    /// A value of a record. One that is not there is refused by the first.
    JsonPlace at(char const* key) const;
    std::optional<JsonPlace> find(char const* key) const;
    /// Refuses a record with any other key.
    void allowOnly(std::initializer_list<char const*> keys) const;
    /// Refuses what is no record.
    void expectRecord() const;

    /// The values of a list.
    std::vector<JsonPlace> items(std::size_t least, std::size_t most) const;

    double number(double least, double most) const;
    int wholeNumber(int least, int most) const;
    QString text() const;
    /// Which of some names it is, from 0 on.
    int choice(std::initializer_list<char const*> names) const;

    /// sentence  goes on after the way to the value
    [[noreturn]] void refuse(QString const& sentence) const;

private:
    JsonPlace(QJsonValue value, QString path) : m_value(std::move(value)), m_path(std::move(path))
    {}
    QString pathTo(QString const& key) const;

    QJsonValue m_value;
    QString m_path;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/NumberPattern.h"

#include <QLocale>
#include <QRegExpValidator>

namespace Freecut::NumberPattern {

namespace {

QRegExpValidator* make(char const* pattern, QObject* parent)
{
    QString const text = QString::fromLatin1(pattern).arg(QLocale().decimalPoint());
    return new QRegExpValidator(QRegExp(text), parent);
}

}  // namespace

QRegExpValidator* makeSigned(QObject* parent)
{
    return make(R"(^(-?[0]|-?[1-9][0-9]{0,6})(?:\%1\d{1,3})?$|(^\t?$))", parent);
}

QRegExpValidator* makeUnsigned(QObject* parent)
{
    return make(R"(^([0]|[1-9][0-9]{0,6})(?:\%1\d{1,3})?$|(^\t?$))", parent);
}

}  // namespace Freecut::NumberPattern

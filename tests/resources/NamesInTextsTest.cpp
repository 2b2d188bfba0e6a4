// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Places.h"
#include "tests/support/TranslationFile.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>

#include <map>
#include <set>

// What sentences, in the window and in the guide, call by a name is called so where it stands: as a
// command, a menu, a field, a group of fields, or a kind of error.
namespace {

/// Without the letter's mark, the dots and the colon.
QString plain(QString text)
{
    text.remove(QRegularExpression("\\(&\\w\\)"));
    text.remove('&').remove("...");
    return text.simplified().remove(QRegularExpression(":$"));
}

/// English labels with what they are called in German.
std::multimap<QString, QString> const& labels()
{
    static std::multimap<QString, QString> const all = [] {
        std::multimap<QString, QString> found;
        for (TranslatedText const& text : readTranslationFile(
                 QString::fromStdString(sourcePath("resources/translations/orbe_de.ts"))))
            found.emplace(plain(text.source), plain(text.translations.value(0)));
        return found;
    }();
    return all;
}

QString guideText()
{
    QFile file(QString::fromStdString(sourcePath("docs/guide.md")));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Words with a capital within a sentence.
QStringList namesIn(QString const& sentence)
{
    // Of keys, programs and licences.
    static QRegularExpression const others("^(Ctrl|Shift|Esc|Up and Down|Qt|Public License)$");
    static QRegularExpression const pattern(
        "(?<=[a-z,;)] )[A-Z][a-z]+(?:(?: (?:on|a|the|to|in|by|of|and|at))* [A-Z][a-z]+)*");
    QStringList names;
    for (auto found = pattern.globalMatch(sentence); found.hasNext();) {
        QString const name = found.next().captured();
        if (!others.match(name).hasMatch())
            names << name;
    }
    return names;
}

bool isSentence(QString const& text)
{
    return QRegularExpression("[^.][.!?]( |$)").match(text).hasMatch();
}

/// Whether a German sentence says one of the names of an English label.
bool saysLabel(QString const& german, QString const& english)
{
    auto const [first, last] = labels().equal_range(english);
    return std::any_of(first, last, [&](auto const& label) {
        return german.contains(label.second, Qt::CaseInsensitive);
    });
}

/// The first cells of the table of errors.
QStringList errorsInGuide()
{
    static QRegularExpression const table("\\| Error \\|[^\n]*\n\\|[-|]+\n((?:\\|[^\n]*\n)+)");
    QStringList errors;
    for (QString const& row : table.match(guideText()).captured(1).split('\n', Qt::SkipEmptyParts))
        errors << row.split('|')[1].simplified();
    return errors;
}

}  // namespace

TEST(NamesInTexts, WhatSentencesNameIsThere)
{
    int count = 0;
    for (auto const& [text, german] : labels())
        for (QString const& name : isSentence(text) ? namesIn(text) : QStringList()) {
            ++count;
            EXPECT_TRUE(labels().count(name)) << qPrintable(name + ": " + text);
        }
    EXPECT_GT(count, 5);
}

TEST(NamesInTexts, GermanSentencesNameThingsAsTheyAreCalledInGerman)
{
    static QRegularExpression const quoted(QString::fromUtf8("„([A-ZÄÖÜ][^“%]*)“"));
    std::set<QString> germanLabels;
    for (auto const& label : labels())
        germanLabels.insert(label.second);
    for (auto const& [text, german] : labels()) {
        for (QString const& name : isSentence(text) ? namesIn(text) : QStringList())
            EXPECT_TRUE(saysLabel(german, name)) << qPrintable(name + ": " + german);
        for (auto found = quoted.globalMatch(german); found.hasNext();) {
            QString const name = found.next().captured(1);
            EXPECT_TRUE(germanLabels.count(name)) << qPrintable(name + ": " + german);
        }
    }
}

TEST(NamesInTexts, WhatTheGuideShowsInBoldIsThere)
{
    static QRegularExpression const bold("\\*\\*([^*]+)\\*\\*");
    // A key.
    QStringList const others{"C"};
    int count = 0;
    for (auto found = bold.globalMatch(guideText()); found.hasNext();)
        for (QString const& name : plain(found.next().captured(1))
                                       .split(QRegularExpression(QString::fromUtf8(" [›>] ")))) {
            ++count;
            EXPECT_TRUE(labels().count(name) || others.contains(name)) << qPrintable(name);
        }
    EXPECT_GT(count, 100);
}

TEST(NamesInTexts, TheGuideCallsErrorsWhatCheckCallsThem)
{
    QStringList const errors = errorsInGuide();
    EXPECT_EQ(errors.size(), 7);
    for (QString const& error : errors)
        EXPECT_TRUE(labels().count("%1 " + error)) << qPrintable(error);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/CommandTexts.h"
#include "tests/support/Places.h"
#include "tests/support/TranslationFile.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <set>

namespace {

QString const folder = QString::fromStdString(sourcePath("resources/translations/"));

/// Copies of the translation files, brought in line with the sources as they are now.
class UpdatedFiles
{
public:
    UpdatedFiles()
    {
        for (char const* const name : {"orbe_de.ts", "orbe_en.ts"})
            QFile::copy(folder + name, m_folder.filePath(name));
        QProcess update;
        update.start(folder + "update.sh", {MELL_LUPDATE, m_folder.path()});
        update.waitForFinished(-1);
        m_messages = QString::fromUtf8(update.readAllStandardError());
        EXPECT_EQ(update.exitCode(), 0) << qPrintable(m_messages);
    }

    std::vector<TranslatedText> texts(char const* name) const
    {
        return readTranslationFile(m_folder.filePath(name));
    }
    /// What the update had to say.
    QString const& messages() const { return m_messages; }

private:
    QTemporaryDir m_folder;
    QString m_messages;
};

UpdatedFiles const& updated()
{
    static UpdatedFiles const files;
    return files;
}

/// What stands for a value that is put in: %1, %L2, %n.
std::multiset<QString> placeholdersOf(QString const& text)
{
    static QRegularExpression const pattern("%(L?[0-9]{1,2}|n)");
    std::multiset<QString> found;
    for (auto matches = pattern.globalMatch(text); matches.hasNext();)
        found.insert(matches.next().captured());
    return found;
}

QString trailOf(QString const& text)
{
    static QRegularExpression const pattern("[ .:!?\u2026]*$");
    return pattern.match(text).captured();
}

int acceleratorsOf(QString text)
{
    return text.remove("&&").count('&');
}

/// Runs a check on every finished German text that is not a plural.
template <typename Check>
void forEachGermanText(Check const& check)
{
    for (TranslatedText const& text : readTranslationFile(folder + "orbe_de.ts"))
        for (QString const& translation : text.translations)
            check(text, translation);
}

}  // namespace

TEST(Translations, GermanHasEveryTextOfTheSources)
{
    std::vector<TranslatedText> const texts = updated().texts("orbe_de.ts");
    EXPECT_GE(texts.size(), 35u);
    for (TranslatedText const& text : texts) {
        EXPECT_TRUE(text.isFinished) << "no German text for " << qPrintable(text.place());
        EXPECT_EQ(text.translations.size(), text.hasPlural ? 2 : 1) << qPrintable(text.place());
        EXPECT_FALSE(text.translations.contains("")) << qPrintable(text.place());
    }
}

TEST(Translations, EnglishHasThePluralsOfTheSources)
{
    std::set<QString> english;
    for (TranslatedText const& text : updated().texts("orbe_en.ts")) {
        EXPECT_TRUE(text.isFinished) << "no plural for " << qPrintable(text.place());
        EXPECT_FALSE(text.translations.contains("")) << qPrintable(text.place());
        english.insert(text.place());
    }
    for (TranslatedText const& text : updated().texts("orbe_de.ts"))
        EXPECT_EQ(english.count(text.place()), text.hasPlural ? 1u : 0u)
            << qPrintable(text.place());
}

TEST(Translations, HoldNoTextThatTheSourcesHaveNot)
{
    std::set<QString> current;
    for (TranslatedText const& text : updated().texts("orbe_de.ts"))
        current.insert(text.place());
    for (TranslatedText const& text : readTranslationFile(folder + "orbe_de.ts"))
        EXPECT_TRUE(current.count(text.place())) << qPrintable(text.place());
}

TEST(Translations, CoverTheTextsOfAllCommandsOfThePlugIn)
{
    std::set<QString> german;
    for (TranslatedText const& text : readTranslationFile(folder + "orbe_de.ts"))
        german.insert(text.place());
    for (CommandTexts const& command : commandTexts())
        for (char const* const text : {command.menuText, command.toolTip, command.statusTip})
            if (text) {
                QString const place = QString("%1: %2").arg(command.className, text);
                EXPECT_TRUE(german.count(place)) << qPrintable(place);
            }
}

TEST(Translations, EveryTranslatedClassHasAContextOfItsOwn)
{
    // Without the macro the texts would be looked up under the name of another class.
    EXPECT_FALSE(updated().messages().contains("Q_OBJECT")) << qPrintable(updated().messages());
}

TEST(Translations, KeepTheValuesThatAreFilledIn)
{
    forEachGermanText([](TranslatedText const& text, QString const& translation) {
        std::multiset<QString> expected = placeholdersOf(text.source);
        std::multiset<QString> found = placeholdersOf(translation);
        if (text.hasPlural) {
            // A singular may say "one" in words.
            expected.erase("%n");
            found.erase("%n");
        }
        EXPECT_EQ(found, expected) << qPrintable(text.place());
    });
}

TEST(Translations, KeepAcceleratorsAndTheEndOfTheText)
{
    forEachGermanText([](TranslatedText const& text, QString const& translation) {
        EXPECT_EQ(acceleratorsOf(translation), acceleratorsOf(text.source))
            << qPrintable(text.place());
        EXPECT_EQ(trailOf(translation), trailOf(text.source)) << qPrintable(text.place());
        EXPECT_EQ(translation, translation.trimmed()) << qPrintable(text.place());
    });
}

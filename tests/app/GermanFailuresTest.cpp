// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/LogConsole.h"
#include "platform/ui/LanguageSwitch.h"
#include "tests/app/AppWindow.h"
#include "tests/cutjobs/ZCutRun.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/Places.h"
#include "tests/support/TranslationFile.h"

#include <QRegularExpression>

#include <set>

namespace {

/// The words of English sentences about what went wrong, without what is filled in.
std::set<QString> englishWords()
{
    static QRegularExpression const value("%L?[0-9n]");
    constexpr int isSentence = 8;
    std::set<QString> words;
    for (TranslatedText const& text : readTranslationFile(
             QString::fromStdString(sourcePath("resources/translations/orbe_de.ts"))))
        if (text.context == "FileError" || text.context == "Services" ||
            text.context == "DocumentFiles")
            for (QString const& piece : text.source.split(value))
                if (piece.size() >= isSentence && !text.translations.join("").contains(piece))
                    words.insert(piece);
    return words;
}

void expectGermanSentence(QString const& text)
{
    static std::set<QString> const english = englishWords();
    EXPECT_GT(english.size(), 80u);
    for (QString const& words : english)
        EXPECT_FALSE(text.contains(words)) << qPrintable(text) << "\nhas: " << qPrintable(words);
}

class GermanFailures : public AppWindow
{
protected:
    void SetUp() override
    {
        AppWindow::SetUp();
        LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    }
    void TearDown() override
    {
        LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
        AppWindow::TearDown();
    }
};

}  // namespace

TEST_F(GermanFailures, SaysInGermanWhyAFileCannotBeOpened)
{
    struct Broken
    {
        char const* name;
        std::string content;
        /// What follows the name of the file.
        QString problem;
    };
    Broken const files[] = {
        {"empty.stl", "", "Sie ist leer, aber erwartet wurde ein Netz."},
        {"words.stl", "solid a\nfacet normal 0 0 1\nouter loop\nvertex 1 zwei 3\n",
         "Zeile 4: Erwartet wurde eine Koordinate, aber hier steht 'zwei'."},
        {"end.stl", "solid a\nfacet normal 0 0",
         "Zeile 2: Die Datei endet hier, wo eine Zahl der Normalen erwartet wurde; sie ist "
         "abgeschnitten."},
        {"short.stl", std::string(80, 'x') + bytesOf(std::uint32_t(1000)) + "rest",
         "Byte 88: Die Datei endet hier, aber ihr Kopf kündigt 1000 Dreiecke an, die bei Byte "
         "50084 enden; sie ist abgeschnitten oder keine STL-Datei."},
        {"face.obj", "v 0 0 0\nv 1 0 0\nf 1 2 1234567\n",
         "Zeile 3: Die Fläche verweist auf Position 1234567, aber die Anzahl der Positionen "
         "darüber ist 2."},
        {"type.ply", "ply\nformat ascii 1.0\nelement vertex 3\nproperty word x\n",
         "Zeile 4: Erwartet wurde ein Typ wie float oder uchar, aber hier steht 'word'."},
        {"bare.3mf", threeMfPackage("millimeter", "<resources/><build/>"),
         "Ihr Bauauftrag platziert kein Netz; erwartet wurde mindestens eines."},
        {"picture.png", "\x89PNG",
         "Der Inhalt hat kein bekanntes Format; erwartet wurde .stl, .ply, .3mf, .obj oder .off."},
    };
    ScratchFolder const folder;
    for (Broken const& file : files) {
        QString const path = QString::fromStdString(folder.file(file.name, file.content).string());
        script.told.clear();
        window->files().openFiles({path});
        ASSERT_TRUE(waitUntil([&] { return !script.told.isEmpty(); })) << file.name;
        ASSERT_TRUE(waitUntil([&] { return !window->files().isWorking(); })) << file.name;
        QString const message = script.told.join('\n');
        EXPECT_EQ(message.toStdString(), ("Datei „" + path + "“: " + file.problem).toStdString());
        expectGermanSentence(message);
    }
}

TEST_F(GermanFailures, LogsInGermanWhyAnOpenPartCannotBeCut)
{
    // Without its front, the plane meets open edges.
    Soup sideless = box(2.5f, 3, 4);
    sideless.triangles.erase(sideless.triangles.begin() + 4, sideless.triangles.begin() + 6);
    Mesh::DocumentObject* const part = test->add(sideless, "Box");
    ZCutRun run;
    run.cutAt(*test, {part}, 2);
    EXPECT_EQ(run.code, 0);
    QCoreApplication::processEvents();
    auto const* const console = window->findChild<LogConsole*>();
    ASSERT_TRUE(console);
    QString const log = console->toPlainText();
    static QRegularExpression const sentence(
        "Das Bauteil ist offen, wo die Ebene es trifft, nahe \\(-?[0-9.]+, -?[0-9.]+, "
        "-?[0-9.]+\\)\\.");
    EXPECT_TRUE(sentence.match(log).hasMatch()) << qPrintable(log);
    expectGermanSentence(log);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/WindowFileQuestions.h"
#include "app/recovery/RecoveryDialog.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/ScratchSettings.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <utility>
#include <vector>

using Unsaved = FileQuestions::Unsaved;

namespace {

/// Handles each modal dialog that opens, in turn, as soon as it is there.
class ModalAnswers : public QObject
{
public:
    using Answer = std::function<void(QWidget&)>;

    explicit ModalAnswers(std::vector<Answer> answers) : m_answers(std::move(answers))
    {
        connect(&m_timer, &QTimer::timeout, this, &ModalAnswers::answer);
        m_timer.start(10);
    }
    bool isDone() const { return m_next == m_answers.size(); }

private:
    void answer()
    {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (!dialog || dialog == m_last || isDone())
            return;
        m_last = dialog;
        m_answers[m_next++](*dialog);
        m_last = nullptr;
    }

    std::vector<Answer> m_answers;
    std::size_t m_next = 0;
    QWidget* m_last = nullptr;
    QTimer m_timer;
};

ModalAnswers::Answer press(QString const& text)
{
    return [text](QWidget& dialog) {
        for (QPushButton* const button : dialog.findChildren<QPushButton*>())
            if (button->text() == text && button->isVisible())
                return button->click();
        ADD_FAILURE() << "no button " << text.toStdString();
        dialog.close();
    };
}

/// For an answer that opens another dialog, in which the timer that answers must go on.
ModalAnswers::Answer soon(ModalAnswers::Answer answer)
{
    return [answer](QWidget& dialog) {
        QTimer::singleShot(0, &dialog, [answer, &dialog] { answer(dialog); });
    };
}

ModalAnswers::Answer close()
{
    return [](QWidget& dialog) { dialog.close(); };
}

/// Types a path into a file dialog and accepts it.
ModalAnswers::Answer type(QString const& path)
{
    return [path](QWidget& dialog) {
        auto* const edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_TRUE(edit);
        edit->setText(path);
        QMetaObject::invokeMethod(&dialog, "accept");
    };
}

}  // namespace

TEST(WindowFileQuestions, UnsavedWorkHasThreeAnswersAndClosingIsNone)
{
    WindowFileQuestions questions;
    std::vector<std::pair<ModalAnswers::Answer, Unsaved>> const cases = {
        {press("Save"), Unsaved::Save},
        {press("Discard"), Unsaved::Discard},
        {press("Cancel"), Unsaved::Cancel},
        {close(), Unsaved::Cancel}};
    for (auto const& [answer, expected] : cases) {
        ModalAnswers const answers({answer});
        EXPECT_EQ(questions.aboutUnsaved("plate.3mf"), expected);
    }
}

TEST(WindowFileQuestions, AChangedProjectHasThreeAnswersAndClosingIsNone)
{
    using Changed = FileQuestions::Changed;
    WindowFileQuestions questions;
    std::vector<std::pair<ModalAnswers::Answer, Changed>> const cases = {
        {press("Replace"), Changed::Replace},
        {press("Save As..."), Changed::SaveElsewhere},
        {press("Cancel"), Changed::Cancel},
        {close(), Changed::Cancel}};
    for (auto const& [answer, expected] : cases) {
        ModalAnswers const answers({answer});
        EXPECT_EQ(questions.aboutChanged("plate.3mf"), expected);
    }
}

TEST(RecoveryQuestion, HasThreeAnswersAndDiscardsOnlyWhenSaidTwice)
{
    using Kind = RecoveryChoice::Kind;
    std::vector<KeptWork> works(2);
    works[1].list.projectFile = "/a/gear.3mf";
    auto const ask = [&](std::vector<ModalAnswers::Answer> answers) {
        ModalAnswers const given(std::move(answers));
        return RecoveryDialog::ask(works, nullptr).kind;
    };
    EXPECT_EQ(ask({press("Recover")}), Kind::Recover);
    EXPECT_EQ(ask({press("Later")}), Kind::Later);
    EXPECT_EQ(ask({close()}), Kind::Later);
    EXPECT_EQ(ask({soon(press("Discard...")), press("Discard")}), Kind::Discard);
    EXPECT_EQ(ask({soon(press("Discard...")), press("Keep"), close()}), Kind::Later);
}

TEST(WindowFileQuestions, FilesAreReplacedOnlyByThatButton)
{
    WindowFileQuestions questions;
    for (QStringList const& files : {QStringList{"/a.stl"}, QStringList{"/a.stl", "/b.stl"}}) {
        ModalAnswers const answers({press("Replace"), press("Cancel"), close()});
        EXPECT_TRUE(questions.mayReplace(files));
        EXPECT_FALSE(questions.mayReplace(files));
        EXPECT_FALSE(questions.mayReplace(files));
    }
}

TEST(WindowFileQuestions, AMessageIsShownUntilItIsRead)
{
    WindowFileQuestions questions;
    ModalAnswers const answers({press("OK")});
    questions.tell("The file is broken.");
    EXPECT_TRUE(answers.isDone());
}

TEST(WindowFileQuestions, FilesAreChosenAndTheirFolderIsRemembered)
{
    ScratchSettings const settings;
    ScratchFolder const folder;
    QString const file = QString::fromStdString(folder.file("größe.stl", "x").string());
    WindowFileQuestions questions;
    {
        ModalAnswers const answers({type(file)});
        EXPECT_EQ(questions.filesToOpen(), QStringList{file});
    }
    EXPECT_EQ(settings.value("/Files/folder").toString().toStdString(), folder.path().string());
    {
        ModalAnswers const answers({close()});
        EXPECT_TRUE(questions.filesToOpen().isEmpty());
    }
    QString const target = QString::fromStdString((folder / "plate.3mf").string());
    {
        ModalAnswers const answers({type(target)});
        EXPECT_EQ(questions.projectToSave("Untitled.3mf"), target);
    }
    ModalAnswers const answers({close()});
    EXPECT_TRUE(questions.projectToSave("Untitled.3mf").isEmpty());
}

TEST(WindowFileQuestions, AnExportIsPlannedInTwoSteps)
{
    ScratchSettings const settings;
    ScratchFolder const folder;
    QString const target = QString::fromStdString((folder / "gear").string());
    WindowFileQuestions questions;
    {
        ModalAnswers const answers({press("Export..."), type(target)});
        auto const plan = questions.exportPlan({"gear", 1, {}});
        ASSERT_TRUE(plan);
        EXPECT_EQ(plan->path, target + ".stl");
        EXPECT_EQ(plan->format, "stl");
        EXPECT_FALSE(plan->isOneFilePerPart);
    }
    settings.setValue("/Export/fileForEachPart", true);
    {
        ModalAnswers const answers(
            {press("Export..."), type(QString::fromStdString(folder.path().string()))});
        auto const plan = questions.exportPlan({"plate", 3, {}});
        ASSERT_TRUE(plan);
        EXPECT_EQ(plan->path.toStdString(), folder.path().string());
        EXPECT_TRUE(plan->isOneFilePerPart);
    }
    ModalAnswers const answers({press("Cancel"), press("Export..."), close()});
    EXPECT_FALSE(questions.exportPlan({"plate", 3, {}}));
    EXPECT_FALSE(questions.exportPlan({"plate", 3, {}}));
}

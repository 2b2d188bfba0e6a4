// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/UnitDialog.h"
#include "tests/app/ToolWindow.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/ModelFile.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QTimer>

namespace {

/// Files whose numbers make no sense as millimetres.
class UnitQuestionWindow : public ToolWindow
{
protected:
    QString write(std::string const& name, Soup const& soup) const
    {
        std::string const path = (folder / name).string();
        writeStl(soup, path);
        return QString::fromStdString(path);
    }
    /// Opens a file, and answers the question by keys if there is one.
    ///
    /// downwards  how many entries below the suggested one
    void open(QString const& file, int key, int downwards = 0)
    {
        asked.clear();
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, [&] {
            auto* const dialog = qobject_cast<UnitDialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible())
                return;
            auto* const units = dialog->findChild<QComboBox*>();
            asked << units->currentText();
            if (picture)
                dialog->grab().save(QString::fromStdString(picturePath(picture)));
            for (int i = 0; i < downwards; ++i)
                QTest::keyClick(units, Qt::Key_Down);
            QTest::keyClick(dialog, Qt::Key(key));
        });
        answer.start(20);
        window->files().openFiles({file});
        ASSERT_TRUE(waitUntil([&] { return !window->files().isWorking(); }));
        settle();
    }
    double height() const { return document().getMeshObjects().back()->getBoundingBox().MaxZ(); }

    ScratchFolder folder;
    QStringList asked;
    char const* picture = nullptr;
};

}  // namespace

TEST_F(UnitQuestionWindow, SmallPartsAreScaledToTheUnitInOneStep)
{
    picture = "unit-dialog.png";
    open(write("metres.stl", box(0.05f, 0.04f, 0.09f)), Qt::Key_Return);
    // 0.9 and 2.3 mm would be as odd.
    EXPECT_EQ(asked, QStringList{QString::fromUtf8("Metres: 50 \u00d7 40 \u00d7 90 mm")});
    EXPECT_FLOAT_EQ(height(), 90);
    EXPECT_EQ(document().undoNames().front(), "Scale");
    trigger("Std_Undo");
    EXPECT_FLOAT_EQ(height(), 0.09f);
}

TEST_F(UnitQuestionWindow, TheUnitChosenLastIsSuggestedTheNextTime)
{
    open(write("a.stl", box(1, 1, 2)), Qt::Key_Return, 1);
    EXPECT_EQ(asked.size(), 1);
    EXPECT_FLOAT_EQ(height(), 50.8f);
    open(write("b.stl", box(1, 1, 1.5f)), Qt::Key_Return);
    EXPECT_EQ(asked.size(), 1);
    EXPECT_TRUE(asked[0].startsWith("Inches: ")) << qPrintable(asked[0]);
    EXPECT_FLOAT_EQ(height(), 38.1f);
}

TEST_F(UnitQuestionWindow, EscLeavesThePartAndItIsNotAskedAboutAgain)
{
    QString const small = write("small.stl", box(1, 1, 2));
    open(small, Qt::Key_Escape);
    EXPECT_EQ(asked.size(), 1);
    EXPECT_FLOAT_EQ(height(), 2);
    open(write("common.stl", box(3, 1, 2)), Qt::Key_Return);
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_FLOAT_EQ(height(), 2);
}

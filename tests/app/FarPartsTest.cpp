// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/FarParts.h"
#include "host/formats/PartFiles.h"
#include "tests/app/AppWindow.h"
#include "tests/formats/ScratchFolder.h"
#include "tests/support/AnsweredMessages.h"

#include <fstream>

namespace {

class FarPartsWindow : public AppWindow
{
protected:
    /// A file with one triangle of so many millimetres.
    QString fileOfSize(std::string const& name, double size) const
    {
        auto const path = folder / name;
        std::ofstream(path) << "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex "
                            << size << " 0 0\nvertex 0 " << size
                            << " 1\nendloop\nendfacet\nendsolid a\n";
        return QString::fromStdString(path.string());
    }
    void open(QStringList const& files)
    {
        window->files().openFiles(files);
        ASSERT_TRUE(waitUntil([&] { return !window->files().isWorking(); }));
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 300)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    float widthOf(std::size_t place) const
    {
        return test->document->getMeshObjects().at(place)->getBoundingBox().MaxX();
    }

    ScratchFolder folder;
};

}  // namespace

TEST(FarParts, AreScaledByPowersOfAThousandth)
{
    EXPECT_DOUBLE_EQ(FarParts::factorFor(2e7), 1e-3);
    EXPECT_DOUBLE_EQ(FarParts::factorFor(9e8), 1e-6);
    EXPECT_DOUBLE_EQ(FarParts::factorFor(5e12), 1e-9);
}

TEST_F(FarPartsWindow, AreReportedAndScaledInOneStepIfWanted)
{
    show();
    AnsweredMessages const messages("Scale");
    open({fileOfSize("near.stl", 9e6), fileOfSize("far.stl", 2e7)});
    ASSERT_EQ(messages.texts.size(), 1);
    EXPECT_TRUE(messages.texts[0].startsWith("far: the coordinates go up to 20,000,000 mm."))
        << qPrintable(messages.texts[0]);
    ASSERT_EQ(test->document->getMeshObjects().size(), 2u);
    EXPECT_FLOAT_EQ(widthOf(0), 9e6f);
    EXPECT_FLOAT_EQ(widthOf(1), 2e4f);
    EXPECT_EQ(test->document->undoNames().front(), "Scale");
    trigger("Std_Undo");
    EXPECT_FLOAT_EQ(widthOf(1), 2e7f);
}

TEST_F(FarPartsWindow, StayAsTheyAreIfWantedAndAreAskedAboutOnce)
{
    show();
    AnsweredMessages const messages("Leave as It Is");
    open({fileOfSize("far.stl", 2e7)});
    open({fileOfSize("near.stl", 10)});
    EXPECT_EQ(messages.texts.size(), 1);
    EXPECT_FLOAT_EQ(widthOf(0), 2e7f);
    EXPECT_EQ(test->document->undoNames().size(), 2u);
}

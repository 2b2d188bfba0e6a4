// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/ReloadOffer.h"
#include "host/formats/PartFiles.h"
#include "tests/app/MouseInWindow.h"
#include "tests/app/ToolWindow.h"
#include "tests/formats/ScratchFolder.h"

#include <QFile>
#include <QPushButton>

namespace {

/// Files that another program writes anew while their parts are open.
class ReloadWindow : public ToolWindow
{
protected:
    QString write(std::string const& name, Soup const& soup) const
    {
        auto const path = folder / name;
        std::filesystem::remove(path);
        Formats::writePart(path, name, *kernelOf(soup),
                           *Formats::FormatRegistry::instance().byName("stl"), {},
                           Formats::Overwrite::Allow);
        return QString::fromStdString(path.string());
    }
    void open(QString const& file)
    {
        window->files().openFiles({file});
        ASSERT_TRUE(waitUntil([&] { return !window->files().isWorking(); }));
        settle();
    }
    ReloadOffer& offer() const { return *window->findChild<ReloadOffer*>(); }
    bool isOffered() const
    {
        return waitUntil([&] { return offer().isVisible(); });
    }
    void press(char const* name) const
    {
        auto* const button = offer().findChild<QPushButton*>(name);
        MouseInWindow(*window).click(*button);
        waitUntil([&] { return !window->files().isWorking(); });
        settle();
    }
    Mesh::DocumentObject* part(std::size_t place = 0) const
    {
        return document().getMeshObjects().at(place);
    }
    std::size_t count() const { return document().getMeshObjects().size(); }

    ScratchFolder folder;
};

}  // namespace

TEST_F(ReloadWindow, AChangedFileIsOfferedAndPutInThePlaceOfItsPart)
{
    QString const file = write("block.stl", box(10, 20, 30));
    open(file);
    open(write("other.stl", box(5, 5, 5)));
    part()->setName("mine");
    part()->translate({100, 0, 0}, 0);
    EXPECT_FALSE(offer().isVisible());
    write("block.stl", box(10, 20, 44));
    ASSERT_TRUE(isOffered());
    EXPECT_EQ(offer().offered(), QStringList{file});
    takePicture("reload-offer");
    std::size_t const steps = document().undoNames().size();
    press("Reload");
    EXPECT_FALSE(offer().isVisible());
    ASSERT_EQ(count(), 2u);
    EXPECT_EQ(part()->getName(), "mine");
    EXPECT_EQ(part()->getBoundingBox().MaxZ(), 44);
    EXPECT_EQ(part()->getBoundingBox().MinX(), 100);
    EXPECT_EQ(document().undoNames().size(), steps + 1);
    EXPECT_EQ(document().undoNames().front(), "Reload");
    pressUndo();
    EXPECT_EQ(part()->getBoundingBox().MaxZ(), 30);
    EXPECT_EQ(part()->getBoundingBox().MinX(), 100);
    pressRedo();
    EXPECT_EQ(part()->getBoundingBox().MaxZ(), 44);
    // And once more, for the part shows what the file has.
    write("block.stl", box(10, 20, 50));
    ASSERT_TRUE(isOffered());
    press("Reload");
    EXPECT_EQ(part()->getBoundingBox().MaxZ(), 50);
}

TEST_F(ReloadWindow, WhatIsKeptIsNotOfferedAgainUntilItChangesAgain)
{
    open(write("block.stl", box(10, 20, 30)));
    write("block.stl", box(10, 20, 44));
    ASSERT_TRUE(isOffered());
    press("Keep");
    EXPECT_FALSE(offer().isVisible());
    EXPECT_EQ(part()->getBoundingBox().MaxZ(), 30);
    // A later version of another file is found after it; until then this one was looked at twice.
    QString const second = write("second.stl", box(5, 5, 5));
    open(second);
    write("second.stl", box(5, 5, 6));
    ASSERT_TRUE(isOffered());
    EXPECT_EQ(offer().offered(), QStringList{second});
    write("block.stl", box(10, 20, 50));
    ASSERT_TRUE(waitUntil([&] { return offer().offered().size() == 2; }));
}

TEST_F(ReloadWindow, AFileThatIsBrokenNowIsToldAndThePartStays)
{
    QString const file = write("block.stl", box(10, 20, 30));
    open(file);
    QFile broken(file);
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("solid nothing at all");
    broken.close();
    ASSERT_TRUE(isOffered());
    std::size_t const steps = document().undoNames().size();
    press("Reload");
    ASSERT_EQ(script.told.size(), 1);
    EXPECT_TRUE(script.told[0].contains("block.stl")) << qPrintable(script.told[0]);
    EXPECT_EQ(part()->getBoundingBox().MaxZ(), 30);
    EXPECT_EQ(document().undoNames().size(), steps);
}

TEST_F(ReloadWindow, PiecesAndFilesThatAreGoneAreNotOffered)
{
    QString const file = write("block.stl", box(10, 20, 30));
    QString const gone = write("gone.stl", box(5, 5, 5));
    open(file);
    open(gone);
    part()->setSelected(true, true, true);
    MainWindow::getViewSlider()->setHeight(20);
    settle();
    pressKey(Qt::Key_C);
    waitUntil([] { return !JobGuard::instance()->isBusy(); });
    settle();
    ASSERT_EQ(count(), 3u);
    write("block.stl", box(10, 20, 44));
    QFile::remove(gone);
    // A third file is found after both were looked at.
    QString const third = write("third.stl", box(7, 7, 7));
    open(third);
    write("third.stl", box(7, 7, 8));
    ASSERT_TRUE(isOffered());
    EXPECT_EQ(offer().offered(), QStringList{third});
}

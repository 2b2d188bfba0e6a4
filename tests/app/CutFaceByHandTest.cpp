// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/ApartSlider.h"
#include "host/view/MeshViewProvider.h"
#include "platform/document/CutMemory.h"
#include "tests/app/ToolWindow.h"

#include <QSlider>

#include <cmath>

namespace {

/// What a cut in the window leaves behind for its pieces.
class CutFaceByHand : public ToolWindow
{
protected:
    /// A bar that leans over the plate, cut by the key at a height.
    std::vector<Mesh::DocumentObject*> cutBar(float height)
    {
        Mesh::DocumentObject* const bar = test->add(box(20, 4, 60), "bar");
        bar->setSelected(true, true, false);
        lookFrom(0);
        MainWindow::getViewSlider()->setHeight(height);
        settle();
        pressKey(Qt::Key_C);
        waitUntil([] { return !JobGuard::instance()->isBusy(); });
        settle();
        return document().getMeshObjects();
    }
    QString statusText() const { return window->statusLine().currentMessage(); }
};

}  // namespace

TEST_F(CutFaceByHand, ThePiecesLieOnTheFaceThatTheCutMade)
{
    auto const pieces = cutBar(20);
    ASSERT_EQ(pieces.size(), 2u);
    for (Mesh::DocumentObject* const piece : pieces)
        piece->rotate({}, 1, {1, 1, 0}, false);
    std::size_t const steps = document().undoNames().size();
    pressKey(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(document().undoNames().size(), steps + 1);
    EXPECT_NEAR(pieces[0]->getBoundingBox().MaxZ(), 40, 1e-3);
    EXPECT_NEAR(pieces[1]->getBoundingBox().MaxZ(), 20, 1e-3);
    EXPECT_NEAR((pieces[0]->getMatrix() * Point(0, 0, 20)).Z(), 0, 1e-3);
    EXPECT_NEAR((pieces[1]->getMatrix() * Point(0, 0, 20)).Z(), 0, 1e-3);
    EXPECT_EQ(statusText(), "");
    takePicture("cut-face-down");
}

TEST_F(CutFaceByHand, APartThatNoCutMadeIsTold)
{
    Mesh::DocumentObject* const bar = test->add(box(4, 20, 60), "bar");
    bar->setSelected(true, true, false);
    settle();
    pressKey(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_NEAR(bar->getBoundingBox().MaxZ(), 4, 1e-4);
    EXPECT_EQ(statusText(),
              "bar has no face of a cut to stand on; it lies on its largest flat face.");
}

TEST_F(CutFaceByHand, TheSliderDrawsThePiecesApartAcrossTheCutAlone)
{
    Mesh::DocumentObject* const other = test->add(box(10, 10, 10, {70, 0, 0}), "other");
    other->setVisible(false);
    auto pieces = cutBar(20);
    std::erase(pieces, other);
    ASSERT_EQ(pieces.size(), 2u);
    window->findChild<ApartSlider*>()->slider().setValue(100);
    settle();
    auto const apartOf = [&](Mesh::DocumentObject const* part) {
        return dynamic_cast<Mesh::ViewProvider*>(document().getViewProvider(part))->apart();
    };
    // The middles of the pieces are 30 mm apart, and as much is put between them.
    EXPECT_NEAR(apartOf(pieces[0]).Z(), 30, 1e-4);
    EXPECT_NEAR(apartOf(pieces[1]).Z(), 0, 1e-4);
    EXPECT_EQ(apartOf(pieces[0]).X(), 0);
    EXPECT_EQ(apartOf(pieces[0]).Y(), 0);
    takePicture("pieces-apart");
}

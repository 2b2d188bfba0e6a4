// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/MissedParts.h"
#include "host/ui/HeightWarning.h"
#include "tests/app/ToolWindow.h"

#include <QRadioButton>

namespace {

/// Parts that a cut would not meet: told before it, and after it.
class MissedPartsWindow : public ToolWindow
{
protected:
    /// A low block at the left and a tall one at the right, on one level.
    void addTwoBlocks()
    {
        low = test->add(box(20, 20, 10, {-30, 0, 0}), "low");
        tall = test->add(box(20, 20, 30, {30, 0, 0}), "tall");
        lookFrom(2);
    }
    HeightWarning const& atHeight() const { return *window->findChild<HeightWarning*>(); }
    Freecut::MissedParts const& atCentre() const { return *sectionDialog()->widgets().missed; }
    void setHeight(float height)
    {
        MainWindow::getViewSlider()->setHeight(height);
        settle();
    }

    Mesh::DocumentObject* low = nullptr;
    Mesh::DocumentObject* tall = nullptr;
};

}  // namespace

TEST_F(MissedPartsWindow, AreNamedBesideTheHeight)
{
    addTwoBlocks();
    setHeight(20);
    // Nothing selected: a part that stays whole is no mistake.
    EXPECT_FALSE(atHeight().isVisible());
    tall->setSelected(true, true, false);
    settle();
    EXPECT_FALSE(atHeight().isVisible());
    low->setSelected(true, true, false);
    settle();
    EXPECT_TRUE(atHeight().isVisible());
    EXPECT_EQ(atHeight().text(), "misses 1 of 2");
    EXPECT_EQ(atHeight().toolTip(), "A cut at this height does not meet low.");
    takePicture("height-misses");
    tall->setSelected(false, true, false);
    settle();
    EXPECT_EQ(atHeight().text(), "misses the selection");
    takePicture("height-misses-selection");
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    settle();
    EXPECT_EQ(atHeight().text(), "verfehlt die Auswahl");
    takePicture("height-misses-selection-german");
    EXPECT_EQ(atHeight().toolTip(),
              QString::fromUtf8("Ein Schnitt in dieser Höhe trifft low nicht."));
    // The top face alone is nothing to cut.
    setHeight(10);
    EXPECT_TRUE(atHeight().isVisible());
    setHeight(9.99f);
    EXPECT_FALSE(atHeight().isVisible());
    low->setSelected(false, true, false);
    setHeight(70);
    EXPECT_EQ(atHeight().text(), "trifft kein Bauteil");
}

TEST_F(MissedPartsWindow, AreToldAfterTheCutByTheNamesThatTheyHad)
{
    addTwoBlocks();
    low->setSelected(true, true, false);
    setHeight(20);
    pressKey(Qt::Key_C);
    ASSERT_TRUE(waitUntil([&] { return !JobGuard::instance()->isBusy(); }));
    settle();
    EXPECT_EQ(status(), "low: Nothing was cut: the plane misses the part.");
}

TEST_F(MissedPartsWindow, AreNamedBesideTheCentreOfThePlane)
{
    addTwoBlocks();
    placeLevelPlane({40, 10, 30}, 20);
    EXPECT_TRUE(atCentre().isVisible());
    EXPECT_TRUE(atCentre().text().contains(">The plane does not meet low.<"))
        << qPrintable(atCentre().text());
    takePicture("plane-misses");
    enter(sectionDialog()->widgets().center[2], 5);
    settle();
    EXPECT_FALSE(atCentre().isVisible());
    enter(sectionDialog()->widgets().center[2], 20);
    settle();
    EXPECT_TRUE(atCentre().isVisible());
    // What is not cut cannot be missed.
    tall->setSelected(true, true, false);
    sectionDialog()->widgets().selectedParts->click();
    settle();
    EXPECT_FALSE(atCentre().isVisible());
}

// The box is met by planes that pass its corner and miss the ring.
TEST_F(MissedPartsWindow, AreToldByTheirPointsAndNotByTheirBoxes)
{
    constexpr float outerRadius = 25;
    Mesh::DocumentObject* const ring = test->add(torus(20, 5, 40, 20), "ring");
    Freecut::MissedParts label(nullptr);
    float distance = 0;
    label.setScene([&] {
        Point const onPlane(distance * float(M_SQRT1_2), distance * float(M_SQRT1_2), 0);
        return Freecut::MissedParts::Scene{onPlane, {1, 1, 0}, {ring}};
    });
    for (auto const& [at, isMissed] :
         {std::pair(outerRadius - 0.1f, false), std::pair(outerRadius + 0.1f, true)}) {
        distance = at;
        label.refresh();
        settle();
        ASSERT_TRUE(waitUntil([&] { return !label.work().isBusy(); }));
        EXPECT_EQ(!label.isHidden(), isMissed) << at;
    }
    // Where it stands now, and not where its records are.
    distance = outerRadius;
    ring->translate({5, 5, 0}, 0);
    label.refresh();
    settle();
    ASSERT_TRUE(waitUntil([&] { return !label.work().isBusy(); }));
    EXPECT_TRUE(label.isHidden());
}

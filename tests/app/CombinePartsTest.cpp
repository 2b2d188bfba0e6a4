// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/CombinationDialog.h"
#include "app/panels/RowDialog.h"
#include "app/window/StatusLine.h"
#include "platform/jobs/ProgressSink.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellSpinBox.h"
#include "platform/view/PlaceMark.h"
#include "tests/app/AnsweredDialog.h"
#include "tests/app/AppWindow.h"
#include "tests/support/AnsweredMessages.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/CrossingPair.h"
#include "tests/support/Crossings.h"
#include "tests/support/Validator.h"

#include <QCheckBox>
#include <QComboBox>

namespace {

using Names = std::vector<std::string>;

/// Cancels a job with its first report.
class CancelAtOnce : public Base::ProgressSink
{
public:
    void begin(std::string const&, std::uint64_t) override {}
    void progress(std::uint64_t) override {}
    void setCancelEnabled(bool) override {}
    void end() override {}
    bool isCancelRequested() const override { return true; }
};

/// Two blocks of 10 mm that overlap in half of each, and one apart from them.
class CombineParts : public AppWindow
{
protected:
    void SetUp() override
    {
        AppWindow::SetUp();
        show();
        left = test->add(box(10, 10, 10), "left");
        right = test->add(box(10, 10, 10), "right");
        right->translate({5, 0, 0}, 0);
        apart = test->add(box(10, 10, 10, {40, 0, 0}), "apart");
    }

    void select(std::vector<Mesh::DocumentObject*> const& parts)
    {
        test->document->clearSelection();
        for (Mesh::DocumentObject* const part : parts)
            part->setSelected(true, true, false);
    }
    /// A block without bottom.
    Mesh::DocumentObject* addHoled(UVector3<float> const& place)
    {
        Soup open = box(10, 10, 10);
        std::erase_if(open.triangles, [&](auto const& triangle) {
            return std::ranges::all_of(
                triangle, [&](std::uint32_t corner) { return open.points[corner].Z() == 0; });
        });
        auto* const holed = test->add(open, "holed");
        holed->translate(place, 0);
        return holed;
    }
    void combine(std::string const& command)
    {
        trigger(command);
        ASSERT_TRUE(waitUntil([] { return !JobGuard::instance()->isBusy(); }));
        QCoreApplication::processEvents();
    }
    /// Of a part that is closed; a failure otherwise.
    double volume(std::string const& name) const
    {
        for (Mesh::DocumentObject const* const part : test->document->getMeshObjects())
            if (part->getName() == name) {
                EXPECT_EQ(closedSolidFaults(soupOf(part)), "") << name;
                return volumeOf(soupOf(part));
            }
        ADD_FAILURE() << "no part " << name;
        return 0;
    }
    Names steps() const { return test->document->undoNames(); }
    Names selected() const
    {
        Names result;
        for (Mesh::DocumentObject const* const part : test->document->getSelectedMeshObjects())
            result.push_back(part->getName());
        return result;
    }

    Mesh::DocumentObject* left = nullptr;
    Mesh::DocumentObject* right = nullptr;
    Mesh::DocumentObject* apart = nullptr;
};

}  // namespace

TEST_F(CombineParts, CommandsSayHowManyPartsTheyTake)
{
    char const* const several[] = {"Std_Join", "Std_TakeAway", "Std_Intersect", "Std_SplitByParts",
                                   "Std_Merge"};
    for (std::size_t count = 0; count <= 3; ++count) {
        std::vector const all{left, right, apart};
        select({all.begin(), all.begin() + long(count)});
        QCoreApplication::processEvents();
        for (char const* const name : several)
            EXPECT_EQ(action(name)->isEnabled(), count >= 2) << name << " with " << count;
        EXPECT_EQ(action("Std_SplitShells")->isEnabled(), count == 1) << count;
        EXPECT_EQ(action("Std_DuplicateRow")->isEnabled(), count >= 1) << count;
    }
}

TEST_F(CombineParts, JoinedPartsBecomeTheFirstInOneStep)
{
    right->setColor(0x112233ff);
    select({right, left, apart});
    combine("Std_Join");
    EXPECT_EQ(test->names(), Names{"right"});
    EXPECT_NEAR(volume("right"), 1500 + 1000, 1e-3);
    EXPECT_EQ(right->getColor(), 0x112233ffu);
    EXPECT_EQ(selected(), Names{"right"});
    EXPECT_EQ(steps(), Names{"Join"});
    trigger("Std_Undo");
    EXPECT_EQ(test->names(), (Names{"left", "right", "apart"}));
    EXPECT_NEAR(volume("right"), 1000, 1e-3);
    EXPECT_EQ(right->getBoundingBox().MinX(), 5);
    trigger("Std_Redo");
    EXPECT_EQ(test->names(), Names{"right"});
    EXPECT_NEAR(volume("right"), 2500, 1e-3);
}

TEST_F(CombineParts, TheIntersectionIsWhatTheyHaveInCommon)
{
    select({left, right});
    combine("Std_Intersect");
    EXPECT_EQ(test->names(), (Names{"left", "apart"}));
    EXPECT_NEAR(volume("left"), 500, 1e-3);
    EXPECT_EQ(left->getBoundingBox().MinX(), 5);
    EXPECT_EQ(steps(), Names{"Intersect"});
}

TEST_F(CombineParts, WithNothingInCommonPartsStayAndItIsSaid)
{
    AnsweredMessages const messages;
    select({left, apart});
    combine("Std_Intersect");
    {
        AnsweredDialog<CombinationDialog> const dialog;
        combine("Std_TakeAway");
    }
    EXPECT_EQ(messages.texts,
              QStringList({"The selected parts have nothing in common; they stay as they are.",
                           "The selected parts have nothing in common; they stay as they are."}));
    EXPECT_EQ(test->names(), (Names{"left", "right", "apart"}));
    EXPECT_TRUE(steps().empty());
}

TEST_F(CombineParts, AnotherPartThanTheFirstCanBeTheOneFromWhichIsTaken)
{
    select({left, right});
    AnsweredDialog<CombinationDialog> const dialog([](CombinationDialog& d) {
        auto* const first = d.findChild<QComboBox*>();
        EXPECT_EQ(first->currentText(), "left");
        first->setCurrentIndex(1);
    });
    combine("Std_TakeAway");
    EXPECT_TRUE(dialog.hasCome());
    EXPECT_EQ(test->names(), (Names{"right", "apart"}));
    EXPECT_NEAR(volume("right"), 500, 1e-3);
    EXPECT_EQ(right->getBoundingBox().MinX(), 10);
    EXPECT_EQ(steps(), Names{"Take Away"});
}

TEST_F(CombineParts, PartsThatAreTakenAwayCanStay)
{
    select({left, right});
    AnsweredDialog<CombinationDialog> const dialog(
        [](CombinationDialog& d) { d.findChild<QCheckBox*>()->setChecked(true); });
    combine("Std_TakeAway");
    EXPECT_EQ(test->names(), (Names{"left", "right", "apart"}));
    EXPECT_NEAR(volume("left"), 500, 1e-3);
    EXPECT_NEAR(volume("right"), 1000, 1e-3);
    // The answer is that of the next time too.
    trigger("Std_Undo");
    select({left, right});
    AnsweredDialog<CombinationDialog> const next([](CombinationDialog& d) {
        EXPECT_TRUE(d.keepsOthers());
        d.findChild<QCheckBox*>()->setChecked(false);
    });
    combine("Std_TakeAway");
    EXPECT_TRUE(next.hasCome());
    EXPECT_EQ(test->names(), (Names{"left", "apart"}));
}

TEST_F(CombineParts, OfAPartThatLiesWithinTheOthersNothingIsTaken)
{
    auto* const inner = test->add(box(2, 2, 2, {1, 1, 1}), "inner");
    AnsweredMessages const messages;
    select({inner, left});
    {
        AnsweredDialog<CombinationDialog> const dialog;
        combine("Std_TakeAway");
    }
    {
        AnsweredDialog<CombinationDialog> const dialog;
        combine("Std_SplitByParts");
    }
    ASSERT_EQ(messages.texts.size(), 2);
    for (QString const& text : messages.texts)
        EXPECT_TRUE(text.startsWith("inner lies within the other parts")) << qPrintable(text);
    EXPECT_TRUE(steps().empty());
}

TEST_F(CombineParts, APartIsSplitByOthersIntoWhatLiesInThemAndTheRest)
{
    auto* const third = test->add(box(4, 10, 10, {-1, 0, 0}), "third");
    third->setVisible(true);
    left->setColor(0x445566ff);
    select({left, right, third});
    AnsweredDialog<CombinationDialog> const dialog;
    combine("Std_SplitByParts");
    EXPECT_EQ(test->names(), (Names{"apart", "left_inside", "left_inside1", "left_outside"}));
    EXPECT_NEAR(volume("left_inside"), 500, 1e-3);
    EXPECT_NEAR(volume("left_inside1"), 300, 1e-3);
    EXPECT_NEAR(volume("left_outside"), 200, 1e-3);
    EXPECT_EQ(selected(), (Names{"left_inside", "left_inside1", "left_outside"}));
    for (Mesh::DocumentObject const* const part : test->document->getSelectedMeshObjects())
        EXPECT_EQ(part->getColor(), 0x445566ffu);
    EXPECT_EQ(steps(), Names{"Split by Parts"});
    trigger("Std_Undo");
    EXPECT_EQ(test->names(), (Names{"left", "right", "apart", "third"}));
}

TEST_F(CombineParts, MergedPartsComeApartIntoTheirShells)
{
    select({left, apart});
    combine("Std_Merge");
    EXPECT_EQ(test->names(), (Names{"left", "right"}));
    EXPECT_NEAR(volume("left"), 2000, 1e-3);
    trigger("Std_Group");
    select({left});
    combine("Std_SplitShells");
    EXPECT_EQ(test->document->getMeshObjects().size(), 3u);
    EXPECT_NEAR(volume("left_shell"), 1000, 1e-3);
    EXPECT_NEAR(volume("left_shell1"), 1000, 1e-3);
    // In the group of what they were, which therefore stays.
    ASSERT_EQ(test->document->getGroups().size(), 1u);
    EXPECT_EQ(test->document->getGroups()[0]->getObjects().size(), 2u);
    EXPECT_EQ(steps(), (Names{"Split into Shells", "Group", "Merge"}));
}

TEST_F(CombineParts, APartOfOnePieceIsNotSplit)
{
    AnsweredMessages const messages;
    select({left});
    combine("Std_SplitShells");
    EXPECT_EQ(messages.texts, QStringList{"left is one piece; there is nothing to split."});
    EXPECT_TRUE(steps().empty());
}

TEST_F(CombineParts, ARefusedPartIsNamedWithThePlaceAndCanBeRepaired)
{
    Mesh::DocumentObject* const holed = addHoled({5, 5, 5});
    UBox3<float> const box = holed->getBoundingBox();
    {
        AnsweredMessages const shown("Show in View");
        select({left, holed});
        combine("Std_Join");
        ASSERT_EQ(shown.details.size(), 1);
        // By its name, and without an advice that a button gives.
        EXPECT_TRUE(shown.details[0].startsWith("holed is open where the two meet, near ("))
            << qPrintable(shown.details[0]);
        EXPECT_TRUE(shown.details[0].endsWith(").")) << qPrintable(shown.details[0]);
    }
    ASSERT_TRUE(Base::PlaceMark::in(window->view()));
    UPoint3<float> const place = Base::PlaceMark::in(window->view())->place();
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_GE(place[axis], box.min[axis] - 1e-4f);
        EXPECT_LE(place[axis], box.max[axis] + 1e-4f);
    }
    EXPECT_TRUE(steps().empty());

    AnsweredMessages const repaired("Repair and Try Again");
    select({left, holed});
    trigger("Std_Join");
    ASSERT_TRUE(waitUntil([&] { return !steps().empty() && !JobGuard::instance()->isBusy(); }));
    EXPECT_NEAR(volume("left"), 2000 - 125, 1e-2);
    EXPECT_EQ(steps(), Names{"Join"});
}

TEST_F(CombineParts, APartThatARepairHasNotMendedIsToldWithAnotherWayOut)
{
    // It has one side only, so that no repair can close it.
    test->add(corpus::moebiusBand(40), "band");
    left->meshProperty->setMesh(kernelOf(box(30, 10, 10, {5, -5, -5})).release(), true);
    AnsweredMessages const messages("Repair and Try Again");
    select({left, test->document->getMeshObjects().back()});
    trigger("Std_Join");
    ASSERT_TRUE(waitUntil([&] { return messages.details.size() == 2; }));
    ASSERT_TRUE(waitUntil([&] { return !JobGuard::instance()->isBusy(); }));
    for (QString const& told : messages.details)
        EXPECT_TRUE(told.startsWith("band is open ")) << qPrintable(told);
    EXPECT_TRUE(messages.details[0].endsWith(").")) << qPrintable(messages.details[0]);
    EXPECT_TRUE(messages.details[1].endsWith(
        "). The repair has not mended it. Move one of the parts a little, or mend this one in the "
        "program that it comes from."))
        << qPrintable(messages.details[1]);
    EXPECT_FALSE(messages.buttons.contains("Repair and Try Again"));
    EXPECT_TRUE(steps().empty());
}

TEST_F(CombineParts, AResultThatIsOpenIsNamed)
{
    // Open where the other does not come, so that the two can be joined.
    select({left, addHoled({5, 5, -5})});
    combine("Std_Join");
    EXPECT_EQ(steps(), Names{"Join"});
    EXPECT_GT(borderEdgesOf(soupOf(left)), 0u);
    EXPECT_EQ(window->statusLine().currentMessage(),
              "left is open somewhere. Check shows where, and Repair may close it.");
    trigger("Std_Undo");
    select({left, right});
    combine("Std_Join");
    EXPECT_EQ(window->statusLine().currentMessage(), "");
}

TEST_F(CombineParts, AResultThatRoundingLeavesCrossingItselfIsNamed)
{
    SolidPair const pair = pairLeftCrossing();
    QString const told =
        "hollow crosses itself where coordinates had to be rounded. Check shows "
        "where, and Repair may mend it.";
    for (char const* const command : {"Std_TakeAway", "Std_SplitByParts"}) {
        auto* const hollow = test->add(pair.a, "hollow");
        select({hollow, test->add(pair.b, "other")});
        AnsweredDialog<CombinationDialog> const dialog;
        combine(command);
        ASSERT_GT(judge::crossingsOf(soupOf(test->document->getMeshObjects().back())).pairs, 0u)
            << "take a pair that is left crossing";
        EXPECT_EQ(window->statusLine().currentMessage(), told) << command;
        trigger("Std_Undo");
    }
    select({left, right});
    combine("Std_Join");
    EXPECT_EQ(window->statusLine().currentMessage(), "");
}

TEST_F(CombineParts, ACancelledJobLeavesAllAsItWas)
{
    Base::setProgressSink(std::make_shared<CancelAtOnce>());
    AnsweredMessages const messages;
    for (char const* const command : {"Std_Join", "Std_Intersect", "Std_Merge"}) {
        select({left, right});
        combine(command);
        EXPECT_EQ(test->names(), (Names{"left", "right", "apart"})) << command;
    }
    select({left});
    combine("Std_SplitShells");
    EXPECT_TRUE(messages.texts.isEmpty());
    EXPECT_TRUE(steps().empty());
}

TEST_F(CombineParts, WhileAnotherJobRunsNothingBegins)
{
    JobGuard::Hold const job;
    select({left, right});
    QCoreApplication::processEvents();
    for (char const* const command : {"Std_Join", "Std_TakeAway", "Std_Merge", "Std_DuplicateRow"})
        EXPECT_FALSE(action(command)->isEnabled()) << command;
    commands().getCommandByName("Std_Join")->invoke(0);
    QCoreApplication::processEvents();
    EXPECT_TRUE(steps().empty());
}

TEST_F(CombineParts, CopiesStandInARowAsFarApartAsAsked)
{
    select({left, right});
    AnsweredDialog<RowDialog> const dialog([](RowDialog& d) {
        d.findChild<MellSpinBox*>()->setValue(3);
        d.findChild<QComboBox*>()->setCurrentIndex(1);
        d.findChild<MellQuantitySpinBox*>()->setValue(2);
    });
    trigger("Std_DuplicateRow");
    ASSERT_TRUE(dialog.hasCome());
    ASSERT_EQ(selected().size(), 6u);
    auto const copies = test->document->getSelectedMeshObjects();
    for (int i = 0; i < 6; ++i) {
        auto const* const original = i % 2 ? right : left;
        UBox3<float> const box = copies[std::size_t(i)]->getBoundingBox();
        EXPECT_FLOAT_EQ(box.MinX(), original->getBoundingBox().MinX());
        EXPECT_FLOAT_EQ(box.MinY(), 12.0f * float(i / 2 + 1));
        EXPECT_EQ(copies[std::size_t(i)]->meshProperty->getMesh()->readMesh(),
                  original->meshProperty->getMesh()->readMesh());
    }
    EXPECT_EQ(steps(), Names{"Duplicate in a Row"});
    trigger("Std_Undo");
    EXPECT_EQ(test->names(), (Names{"left", "right", "apart"}));
}

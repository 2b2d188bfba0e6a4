// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/JobProgress.h"
#include "app/panels/PartInformation.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/PushButtonAnimate.h"
#include "tests/app/PartDocument.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <atomic>
#include <numbers>

namespace {

/// Asks for a cancel once it has seen a number of reports.
class CancellingSink : public Base::ProgressSink
{
public:
    explicit CancellingSink(int reports) : m_reports(reports) {}

    void begin(std::string const&, std::uint64_t) override {}
    void progress(std::uint64_t) override { --m_reports; }
    void setCancelEnabled(bool) override {}
    void end() override {}
    bool isCancelRequested() const override { return m_reports <= 0; }

private:
    std::atomic<int> m_reports;
};

class PartInformationTest : public testing::Test
{
protected:
    PartInformationTest()
    {
        Base::setProgressSink(progress);
        panel.show();
    }
    ~PartInformationTest() override
    {
        Base::setProgressSink(nullptr);
        DisplayUnit::instance().setLength(DisplayUnit::Millimetre);
    }

    void select(std::vector<Mesh::DocumentObject*> const& wanted)
    {
        document.clearSelection();
        for (Mesh::DocumentObject* const part : wanted)
            document.select(part, true, true, false);
        handleEvents();
        ASSERT_TRUE(waitUntil([&] { return panel.text(PartInformation::Volume) != "..."; }));
    }
    void waitForJob()
    {
        ASSERT_TRUE(waitUntil([] { return !JobGuard::instance()->isBusy(); }));
        handleEvents();
    }

    std::shared_ptr<JobProgress> const progress = std::make_shared<JobProgress>();
    PartDocument parts;
    PartInformation panel;
    Mesh::Document& document = *parts.document;
};

}  // namespace

TEST_F(PartInformationTest, FactsOfOnePartInTheUsersUnits)
{
    select({parts.first});
    EXPECT_EQ(panel.text(PartInformation::Name), "first");
    EXPECT_EQ(panel.text(PartInformation::Triangles), "12");
    EXPECT_EQ(panel.text(PartInformation::Size), "10.00 \u00d7 10.00 \u00d7 10.00 mm");
    EXPECT_EQ(panel.text(PartInformation::Volume), "1.00 cm\u00b3");
    EXPECT_EQ(panel.text(PartInformation::Area), "6.00 cm\u00b2");
    EXPECT_EQ(panel.text(PartInformation::Closed), "closed");
    EXPECT_EQ(panel.text(PartInformation::Errors), "not checked yet");
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    EXPECT_EQ(panel.text(PartInformation::Area), "0.93 in\u00b2");
    EXPECT_EQ(panel.text(PartInformation::Volume), "0.06 in\u00b3");
}

TEST_F(PartInformationTest, SeveralPartsAddUpAndFollowTheirPlacement)
{
    parts.second->scale({}, {2, 2, 2});
    parts.third->scale({}, {1, 1, 3});
    parts.third->rotate({}, float(std::numbers::pi / 5), {1, 2, 3}, false);
    select({parts.first, parts.second, parts.third});
    EXPECT_EQ(panel.text(PartInformation::Name), "3 parts");
    EXPECT_EQ(panel.text(PartInformation::Triangles), "36");
    EXPECT_EQ(panel.text(PartInformation::Volume), "12.00 cm\u00b3");
    EXPECT_EQ(panel.text(PartInformation::Area), "44.00 cm\u00b2");
}

TEST_F(PartInformationTest, AnOpenPartHasNoVolume)
{
    select({parts.add(openBox(5, 5, 5), "tray"), parts.first});
    EXPECT_EQ(panel.text(PartInformation::Volume), "none, the surface is open");
    EXPECT_EQ(panel.text(PartInformation::Closed), "1 of 2 parts are open");
}

TEST_F(PartInformationTest, ACheckTellsWhatIsWrongAndChangesNothing)
{
    auto* const tray = parts.add(openBox(5, 5, 5), "tray");
    select({parts.first, tray});
    QByteArray const before = hashOf(document);
    panel.checkButton().click();
    EXPECT_TRUE(JobGuard::instance()->isBusy());
    EXPECT_FALSE(panel.checkButton().isEnabled());
    EXPECT_TRUE(panel.checkButton().toolTip().startsWith("Wait until "));
    waitForJob();
    EXPECT_EQ(panel.report(), "first: no errors.\ntray: 4 open edges.");
    EXPECT_EQ(panel.text(PartInformation::Errors), "4 open edges");
    EXPECT_EQ(hashOf(document), before);
    EXPECT_TRUE(document.undoNames().empty());
    EXPECT_TRUE(panel.checkButton().isEnabled());
}

TEST_F(PartInformationTest, ARepairIsOneStepAndTellsWhatItMended)
{
    auto* const tray = parts.add(openBox(5, 5, 5), "tray");
    auto* const other = parts.add(openBox(7, 7, 7), "other");
    tray->translate({3, 0, 0}, 0);
    select({parts.first, tray, other});
    QByteArray const before = hashOf(document);
    panel.repairButton().click();
    waitForJob();
    EXPECT_EQ(panel.report(),
              "first: no errors, nothing to repair.\n"
              "tray: mended: 4 open edges. No error is left.\n"
              "other: mended: 4 open edges. No error is left.");
    EXPECT_EQ(closedSolidFaults(*tray->meshProperty->getMesh()), "");
    EXPECT_FLOAT_EQ(tray->getBoundingBox().MinX(), 3);
    EXPECT_EQ(panel.text(PartInformation::Errors), "none");
    EXPECT_EQ(document.undoNames(), std::vector<std::string>{"Repair"});
    document.undo();
    EXPECT_EQ(hashOf(document), before);
}

TEST_F(PartInformationTest, WhatARepairMustLeaveIsSaid)
{
    // A sheet has no inside that closing it could keep.
    Soup sheet;
    sheet.add(sheet.add({0, 0, 0}), sheet.add({10, 0, 0}), sheet.add({0, 10, 0}));
    select({parts.add(sheet, "sheet")});
    panel.repairButton().click();
    waitForJob();
    EXPECT_TRUE(panel.report().startsWith("sheet: could not be repaired: "))
        << panel.report().toStdString();
    EXPECT_TRUE(panel.report().contains("open edges")) << panel.report().toStdString();
    EXPECT_TRUE(document.undoNames().empty());
}

TEST_F(PartInformationTest, ACancelAtAnyReportLeavesEverythingAsItWas)
{
    Soup holed = torus(40, 10, 150, 80);
    holed.triangles.erase(holed.triangles.begin(), holed.triangles.begin() + 50);
    select({parts.add(holed, "holed")});
    QByteArray const before = hashOf(document);
    int cancels = 0;
    for (int reports = 0;; reports += 1 + reports / 3) {
        Base::setProgressSink(std::make_shared<CancellingSink>(reports));
        panel.repairButton().click();
        waitForJob();
        if (panel.report() != "The repair was cancelled; the parts are as they were.")
            break;
        ++cancels;
        ASSERT_EQ(hashOf(document), before) << "after " << reports;
        ASSERT_TRUE(document.undoNames().empty());
        ASSERT_TRUE(panel.repairButton().isEnabled());
    }
    EXPECT_GT(cancels, 2);
    EXPECT_EQ(document.undoNames(), std::vector<std::string>{"Repair"});
}

TEST_F(PartInformationTest, ASecondJobDoesNotStart)
{
    select({parts.first});
    JobGuard::Hold const job;
    PartCheck check;
    EXPECT_FALSE(check.start(PartCheck::Kind::Check, {parts.first}));
    panel.checkSelected();
    EXPECT_EQ(panel.report(), "");
}

TEST_F(PartInformationTest, APanelThatGoesStopsItsJob)
{
    auto* const large = parts.add(torus(40, 10, 700, 300), "large");
    auto other = std::make_unique<PartInformation>();
    select({large});
    other->repairSelected();
    EXPECT_TRUE(JobGuard::instance()->isBusy());
    other.reset();
    EXPECT_TRUE(waitUntil([] { return !JobGuard::instance()->isBusy(); }));
    EXPECT_TRUE(document.undoNames().empty());
}

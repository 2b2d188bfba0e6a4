// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/JobGuard.h"
#include "app/panels/HistoryList.h"
#include "app/parts/PartEdits.h"
#include "tests/app/PartDocument.h"

#include <gtest/gtest.h>

#include <QMouseEvent>

namespace {

class HistoryListTest : public testing::Test
{
protected:
    HistoryListTest()
    {
        PartEdits::setVisible(document, {parts.first}, false);
        PartEdits::rename(document, *parts.first, "flange");
        PartEdits::remove(document, {parts.second});
        list.resize(200, 200);
        list.show();
        handleEvents();
    }

    QStringList rows() const
    {
        QStringList texts;
        for (int i = 0; i < list.count(); ++i)
            texts << list.item(i)->text();
        return texts;
    }
    void click(int row)
    {
        QPoint const position = list.visualItemRect(list.item(row)).center();
        for (QEvent::Type const type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            auto const buttons = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
            QMouseEvent event(type, position, Qt::LeftButton, buttons, {});
            QCoreApplication::sendEvent(list.viewport(), &event);
        }
        handleEvents();
    }

    PartDocument parts;
    HistoryList list;
    Mesh::Document& document = *parts.document;
};

}  // namespace

TEST_F(HistoryListTest, StepsStandInTheOrderInWhichTheyWereDone)
{
    EXPECT_EQ(rows(),
              (QStringList{"Start", "Hide: first", "Rename: first to flange", "Delete: second"}));
    EXPECT_EQ(list.currentStep(), 3);
    document.undo();
    handleEvents();
    EXPECT_EQ(rows(),
              (QStringList{"Start", "Hide: first", "Rename: first to flange", "Delete: second"}));
    EXPECT_EQ(list.currentStep(), 2);
    EXPECT_EQ(list.currentRow(), 2);
}

TEST_F(HistoryListTest, AClickGoesBackAndForthToItsStep)
{
    click(1);
    EXPECT_TRUE(document.contains(parts.second));
    EXPECT_EQ(parts.first->getName(), "first");
    EXPECT_FALSE(parts.first->isVisible());
    EXPECT_EQ(list.currentStep(), 1);
    click(0);
    EXPECT_TRUE(parts.first->isVisible());
    click(3);
    EXPECT_FALSE(document.contains(parts.second));
    EXPECT_EQ(parts.first->getName(), "flange");
    EXPECT_EQ(list.currentStep(), 3);
}

TEST_F(HistoryListTest, ANewStepTakesThePlaceOfThoseTakenBack)
{
    click(1);
    PartEdits::setVisible(document, {parts.first}, true);
    handleEvents();
    EXPECT_EQ(rows(), (QStringList{"Start", "Hide: first", "Show: first"}));
}

TEST_F(HistoryListTest, WhileAJobRunsTheDocumentStaysAsItIs)
{
    JobGuard::Hold const job;
    handleEvents();
    EXPECT_FALSE(list.isEnabled());
    EXPECT_EQ(list.toolTip(), JobGuard::instance()->reason());
    list.goTo(0);
    EXPECT_EQ(document.undoNames().size(), 3u);
}

TEST_F(HistoryListTest, WithoutADocumentItIsEmpty)
{
    parts.application.closeDocument(&document);
    handleEvents();
    EXPECT_EQ(list.count(), 0);
    list.goTo(1);
}

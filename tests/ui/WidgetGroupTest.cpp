// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/DialogWidgetGroup.h"
#include "platform/ui/DialogWidgetGroup2rd.h"
#include "tests/support/ScratchSettings.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>

#include <vector>

namespace {

QAbstractButton* titleOf(WidgetGroup& group)
{
    for (auto* const button : group.findChildren<QAbstractButton*>())
        if (!qobject_cast<QCheckBox*>(button))
            return button;
    return nullptr;
}

}  // namespace

TEST(WidgetGroup, CollapsesToItsTitleAndBack)
{
    auto* const content = new QLabel("content");
    WidgetGroup group("Plane");
    group.setWidget(content);
    EXPECT_EQ(group.titleName(), "Plane");
    EXPECT_TRUE(group.isExpanded());
    int const full = group.sizeHint().height();
    group.setExpand(false, false);
    EXPECT_FALSE(content->isVisibleTo(&group));
    EXPECT_LT(group.sizeHint().height(), full);
    group.setExpand(true, false);
    EXPECT_TRUE(content->isVisibleTo(&group));
    EXPECT_EQ(group.sizeHint().height(), full);
}

TEST(WidgetGroup, TitleAndKeysToggleAndTellOnlyTheUsersChanges)
{
    WidgetGroup group("Plane");
    group.setWidget(new QLabel("content"));
    std::vector<bool> told;
    QObject::connect(&group, &WidgetGroup::expandChanged,
                     [&](bool expanded) { told.push_back(expanded); });
    group.setExpand(false, false);
    titleOf(group)->click();
    EXPECT_TRUE(group.isExpanded());
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(titleOf(group), &enter);
    EXPECT_FALSE(group.isExpanded());
    EXPECT_EQ(told, (std::vector{true, false}));
}

TEST(WidgetGroup, ThatIsNotExpandableStaysOpen)
{
    WidgetGroup group("Cut parameters");
    group.setWidget(new QLabel("content"));
    group.setExpand(false, false);
    group.setExpandable(false);
    EXPECT_TRUE(group.isExpanded());
    EXPECT_FALSE(group.isExpandable());
    titleOf(group)->click();
    group.setExpand(false, false);
    EXPECT_TRUE(group.isExpanded());
}

TEST(WidgetGroup, CheckBoxEnablesTheContent)
{
    auto* const content = new QLabel("content");
    WidgetGroup group("Connectors");
    EXPECT_TRUE(group.isChecked());
    group.setWidget(content);
    group.setCheckable(true);
    EXPECT_TRUE(group.isChecked());
    group.setChecked(false);
    EXPECT_FALSE(content->isEnabled());
    EXPECT_TRUE(group.isEnabled());
    auto* const other = new QLabel("other");
    group.setWidget(other);
    EXPECT_FALSE(other->isEnabled());
    group.setCheckable(false);
    EXPECT_TRUE(other->isEnabled());
}

TEST(WidgetGroup, OwnsOneContent)
{
    WidgetGroup group("Plane");
    QPointer<QLabel> const first = new QLabel("first");
    auto* const second = new QLabel("second");
    group.setWidget(first);
    group.setWidget(second);
    group.setWidget(second);
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(group.widget(), second);
    EXPECT_TRUE(group.isAncestorOf(second));
}

TEST(DialogWidgetGroup, RemembersWhatTheUserCollapsed)
{
    ScratchSettings const settings;
    {
        DialogWidgetGroup group("Plane", new QLabel("content"), "SectionCutDlg/Plane", true,
                                nullptr);
        EXPECT_EQ(group.objectName(), "DialogFrameGroup");
        EXPECT_TRUE(group.isExpanded());
        group.setExpand(false, false);
        group.setExpand(true, false);
        EXPECT_FALSE(settings.value("SectionCutDlg/Plane").isValid());
        titleOf(group)->click();
    }
    EXPECT_EQ(settings.value("SectionCutDlg/Plane").toBool(), false);
    DialogWidgetGroup again("Plane", new QLabel("content"), "SectionCutDlg/Plane", true, nullptr);
    EXPECT_FALSE(again.isExpanded());
    DialogWidgetGroup other("Plane", new QLabel("content"), "SectionCutDlg/Other", false, nullptr);
    EXPECT_FALSE(other.isExpanded());
    DialogWidgetGroup nameless("Plane", new QLabel("content"), "", true, nullptr);
    titleOf(nameless)->click();
    EXPECT_FALSE(nameless.isExpanded());
}

TEST(DialogWidgetGroup2rd, StartsAsAskedAndStoresNothing)
{
    DialogWidgetGroup2rd open("Plane Size", new QLabel("content"), true, nullptr);
    DialogWidgetGroup2rd closed("Plane Size", new QLabel("content"), false, nullptr);
    EXPECT_TRUE(open.isExpanded());
    EXPECT_FALSE(closed.isExpanded());
}

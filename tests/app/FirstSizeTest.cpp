// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/FirstSize.h"
#include "host/ui/HeightScale.h"
#include "host/ui/HeightSlider.h"
#include "tests/app/ToolWindow.h"

#include <QDockWidget>
#include <QTabBar>

namespace {

/// The window on the screens that people have.
class FirstSizes : public ToolWindow
{
protected:
    QTabBar const* rightTabs() const
    {
        QTabBar const* found = nullptr;
        for (QTabBar const* const tabs :
             window->findChildren<QTabBar*>(QString(), Qt::FindDirectChildrenOnly))
            if (tabs->isVisible() && (!found || tabs->x() > found->x()))
                found = tabs;
        return found;
    }
    void resizeFirst(QSize const& screen)
    {
        window->resize(FirstSize::ofWindow(screen));
        window->resetLayout();
        settle();
    }
};

}  // namespace

TEST(FirstSize, FitsTheScreenWithATitleBar)
{
    EXPECT_EQ(FirstSize::ofWindow({1920, 1080}), QSize(1280, 800));
    for (QSize const screen : {QSize(1024, 700), QSize(960, 540), QSize(750, 475)}) {
        QSize const size = FirstSize::ofWindow(screen);
        EXPECT_EQ(size.width(), screen.width());
        EXPECT_LT(size.height(), screen.height());
        EXPECT_GT(size.height(), screen.height() * 0.8);
    }
}

TEST_F(FirstSizes, TheWindowCanBeAsSmallAsTheScreenAndLeavesTheViewRoom)
{
    addBlock();
    for (auto const language : {LanguageSwitch::Choice::English, LanguageSwitch::Choice::German}) {
        LanguageSwitch::setLanguage(language);
        for (QSize const screen : {QSize(1280, 900), QSize(1024, 700), QSize(960, 540)}) {
            resizeFirst(screen);
            EXPECT_EQ(window->size(), FirstSize::ofWindow(screen));
            EXPECT_GT(view().width(), window->width() / 4) << screen.width();
            takePicture("first-" + std::to_string(screen.width()) + "-" +
                        std::to_string(int(language)));
        }
    }
}

TEST_F(FirstSizes, TheTitlesOfThePanelsCanBeReadAt1280PixelsInEveryLanguage)
{
    for (auto const language : {LanguageSwitch::Choice::English, LanguageSwitch::Choice::German}) {
        LanguageSwitch::setLanguage(language);
        settle();
        resizeFirst({1280, 900});
        ASSERT_TRUE(rightTabs());
        EXPECT_EQ(rightTabs()->count(), 3);
        EXPECT_GE(rightTabs()->width(), rightTabs()->sizeHint().width());
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(rightTabs()->tabToolTip(i), rightTabs()->tabText(i));
    }
    // A change of language while it runs widens the panel.
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
    settle();
    resizeFirst({1280, 900});
    QString const english = rightTabs()->tabText(2);
    LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
    // Pictures, which may take long, can come between the new titles and the new width.
    waitUntil([&] {
        return rightTabs()->tabText(2) != english &&
               rightTabs()->width() >= rightTabs()->sizeHint().width();
    });
    EXPECT_NE(rightTabs()->tabText(2), english);
    EXPECT_GE(rightTabs()->width(), rightTabs()->sizeHint().width());
}

TEST_F(FirstSizes, HeightsFromAThousandthToAMillionAreShownWholeAndFitIntoTheView)
{
    auto const* const slider = window->findChild<HeightSlider*>();
    auto const* const field = slider->findChild<MellQuantitySpinBox*>("height");
    for (float const size : {0.001f, 1.0f, 1000.0f, 1e6f}) {
        Mesh::DocumentObject* const part = test->add(box(size, size, size), "cube");
        settle();
        trigger("Std_FitAll");
        settle();
        MainWindow::getViewSlider()->setHeight(size);
        settle();
        QLineEdit const* const text = field->findChild<QLineEdit*>();
        EXPECT_GE(text->contentsRect().width() - text->textMargins().right(),
                  text->fontMetrics().horizontalAdvance(text->text()))
            << size;
        double width = 0, height = 0;
        view().getCamera()->get_view_rect(width, height);
        // In the isometric view a cube is as high as 1.6 edges.
        EXPECT_GT(height, 1.5 * double(size)) << size;
        EXPECT_LT(height, 4 * double(size)) << size;
        view().getCamera()->zoom(0.1);
        double near = 0;
        view().getCamera()->get_view_rect(width, near);
        EXPECT_NEAR(near, height / 10, height * 1e-3) << size;
        trigger("Std_FitAll");
        takePicture("height-" + std::to_string(int(std::lround(std::log10(size)))));
        document().removeObject(part);
        settle();
    }
}

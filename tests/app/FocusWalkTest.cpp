// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/ToolWindow.h"

#include <algorithm>

// Where Tab leads through the whole window.
namespace {

using Focuses = std::vector<QWidget*>;

class FocusWalk : public ToolWindow
{
protected:
    /// What has the focus after each press of a key, until the widget that had it first has it
    /// again, and once more.
    Focuses walk(Qt::Key key) const
    {
        constexpr int mostPresses = 200;
        Focuses focuses;
        for (int i = 0; i < mostPresses; ++i) {
            QTest::keyClick(window->windowHandle(), key,
                            key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
            focuses.push_back(QApplication::focusWidget());
            if (i > 0 && focuses.back() == focuses.front())
                break;
        }
        return focuses;
    }
    static std::string nameOf(QWidget const* widget)
    {
        QStringList names;
        for (; widget; widget = widget->parentWidget())
            names << widget->metaObject()->className() + (":" + widget->objectName());
        return names.join(" in ").toStdString();
    }
    /// That a walk comes round, stays nowhere, and goes only where it can be seen.
    void expectRound(Focuses const& focuses) const
    {
        EXPECT_GT(focuses.size(), 5u);
        EXPECT_EQ(focuses.back(), focuses.front()) << nameOf(focuses.back());
        auto const stuck = std::ranges::adjacent_find(focuses);
        EXPECT_EQ(stuck, focuses.end()) << nameOf(*stuck);
        for (QWidget const* const focus : focuses) {
            ASSERT_TRUE(focus);
            QRect const place(focus->mapTo(window.get(), QPoint()), focus->size());
            EXPECT_TRUE(focus->isVisible() && window->rect().intersects(place)) << nameOf(focus);
        }
    }
};

}  // namespace

TEST_F(FocusWalk, TabGoesRoundTheWholeWindowAndStaysNowhere)
{
    addBlock();
    for (bool const withCutView : {false, true})
        for (bool const withDialog : {false, true}) {
            SCOPED_TRACE(withCutView ? "Cut View in front" : "Information in front");
            SCOPED_TRACE(withDialog ? "with a dialog" : "without a dialog");
            if (withCutView && !withDialog)
                trigger("Std_CutView");
            if (withDialog)
                open("Std_Sectioncut");
            for (Qt::Key const key : {Qt::Key_Tab, Qt::Key_Backtab}) {
                view().setFocus();
                settle();
                expectRound(walk(key));
            }
            if (withDialog)
                sectionDialog()->widgets().cancel->click();
            settle();
        }
}

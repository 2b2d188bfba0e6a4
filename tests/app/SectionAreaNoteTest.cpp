// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/SectionAreaNote.h"
#include "app/window/WindowPanels.h"
#include "platform/ui/CutView.h"
#include "platform/ui/DisplayUnit.h"
#include "tests/app/ShownWindow.h"

#include <QClipboard>
#include <QTest>

namespace {

/// The area that the corner of the shown view tells, of a block of 20 x 30 x 40 mm.
class SectionAreaInWindow : public ShownWindow
{
protected:
    void prepare() override
    {
        part = test->add(box(20, 30, 40), "block");
        window->view().fitAll();
    }
    void TearDown() override
    {
        DisplayUnit::instance().setLength(DisplayUnit::Millimetre);
        AppWindow::TearDown();
    }
    QString shown() const
    {
        auto const* const note = window->view().findChild<SectionAreaNote*>();
        return note->text();
    }
    bool comes(QString const& text) const
    {
        return waitUntil([&] { return shown() == text; });
    }
    CutView& cutView() const { return *window->panels().cutView(); }

    Mesh::DocumentObject* part = nullptr;
};

}  // namespace

TEST_F(SectionAreaInWindow, IsThatOfThePlaneOfTheCutView)
{
    EXPECT_EQ(shown(), "");
    trigger("Std_CutView");
    cutView().setAxis(CutView::AlongZ);
    EXPECT_TRUE(comes("Area of the cut: 6.00 cm\u00b2")) << qPrintable(shown());
    cutView().setAxis(CutView::AlongX);
    EXPECT_TRUE(comes("Area of the cut: 12.00 cm\u00b2")) << qPrintable(shown());
    takePicture("section-area");
    part->scale({}, {1, 2, 1});
    EXPECT_TRUE(comes("Area of the cut: 24.00 cm\u00b2")) << qPrintable(shown());
    DisplayUnit::instance().setLength(DisplayUnit::Inch);
    EXPECT_TRUE(comes("Area of the cut: 3.72 in\u00b2")) << qPrintable(shown());
    trigger("Std_CutView");
    EXPECT_TRUE(comes(""));
}

TEST_F(SectionAreaInWindow, IsThatOfACutPlaneWhileThereIsOne)
{
    window->view().setSectionPlane(SectionPlane{{0, 15, 0}, {0, 2, 0}});
    EXPECT_TRUE(comes("Area of the cut: 8.00 cm\u00b2")) << qPrintable(shown());
    // What is hidden is not cut.
    Mesh::DocumentObject* const other = test->add(box(10, 30, 10, {50, 0, 0}), "other");
    EXPECT_TRUE(comes("Area of the cut: 9.00 cm\u00b2")) << qPrintable(shown());
    other->setVisible(false);
    EXPECT_TRUE(comes("Area of the cut: 8.00 cm\u00b2")) << qPrintable(shown());
    window->view().setSectionPlane({});
    EXPECT_TRUE(comes(""));
}

TEST_F(SectionAreaInWindow, IsUnknownWhereAPartIsOpen)
{
    test->add(openBox(10, 10, 10), "tray");
    window->view().setSectionPlane(SectionPlane{{5, 0, 0}, {1, 0, 0}});
    EXPECT_TRUE(comes("Area of the cut: unknown, a part is open there")) << qPrintable(shown());
}

TEST_F(SectionAreaInWindow, IsCopiedByCtrlC)
{
    window->view().setFocus();
    QGuiApplication::clipboard()->setText("before");
    QTest::keyClick(window->windowHandle(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "before");
    window->view().setSectionPlane(SectionPlane{{0, 15, 0}, {0, 1, 0}});
    ASSERT_TRUE(comes("Area of the cut: 8.00 cm\u00b2"));
    ASSERT_TRUE(waitUntil([&] { return action("Std_CopyMeasure")->isEnabled(); }));
    QTest::keyClick(window->windowHandle(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(waitUntil([&] { return QGuiApplication::clipboard()->text() == shown(); }));
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogAddTeethUI.h"
#include "dialogs/DialogCoordinateUI.h"
#include "dialogs/DialogPolygoncut.h"
#include "dialogs/OutlineImportDialog.h"
#include "dialogs/PolygonCutUI.h"
#include "dialogs/ToolButton.h"
#include "dialogs/ToolFileButton.h"
#include "host/formats/PartFiles.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/ThemeSwitch.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RunningTool.h"
#include "tests/app/PieceGap.h"
#include "tests/app/SavedPieces.h"
#include "tests/support/SkipReasons.h"
#include "tests/support/Validator.h"
#include "tests/support/ViewEvents.h"
#include "tools/PolygonGraphicObject.h"

#include <QCheckBox>
#include <QFile>
#include <QRadioButton>
#include <QTabWidget>

namespace {

using namespace Freecut;
using Point = UPoint3<float>;

/// The steps of the guide's example with dovetails, one after the other.
class DovetailChapter : public AppWindow
{
protected:
    void SetUp() override
    {
        if (!hasDisplay())
            GTEST_SKIP() << displayIsMissing;
        AppWindow::SetUp();
        window->resize(1400, 950);
        show();
        auto loaded = Formats::readParts(sourcePath("examples/bracket.3mf"));
        auto* const part = new Mesh::DocumentObject;
        part->meshProperty->setMesh(loaded.at(0).kernel.release(), true);
        test->document->addObject(part, "bracket", true);
        view().OnViewType(2);
        view().fitAll();
        settle();
        trigger("Std_Polygoncut");
        settle();
        ASSERT_TRUE(dialog());
        // The foot's end beside the dialog.
        view().getCamera()->pan(52, 0);
        view().redraw();
        settle();
    }
    void TearDown() override
    {
        ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
        if (window)
            AppWindow::TearDown();
    }

    Mesh::GLView& view() const { return window->view(); }
    static DialogPolygoncut* dialog()
    {
        return static_cast<DialogPolygoncut*>(
            DialogWindowManager::instance()->getDialogWindow("DialogPolygoncut"));
    }
    static PolygonCutWidgets const& ui() { return dialog()->widgets(); }
    static void settle()
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 200)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    template <typename Widget>
    static Widget* find(QWidget* parent, QString const& text)
    {
        for (Widget* const widget : parent->findChildren<Widget*>())
            if (widget->text() == text)
                return widget;
        throw std::runtime_error("no " + text.toStdString());
    }
    static void type(MellQuantitySpinBox* field, double value)
    {
        field->setValue(value);
        emit field->editingFinished();
    }
    QPoint positionOf(Point const& world) const
    {
        int x, y;
        view().getWidgetcoordFromWCS(world, x, y);
        return {x, y};
    }

    void typePoints()
    {
        ui().addPoint->click();
        settle();
        DialogCoordinateUI* const points = dialog()->coordinateDialog();
        auto const fields = points->findChildren<MellQuantitySpinBox*>();
        for (auto const& [x, y] : {std::pair(68, -5), {90, -5}, {90, 35}, {68, 35}}) {
            points->show();
            type(fields[0], x);
            type(fields[1], y);
            points->on_apply_clicked();
        }
        settle();
    }
    void addDovetails()
    {
        find<PushButtonAnimate>(ui().polygon, "Add Teeth")->click();
        settle();
        DialogAddTeethUI* const teeth = ui().polygon->teethDialog();
        auto* const styles = teeth->findChild<QTabWidget*>();
        styles->setCurrentIndex(1);
        auto const sizes = styles->widget(1)->findChildren<MellQuantitySpinBox*>();
        type(sizes[0], 6);
        type(sizes[1], 4);
        type(sizes[2], 4);
        auto const all = teeth->findChildren<MellQuantitySpinBox*>();
        type(all[all.size() - 2], 10);
        find<QCheckBox>(teeth, "Offset(O):")->click();
        type(all[all.size() - 1], 7);
        move(view(), positionOf({68, 10, 8}));
        click(view(), positionOf({68, 10, 8}));
        settle();
        takePicture("dovetails-teeth-light");
        find<PushButtonAnimate>(teeth, "OK")->click();
        settle();
    }
    void setClearance(double width)
    {
        find<QCheckBox>(ui().polygon, "Clearance")->click();
        find<QRadioButton>(ui().polygon, "Outside")->click();
        // The window for teeth is a child of the page, too.
        type(ui().polygon->findChildren<MellQuantitySpinBox*>(QString(), Qt::FindDirectChildrenOnly)
                 .last(),
             width);
        settle();
    }
    void turnForALook()
    {
        ui().startPreview->click();
        settle();
        drag(view(), {500, 500}, {560, 380}, Qt::RightButton);
        settle();
    }

    QTemporaryDir folder;
};

}  // namespace

TEST_F(DovetailChapter, GivesAFootThatSlidesInWithTheGapThatWasAskedFor)
{
    typePoints();
    addDovetails();
    setClearance(0.15);
    turnForALook();
    takePicture("dovetails-preview-light");
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
    settle();
    takePicture("dovetails-preview-dark");
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
    ui().stopPreview->click();
    settle();

    QString const file = folder.filePath("foot.json");
    dialog()->findChild<ToolFileButton*>()->saveTo(file);
    EXPECT_TRUE(QFile::exists(file));
    ui().ok->click();
    ASSERT_TRUE(waitUntil([] { return !dialog() && !JobGuard::instance()->isBusy(); }));
    settle();
    takePicture("dovetails-cut-light");

    std::vector<Soup> const found = savedParts(*test->document, script, folder);
    ASSERT_EQ(found.size(), 3u);
    for (std::size_t i : {1u, 2u}) {
        EXPECT_EQ(closedSolidFaults(found[i]), "");
        EXPECT_EQ(componentsOf(found[i]), 1u);
    }
    PieceGap const gap(found[0], found[1], found[2]);
    EXPECT_GE(gap.wallPoints, 24u);
    EXPECT_NEAR(gap.least, 0.15, 0.003);
    EXPECT_NEAR(gap.median, 0.15, 0.003);
}

TEST_F(DovetailChapter, TakesAnOutlineFromADrawing)
{
    QString const file = folder.filePath("badge.svg");
    QFile drawing(file);
    ASSERT_TRUE(drawing.open(QIODevice::WriteOnly));
    drawing.write(
        "<svg xmlns='http://www.w3.org/2000/svg' width='30mm' height='30mm' "
        "viewBox='0 0 30 30'><path d='M15 27C5 19 0 14 0 8A7.5 7.5 0 0 1 15 8A7.5 7.5 0 "
        "0 1 30 8C30 14 25 19 15 27z'/></svg>");
    drawing.close();
    OutlineImportDialog question(file, {"X", "Y"}, {64, 15}, dialog());
    question.show();
    settle();
    question.grab().save(QString::fromStdString(picturePath("outline-question-light.png")));
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
    settle();
    question.grab().save(QString::fromStdString(picturePath("outline-question-dark.png")));
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
    question.hide();
    dialog()->findChild<ToolFileButton*>()->importPath(question.path(), {64, 15, 0});
    settle();
    takePicture("outline-imported-light");
    EXPECT_TRUE(ui().ok->isEnabled());
    auto* const tool = runningTool<PolygoncutSelection>(&view());
    EXPECT_EQ(tool->getPolygon()->getPoints().size(), question.path().points.size());
}

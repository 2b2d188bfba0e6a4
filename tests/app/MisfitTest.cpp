// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/FitText.h"
#include "app/panels/MisfitMarks.h"
#include "app/partlist/PartTreeModel.h"
#include "app/partlist/PartTreeView.h"
#include "app/view/ViewPreferences.h"
#include "tests/app/ShownWindow.h"

#include <QLabel>

namespace {

BuildVolume const room{{}, 100, 80, 60};

/// Parts on a plate of 100 x 80 mm under 60 mm, in the shown window.
class Misfits : public ShownWindow
{
protected:
    void prepare() override
    {
        preferences = std::make_unique<ViewPreferences>(view());
        preferences->setPlateSize({100, 80});
        BuildVolume::storeHeight(60);
    }

    void settle() const
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }
    QStringList notes() const
    {
        QStringList texts;
        for (QLabel const* const note : view().findChildren<QLabel*>("MisfitNote"))
            if (note->isVisible())
                texts << note->text();
        return texts;
    }
    QString listed(Mesh::DocumentObject const* part) const
    {
        auto const* const model =
            dynamic_cast<PartTreeModel const*>(window->findChild<PartTreeView*>()->model());
        return model->indexOf(part).data(PartTreeModel::MisfitRole).toString();
    }
    /// Of the colour of the boxes.
    int redPixels() const
    {
        return pixelsIn([](QColor const& color) {
            return color.red() > 180 && color.green() < 90 && color.blue() < 80;
        });
    }

    std::unique_ptr<ViewPreferences> preferences;
};

}  // namespace

TEST(FitText, SaysByHowMuchABoxIsTooLarge)
{
    auto const text = [](UPoint3<float> const& min, UPoint3<float> const& max) {
        return FitText::misfit({min, max}, room).toStdString();
    };
    EXPECT_EQ(text({-50, -40, 0}, {50, 40, 60}), "");
    EXPECT_EQ(text({-50, -40, 0}, {62.5f, 40, 60}), "12.50 mm too wide");
    EXPECT_EQ(text({-50, -40, 0}, {50, 41, 60}), "1.00 mm too deep");
    EXPECT_EQ(text({0, 0, 0}, {10, 10, 60.25f}), "0.25 mm too high");
    EXPECT_EQ(text({-60, -50, 0}, {60, 50, 70}),
              "20.00 mm too wide, 20.00 mm too deep, 10.00 mm too high");
    // It fits when it is turned by a quarter.
    EXPECT_EQ(text({-40, -50, 0}, {40, 50, 60}),
              "10.00 mm beyond the plate at the front, 10.00 mm beyond the plate at the back");
}

TEST(FitText, SaysWhereABoxReachesBeyond)
{
    auto const text = [](UPoint3<float> const& min) {
        return FitText::misfit({min, min + UVector3<float>(10, 10, 10)}, room).toStdString();
    };
    EXPECT_EQ(text({-53, 0, 0}), "3.00 mm beyond the plate at the left");
    EXPECT_EQ(text({44, 0, 0}), "4.00 mm beyond the plate at the right");
    EXPECT_EQ(text({0, -45, 0}), "5.00 mm beyond the plate at the front");
    EXPECT_EQ(text({0, 36, 0}), "6.00 mm beyond the plate at the back");
    EXPECT_EQ(text({0, 0, -7}), "7.00 mm below the plate");
    EXPECT_EQ(text({0, 0, 58}), "8.00 mm above the build volume");
    EXPECT_EQ(text({44, 36, 0}),
              "4.00 mm beyond the plate at the right, 6.00 mm beyond the plate at the back");
    EXPECT_EQ(FitText::misfit({}, room), "");
}

TEST_F(Misfits, AreMarkedInListAndViewAsTheyChange)
{
    Mesh::DocumentObject* const part = test->add(box(40, 30, 50, {-20, -15, 0}), "part");
    view().OnViewType(6);
    settle();
    EXPECT_EQ(listed(part), "");
    EXPECT_TRUE(notes().isEmpty());
    int const before = redPixels();

    part->scale({}, {3, 3, 3});
    view().fitAll();
    settle();
    EXPECT_EQ(listed(part), "20.00 mm too wide, 10.00 mm too deep, 90.00 mm too high");
    EXPECT_EQ(notes(), QStringList{listed(part)});
    EXPECT_GT(redPixels(), before + 100);
    takePicture("misfit");

    // Another printer.
    preferences->setPlateSize({130, 100});
    BuildVolume::storeHeight(145);
    settle();
    EXPECT_EQ(listed(part), "5.00 mm too high");
    EXPECT_EQ(notes(), QStringList{listed(part)});
    BuildVolume::storeHeight(200);
    settle();
    EXPECT_EQ(listed(part), "");
    EXPECT_TRUE(notes().isEmpty());
}

TEST_F(Misfits, ThatOnlyStandElsewhereAreToldInTheList)
{
    Mesh::DocumentObject* const part = test->add(box(20, 20, 20, {-10, -10, 0}), "part");
    settle();
    part->translate({45, 0, 0}, 0);
    settle();
    EXPECT_EQ(listed(part), "5.00 mm beyond the plate at the right");
    EXPECT_TRUE(notes().isEmpty());
    part->translate({-5, 0, 0}, 0);
    settle();
    EXPECT_EQ(listed(part), "");
}

TEST_F(Misfits, AreNoMatterWhileHiddenOrWithoutAPlate)
{
    Mesh::DocumentObject* const part = test->add(box(20, 20, 99), "part");
    settle();
    EXPECT_EQ(notes().size(), 1);
    trigger("Std_ShowPlate");
    settle();
    EXPECT_TRUE(notes().isEmpty());
    trigger("Std_ShowPlate");
    settle();
    EXPECT_EQ(notes().size(), 1);
    view().setDrawnApart(0.5);
    ASSERT_TRUE(waitUntil([&] { return notes().isEmpty(); }));
    view().setDrawnApart(0);
    ASSERT_TRUE(waitUntil([&] { return notes().size() == 1; }));
    part->setVisible(false);
    settle();
    EXPECT_TRUE(notes().isEmpty());
    EXPECT_EQ(listed(part), "");
}

TEST_F(Misfits, BeyondAFewHaveNoNotes)
{
    for (int i = 0; i < 10; ++i)
        test->add(box(5, 5, 99, {float(10 * i), 0, 0}), "part " + std::to_string(i));
    settle();
    EXPECT_EQ(notes().size(), int(MisfitMarks::mostNotes));
    trigger("Std_SelectAll");
    trigger("Std_Delete");
    settle();
    EXPECT_TRUE(notes().isEmpty());
}

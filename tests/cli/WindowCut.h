// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/DialogAddTeethUI.h"
#include "dialogs/DialogPolygoncut.h"
#include "dialogs/PolygonCutUI.h"
#include "host/formats/PartFiles.h"
#include "platform/ui/Command.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellSpinBox.h"
#include "platform/ui/PushButtonAnimate.h"
#include "selection/PolygoncutSelection.h"
#include "selection/RunningTool.h"
#include "tests/cli/FreecutProcess.h"
#include "tests/dialogs/DialogScene.h"
#include "tests/support/ViewEvents.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTabWidget>

/// The polygon dialog on a part that is read from a file, seen from above, and freecut on the same
/// file: both are to give the same pieces.
class WindowCut : public testing::Test
{
protected:
    explicit WindowCut(Soup const& part = box(40, 30, 20))
    {
        files.addStl(part, "part.stl");
        auto* const object = new Mesh::DocumentObject;
        std::vector<Formats::LoadedPart> loaded = Formats::readParts(files.path("part.stl"));
        object->meshProperty->setMesh(loaded.at(0).kernel.release(), true);
        scene.test.document->addObject(object, "part", true);
        scene.window.show();
        scene.test.application.commandManager().getCommandByName("Std_Polygoncut")->invoke(0);
        paint();
    }
    ~WindowCut() override
    {
        if (dialog())
            dialog()->destruct();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static Freecut::DialogPolygoncut* dialog()
    {
        return static_cast<Freecut::DialogPolygoncut*>(
            DialogWindowManager::instance()->getDialogWindow("DialogPolygoncut"));
    }
    static Freecut::PolygonCutWidgets const& ui() { return dialog()->widgets(); }
    /// The dialog looks at the view with each picture.
    void paint()
    {
        QEvent event(QEvent::Paint);
        dialog()->eventFilter(&scene.view, &event);
    }
    Freecut::PolygoncutSelection* polygonTool() const
    {
        return Freecut::runningTool<Freecut::PolygoncutSelection>(&scene.view);
    }
    /// As the window for typed points does it.
    void addPoint(UPoint3<float> point)
    {
        scene.view.getEyePointFromWCSPoint(point);
        dialog()->addPoint(point);
    }
    void clickOn(UPoint3<float> const& place)
    {
        int x, y;
        scene.view.getWidgetcoordFromWCS(place, x, y);
        move(scene.view, {x, y});
        click(scene.view, {x, y});
    }
    static QAbstractButton* button(QWidget* parent, QString const& text)
    {
        for (QAbstractButton* const candidate : parent->findChildren<QAbstractButton*>())
            if (candidate->text() == text)
                return candidate;
        ADD_FAILURE() << "no button " << text.toStdString();
        return nullptr;
    }
    template <typename Field, typename Value>
    static void type(Field* field, Value value)
    {
        field->setValue(value);
        emit field->editingFinished();
    }

    /// Cuts by the dialog's button; the pieces as the files that freecut would write.
    std::vector<std::string> cutInTheWindow()
    {
        EXPECT_TRUE(ui().ok->isEnabled());
        ui().ok->click();
        EXPECT_TRUE(waitUntil([] { return !dialog(); }));
        std::vector<std::string> pieces;
        Formats::MeshFormat const& stl = *Formats::FormatRegistry::instance().byName("stl");
        for (Mesh::DocumentObject* const part : scene.test.document->getMeshObjects()) {
            if (part->getName() == "part")
                continue;
            Formats::writePart(files.path("window.stl"), "", *part->meshProperty->getMesh(), stl,
                               {}, Formats::Overwrite::Allow);
            pieces.push_back(files.read("window.stl"));
        }
        return pieces;
    }
    /// Cuts by freecut. Names the options after the part.
    std::vector<std::string> cutByFreecut(std::string const& command,
                                          std::vector<std::string> const& options)
    {
        std::vector<std::string> arguments{command, "part.stl", "-o", "pieces", "--force"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        auto const result = files.run(arguments);
        EXPECT_EQ(result.status, 0) << result.errors;
        if (result.status != 0)
            return {};
        std::vector<std::string> pieces;
        for (std::string const& name : files.files("pieces"))
            pieces.push_back(files.read("pieces/" + name));
        return pieces;
    }
    /// The header may tell what wrote it.
    static void expectSame(std::vector<std::string> const& a, std::vector<std::string> const& b)
    {
        ASSERT_EQ(a.size(), b.size());
        ASSERT_FALSE(a.empty());
        for (std::size_t i = 0; i < a.size(); ++i)
            EXPECT_TRUE(a[i].substr(80) == b[i].substr(80)) << "piece " << i + 1 << " differs";
    }

    FreecutFolder files;
    DialogScene scene;
};

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/AppModule.h"
#include "tests/module/LoadedModule.h"

#include <gtest/gtest.h>

#include <memory>

TEST(ModuleEntry, IsFoundInTheLoadedLibrary)
{
    LoadedModule module;
    EXPECT_TRUE(module.isEntered) << module.library.errorString().toStdString();
}

TEST(ModuleEntry, EntersTheModuleClassByName)
{
    LoadedModule const module;
    Base::Type const type = Base::Type::fromName("OrbeFreecut");
    ASSERT_FALSE(type.isBad());
    EXPECT_EQ(type.getParent().getName(), "AppModule");
    EXPECT_TRUE(type.isDerivedFrom(AppModule::getClassTypeId()));
}

TEST(ModuleEntry, TheModuleIsMadeByNameAndAgreesToEverything)
{
    LoadedModule const loaded;
    std::unique_ptr<Base::BaseClass> const object(Base::Type::createInstance("OrbeFreecut"));
    auto* const module = dynamic_cast<AppModule*>(object.get());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(module->getClassName(), "OrbeFreecut");
    EXPECT_EQ(module->getTypeId(), Base::Type::fromName("OrbeFreecut"));
    EXPECT_TRUE(module->createModule());
    EXPECT_TRUE(module->finishModule());
    EXPECT_TRUE(module->deleteModule("document"));
}

TEST(ModuleEntry, EntersTheToolObjectsUnderTheirParents)
{
    LoadedModule const module;
    for (auto const& [name, parent] : {std::pair("GraphicObject", "Base::GraphicObject"),
                                       {"PlaneGraphicObject", "Freecut::GraphicObject"},
                                       {"VolumeGraphicObject", "Freecut::GraphicObject"},
                                       {"PolygonGraphicObject", "Freecut::VolumeGraphicObject"},
                                       {"CylinderGraphicObject", "Freecut::VolumeGraphicObject"}}) {
        Base::Type const type = Base::Type::fromName(std::string("Freecut::") + name);
        ASSERT_FALSE(type.isBad()) << name;
        EXPECT_EQ(type.getParent().getName(), parent) << name;
    }
}

TEST(ModuleEntry, EntersTheViewProvidersUnderTheirParents)
{
    LoadedModule const module;
    for (auto const& [name, parent] :
         {std::pair("GraphicViewProvider", "Base::GraphicViewProvider"),
          {"PlaneViewProvider", "Freecut::GraphicViewProvider"}}) {
        Base::Type const type = Base::Type::fromName(std::string("Freecut::") + name);
        ASSERT_FALSE(type.isBad()) << name;
        EXPECT_EQ(type.getParent().getName(), parent) << name;
    }
}

TEST(ModuleEntry, MakesToolObjectsByName)
{
    LoadedModule const module;
    for (std::string const name :
         {"Freecut::PlaneGraphicObject", "Freecut::VolumeGraphicObject",
          "Freecut::PolygonGraphicObject", "Freecut::CylinderGraphicObject"}) {
        std::unique_ptr<Base::BaseClass> const object(Base::Type::createInstance(name));
        ASSERT_NE(object, nullptr) << name;
        EXPECT_EQ(object->getClassName(), name);
        EXPECT_EQ(object->getTypeId(), Base::Type::fromName(name));
    }
    EXPECT_EQ(Base::Type::createInstance("Freecut::GraphicObject"), nullptr);
}

TEST(ModuleEntry, MakesTheViewProvidersOfSolidToolsByName)
{
    LoadedModule const module;
    for (auto const& [name, parent] :
         {std::pair("VolumeViewProvider", "Freecut::GraphicViewProvider"),
          {"PolygonViewProvider", "Freecut::VolumeViewProvider"},
          {"CylinderViewProvider", "Freecut::VolumeViewProvider"},
          {"CuboidViewProvider", "Freecut::VolumeViewProvider"}}) {
        std::string const className = std::string("Freecut::") + name;
        EXPECT_EQ(Base::Type::fromName(className).getParent().getName(), parent);
        std::unique_ptr<Base::BaseClass> const object(Base::Type::createInstance(className));
        ASSERT_NE(object, nullptr) << name;
        EXPECT_EQ(object->getClassName(), className);
        EXPECT_EQ(object->getTypeId(), Base::Type::fromName(className));
    }
    EXPECT_EQ(Base::Type::fromName("Freecut::GraphicViewProvider").getParent().getName(),
              "Base::GraphicViewProvider");
    EXPECT_EQ(Base::Type::createInstance("Freecut::GraphicViewProvider"), nullptr);
}

TEST(ModuleEntry, ClassesThatAreMadeWithNewAloneAreNotEntered)
{
    LoadedModule const module;
    for (char const* name : {"Freecut::CuboidGraphicObject", "Freecut::GLGraphicsItem",
                             "Freecut::RubberLine", "Freecut::RubberRect"})
        EXPECT_TRUE(Base::Type::fromName(name).isBad()) << name;
}

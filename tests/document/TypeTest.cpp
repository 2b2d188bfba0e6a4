// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/GraphicObject.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/AppModule.h"
#include "platform/view/GraphicViewProvider.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

class Bracket : public Base::GraphicObject
{
public:
    static Base::Type classTypeId;
    static void init() { initSubclass(classTypeId, "Bracket", "Base::GraphicObject", create); }
    static void* create() { return new Bracket(); }
    Base::Type getTypeId() const override { return classTypeId; }
    std::string getClassName() const override { return "Bracket"; }
};

Base::Type Bracket::classTypeId;

class Abstract : public Base::GraphicObject
{
public:
    static Base::Type classTypeId;
    static void init() { initSubclass(classTypeId, "Abstract", "Base::GraphicObject", create); }
    static void* create() { return nullptr; }
};

Base::Type Abstract::classTypeId;

}  // namespace

TEST(Type, HostClassesAreEnteredWithTheirParents)
{
    struct Row
    {
        char const* name;
        char const* parent;
    };
    for (auto const& [name, parent] :
         {Row{"AppModule", "Base::BaseClass"}, Row{"Base::Document", "Base::BaseClass"},
          Row{"Mesh::Document", "Base::Document"},
          Row{"Base::DocumentObject", "Base::PropertyContainer"},
          Row{"Base::GraphicObject", "Base::DocumentObject"},
          Row{"Mesh::DocumentObject", "Base::DocumentObject"},
          Row{"Mesh::DocumentObjectGroup", "Base::DocumentObject"},
          Row{"PropertyMesh", "Base::Property"},
          Row{"Base::GraphicViewProvider", "Base::ViewProvider"}}) {
        Base::Type const type = Base::Type::fromName(name);
        EXPECT_FALSE(type.isBad()) << name;
        EXPECT_EQ(type.getName(), name);
        EXPECT_EQ(type.getParent().getName(), parent) << name;
    }
}

TEST(Type, ClassIsDerivedFromItselfAndItsAncestorsOnly)
{
    Base::Type const part = Mesh::DocumentObject::getClassTypeId();
    EXPECT_TRUE(part.isDerivedFrom(part));
    EXPECT_TRUE(part.isDerivedFrom(Base::DocumentObject::getClassTypeId()));
    EXPECT_TRUE(part.isDerivedFrom(Base::BaseClass::getClassTypeId()));
    EXPECT_FALSE(part.isDerivedFrom(Base::GraphicObject::getClassTypeId()));
    EXPECT_FALSE(Base::DocumentObject::getClassTypeId().isDerivedFrom(part));
}

TEST(Type, UnsetValueIsDerivedFromNothing)
{
    Base::Type const bad = Base::Type::badType();
    EXPECT_TRUE(bad.isBad());
    EXPECT_FALSE(bad.isDerivedFrom(bad));
    EXPECT_FALSE(bad.isDerivedFrom(Base::BaseClass::getClassTypeId()));
    EXPECT_FALSE(Mesh::Document::getClassTypeId().isDerivedFrom(bad));
    EXPECT_EQ(Base::Type::fromName("No::SuchClass"), bad);
}

TEST(Type, EnteringSetsTheIdentifierOnce)
{
    Bracket::init();
    Base::Type const first = Bracket::classTypeId;
    EXPECT_FALSE(first.isBad());
    Bracket::init();
    EXPECT_EQ(Bracket::classTypeId, first);
    EXPECT_TRUE(first.isDerivedFrom(Base::GraphicObject::getClassTypeId()));
}

TEST(Type, ObjectsAreMadeByName)
{
    Bracket::init();
    std::unique_ptr<Base::BaseClass> const made(Base::Type::createInstance("Bracket"));
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->getClassName(), "Bracket");
    EXPECT_EQ(made->getTypeId(), Bracket::classTypeId);
    EXPECT_NE(dynamic_cast<Bracket*>(made.get()), nullptr);
}

TEST(Type, AbstractAndUnknownClassesMakeNothing)
{
    Abstract::init();
    EXPECT_EQ(Base::Type::createInstance("Abstract"), nullptr);
    EXPECT_EQ(Base::Type::createInstance("AppModule"), nullptr);
    EXPECT_EQ(Base::Type::createInstance("No::SuchClass"), nullptr);
}

TEST(Properties, PartListsItsMeshUnderTheTableOfItsClass)
{
    Mesh::DocumentObject part;
    std::vector<Base::Property*> list;
    part.getPropertyList(list);
    EXPECT_EQ(list, std::vector<Base::Property*>{part.meshProperty});
    EXPECT_EQ(part.getPropertyByName("Mesh"), part.meshProperty);
    EXPECT_STREQ(part.getPropertyName(part.meshProperty), "Mesh");
    EXPECT_STREQ(part.getPropertyGroup("Mesh"), "Geometry");
    EXPECT_EQ(part.meshProperty->getContainer(), &part);
    EXPECT_EQ(&part.getPropertyData(), Mesh::DocumentObject::getPropertyDataPtr());
    EXPECT_EQ(part.getPropertyData().parent, Base::DocumentObject::getPropertyDataPtr());
}

TEST(Properties, DynamicOnesAreAddedFoundAndRemoved)
{
    Base::GraphicObject object;
    Base::Property* const added =
        object.addDynamicProperty("PropertyMesh", "Spare", "Extra", "A second mesh", 3);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->getClassName(), "PropertyMesh");
    EXPECT_EQ(object.getPropertyByName("Spare"), added);
    EXPECT_EQ(object.getPropertyType(added), 3);
    EXPECT_STREQ(object.getPropertyDocumentation(added), "A second mesh");
    EXPECT_EQ(object.addDynamicProperty("PropertyMesh", "Spare", "", "", 0), nullptr);
    EXPECT_EQ(object.addDynamicProperty("Mesh::DocumentObject", "Part", "", "", 0), nullptr);

    Base::GraphicObject other;
    other.addDynamicProperties(&object);
    EXPECT_EQ(other.getDynamicPropertyNames(), std::vector<std::string>{"Spare"});

    EXPECT_TRUE(object.removeDynamicProperty("Spare"));
    EXPECT_FALSE(object.removeDynamicProperty("Spare"));
    EXPECT_EQ(object.getPropertyByName("Spare"), nullptr);
}

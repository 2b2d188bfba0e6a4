// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/PartEdits.h"
#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"
#include "platform/document/SupportDocumentObject.h"
#include "tests/app/FilesScene.h"

#include <gtest/gtest.h>

// Parts that carry supports are a class of their own, and stay it in files and copies.
namespace {

using Names = std::vector<std::string>;

Names classesOf(Mesh::Document const& document)
{
    Names names;
    for (Base::DocumentObject const* const object : document.getObjectArray())
        names.push_back(object->getClassName());
    return names;
}

/// A 3MF file with a plain part and one with supports, as another program may have written it.
QString supportedFile(FilesScene const& scene)
{
    QString const path = scene.path("supported.3mf");
    auto const plain = kernelOf(box(10, 10, 10));
    auto const supported = kernelOf(box(10, 10, 10, {20, 0, 0}));
    std::vector<Formats::NamedMesh> const parts = {{"plain", plain.get(), 0, false},
                                                   {"supported", supported.get(), 0, true}};
    Formats::writeParts(path.toStdString(), parts,
                        *Formats::FormatRegistry::instance().byName("3mf"), {},
                        Formats::Overwrite::Allow);
    return path;
}

Names const plainAndSupported = {"Mesh::DocumentObject", "Support::DocumentObject"};

}  // namespace

TEST(SupportParts, OpenAsTheClassThatTheFileSays)
{
    FilesScene scene;
    scene.files.openFiles({supportedFile(scene)});
    scene.finish();
    EXPECT_EQ(classesOf(*scene.document()), plainAndSupported);
    EXPECT_EQ(scene.document()->getMeshObjects().size(), 2u) << "they are parts";
    EXPECT_TRUE(scene.document()->getMeshObjects()[1]->hasSupportCheck());
}

TEST(SupportParts, ComeBackFromAProject)
{
    FilesScene scene;
    scene.files.openFiles({supportedFile(scene)});
    scene.finish();
    scene.answers.projectToSave = scene.path("project.orbe.3mf");
    scene.files.save();
    scene.finish();
    scene.files.newDocument();
    scene.finish();
    scene.files.openFiles({scene.answers.projectToSave});
    scene.finish();
    EXPECT_EQ(classesOf(*scene.document()), plainAndSupported);
}

TEST(SupportParts, AreCopiedAsWhatTheyAre)
{
    TestDocument test;
    auto* const part = Support::makePart(true).release();
    part->meshProperty->setMesh(kernelOf(box(1, 1, 1)).release(), true);
    test.document->addObject(part, "part", true);
    PartEdits::duplicate(*test.document, {part});
    std::unique_ptr<Mesh::DocumentObject> const deep(part->deepCopy());
    EXPECT_EQ(deep->getClassName(), "Support::DocumentObject");
    EXPECT_EQ(classesOf(*test.document),
              (Names{"Support::DocumentObject", "Support::DocumentObject"}));
    EXPECT_TRUE(part->getTypeId().isDerivedFrom(Mesh::DocumentObject::getClassTypeId()));
}

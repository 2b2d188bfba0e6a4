// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PartQuery.h"
#include "tests/dialogs/DialogScene.h"

#include <gtest/gtest.h>

namespace {

class SupportedPart : public Mesh::DocumentObject
{
public:
    std::string getClassName() const override { return "Support::DocumentObject"; }
};

class OtherPart : public Mesh::DocumentObject
{
public:
    std::string getClassName() const override { return "Other::DocumentObject"; }
};

QString const question =
    "One or more parts have support(s).The support(s) will be deleted. Do you want to continue "
    "your operation?";

class PartQuery : public testing::Test
{
protected:
    template <typename Part>
    Part* add(char const* name)
    {
        auto* const part = new Part;
        part->meshProperty->setMesh(kernelOf(box(1, 1, 1)).release(), true);
        scene.test.document->addObject(part, name, true);
        return part;
    }
    std::size_t asked(Freecut::PartQuery::Choice const& choice)
    {
        return Freecut::PartQuery::askForParts(scene.test.document, choice).size();
    }

    DialogScene scene;
};

}  // namespace

TEST_F(PartQuery, KeepsPartsWithSupportsAndWithoutAndNothingElse)
{
    AnsweredMessages const messages;
    add<Mesh::DocumentObject>("plain");
    add<SupportedPart>("supported");
    add<OtherPart>("other");
    EXPECT_EQ(asked({}), 2u);
    EXPECT_TRUE(messages.texts.isEmpty());
}

TEST_F(PartQuery, AsksOnceBeforeSupportsAreLost)
{
    add<SupportedPart>("one");
    add<SupportedPart>("two");
    AnsweredMessages const messages("Yes");
    EXPECT_EQ(asked({.removesOriginals = true}), 2u);
    EXPECT_EQ(messages.texts, QStringList{question});
    EXPECT_EQ(messages.buttons, (QStringList{"Yes", "Cancel"}));
}

TEST_F(PartQuery, ACancelledQuestionGivesNothingWithoutAFurtherWord)
{
    add<SupportedPart>("one");
    AnsweredMessages const messages("Cancel");
    EXPECT_EQ(asked({.removesOriginals = true}), 0u);
    EXPECT_EQ(messages.texts, QStringList{question});
}

TEST_F(PartQuery, SaysWhatToDoWhereThereIsNoPart)
{
    AnsweredMessages const messages;
    EXPECT_EQ(asked({}), 0u);
    add<Mesh::DocumentObject>("plain");
    EXPECT_EQ(asked({.isOnlySelected = true}), 0u);
    EXPECT_EQ(messages.texts, (QStringList{"Please load at least 1 part in one document.",
                                           "Please select at least 1 part in one document."}));
    EXPECT_EQ(messages.titles, (QStringList{"Attention", "Attention"}));
}

TEST_F(PartQuery, SelectedPartsAreThoseThatAreSelected)
{
    add<Mesh::DocumentObject>("one")->setSelected(true, true, false);
    add<Mesh::DocumentObject>("two");
    EXPECT_EQ(asked({.isOnlySelected = true}), 1u);
    EXPECT_EQ(asked({}), 2u);
}

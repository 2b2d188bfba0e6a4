// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/ResultIntegration.h"
#include "platform/document/RenamePara.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using Names = std::vector<std::string>;

/// Pieces as a worker makes them.
std::vector<std::shared_ptr<MeshKernel>> pieces(std::size_t count)
{
    std::vector<std::shared_ptr<MeshKernel>> kernels;
    for (std::size_t i = 0; i < count; ++i)
        kernels.push_back(kernelOf(box(1, 1, float(i + 1))));
    return kernels;
}

/// Notes whether a document was marked as modified while it had no open transaction.
struct StateListener : sigslot::has_slots<sigslot::single_threaded>
{
    explicit StateListener(Base::Document& watched) : document(watched)
    {
        document.signalStateChanged.connect(this, &StateListener::changed);
    }
    void changed()
    {
        if (document.isModified() && !document.hasOpenTransaction())
            wasModifiedBeforeTheStep = true;
    }

    Base::Document& document;
    bool wasModifiedBeforeTheStep = false;
};

ResultIntegration::PartMap integrate(TestDocument& test, CutResultMap const& result,
                                     IntegrationRules const& rules)
{
    ResultIntegration integration(test.document, rules);
    auto parts = integration.begin(result);
    integration.end();
    return parts;
}

}  // namespace

TEST(ResultIntegration, SourcesStayUnlessTheRulesSayOtherwise)
{
    TestDocument test;
    auto* const part = test.add(box(1, 1, 3), "part");
    integrate(test, {{part, pieces(2)}}, {});
    EXPECT_EQ(test.names(), (Names{"part", "part_cut1", "part_cut2"}));
}

TEST(ResultIntegration, SourcesVanishWithinTheSameStep)
{
    TestDocument test;
    auto* const part = test.add(box(1, 1, 3), "part");
    integrate(test, {{part, pieces(2)}}, {.removesSources = true});
    EXPECT_EQ(test.names(), (Names{"part_cut1", "part_cut2"}));
    EXPECT_EQ(test.document->undoNames(), Names{"Section Cut"});
    ASSERT_TRUE(test.document->undo());
    EXPECT_EQ(test.names(), Names{"part"});
}

TEST(ResultIntegration, TheTransactionBearsItsPlainName)
{
    TestDocument test;
    auto* const part = test.add(box(1, 1, 3), "part");
    integrate(test, {{part, pieces(1)}}, {.transactionName = "Polygon Cut"});
    EXPECT_EQ(test.document->undoNames(), Names{"Polygon Cut"});
    EXPECT_TRUE(test.document->isModified());
}

TEST(ResultIntegration, TheDocumentIsModifiedBeforeTheTransactionOpens)
{
    // Then the mark is none of the step's changes: an abort of the step would leave it.
    for (bool const isFirst : {true, false}) {
        TestDocument test;
        auto* const part = test.add(box(1, 1, 3), "part");
        StateListener listener(*test.document);
        ResultIntegration integration(test.document, {.marksModifiedFirst = isFirst});
        integration.begin({{part, pieces(1)}});
        EXPECT_EQ(test.document->isModified(), isFirst);
        EXPECT_EQ(listener.wasModifiedBeforeTheStep, isFirst);
        test.document->abortTransaction();
        EXPECT_EQ(test.document->isModified(), isFirst);
        EXPECT_EQ(test.names(), Names{"part"});
    }
}

TEST(ResultIntegration, AnOnlyPieceIsCalledCutUniqueOrNot)
{
    TestDocument test;
    auto* const first = test.add(box(1, 1, 3), "part");
    auto* const second = test.add(box(1, 1, 3), "part");
    integrate(test, {{first, pieces(1)}}, {.removesSources = true});
    integrate(test, {{second, pieces(1)}}, {.removesSources = true});
    EXPECT_EQ(test.names(), (Names{"part(cut)", "part(cut)"}));
}

TEST(ResultIntegration, ThePieceCountIsThatOfTheSourceItself)
{
    TestDocument test;
    auto* const whole = test.add(box(1, 1, 3), "whole");
    auto* const halved = test.add(box(1, 1, 3), "halved");
    auto parts = integrate(test, {{whole, pieces(1)}, {halved, pieces(2)}}, {});
    EXPECT_EQ(parts[whole][0]->getName(), "whole(cut)");
    EXPECT_EQ(parts[halved][0]->getName(), "halved_cut1");
    EXPECT_EQ(parts[halved][1]->getName(), "halved_cut2");
}

TEST(ResultIntegration, TheSuffixIsThatOfTheRenameSettings)
{
    TestDocument test;
    QString const before = std::exchange(Mesh::g_RenamePara.suffix, "-teil");
    auto* const part = test.add(box(1, 1, 3), "part");
    auto parts = integrate(test, {{part, pieces(2)}}, {});
    Mesh::g_RenamePara.suffix = before;
    EXPECT_EQ(parts[part][0]->getName(), "part-teil1");
}

TEST(ResultIntegration, GeometryMovesAndThePieceIsLeftEmpty)
{
    TestDocument test;
    auto* const part = test.add(box(1, 1, 3), "part");
    auto const kernels = pieces(1);
    auto const* const triangle = kernels[0]->readMesh()->triangles[0];
    auto parts = integrate(test, {{part, kernels}}, {});
    EXPECT_EQ(parts[part][0]->meshProperty->getMesh()->readMesh()->triangles[0], triangle);
    EXPECT_TRUE(kernels[0]->readMesh()->triangles.empty());
    EXPECT_TRUE(kernels[0]->readMesh()->vertices.empty());
    EXPECT_EQ(parts[part][0]->getBoundingBox(), UBox3<float>({0, 0, 0}, {1, 1, 1}));
}

TEST(ResultIntegration, APartThatNoCutTouchedSharesItsMeshWithItsPiece)
{
    TestDocument test;
    auto* const part = test.add(torus(20, 5, 24, 12), "part");
    auto const mesh = part->meshProperty->getMesh()->readMesh();
    auto const piece = std::make_shared<MeshKernel>(part->meshProperty->getMesh());
    auto parts = integrate(test, {{part, {piece}}}, {});
    MeshKernel& kernel = *parts[part][0]->meshProperty->getMesh();
    EXPECT_EQ(kernel.readMesh(), mesh);
    EXPECT_EQ(part->meshProperty->getMesh()->readMesh(), mesh);
    EXPECT_TRUE(piece->readMesh()->triangles.empty());
    // A change of one of them is not seen by the other.
    kernel.getMesh()->vertices[0]->P() = {1, 2, 3};
    EXPECT_EQ(part->meshProperty->getMesh()->readMesh(), mesh);
    EXPECT_NE(mesh->vertices[0]->cP(), UPoint3<float>(1, 2, 3));
}

TEST(ResultIntegration, PiecesGetTheDefaultMatrixAndColour)
{
    TestDocument test;
    auto* const part = test.add(box(1, 1, 3), "part");
    part->setColor(0xFF0000FFu);
    part->translate({5, 0, 0}, 0);
    auto parts = integrate(test, {{part, pieces(1)}}, {});
    EXPECT_TRUE(parts[part][0]->getMatrix().isIdentity());
    EXPECT_EQ(parts[part][0]->getColor(), Mesh::DocumentObject().getColor());
    EXPECT_FALSE(parts[part][0]->isSelected());
}

TEST(ResultIntegration, WithoutPiecesTheDocumentStaysAndTheStepIsEmpty)
{
    TestDocument test;
    test.add(box(1, 1, 3), "part");
    EXPECT_TRUE(integrate(test, {}, {.removesSources = true}).empty());
    EXPECT_EQ(test.names(), Names{"part"});
    EXPECT_FALSE(test.document->hasOpenTransaction());
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/GLView.h"
#include "platform/view/ViewProvider.h"
#include "tests/cutjobs/RecordingSink.h"
#include "tests/cutjobs/ZCutRun.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTranslator>

// How a Z cut is closed once its pieces are in the document.
namespace {

using Names = std::vector<std::string>;

/// What the views were told, in order.
Names calls;

struct NotingView : Base::GLView
{
    explicit NotingView(Base::Document& shown) : document(shown) { document.setView(this); }
    ~NotingView() override { document.setView(nullptr); }
    void redraw() override { calls.push_back("redraw " + document.getName() + step()); }
    void renderDataUpdated(Base::ViewProvider* provider) override
    {
        calls.push_back("refresh " + provider->getObject()->getName() + step());
    }
    std::string step() const { return document.hasOpenTransaction() ? " open" : ""; }

    Base::Document& document;
};

/// Translates every text, so that one that passed through a translation shows.
struct OtherLanguage : QTranslator
{
    OtherLanguage() { QCoreApplication::installTranslator(this); }
    ~OtherLanguage() override { QCoreApplication::removeTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(char const*, char const*, char const*, int) const override
    {
        return QStringLiteral("translated");
    }
};

/// A document with one part, shown in a view.
class ZCutClosing : public testing::Test
{
protected:
    ZCutClosing() { calls.clear(); }

    TestDocument test;
    Mesh::DocumentObject* part = test.add(box(2, 3, 4), "box");
    NotingView view{*test.document};
    ZCutRun run;
};

}  // namespace

TEST_F(ZCutClosing, NewPartsAreRefreshedInOrderThenTheStepEndsAndTheViewIsRedrawn)
{
    QObject::connect(&run.cut, &Freecut::SectionZCut::finished,
                     [](int code, QString const&) { calls.push_back(std::to_string(code)); });
    run.cutAt(test, {part}, 1);
    EXPECT_EQ(calls, (Names{"refresh box_cut1 open", "refresh box_cut2 open", "redraw test", "1"}));
}

TEST_F(ZCutClosing, WithoutUndoTheViewIsBroughtUpToDateAllTheSame)
{
    run.cut.setPara({.undoable = false, .repair = false});
    run.cutAt(test, {part}, 1);
    EXPECT_EQ(calls, (Names{"refresh box", "refresh box", "redraw test"}));
}

TEST_F(ZCutClosing, PiecesGoIntoTheDocumentThatIsActiveThen)
{
    Mesh::Document* const active = test.application.newDocument("active");
    NotingView const activeView(*active);
    run.cutAt(test, {part}, 1);
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(test.names(), Names{"box"});
    EXPECT_TRUE(test.document->undoNames().empty());
    ASSERT_EQ(active->getObjectArray().size(), 2u);
    EXPECT_EQ(active->getObjectArray()[0]->getName(), "box_cut1");
    EXPECT_EQ(active->undoNames(), Names{"Section Cut"});
    EXPECT_EQ(calls, Names{"redraw active"});
}

TEST_F(ZCutClosing, TitleStepAndMessageAreNotTranslated)
{
    PluggedSink const sink;
    OtherLanguage const language;
    run.cutAt(test, {part}, 1);
    EXPECT_EQ(sink->titles(), Names{"Section Cut"});
    EXPECT_EQ(test.document->undoNames(), Names{"Section Cut"});

    sink->onProgress = [](RecordingSink&, int) { throw Mell::Exception("broken"); };
    ZCutRun failing;
    failing.cutAt(test, run.piecesOf(part), 2);
    EXPECT_EQ(failing.message, "An error occurred in triangulate.");
}

TEST_F(ZCutClosing, CutsAreUndoableAndRepairedUnlessToldOtherwise)
{
    Freecut::SectionZCut::ZCutParas const paras;
    EXPECT_TRUE(paras.undoable);
    EXPECT_TRUE(paras.repair);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/JobProgressBar.h"
#include "app/window/StatusLine.h"
#include "platform/jobs/EventNotify.h"
#include "platform/jobs/Exceptions.h"
#include "platform/jobs/ProgressSink.h"
#include "platform/jobs/SequencerLauncher.h"
#include "tests/app/AppWindow.h"

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <atomic>
#include <functional>
#include <thread>

namespace {

/// A job on a thread of its own that reports until it is let go.
class SlowJob
{
public:
    SlowJob()
        : m_thread([this] {
              try {
                  Base::SequencerLauncher launcher("Section Cut", 100, true);
                  launcher.setCancelEnabled(true);
                  for (int i = 0; !m_mayEnd; ++i) {
                      launcher.setProgress(std::uint64_t(i % 100));
                      std::this_thread::sleep_for(std::chrono::milliseconds(1));
                  }
              } catch (Mell::AbortException const&) {
                  wasCancelled = true;
              }
          })
    {}
    ~SlowJob()
    {
        end();
        m_thread.join();
    }
    void end() { m_mayEnd = true; }

    std::atomic<bool> wasCancelled = false;

private:
    std::atomic<bool> m_mayEnd = false;
    std::thread m_thread;
};

/// Asks for a cancel as soon as the progress has reached a value.
class CancelAt : public Base::ProgressSink
{
public:
    explicit CancelAt(std::uint64_t value) : m_value(value) {}

    void begin(std::string const&, std::uint64_t) override {}
    void progress(std::uint64_t value) override { m_reached = value; }
    void setCancelEnabled(bool) override {}
    void end() override {}
    bool isCancelRequested() const override { return m_reached >= m_value; }

private:
    std::uint64_t m_value;
    std::atomic<std::uint64_t> m_reached = 0;
};

bool isBusy()
{
    return JobGuard::instance()->isBusy();
}

/// Presses the button at that place in the message that comes up.
void answer(int button)
{
    QTimer::singleShot(0, [button] {
        QWidget* const box = QApplication::activeModalWidget();
        if (!box)
            return answer(button);
        for (QPushButton* const candidate : box->findChildren<QPushButton*>())
            if (candidate->property("answer") == button)
                candidate->click();
    });
}

}  // namespace

class Jobs : public AppWindow
{
protected:
    void SetUp() override
    {
        AppWindow::SetUp();
        ASSERT_NO_FATAL_FAILURE(show());
    }

    /// A selected part with the slider at half its height.
    Mesh::DocumentObject* partToCut()
    {
        Mesh::DocumentObject* part = addFile("bunny-60k.stl");
        if (!part)
            part = test->add(torus(30, 10, 200, 100), "bunny-60k");
        part->setSelected(true, true, true);
        UBox3<float> const box = part->getBoundingBox();
        MainWindow::getViewSlider()->setHeight((box.MinZ() + box.MaxZ()) / 2);
        QCoreApplication::processEvents();
        return part;
    }

    QWidget& progress() const { return window->statusLine().progress(); }
};

TEST_F(Jobs, TheKeyCCutsTheSelectedPartAtTheSlidersHeightAndUndoBringsItBack)
{
    partToCut();
    QTest::keyClick(window->windowHandle(), Qt::Key_C);
    ASSERT_TRUE(waitUntil([&] { return test->names().size() == 2 && !isBusy(); }));
    EXPECT_EQ(test->names(), (std::vector<std::string>{"bunny-60k_cut1", "bunny-60k_cut2"}));
    EXPECT_TRUE(waitUntil([&] { return !progress().isVisible(); }));
    EXPECT_TRUE(window->isWindowModified());
    trigger("Std_Undo");
    EXPECT_EQ(test->names(), std::vector<std::string>{"bunny-60k"});
}

TEST_F(Jobs, NoSecondCutStartsInTheEventLoopOfTheFirst)
{
    partToCut();
    bool wasDisabled = false;
    int refusals = 0;
    QTimer during;
    QObject::connect(&during, &QTimer::timeout, [&] {
        if (!isBusy())
            return;
        wasDisabled = wasDisabled || !action("Std_zCut")->isEnabled();
        // Past the disabled action, as a dialog's own button would.
        commands().getCommandByName("Std_zCut")->invoke(0);
        commands().getCommandByName("Std_Delete")->invoke(0);
        ++refusals;
    });
    during.start(0);
    trigger("Std_zCut");
    during.stop();
    EXPECT_TRUE(wasDisabled);
    EXPECT_GT(refusals, 0);
    EXPECT_EQ(test->names().size(), 2u);
    EXPECT_EQ(test->document->undoNames().size(), 1u);
}

TEST_F(Jobs, EditingIsDisabledWithTheReasonAndViewingStaysFree)
{
    partToCut();
    SlowJob const job;
    ASSERT_TRUE(waitUntil([&] { return !action("Std_Delete")->isEnabled(); }));
    EXPECT_TRUE(action("Std_Delete")->toolTip().contains("Section Cut"));
    EXPECT_TRUE(action("Std_zCut")->toolTip().contains("Section Cut"));
    for (char const* name : {"Std_View3", "Std_FitAll", "Std_SelectAll", "Std_ShowEdges"})
        EXPECT_TRUE(action(name)->isEnabled()) << name;
    trigger("Std_View3");
    EXPECT_EQ(window->view().viewIndex(), 3);
}

TEST_F(Jobs, ProgressShowsAndEscCancels)
{
    SlowJob const job;
    ASSERT_TRUE(waitUntil([&] { return progress().isVisible(); }));
    auto const* const bar = progress().findChild<QProgressBar*>();
    ASSERT_TRUE(waitUntil([&] { return bar->value() > 0; }));
    EXPECT_EQ(progress().findChild<QLabel*>()->text().toStdString(), "Section Cut");
    QTest::keyClick(window->windowHandle(), Qt::Key_Escape);
    ASSERT_TRUE(waitUntil([&] { return job.wasCancelled && !isBusy(); }));
    EXPECT_TRUE(waitUntil([&] { return !progress().isVisible(); }));
}

TEST_F(Jobs, TheButtonCancelsACutAndLeavesTheDocumentAsItWas)
{
    partToCut();
    auto* const button = progress().findChild<QToolButton*>("CancelJob");
    QTimer during;
    QObject::connect(&during, &QTimer::timeout, [&] {
        if (button->isVisible())
            button->click();
    });
    during.start(0);
    bool const wasModified = test->document->isModified();
    trigger("Std_zCut");
    during.stop();
    // A cut that was over before the button came up is a whole cut.
    if (test->names().size() == 1) {
        EXPECT_EQ(test->names(), std::vector<std::string>{"bunny-60k"});
        EXPECT_TRUE(test->document->undoNames().empty());
        EXPECT_EQ(test->document->isModified(), wasModified);
    } else {
        EXPECT_EQ(test->names().size(), 2u);
    }
    EXPECT_FALSE(isBusy());
}

TEST_F(Jobs, ACancelAtAnyPercentageLeavesTheDocumentAsItWas)
{
    Mesh::DocumentObject* const part = test->add(torus(30, 10, 60, 30), "torus");
    part->setSelected(true, true, true);
    MainWindow::getViewSlider()->setHeight(1);
    auto const windowsSink = Base::progressSink();
    for (std::uint64_t percent = 0; percent < 100; ++percent) {
        Base::setProgressSink(std::make_shared<CancelAt>(percent));
        trigger("Std_zCut");
        ASSERT_EQ(test->document->getMeshObjects(), std::vector{part}) << percent;
        EXPECT_TRUE(part->isSelected()) << percent;
        EXPECT_TRUE(test->document->undoNames().empty()) << percent;
        EXPECT_FALSE(test->document->isModified()) << percent;
        EXPECT_FALSE(isBusy()) << percent;
    }
    Base::setProgressSink(windowsSink);
    trigger("Std_zCut");
    EXPECT_EQ(test->names().size(), 2u);
}

TEST_F(Jobs, ACancelIsForTheJobThatRunsAndNotForTheNext)
{
    window->statusLine().progress().cancel();
    {
        SlowJob job;
        ASSERT_TRUE(waitUntil([&] { return progress().isVisible(); }));
        job.end();
        ASSERT_TRUE(waitUntil([&] { return !isBusy() && !progress().isVisible(); }));
        EXPECT_FALSE(job.wasCancelled);
    }
    {
        SlowJob const job;
        ASSERT_TRUE(waitUntil([&] { return progress().isVisible(); }));
        window->statusLine().progress().cancel();
        ASSERT_TRUE(waitUntil([&] { return job.wasCancelled && !isBusy(); }));
    }
}

TEST_F(Jobs, ProgressComesAndGoesWithoutAChangeOfTheViewsSize)
{
    QSize const size = window->view().size();
    {
        SlowJob const job;
        ASSERT_TRUE(waitUntil([&] { return progress().isVisible(); }));
        QCoreApplication::processEvents();
        EXPECT_EQ(window->view().size(), size);
    }
    ASSERT_TRUE(waitUntil([&] { return !progress().isVisible(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(window->view().size(), size);
}

TEST_F(Jobs, ValuesBeyondTheRangeShowAsFull)
{
    Base::SequencerLauncher launcher("Polygon Cut", 100, true);
    launcher.setProgress(180);
    EXPECT_EQ(progress().findChild<QProgressBar*>()->value(), 100);
    launcher.setProgress(40);
    EXPECT_EQ(progress().findChild<QProgressBar*>()->value(), 40);
}

TEST_F(Jobs, TheWindowClosesWhenTheJobHasFinished)
{
    partToCut();
    QTimer during;
    QObject::connect(&during, &QTimer::timeout, [&] {
        if (!isBusy())
            return;
        during.stop();
        answer(0);
        window->close();
        EXPECT_TRUE(window->isVisible());
    });
    during.start(0);
    trigger("Std_zCut");
    EXPECT_TRUE(waitUntil([&] { return !window->isVisible(); }));
    // Nothing is lost: the pieces were there to be saved.
    EXPECT_EQ(script.askedAboutUnsaved, 1);
    EXPECT_EQ(test->names().size(), 2u);
}

TEST_F(Jobs, TheWindowCancelsTheJobAndCloses)
{
    SlowJob const job;
    ASSERT_TRUE(waitUntil([&] { return isBusy(); }));
    answer(1);
    window->close();
    EXPECT_TRUE(waitUntil([&] { return !window->isVisible(); }));
    EXPECT_TRUE(job.wasCancelled);
}

TEST_F(Jobs, TheWindowStaysOpenIfThatIsTheAnswer)
{
    {
        SlowJob const job;
        ASSERT_TRUE(waitUntil([&] { return isBusy(); }));
        answer(2);
        window->close();
        EXPECT_TRUE(window->isVisible());
        EXPECT_FALSE(job.wasCancelled);
    }
    ASSERT_TRUE(waitUntil([&] { return !isBusy(); }));
    QCoreApplication::processEvents();
    EXPECT_TRUE(window->isVisible());
}

TEST_F(Jobs, TheWindowWithUnsavedWorkStaysOpenWhenTheUserThinksBetter)
{
    partToCut();
    trigger("Std_Hide");
    script.unsaved = FileQuestions::Unsaved::Cancel;
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(script.askedAboutUnsaved, 1);
    script.unsaved = FileQuestions::Unsaved::Discard;
    window->close();
    EXPECT_FALSE(window->isVisible());
}

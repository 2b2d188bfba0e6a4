// SPDX-License-Identifier: GPL-3.0-or-later
// What a person feels who works with a large part in the window: how long a picture takes while the
// mouse drags, how long the window does not answer while files are opened and parts are cut.
// window_speed [--cut | --many] FILE...; needs a display. With --cut nothing is dragged. With --many the
// files are opened together and arranged. What the window was at in each long wait is told as stacks,
// with how often each was seen.
#include "app/OrbeWindow.h"
#include "app/files/DocumentFiles.h"
#include "app/jobs/JobGuard.h"
#include "app/parts/PartPlacement.h"
#include "benchmarks/StackSampler.h"
#include "host/view/ViewScene.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/Action.h"
#include "platform/ui/Application.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/CutView.h"
#include "platform/ui/MellViewSlider.h"
#include "platform/ui/Settings.h"
#include "platform/view/MeshGLView.h"
#include "platform/view/ViewProvider.h"
#include "selection/PlanecutSelection.h"
#include "selection/RunningTool.h"
#include "tests/support/PictureCount.h"
#include "tests/support/Places.h"
#include "tools/PlaneGraphicObject.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLibrary>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string_view>
#include <vector>

namespace {

double processorMs()
{
    return 1e3 * double(std::clock()) / CLOCKS_PER_SEC;
}

/// Times each event from the outside: the longest one is how long the window did not answer.
class TimedApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        // Workers have events of their own.
        if (QThread::currentThread() != thread() || m_depth > 0)
            return QApplication::notify(receiver, event);
        // Both may be gone afterwards.
        QByteArray const name = receiver->metaObject()->className();
        int const type = event->type();
        QElapsedTimer timer;
        timer.start();
        double const processor = processorMs();
        ++m_depth;
        m_sampler.begin();
        bool const result = QApplication::notify(receiver, event);
        m_sampler.end();
        --m_depth;
        double const ms = double(timer.nsecsElapsed()) / 1e6;
        if (ms >= toldFrom)
            waits.push_back({ms, processorMs() - processor, name + " " + QByteArray::number(type),
                             StackSampler::seen()});
        return result;
    }

    double toldFrom = 50;
    struct Wait
    {
        double ms;
        /// Of all threads meanwhile.
        double processor;
        /// The receiver's class and the event's type.
        QByteArray name;
        std::vector<std::string> stacks;
    };
    std::vector<Wait> waits;

private:
    int m_depth = 0;
    StackSampler m_sampler{std::chrono::milliseconds(20)};
};

TimedApplication& application()
{
    return *static_cast<TimedApplication*>(qApp);
}

/// Asleep between events, so that what the processor does is the window's work alone.
void waitWhile(std::function<bool()> const& condition)
{
    QTimer tick;
    tick.start(5);
    while (condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void rest(int ms)
{
    QElapsedTimer timer;
    timer.start();
    waitWhile([&] { return timer.elapsed() < ms; });
}

/// Runs steps that each ask for a picture, and tells what the pictures take.
void report(char const* name, QWidget& view, std::function<void(int)> const& step)
{
    constexpr int steps = 24;
    PictureCount pictures(view);
    std::vector<double> ms;
    double const processor = processorMs();
    for (int i = 0; i < steps; ++i) {
        int const before = pictures.count;
        QElapsedTimer timer;
        timer.start();
        step(i);
        waitWhile([&] { return pictures.count == before && timer.elapsed() < 5000; });
        // What is sent to the screen with the picture belongs to it.
        QCoreApplication::processEvents();
        ms.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    double const used = (processorMs() - processor) / steps;
    std::sort(ms.begin(), ms.end());
    std::printf("%-44s %7.0f ms, at most %5.0f ms, processor %5.0f ms, %5.1f pictures/s\n", name,
                ms[steps / 2], ms.back(), used, 1000 / ms[steps / 2]);
    std::fflush(stdout);
}

class Session
{
public:
    Session()
    {
        m_application.newDocument({});
        m_window = std::make_unique<OrbeWindow>();
        QLibrary library(QString::fromStdString(builtPath("libMellTriangleCut.so")));
        reinterpret_cast<void (*)()>(library.resolve("initDLLModule"))();
        m_window->commandsAdded();
        m_window->resize(1750, 950);
        m_window->show();
        waitWhile([&] { return !m_window->windowHandle()->isExposed(); });
        rest(300);
    }

    void open(QStringList const& files)
    {
        waits("opening", [&] {
            m_window->files().openFiles(files);
            waitWhile([&] { return m_window->files().isWorking(); });
        });
        view().OnViewType(6);
        view().fitAll();
        rest(300);
        waitWhile([&] { return view().scene().standIns().isWorking(); });
        rest(1000);
    }

    void pictures()
    {
        std::size_t triangles = 0;
        for (Mesh::DocumentObject const* const part : document().getMeshObjects())
            triangles += part->meshProperty->getMesh()->readMesh()->triangles.size();
        std::printf("%zu triangles, view of %d x %d\n", triangles, view().width(), view().height());
        report("picture at rest", view(), [&](int) { view().update(); });
        orbit("orbit");
        view().getCamera()->zoom(0.2);
        orbit("orbit, near");
        view().fitAll();
        dragHeight();
        dragCutView();
        setMode(Base::ViewProvider::ShadedWithEdges);
        orbit("orbit with edges");
        dragHeight();
        setMode(Base::ViewProvider::Shaded);
        dragPlane();
    }

    void cut()
    {
        auto const parts = document().getMeshObjects();
        parts.back()->setSelected(true, true, true);
        UBox3<float> const box = parts.back()->getBoundingBox();
        Base::MellViewSlider::instance()->setHeight(0.5f * (box.MinZ() + box.MaxZ()) + 0.0123f);
        rest(1000);
        waits("Z cut", [&] {
            trigger("Std_zCut");
            waitWhile([] { return JobGuard::instance()->isBusy(); });
        });
        std::printf("parts now: %zu\n", document().getMeshObjects().size());
        step("Std_Hide");
        step("Std_ShowAll");
        step("Std_Undo");
        step("Std_Redo");
        step("Std_Undo");
        step("Std_SelectAll");
        step("Std_Delete");
    }

    /// What the window waits for while changed work is kept for recovery.
    void keep()
    {
        m_window->keepUnsavedWork(m_recovery.path().toStdString());
        application().toldFrom = 10;
        waits("keeping work", [&] {
            PartPlacement::move(document(), {document().getMeshObjects().back()}, {0, 0, 1});
            rest(8000);
        });
        application().toldFrom = 50;
    }

    void arrange()
    {
        for (char const* const name :
             {"Std_Arrange", "Std_SelectAll", "Std_SelectNone", "Std_Undo", "Std_Redo",
              "Std_SelectAll", "Std_Duplicate", "Std_Undo", "Std_Delete", "Std_Undo"})
            step(name);
    }

private:
    Mesh::GLView& view() const { return m_window->view(); }
    Mesh::Document& document() const
    {
        return static_cast<Mesh::Document&>(*m_application.activeDocument());
    }

    void trigger(char const* name)
    {
        m_application.commandManager().getCommandByName(name)->getAction()->getQAction()->trigger();
    }

    void step(char const* command)
    {
        waits(command, [&] {
            // As a person's click does, by an event.
            QTimer::singleShot(0, m_window.get(), [&] { trigger(command); });
            rest(0);
            waitWhile([] { return JobGuard::instance()->isBusy(); });
        });
    }

    /// Tells how long it takes until the pictures are there, and the longest wait meanwhile.
    void waits(char const* name, std::function<void()> const& work)
    {
        QElapsedTimer timer;
        timer.start();
        application().waits.clear();
        work();
        double const result = double(timer.elapsed());
        rest(50);
        waitWhile([&] { return view().scene().preparer().isWorking(); });
        rest(600);
        std::printf("%-12s %6.0f ms; waits of %.0f ms and more:", name, result,
                    application().toldFrom);
        for (TimedApplication::Wait const& wait : application().waits) {
            std::printf("\n  %.0f (%s, processor %.0f)", wait.ms, wait.name.constData(),
                        wait.processor);
            for (std::string const& stack : wait.stacks)
                std::printf("\n      %s", stack.c_str());
        }
        std::puts("");
        std::fflush(stdout);
    }

    void setMode(int mode)
    {
        for (Mesh::DocumentObject const* const part : document().getMeshObjects())
            document().getViewProvider(part)->setRenderMode(mode);
        rest(1500);
    }

    QPoint inWindow(QPoint place) const { return view().mapTo(m_window.get(), place); }

    /// Drags by the mouse along a circle.
    void drag(char const* name, Qt::MouseButton button, QPoint from, double radius)
    {
        QWindow* const target = m_window->windowHandle();
        QTest::mouseMove(target, inWindow(from));
        rest(100);
        QTest::mousePress(target, button, {}, inWindow(from));
        auto const place = [&](int i) {
            double const angle = 0.25 * i;
            return from +
                   QPoint(int(radius * std::sin(angle)), int(radius * (1 - std::cos(angle))));
        };
        QTest::mouseMove(target, inWindow(place(1)));
        rest(30);
        report(name, view(), [&](int i) { QTest::mouseMove(target, inWindow(place(i + 2))); });
        QTest::mouseRelease(target, button, {}, inWindow(place(25)));
        rest(1500);
    }

    void orbit(char const* name)
    {
        drag(name, Qt::RightButton, QPoint(view().width() / 2, view().height() / 2), 120);
    }

    /// With the button down, as it is for the widgets that a person drags.
    void dragValue(char const* name, std::function<void(double)> const& set)
    {
        QWindow* const target = m_window->windowHandle();
        QPoint const corner = inWindow({3, view().height() - 3});
        QTest::mousePress(target, Qt::LeftButton, {}, corner);
        report(name, view(), [&](int i) { set(0.5 + 0.3 * std::sin(0.3 * (i + 1))); });
        QTest::mouseRelease(target, Qt::LeftButton, {}, corner);
        rest(1500);
    }

    void dragHeight()
    {
        auto& slider = *Base::MellViewSlider::instance();
        dragValue("height slider", [&](double share) {
            slider.setHeight(
                float(slider.getMinimum() + share * (slider.getMaximum() - slider.getMinimum())));
        });
    }

    void dragCutView()
    {
        auto* const page = m_window->findChild<CutView*>();
        UBox3<float> const box = view().getPartsBox();
        page->setActive(true);
        rest(1500);
        dragValue("cut view", [&](double share) {
            page->setPosition(box.MinZ() + share * (box.MaxZ() - box.MinZ()));
        });
        page->setActive(false);
        rest(1000);
    }

    void dragPlane()
    {
        view().OnViewType(6);
        view().fitAll();
        rest(1000);
        trigger("Std_Sectioncut");
        rest(1500);
        QPoint const middle(view().width() / 2, view().height() / 2);
        int const step = view().height() / 12;
        for (QPoint const& way : {QPoint(-step, step), QPoint(step, step), QPoint(0, -step)})
            QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, inWindow(middle + way));
        rest(1500);
        auto* const tool = Freecut::runningTool<Freecut::PlanecutSelection>(&view());
        if (!tool || !tool->getPlaneObject()) {
            std::puts("section plane: not picked");
            return;
        }
        int x, y;
        view().getWidgetcoordFromWCS(tool->getPlaneObject()->getProperty().getKeyPoints()[0], x, y);
        drag("section plane, moved by a handle", Qt::LeftButton, {x, y}, 60);
        view().stopSelection();
        rest(500);
    }

    QTemporaryDir m_recovery;
    Application m_application;
    std::unique_ptr<OrbeWindow> m_window;
};

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fputs("usage: window_speed [--cut | --many] FILE...\n", stderr);
        return 2;
    }
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    TimedApplication const qt(argc, argv);
    QTemporaryDir const settings;
    QSettings::setPath(g_AppSettingFormat, QSettings::UserScope, settings.path());
    QCoreApplication::setApplicationName("window_speed");
    Session session;
    std::string_view const way = argv[1];
    bool const isMany = way == "--many";
    bool const isDragged = way != "--cut" && !isMany;
    QStringList files;
    for (int i = isDragged ? 1 : 2; i < argc; ++i)
        files << QString::fromLocal8Bit(argv[i]);
    if (isMany) {
        session.open(files);
        session.arrange();
        session.keep();
        return 0;
    }
    for (QString const& file : files)
        session.open({file});
    if (isDragged)
        session.pictures();
    session.cut();
    session.open(files.mid(0, 1));
    session.keep();
    return 0;
}

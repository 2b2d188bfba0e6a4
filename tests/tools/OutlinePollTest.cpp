// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Rounds.h"
#include "tests/tools/ToothedPolygon.h"
#include "tools/OutlineCrossings.h"
#include "tools/OutlineOffset.h"
#include "tools/RoundRing.h"
#include "tools/WoundRegion.h"

#include <gtest/gtest.h>

#include <atomic>
#include <random>

// Deriving the outlines of a tool may take seconds. All of it asks whether it is still wanted.

namespace {

struct Given : std::exception
{
};

/// Counts how often it is asked, on all threads, and gives the work up at one of the questions.
class Question
{
public:
    explicit Question(long last = -1) : m_last(last) {}

    Freecut::WorkPoll poll()
    {
        return [this] {
            if (++m_asked == m_last)
                throw Given();
        };
    }
    long asked() const { return m_asked; }

private:
    std::atomic<long> m_asked = 0;
    long m_last;
};

template <typename Work>
long questionsOf(Work const& work)
{
    Question question;
    work(question.poll());
    return question.asked();
}

Freecut::FlatRing scribble(int points, int size, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> coordinate(-size, size);
    Freecut::FlatRing ring;
    for (int i = 0; i < points; ++i) {
        int const x = coordinate(random);
        ring.emplace_back(float(x), float(coordinate(random)));
    }
    return ring;
}

/// Long slanted teeth side by side: none of the edges cross, and all their boxes meet.
Freecut::FlatRing slantedComb(int teeth)
{
    Freecut::FlatRing ring{{-50000, -100}};
    for (int i = 0; i < teeth; ++i) {
        ring.emplace_back(float(20 * i), 0.0f);
        ring.emplace_back(float(20 * i + 40010), 40000.0f);
    }
    ring.emplace_back(float(20 * teeth + 50000), -100.0f);
    return ring;
}

Freecut::Curve curveOf(Freecut::FlatRing const& ring)
{
    Freecut::Curve curve;
    for (UPoint2<float> const& p : ring)
        curve.emplace_back(p.X(), p.Y());
    return curve;
}

Freecut::Ring millimetres(Freecut::FlatRing const& ring)
{
    Freecut::Ring corners;
    for (UPoint2<float> const& p : ring)
        corners.push_back({p.X() / 1000, p.Y() / 1000, 0});
    return corners;
}

Freecut::Ring circle(int points, float radius)
{
    Freecut::Ring ring;
    for (UPoint2<float> const& p : circlePoints(1, points))
        ring.push_back({p.X() * radius, p.Y() * radius, 0});
    return ring;
}

/// A drawn outline, with what it is rounded and moved by.
struct Drawing
{
    char const* name;
    Freecut::Ring corners;
    float radius;
    float clearance;
};

/// Large under sanitizers too: with fewer points there is little to give up.
std::vector<Drawing> hardDrawings()
{
    return {
        {"scribble", millimetres(scribble(400, 100000, 1)), 0, 0},
        {"moved scribble", millimetres(scribble(150, 50000, 2)), 0, 0.5f},
        {"rounded circle", circle(3000, 80), 0.01f, 0.3f},
        {"wide arcs", circle(300, 2), 0, 50},
        {"long circle", circle(40000, 60), 0, 5},
    };
}

class Derivation
{
public:
    explicit Derivation(Drawing const& drawing) : m_outline(m_record)
    {
        m_record.setKeyPoints(drawing.corners);
        m_record.setExtrudeVector({0, 0, 30});
        m_record.getEdgeRecords().resize(drawing.corners.size());
        m_record.setRoundCorners(drawing.radius > 0);
        m_record.setCornerRadius(drawing.radius);
        m_record.setClearanceEnabled(drawing.clearance > 0);
        m_record.setClearance(drawing.clearance);
        m_record.setClearanceDirection(2);
    }

    void run(Freecut::WorkPoll const& poll) { m_outline.update(topCamera(), false, true, poll); }
    Freecut::ToolOutlines const& outlines() const { return m_outline.outlines(); }

private:
    Freecut::PolygonProperty m_record;
    Freecut::PolygonOutline m_outline;
};

}  // namespace

TEST(OutlinePoll, EveryStageAsksInProportionToItsWork)
{
    using Freecut::WorkPoll;
    Freecut::FlatRing const drawn = slantedComb(rounds(800));
    // Each question stands for some thousand steps.
    long const pairs = long(drawn.size() * drawn.size()) / 2;
    EXPECT_TRUE(Freecut::resolveSelfIntersections(drawn).residual.empty());
    EXPECT_GT(
        questionsOf([&](WorkPoll const& poll) { Freecut::resolveSelfIntersections(drawn, poll); }),
        pairs / 8192);
    EXPECT_GT(questionsOf([&](WorkPoll const& poll) {
                  Freecut::outlineOfWoundRegion({curveOf(drawn)}, 10'000'000, poll);
              }),
              pairs / 8192);
    EXPECT_GT(questionsOf([&](WorkPoll const& poll) {
                  Freecut::Ring ring = circle(fineness(20000), 100);
                  Freecut::roundRing(ring, 0.002f, poll);
              }),
              fineness(20000) / 8192 * 40);
    Freecut::Loops const long_{circle(fineness(40000), 60)};
    GLCamera const camera = topCamera();
    Freecut::SketchPlane const plane(camera, 0);
    long const constructing = questionsOf(
        [&](WorkPoll const& poll) { Freecut::OutlineOffset const offset(long_, plane, poll); });
    long const both = questionsOf([&](WorkPoll const& poll) {
        EXPECT_TRUE(Freecut::OutlineOffset(long_, plane, poll).moved(1).has_value());
    });
    EXPECT_GT(constructing, long(long_[0].size()) / 8192);
    EXPECT_GT(both - constructing, long(long_[0].size()) / 8192);
}

TEST(OutlinePoll, WorkThatIsGivenUpAtAnyQuestionLeavesNothingAndCanBeDoneAgain)
{
    std::mt19937 random(4);
    for (Drawing const& drawing : hardDrawings()) {
        SCOPED_TRACE(drawing.name);
        Derivation whole(drawing);
        long const questions = questionsOf([&](Freecut::WorkPoll const& poll) { whole.run(poll); });
        ASSERT_GT(questions, 10);
        Derivation derivation(drawing);
        for (int run = 0; run < 12; ++run) {
            // Two threads ask at once, so the last few questions may be counted otherwise.
            Question question(1 + long(random() % std::size_t(questions - 5)));
            EXPECT_THROW(derivation.run(question.poll()), Given);
            EXPECT_TRUE(derivation.outlines().solidLoops.empty());
            EXPECT_TRUE(derivation.outlines().innerLoops.empty());
            EXPECT_TRUE(derivation.outlines().outlineBuffer.empty());
        }
        derivation.run({});
        EXPECT_EQ(derivation.outlines().solidLoops, whole.outlines().solidLoops);
        EXPECT_EQ(derivation.outlines().innerLoops, whole.outlines().innerLoops);
        EXPECT_EQ(derivation.outlines().outerLoops, whole.outlines().outerLoops);
    }
}

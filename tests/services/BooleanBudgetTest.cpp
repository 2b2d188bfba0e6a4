// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ContactFinder.h"
#include "host/services/boolean/MemoryRoom.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace {

constexpr std::uint64_t plenty = std::uint64_t(1) << 40;

/// Two combs of upright and lying plates that cross each other everywhere.
Soup comb(int plates, bool isUpright)
{
    Soup soup;
    for (int i = 0; i < plates; ++i) {
        auto const place = float(2 * i + 1);
        auto const length = float(2 * plates + 1);
        soup.append(isUpright ? box(1, length, length, {place, 0, 0})
                              : box(length, 1, length, {0, place, 0.5f}));
    }
    return soup;
}

class Contacts
{
public:
    Contacts(Soup const& part, Soup const& tool)
        : m_progress(m_unasked), m_tool{tool.points, tool.triangles}, m_tree(m_tool, m_progress)
    {
        m_soup.mesh = {part.points, part.triangles};
        m_soup.firstPointOfSecond = std::uint32_t(part.points.size());
        m_soup.firstTriangleOfSecond = std::uint32_t(part.triangles.size());
        for (auto const& p : tool.points)
            m_soup.mesh.points.push_back(p);
        for (auto corners : tool.triangles) {
            for (std::uint32_t& corner : corners)
                corner += m_soup.firstPointOfSecond;
            m_soup.mesh.triangles.push_back(corners);
        }
        TriangleTree::Box box;
        for (auto const& p : part.points)
            box.add({{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}});
        m_grid = std::make_unique<ToolGrid>(m_tree, box, 1 << 12, m_progress);
    }

    std::optional<std::vector<TrianglePair>> upTo(std::size_t most)
    {
        return findContacts(m_soup, *m_grid, most, m_progress);
    }
    /// By looking at all pairs.
    std::vector<TrianglePair> slowly() const
    {
        std::vector<TrianglePair> pairs;
        auto const cornersOf = [&](std::uint32_t t) {
            return TriangleCorners{m_soup.mesh.point(t, 0), m_soup.mesh.point(t, 1),
                                   m_soup.mesh.point(t, 2)};
        };
        for (std::uint32_t t = 0; t < m_soup.firstTriangleOfSecond; ++t)
            for (std::uint32_t u = m_soup.firstTriangleOfSecond; u < m_soup.triangleCount(); ++u)
                if (auto const contact = contactOf(cornersOf(t), cornersOf(u)); contact.count > 0)
                    pairs.push_back({t, u, contact});
        return pairs;
    }

private:
    std::function<void(int)> const m_unasked;
    StageProgress m_progress;
    MeshArrays m_tool;
    ToolTree m_tree;
    OperandSoup m_soup;
    std::unique_ptr<ToolGrid> m_grid;
};

}  // namespace

/// The exact way ends with a sentence before it begins where it would take more than four gigabytes.
TEST(BooleanBudget, OfTheExactWayReachesToFourGigabytesAndNoFurther)
{
    EXPECT_TRUE(hasExactRoom(0, 0, plenty));
    EXPECT_TRUE(hasExactRoom(2'863'311, 0, plenty));
    EXPECT_FALSE(hasExactRoom(2'863'312, 0, plenty));
    EXPECT_TRUE(hasExactRoom(0, 71'582, plenty));
    EXPECT_FALSE(hasExactRoom(0, 71'583, plenty));
    EXPECT_TRUE(hasExactRoom(1'000'000, 46'582, plenty));
    EXPECT_FALSE(hasExactRoom(1'000'000, 46'583, plenty));
}

TEST(BooleanBudget, IsNeverMoreThanTheMachineHas)
{
    EXPECT_TRUE(hasExactRoom(1000, 0, 1'500'000));
    EXPECT_FALSE(hasExactRoom(1001, 0, 1'500'000));
    EXPECT_EQ(mostContacts(plenty), 40'000'000u);
    EXPECT_EQ(mostContacts(3'000'000), 10'000u);
    EXPECT_EQ(mostContacts(0), 0u);
}

/// Each count from none to all: the limit is the first that is too few.
TEST(BooleanBudget, ContactsBeyondItAreNotCollected)
{
    Contacts contacts(comb(4, true), comb(4, false));
    std::size_t const all = contacts.slowly().size();
    ASSERT_GT(all, 100u);
    ASSERT_TRUE(contacts.upTo(all));
    EXPECT_EQ(contacts.upTo(all)->size(), all);
    EXPECT_FALSE(contacts.upTo(all - 1));
    EXPECT_FALSE(contacts.upTo(0));
}

TEST(Contacts, AreThoseOfAllPairsInTheirOrder)
{
    Contacts const slow(comb(5, true), sphere(6, 20, 24, {5, 5, 5}));
    Contacts fast(comb(5, true), sphere(6, 20, 24, {5, 5, 5}));
    auto const expected = slow.slowly();
    auto found = fast.upTo(1'000'000);
    ASSERT_TRUE(found);
    std::erase_if(*found, [](TrianglePair const& pair) { return pair.contact.count == 0; });
    ASSERT_EQ(found->size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ((*found)[i].first, expected[i].first);
        EXPECT_EQ((*found)[i].second, expected[i].second);
    }
}

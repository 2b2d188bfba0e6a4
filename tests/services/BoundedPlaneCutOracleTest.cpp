// SPDX-License-Identifier: GPL-3.0-or-later
// The rule of the bounded plane cut, told once more on squares of a front view and without a mesh.
#include "tests/services/CutFamilies.h"
#include "tests/support/Rounds.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using Rows = std::vector<std::string>;

constexpr int width = 13;
constexpr int height = 9;

Rows randomSquares(std::mt19937& random)
{
    Rows rows(height, std::string(width, '.'));
    for (std::string& row : rows)
        for (char& square : row)
            square = random() % 100 < 42 ? '#' : '.';
    return rows;
}

/// Upright bars, some of which reach up or down to beams that join them, so that bodies wind up and
/// down through the plane.
Rows randomWinding(std::mt19937& random)
{
    Rows rows(height, std::string(width, '.'));
    for (std::size_t x = 0; x < width; x += 2)
        for (std::size_t z = 1; z < height - 1; ++z) {
            bool const isEnd = z == 1 || z == height - 2;
            if (!isEnd || random() % 2 == 0)
                rows[z][x] = '#';
        }
    for (std::size_t z : {std::size_t(0), std::size_t(height - 1)})
        for (std::size_t x = 0; x < width; ++x)
            if (random() % 100 < 85)
                rows[z][x] = '#';
    return rows;
}

/// A random picture in which no two squares touch in a corner only.
Rows randomPicture(std::mt19937& random)
{
    Rows rows = random() % 3 == 0 ? randomSquares(random) : randomWinding(random);
    for (bool isChanging = true; isChanging;) {
        isChanging = false;
        for (std::size_t z = 0; z + 1 < height; ++z)
            for (std::size_t x = 0; x + 1 < width; ++x) {
                bool const a = rows[z][x] == '#', b = rows[z][x + 1] == '#';
                bool const c = rows[z + 1][x] == '#', d = rows[z + 1][x + 1] == '#';
                if (a == d && b == c && a != b) {
                    rows[z][x] = rows[z][x + 1] = '#';
                    isChanging = true;
                }
            }
    }
    return rows;
}

/// A run of squares in the row that the plane cuts in the middle.
struct Run
{
    int first;
    int last;
    bool isCut = false;
};

/// What the cut is to make of a picture. A row of half squares stands for each half of the row that
/// the plane cuts.
class PictureCut
{
public:
    PictureCut(Rows const& rows, int cutRow, int firstCovered, int lastCovered)
        : m_cutRow(cutRow), m_rows(rows)
    {
        m_rows.insert(m_rows.begin() + cutRow, rows[std::size_t(cutRow)]);
        findRuns();
        for (Run& run : m_runs)
            run.isCut = firstCovered <= run.first && run.last <= lastCovered;
        flood();
        choose();
        flood();
    }

    bool isAnythingCut() const
    {
        return std::any_of(m_runs.begin(), m_runs.end(), [](Run const& run) { return run.isCut; });
    }

    int cutSquares() const
    {
        int count = 0;
        for (Run const& run : m_runs)
            count += run.isCut ? run.last - run.first + 1 : 0;
        return count;
    }

    /// In halves of squares.
    int volumeAbove() const
    {
        std::vector<bool> const isAbove = sides();
        int volume = 0;
        for (int row = 0; row <= height; ++row)
            for (int x = 0; x < width; ++x)
                if (isFilled(row, x) && isAbove[std::size_t(pieceAt(row, x))])
                    volume += isHalf(row) ? 1 : 2;
        return volume;
    }

private:
    bool isFilled(int row, int x) const
    {
        return row >= 0 && row <= height && x >= 0 && x < width &&
               m_rows[std::size_t(row)][std::size_t(x)] == '#';
    }
    bool isHalf(int row) const { return row == m_cutRow || row == m_cutRow + 1; }
    int pieceAt(int row, int x) const { return m_pieces[std::size_t(row * width + x)]; }
    int above(Run const& run) const { return pieceAt(m_cutRow, run.first); }
    int below(Run const& run) const { return pieceAt(m_cutRow + 1, run.first); }

    void findRuns()
    {
        for (int x = 0; x < width; ++x) {
            if (!isFilled(m_cutRow, x))
                continue;
            if (!isFilled(m_cutRow, x - 1))
                m_runs.push_back({x, x});
            m_runs.back().last = x;
        }
    }

    bool isOpen(int x) const
    {
        return std::any_of(m_runs.begin(), m_runs.end(), [x](Run const& run) {
            return run.isCut && run.first <= x && x <= run.last;
        });
    }

    /// Numbers what hangs together.
    void flood()
    {
        m_pieces.assign(std::size_t((height + 1) * width), -1);
        m_pieceCount = 0;
        for (int row = 0; row <= height; ++row)
            for (int x = 0; x < width; ++x)
                if (isFilled(row, x) && pieceAt(row, x) < 0)
                    floodFrom(row, x, m_pieceCount++);
    }

    void floodFrom(int row, int x, int piece)
    {
        if (!isFilled(row, x) || pieceAt(row, x) >= 0)
            return;
        m_pieces[std::size_t(row * width + x)] = piece;
        floodFrom(row, x - 1, piece);
        floodFrom(row, x + 1, piece);
        if (row != m_cutRow || !isOpen(x))
            floodFrom(row + 1, x, piece);
        if (row != m_cutRow + 1 || !isOpen(x))
            floodFrom(row - 1, x, piece);
    }

    using Matrix = std::vector<std::vector<bool>>;

    /// From which piece to which one can come through faces, upwards or both ways.
    Matrix reach(bool isBothWays) const
    {
        auto const count = std::size_t(m_pieceCount);
        Matrix reaches(count, std::vector<bool>(count, false));
        for (std::size_t p = 0; p < count; ++p)
            reaches[p][p] = true;
        for (std::size_t pass = 0; pass < count; ++pass)
            for (Run const& run : m_runs)
                for (std::size_t from = 0; from < count && run.isCut; ++from) {
                    auto const low = std::size_t(below(run)), high = std::size_t(above(run));
                    if (reaches[from][low])
                        reaches[from][high] = true;
                    if (isBothWays && reaches[from][high])
                        reaches[from][low] = true;
                }
        return reaches;
    }

    void choose()
    {
        Matrix const up = reach(false), body = reach(true);
        auto const isSame = [&](int a, int b) {
            return up[std::size_t(a)][std::size_t(b)] && up[std::size_t(b)][std::size_t(a)];
        };
        auto const isRing = [&](Run const& run) { return isSame(below(run), above(run)); };
        auto const frees = [&](Run const& run, bool isUpper) {
            return run.isCut && !isRing(run) &&
                   std::none_of(m_runs.begin(), m_runs.end(), [&](Run const& other) {
                       return other.isCut && !isRing(other) &&
                              (isUpper ? isSame(below(other), above(run))
                                       : isSame(above(other), below(run)));
                   });
        };
        std::vector<bool> chosen;
        for (Run const& run : m_runs) {
            int upper = 0, lower = 0;
            for (Run const& other : m_runs)
                if (body[std::size_t(below(run))][std::size_t(below(other))]) {
                    upper += frees(other, true);
                    lower += frees(other, false);
                }
            chosen.push_back(frees(run, upper >= lower));
        }
        for (std::size_t i = 0; i < m_runs.size(); ++i)
            m_runs[i].isCut = chosen[i];
    }

    /// Per piece: whether it goes above.
    std::vector<bool> sides() const
    {
        std::vector<bool> isAbove;
        for (int piece = 0; piece < m_pieceCount; ++piece)
            isAbove.push_back(momentOf(piece) >= 0);
        for (Run const& run : m_runs)
            if (run.isCut) {
                isAbove[std::size_t(above(run))] = true;
                isAbove[std::size_t(below(run))] = false;
            }
        return isAbove;
    }

    /// The height of a row's middle above the plane, in quarters of a square.
    int level(int row) const
    {
        return row <= m_cutRow ? (row == m_cutRow ? 1 : 4 * (m_cutRow - row))
                               : (row == m_cutRow + 1 ? -1 : 4 * (m_cutRow + 1 - row));
    }

    /// The sum of area times height over the faces of a piece.
    int momentOf(int piece) const
    {
        int moment = 0;
        for (int row = 0; row <= height; ++row)
            for (int x = 0; x < width; ++x) {
                if (!isFilled(row, x) || pieceAt(row, x) != piece)
                    continue;
                int const area = isHalf(row) ? 1 : 2;
                int const half = area;
                int const sidesSeen = 2 + !isFilled(row, x - 1) + !isFilled(row, x + 1);
                moment += sidesSeen * area * level(row);
                if (!isFilled(row - 1, x))
                    moment += 2 * (level(row) + half);
                if (!isFilled(row + 1, x))
                    moment += 2 * (level(row) - half);
            }
        return moment;
    }

    int m_cutRow;
    Rows m_rows;
    std::vector<Run> m_runs;
    std::vector<int> m_pieces;
    int m_pieceCount = 0;
};

}  // namespace

TEST(BoundedPlaneCut, AgreesWithTheRuleToldOnPictures)
{
    std::mt19937 random(3);
    int cuts = 0;
    for (int run = 0; run < rounds(3000); ++run) {
        Rows const rows = randomPicture(random);
        int const cutRow = int(random() % height);
        int first = int(random() % width), last = int(random() % width);
        if (first > last)
            std::swap(first, last);
        // Where the plane covers the section the plain cut goes by sides alone.
        std::string const& row = rows[std::size_t(cutRow)];
        bool isCovered = true;
        for (int x = 0; x < width; ++x)
            isCovered &= row[std::size_t(x)] != '#' || (first <= x && x <= last);
        Soup const soup = fromFrontView(rows);
        if (isCovered || !manifoldFaults(soup).empty())
            continue;
        PictureCut const expected(rows, cutRow, first, last);
        auto const part = kernelOf(soup);
        float const level = 10 * (height - 1 - float(cutRow)) + 5;
        auto const plane = levelPlane({10 * float(first), 0}, {10 * float(last) + 10, 10}, level);
        auto const outcome = cut(*part, *plane);
        std::string picture;
        for (std::string const& line : rows)
            picture += line + "\n";
        SCOPED_TRACE(picture + "row " + std::to_string(cutRow) + ", " + std::to_string(first) +
                     " to " + std::to_string(last));
        EXPECT_NEAR(areaOf(soupOf(outcome->section)), 100 * expected.cutSquares(), 1e-2);
        double const volume =
            expected.isAnythingCut() ? 500.0 * expected.volumeAbove() : volumeOf(soup);
        ASSERT_NEAR(volumeOf(soupOf(outcome->above)), volume, 1e-1);
        cuts += expected.isAnythingCut();
    }
    EXPECT_GT(cuts, rounds(300));
}

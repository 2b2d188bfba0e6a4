// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/StrokeText.h"

namespace {

constexpr double letterWidth = 4;
constexpr double letterHeight = 6;
constexpr double advance = 6;

/// Lines from x, y to x, y, a digit each.
std::string_view linesOf(char letter)
{
    switch (letter) {
        case 'A':
            return "002626401333";
        case 'B':
            return "0006063636454544443303333342424141303000";
        case 'C':
            return "46161605050101101040";
        case 'E':
            return "0006064603330040";
        case 'F':
            return "000606460333";
        case 'G':
            return "4616160505010110104040434323";
        case 'H':
            return "000640460343";
        case 'I':
            return "202616361030";
        case 'K':
            return "000603460340";
        case 'L':
            return "06000040";
        case 'M':
            return "0006062323464640";
        case 'N':
            return "000606404046";
        case 'O':
            return "10303041414545363616160505010110";
        case 'P':
            return "000606363645454444333303";
        case 'R':
            return "0006063636454544443333032340";
        case 'S':
            return "45363616160505040413133333424241413030101001";
        case 'T':
            return "20260646";
        case 'U':
            return "06010110103030414146";
        case 'V':
            return "06202046";
        default:
            return "";
    }
}

}  // namespace

std::vector<std::array<double, 2>> strokesOf(std::string_view word)
{
    std::vector<std::array<double, 2>> points;
    double const width = advance * double(word.size()) - (advance - letterWidth);
    double start = -width / 2;
    for (char const letter : word) {
        std::string_view const lines = linesOf(letter);
        for (std::size_t i = 0; i + 1 < lines.size(); i += 2)
            points.push_back({start + (lines[i] - '0'), (lines[i + 1] - '0') - letterHeight / 2});
        start += advance;
    }
    return points;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/cli/FreecutProcess.h"

/// The words of a command, one list after the other.
std::vector<std::string> with(std::vector<std::string> words, std::vector<std::string> const& more);

/// Each part cut twice by the same command: in memory to one folder, while it is read to another.
class BothWays : public FreecutFolder
{
public:
    /// The pieces of both are closed, and the same but for the order of their triangles. So is what is told
    /// of the section.
    void expectTheSame(std::vector<std::string> const& command, std::size_t leastPieces = 2);

private:
    void expectTheSameFiles();
};

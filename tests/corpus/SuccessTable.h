// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/corpus/Trial.h"

#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace corpus {

/// Counts results per kind of input and operation, and prints them as a table.
class SuccessTable
{
public:
    void add(std::string const& kind, std::string const& part, std::string const& operation,
             Trial const& trial);

    /// A table in Markdown, one row per kind, then a line for each failure.
    void print(std::ostream& out) const;
    std::size_t failures() const { return m_failures.size(); }
    /// Whether each operation that there is ended with right pieces.
    bool isAllOk() const;

private:
    using Counts = std::map<Result, int>;

    static std::string cellOf(Counts const& counts);

    // In the order in which they came.
    std::vector<std::string> m_kinds;
    std::vector<std::string> m_operations;
    std::map<std::pair<std::string, std::string>, Counts> m_counts;
    std::vector<std::string> m_failures;
};

}  // namespace corpus

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/corpus/SuccessTable.h"

#include <algorithm>

namespace corpus {
namespace {

void addOnce(std::vector<std::string>& list, std::string const& name)
{
    if (std::find(list.begin(), list.end(), name) == list.end())
        list.push_back(name);
}

}  // namespace

void SuccessTable::add(std::string const& kind, std::string const& part,
                       std::string const& operation, Trial const& trial)
{
    addOnce(m_kinds, kind);
    addOnce(m_operations, operation);
    ++m_counts[{kind, operation}][trial.result];
    if (isFailure(trial.result))
        m_failures.push_back("- " + part + ", " + operation + ": **" + nameOf(trial.result) +
                             "** " + trial.text + " `freecut " + trial.command + "`");
}

std::string SuccessTable::cellOf(Counts const& counts)
{
    int all = 0;
    std::string others;
    for (auto const& [result, count] : counts) {
        if (result == Result::Unknown)
            return "-";
        all += count;
        if (result != Result::Ok)
            others += (others.empty() ? "" : ", ") + std::to_string(count) + " " + nameOf(result);
    }
    auto const ok = counts.find(Result::Ok);
    return std::to_string(ok == counts.end() ? 0 : ok->second) + "/" + std::to_string(all) +
           (others.empty() ? "" : " (" + others + ")");
}

bool SuccessTable::isAllOk() const
{
    for (auto const& [place, counts] : m_counts)
        for (auto const& [result, count] : counts)
            if (result != Result::Ok && result != Result::Unknown)
                return false;
    return !m_counts.empty();
}

void SuccessTable::print(std::ostream& out) const
{
    out << "| input |";
    for (std::string const& operation : m_operations)
        out << " " << operation << " |";
    out << "\n|---|";
    for (std::size_t i = 0; i < m_operations.size(); ++i)
        out << "---|";
    out << "\n";
    for (std::string const& kind : m_kinds) {
        out << "| " << kind << " |";
        for (std::string const& operation : m_operations) {
            auto const counts = m_counts.find({kind, operation});
            out << " " << (counts == m_counts.end() ? "" : cellOf(counts->second)) << " |";
        }
        out << "\n";
    }
    if (!m_failures.empty())
        out << "\n";
    for (std::string const& failure : m_failures)
        out << failure << "\n";
}

}  // namespace corpus

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/BatchJob.h"

namespace {

/// As a person would write it: true for a switch, a number where the text is one.
Report fieldOf(std::string const& value)
{
    if (value.empty())
        return true;
    Report const number = Report::parse(value, nullptr, false);
    return number.is_number() && number.dump() == value ? number : Report(value);
}

}  // namespace

std::string BatchJob::valueOf(std::string const& option) const
{
    auto const found = options.find(option);
    return found == options.end() ? std::string() : found->second;
}

std::vector<std::string> BatchJob::arguments() const
{
    std::vector<std::string> words{command};
    for (auto const& [name, value] : options)
        words.push_back(value.empty() ? name : name + '=' + value);
    words.emplace_back("--");
    words.insert(words.end(), files.begin(), files.end());
    return words;
}

Report BatchJob::json() const
{
    Report fields;
    fields["command"] = command;
    fields["files"] = files;
    for (auto const& [name, value] : options)
        fields[name.substr(name.find_first_not_of('-'))] = fieldOf(value);
    return fields;
}

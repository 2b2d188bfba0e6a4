// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/NamePattern.h"

#include "cli/Errors.h"

namespace {

std::string digitsOf(std::size_t number, std::size_t count)
{
    std::string const text = std::to_string(number);
    return std::string(count > text.size() ? count - text.size() : 0, '0') + text;
}

UsageError wrong(std::string const& what)
{
    return UsageError("--name: " + what +
                      " In a pattern there may be {stem}, {part}, {name}, {piece} and {piece:02}.");
}

/// Of "piece:02".
std::size_t digitsIn(std::string const& word)
{
    std::string const digits = word.substr(word.find(':') + 1);
    if (digits.size() != 2 || digits[0] != '0' || digits[1] < '1' || digits[1] > '9')
        throw wrong("{" + word + "} says no number of digits.");
    return std::size_t(digits[1] - '0');
}

}  // namespace

NamePattern::NamePattern(std::string const& text)
{
    for (std::size_t i = 0; i < text.size();) {
        std::size_t const open = std::min(text.find('{', i), text.size());
        if (text.substr(i, open - i).find('}') != std::string::npos)
            throw wrong("a brace has no beginning.");
        if (open > i)
            m_items.emplace_back(text.substr(i, open - i));
        if (open == text.size())
            break;
        std::size_t const close = text.find('}', open);
        if (close == text.npos)
            throw wrong("a brace has no end.");
        m_items.push_back(itemOf(text.substr(open + 1, close - open - 1)));
        i = close + 1;
    }
}

NamePattern::Item NamePattern::itemOf(std::string const& word)
{
    if (word == "stem")
        return &Subject::stem;
    if (word == "part")
        return &Subject::part;
    if (word == "name")
        return &Subject::name;
    if (word == "piece")
        return Number{1};
    if (word.starts_with("piece:"))
        return Number{digitsIn(word)};
    throw wrong("{" + word + "} means nothing.");
}

std::string NamePattern::nameOf(Subject const& subject) const
{
    std::string name;
    for (Item const& item : m_items) {
        if (auto const* const text = std::get_if<std::string>(&item))
            name += *text;
        else if (auto const* const number = std::get_if<Number>(&item))
            name += digitsOf(subject.piece, number->digits);
        else
            name += subject.*std::get<std::string Subject::*>(item);
    }
    return name;
}

bool isNamePattern(std::string const& text)
{
    return text.find_first_of("{}") != text.npos;
}

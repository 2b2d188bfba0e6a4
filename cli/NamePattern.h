// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

/// How pieces are named by their part, such as "{stem}_{piece:02}": words in braces stand for
///
///     {stem}       the name of the file, without folder and extension
///     {part}       the name of the part, of which a file may hold several
///     {name}       the name that the piece would have otherwise
///     {piece}      its number among the pieces of its part, counted from 1; {piece:02} with zeros in
///                  front up to two digits
class NamePattern
{
public:
    /// throws  UsageError that tells what is wrong
    explicit NamePattern(std::string const& text);

    /// What one piece is called by.
    struct Subject
    {
        std::string stem;
        std::string part;
        std::string name;
        std::size_t piece = 1;
    };
    std::string nameOf(Subject const& subject) const;

private:
    struct Number
    {
        std::size_t digits;
    };
    /// Text that stays, a member of the subject, or the number.
    using Item = std::variant<std::string, std::string Subject::*, Number>;

    static Item itemOf(std::string const& word);

    std::vector<Item> m_items;
};

/// Whether that is one, and not a name.
bool isNamePattern(std::string const& text);

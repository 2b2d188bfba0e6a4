// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace Freecut {

/// The texts of a dialog, which are set when they are added and again when the language changes.
class DialogTexts
{
public:
    using Setter = std::function<void(QString const&)>;

    /// source  in the source language, marked for translation in that context where it stands
    /// tag     appended as it is, without a blank
    void add(Setter setter, char const* context, char const* source, char const* tag = "");

    /// For what has a setText: labels, buttons, check boxes. The widget lives as long as the texts.
    template <typename Widget>
    void addText(Widget* widget, char const* context, char const* source, char const* tag = "")
    {
        add([widget](QString const& text) { widget->setText(text); }, context, source, tag);
    }
    /// For groups.
    template <typename Group>
    void addTitle(Group* group, char const* context, char const* source)
    {
        add([group](QString const& text) { group->setTitleName(text); }, context, source);
    }

    /// Sets all texts in the language of the interface.
    void retranslate() const;

private:
    struct Entry
    {
        Setter setter;
        char const* context;
        char const* source;
        char const* tag;

        void set() const;
    };

    std::vector<Entry> m_entries;
};

}  // namespace Freecut

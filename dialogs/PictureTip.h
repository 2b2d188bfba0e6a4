// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <functional>
#include <initializer_list>

class QWidget;

namespace Freecut {

/// The tool tip of a value: a small picture that marks what the value measures, and a sentence
/// below it. The same stands in What's This (Shift+F1), so that the keyboard reaches it.
///
/// It is made anew whenever it may be looked at, so it follows theme, language and what its source
/// says by itself. A child of its widget.
class PictureTip : public QObject
{
public:
    struct Content
    {
        /// The name of a drawing among resources/icons/tips, without "tip_" before it.
        char const* picture;
        /// In the source language, marked for translation in the context "Freecut::PictureTip".
        char const* text;
    };
    using Source = std::function<Content()>;

    /// Gives all these widgets the tip, such as a field and its label.
    static void give(std::initializer_list<QWidget*> widgets, Content const& content);
    /// For a value whose meaning depends on others; the source lives as long as the widgets.
    static void give(std::initializer_list<QWidget*> widgets, Source const& source);

    /// The picture's place among the resources, to be seen on the ground of a tool tip of the
    /// current theme.
    static QString fileOf(char const* picture);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    PictureTip(QWidget& widget, Source source);
    void renew();

    QWidget& m_widget;
    Source m_source;
};

}  // namespace Freecut

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QDialogButtonBox>

class MessageArea;

/// A modal message with buttons. Ctrl+C copies its text; a long one scrolls, by PageUp and PageDown
/// too. Enter presses the button that has the focus.
class MellMessageBox : public QDialog
{
    Q_OBJECT

public:
    explicit MellMessageBox(QWidget* parent);

    /// Shows a message and waits for an answer.
    ///
    /// button0..2     button texts; an empty one makes no button
    /// defaultButton  the button that has the focus at first; -1 for none
    /// escapeButton   the answer when the box is closed without a button; -1 stands for the last
    ///                button there is
    /// returns        the index of the button
    ///
    /// Without a QApplication there is nobody to ask: the text goes to the log console and the
    /// answer is that of a closed box.
    static int warning(QWidget* parent, QString const& title, QString const& text,
                       QString const& button0, QString const& button1, QString const& button2,
                       int defaultButton, int escapeButton);

    /// Shows a message and what is to be said of it in a second paragraph, and waits until it has
    /// been read. Ctrl+C copies both. Without a QApplication both go to the log console.
    ///
    /// details  one or more sentences, or none
    /// buttons  the first one has the focus at first
    /// returns  the index of the button that was pressed; 0 for a box closed otherwise
    static int failure(QWidget* parent, QString const& title, QString const& text,
                       QString const& details, QStringList const& buttons);

    void setText(QString const& text);
    QString text() const;
    /// A second paragraph.
    void setDetails(QString const& details);
    QString details() const;
    void setStandardButtons(QDialogButtonBox::StandardButtons buttons);
    void setDefaultButton(QDialogButtonBox::StandardButton button);
    QPushButton* button(QDialogButtonBox::StandardButton button) const;

    /// The standard button that was pressed; for a box closed otherwise Cancel if there is such a
    /// button, else NoButton.
    int exec() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addAnswer(int index, QString const& text, bool isDefault);
    int answer(int ofClosedBox);

    MessageArea* m_message;
    QDialogButtonBox* m_buttons;
};

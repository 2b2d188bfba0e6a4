// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPlainTextEdit>

class LogRecorder;

/// Shows the log: read only, for copying, and always at its end unless the user has scrolled up.
class LogConsole : public QPlainTextEdit
{
    Q_OBJECT

public:
    /// recorder  outlives the console
    explicit LogConsole(LogRecorder& recorder, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void retranslate();
    void append(QStringList const& lines);
};

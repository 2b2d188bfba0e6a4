// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/TestTerminal.h"

#include <QProcess>

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

std::string shownOnTerminal(QProcess& process)
{
    int const terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0)
        return {};
    process.setStandardErrorFile(ptsname(terminal));
    process.start();
    fcntl(terminal, F_SETFL, O_NONBLOCK);
    std::string text;
    char buffer[4096];
    bool isRunning = true;
    while (isRunning) {
        isRunning = !process.waitForFinished(5) && process.state() != QProcess::NotRunning;
        for (ssize_t count; (count = read(terminal, buffer, sizeof buffer)) > 0;)
            text.append(buffer, std::size_t(count));
    }
    close(terminal);
    return text;
}

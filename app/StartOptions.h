// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/OpenGLPath.h"

#include <QString>
#include <QStringList>

/// What the command line asks for. Needs no application object, so that a question for the version
/// is answered on a machine without a display.
struct StartOptions
{
    QStringList files;
    /// Empty for the module that was installed with the program.
    QString plugin;
    Base::OpenGLPath openGL = Base::OpenGLPath::Automatic;
    bool wantsHelp = false;
    bool wantsVersion = false;
    /// One sentence about what is wrong; empty if nothing is.
    QString error;

    /// arguments  without the program's name; those that Qt takes for itself have to be gone
    static StartOptions parse(QStringList const& arguments);
    static QString help();
    static QString version();
};

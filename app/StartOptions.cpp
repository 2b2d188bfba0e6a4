// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartOptions.h"

namespace {

QString wrongPath(QString const& value)
{
    return QStringLiteral("\"%1\" is no drawing path; use --opengl 2.1 or --opengl 3.3.")
        .arg(value);
}

void takeOption(StartOptions& options, QString const& name, QString const& value)
{
    if (name == "--plugin")
        options.plugin = value;
    else if (value == "2.1")
        options.openGL = Base::OpenGLPath::Version21;
    else if (value == "3.3")
        options.openGL = Base::OpenGLPath::Version33;
    else
        options.error = wrongPath(value);
}

}  // namespace

StartOptions StartOptions::parse(QStringList const& arguments)
{
    StartOptions options;
    bool areFilesOnly = false;
    for (int i = 0; i < arguments.size() && options.error.isEmpty(); ++i) {
        QString const& argument = arguments[i];
        QString const name = argument.section('=', 0, 0);
        if (areFilesOnly || !argument.startsWith('-') || argument == "-") {
            options.files << argument;
        } else if (argument == "--") {
            areFilesOnly = true;
        } else if (argument == "--help" || argument == "-h") {
            options.wantsHelp = true;
        } else if (argument == "--version") {
            options.wantsVersion = true;
        } else if (name == "--plugin" || name == "--opengl") {
            if (argument.contains('='))
                takeOption(options, name, argument.section('=', 1));
            else if (i + 1 < arguments.size())
                takeOption(options, name, arguments[++i]);
            else
                options.error = QStringLiteral("%1 needs a value; see --help.").arg(name);
        } else {
            options.error = QStringLiteral("There is no option \"%1\"; see --help.").arg(argument);
        }
    }
    return options;
}

QString StartOptions::help()
{
    return QStringLiteral(
        "Usage: orbe [OPTION]... [FILE]...\n"
        "Opens the parts of STL, OBJ, PLY, OFF and 3MF files in a window.\n"
        "\n"
        "  --plugin FILE    load the cutting module from FILE\n"
        "  --opengl 2.1|3.3 draw by this version of OpenGL\n"
        "  --help           show this text\n"
        "  --version        show the version\n");
}

QString StartOptions::version()
{
    return QStringLiteral(ORBE_VERSION);
}

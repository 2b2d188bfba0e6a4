// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/Application.h"
#include "platform/ui/MainWindow.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication const qt(argc, argv);
    Application const application;
    MainWindow window;
    window.show();
    return QApplication::exec();
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QProcess>

#include <string>

namespace {

/// Runs a script's tests by the Python that the module is made for.
class PythonModule : public testing::TestWithParam<char const*>
{
};

TEST_P(PythonModule, DoesWhatItsTestsAsk)
{
    QString const module = QString::fromStdString(builtPath("../python"));
    if (!QFileInfo::exists(module + "/orbe/__init__.pyi"))
        GTEST_SKIP() << "The Python module is not built here; it needs pybind11-dev.";
    QProcess python;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PYTHONPATH", module);
    environment.insert("FREECUT", QString::fromStdString(builtPath("freecut")));
    environment.insert("PYTHONDONTWRITEBYTECODE", "1");
    // The module brings its own.
    environment.remove("QT_QPA_PLATFORM");
    python.setProcessEnvironment(environment);
    python.setProcessChannelMode(QProcess::MergedChannels);
    python.start("/usr/bin/python3",
                 {QString::fromStdString(sourcePath(std::string("tests/python/") + GetParam())),
                  "--failfast"});
    ASSERT_TRUE(python.waitForFinished(600'000)) << GetParam();
    std::string const output = python.readAll().toStdString();
    EXPECT_EQ(python.exitStatus(), QProcess::NormalExit) << output;
    EXPECT_EQ(python.exitCode(), 0) << output;
}

INSTANTIATE_TEST_SUITE_P(Scripts, PythonModule,
                         testing::Values("same_as_command_line.py", "arrays.py", "failures.py",
                                         "progress_and_cancel.py", "description.py",
                                         "example_scripts.py"),
                         [](auto const& script) {
                             std::string const name = script.param;
                             return name.substr(0, name.find('.'));
                         });

}  // namespace

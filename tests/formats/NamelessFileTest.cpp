// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/OutputFile.h"
#include "tests/formats/ScratchFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

TEST(NamelessFile, NothingStaysWhereAProcessIsKilledWhileItWrites)
{
    ScratchFolder const folder;
    int const probe = open(folder.path().c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
    if (probe < 0)
        GTEST_SKIP() << "the file system knows no files without a name";
    close(probe);
    pid_t const writer = fork();
    if (writer == 0) {
        Formats::OutputFile file(folder / "piece.stl", Formats::Overwrite::Refuse);
        file.write(std::string(std::size_t(3) << 20, 'x'));
        kill(getpid(), SIGKILL);
    }
    int status = 0;
    waitpid(writer, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestApplication.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    TestApplication const application(argc, argv);
    return RUN_ALL_TESTS();
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartOptions.h"

#include <gtest/gtest.h>

TEST(StartOptions, FilesAndOptionsMayMix)
{
    auto const options =
        StartOptions::parse({"a.stl", "--opengl", "2.1", "b.3mf", "--plugin=/x/module.so"});
    EXPECT_EQ(options.files, (QStringList{"a.stl", "b.3mf"}));
    EXPECT_EQ(options.plugin.toStdString(), "/x/module.so");
    EXPECT_EQ(options.openGL, Base::OpenGLPath::Version21);
    EXPECT_TRUE(options.error.isEmpty());
}

TEST(StartOptions, WhatFollowsTwoDashesIsAFile)
{
    EXPECT_EQ(StartOptions::parse({"--", "--help"}).files, QStringList{"--help"});
}

TEST(StartOptions, MistakesAreTold)
{
    for (QStringList const& wrong :
         {QStringList{"--opengl", "4"}, {"--opengl"}, {"--plugin"}, {"--unknown"}})
        EXPECT_FALSE(StartOptions::parse(wrong).error.isEmpty()) << wrong.join(' ').toStdString();
    EXPECT_TRUE(StartOptions::parse({"--unknown"}).error.contains("--unknown"));
}

TEST(StartOptions, HelpNamesEveryOption)
{
    for (char const* option : {"--plugin", "--opengl", "--help", "--version"})
        EXPECT_TRUE(StartOptions::help().contains(option)) << option;
    EXPECT_TRUE(StartOptions::parse({"--help"}).wantsHelp);
    EXPECT_TRUE(StartOptions::parse({"--version"}).wantsVersion);
}

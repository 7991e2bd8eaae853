// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The codecs module: loaded with the first file, not before.
#include "core/CodecModule.h"
#include "FileFixture.h"

#include <QtCore/QFile>

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace {

using namespace vistrel::test;

/// Whether a file with this in its name is mapped into the process.
bool isLoaded(const std::string& name)
{
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find(name) != std::string::npos)
            return true;
    }
    return false;
}

class CodecModule : public FileFixture {};

TEST_F(CodecModule, IsLoadedWithTheFirstFileAndNotBefore)
{
    EXPECT_TRUE(isLoaded("libvistrel_host"));
    EXPECT_FALSE(isLoaded("libopencv_imgcodecs"));
    EXPECT_FALSE(isLoaded("libvistrel_codecs"));
    ASSERT_TRUE(save("a.png", *newImage({.width = 4, .height = 4})));
    EXPECT_TRUE(isLoaded("libopencv_imgcodecs"));
    EXPECT_TRUE(isLoaded("libvistrel_codecs"));
}

TEST_F(CodecModule, AMissingModuleIsAnErrorThatNamesIt)
{
    QString error;
    EXPECT_EQ(vistrel::loadImageCodecs(path("none.so"), error), nullptr);
    EXPECT_TRUE(error.contains(QStringLiteral("none.so"))) << qPrintable(error);
}

TEST_F(CodecModule, AFileThatIsNoModuleIsAnError)
{
    QFile file(path("text.so"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("text");
    file.close();
    QString error;
    EXPECT_EQ(vistrel::loadImageCodecs(file.fileName(), error), nullptr);
    EXPECT_FALSE(error.isEmpty());
}

TEST_F(CodecModule, IsFoundOnceForAll)
{
    QString error;
    auto* const first = vistrel::imageCodecs(error);
    EXPECT_NE(first, nullptr) << qPrintable(error);
    EXPECT_EQ(vistrel::imageCodecs(error), first);
    EXPECT_TRUE(error.isEmpty());
}

} // namespace

#include "LocalhostInfo.h"

#include "LogCapture.h"

#include <QSysInfo>

#include <gtest/gtest.h>

TEST(LocalhostInfo, NamesThisMachine)
{
    LogCapture capture;
    {
        LocalhostInfo const info;
        EXPECT_EQ(info.name(), QSysInfo::machineHostName());
        EXPECT_EQ(info.architecture(), QSysInfo::currentCpuArchitecture());
        EXPECT_TRUE(info.operatingSystem().startsWith("Linux "));
        EXPECT_FALSE(info.isWindowsThemed());
    }
    EXPECT_TRUE(capture.contains("Constructed"));
    EXPECT_TRUE(capture.contains("Destroyed"));
}

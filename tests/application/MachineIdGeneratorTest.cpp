#include "MachineIdGenerator.h"

#include <QFile>
#include <QSettings>
#include <QUuid>

#include <gtest/gtest.h>

TEST(MachineIdGenerator, KeepsOneUuidWithoutBracesUntilItsFileIsDamaged)
{
    QString const first = MachineIdGenerator::machineId();
    EXPECT_EQ(first.size(), 36);
    EXPECT_FALSE(QUuid(first).isNull());
    EXPECT_EQ(MachineIdGenerator::machineId(), first);
    QFile file(QSettings(QSettings::IniFormat, QSettings::UserScope, "Ombravision", "MachineId").fileName());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[General]\nmachineId=not-a-uuid\n");
    file.close();
    QString const second = MachineIdGenerator::machineId();
    EXPECT_NE(second, first);
    EXPECT_FALSE(QUuid(second).isNull());
    EXPECT_EQ(MachineIdGenerator::machineId(), second);
}

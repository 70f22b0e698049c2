#include "MachineIdGenerator.h"

#include <QFile>
#include <QSettings>
#include <QUuid>

#include <gtest/gtest.h>

TEST(MachineIdGenerator, KeepsOneUuidWithoutBraces)
{
    QString const first = MachineIdGenerator::machineId();
    EXPECT_EQ(first.size(), 36);
    EXPECT_FALSE(QUuid(first).isNull());
    EXPECT_EQ(MachineIdGenerator::machineId(), first);
}

TEST(MachineIdGenerator, ADamagedFileGivesANewIdThatIsKept)
{
    QString const first = MachineIdGenerator::machineId();
    QString const path = QSettings(QSettings::IniFormat, QSettings::UserScope, "Ombravision", "MachineId").fileName();
    for (char const* damage : {"", "\x01\xff garbage", "[General]\nmachineId=not-a-uuid\n"}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(damage);
        file.close();
        QString const second = MachineIdGenerator::machineId();
        EXPECT_NE(second, first) << damage;
        EXPECT_FALSE(QUuid(second).isNull()) << damage;
        EXPECT_EQ(MachineIdGenerator::machineId(), second) << damage;
    }
}

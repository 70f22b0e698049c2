#include "LinuxAudioConfig.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{

/// Each test has a home directory of its own.
class LinuxAudioConfigTest : public testing::Test
{
protected:
    void SetUp() override
    {
        _previousHome = qgetenv("HOME");
        qputenv("HOME", _home.path().toUtf8());
    }
    void TearDown() override { qputenv("HOME", _previousHome); }

    QString configPath() const { return _home.filePath(".openalrc"); }
    QString backupPath() const { return _home.filePath(".openalrc_before_ombravision"); }

    static QByteArray read(QString const& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void write(QString const& path, QByteArray const& text, QIODevice::OpenMode mode = QIODevice::WriteOnly)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(mode));
        file.write(text);
    }

    QTemporaryDir _home;
    QByteArray _previousHome;
    LinuxAudioConfig _config;
};

} // namespace

TEST_F(LinuxAudioConfigTest, WritesTheDeviceAndReadsItBack)
{
    for (auto const& [name, written] :
         {std::pair<QString, QString>{"Größe,\nOne (DEV=0)", "Größe, One (DEV=0)"}, {"alsa", "alsa"}}) {
        _config.setDevice(name);
        EXPECT_TRUE(read(configPath()).startsWith(";Ombravision auto-generated this file.\n"));
        EXPECT_TRUE(read(configPath()).contains(QString("\n(define devices '(%1))\n").arg(written).toUtf8()));
        EXPECT_EQ(read(configPath()).contains("\n(define alsa-device \"default\")\n"), name == "alsa");
        EXPECT_EQ(_config.device(), written);
    }
    EXPECT_FALSE(QFile::exists(backupPath())) << "a generated file needs no backup";
    write(configPath(), "(define speaker-num 4)\n", QIODevice::Append);
    _config.setDevice("alsa");
    EXPECT_TRUE(read(configPath()).contains("speaker-num 4")) << "the same device keeps what the user added";
    _config.setDevice("oss");
    EXPECT_FALSE(read(configPath()).contains("speaker-num 4"));
    write(configPath(), ";Ombravision auto-generated this file.\n(define speakers '(front rear))\n"
                        "(define devices '(begun\n(define devices '(whole))\n");
    EXPECT_EQ(_config.device(), "whole");
}

TEST_F(LinuxAudioConfigTest, AHandWrittenFileIsKeptAsideOnce)
{
    write(configPath(), ";Ombravision auto-generated this file. Not\n(define devices '(mine))\n");
    QByteArray const mine = read(configPath());
    write(backupPath(), "older");
    EXPECT_TRUE(_config.device().isEmpty()) << "not the program's choice";
    for (char const* const device : {"alsa", "oss"}) {
        _config.setDevice(device);
        EXPECT_EQ(read(backupPath()), mine);
        EXPECT_EQ(_config.device(), device);
    }
}

TEST_F(LinuxAudioConfigTest, WhatCannotBeReadIsLeftAlone)
{
    ASSERT_TRUE(QDir(_home.path()).mkdir(".openalrc"));
    _config.setDevice("alsa");
    EXPECT_TRUE(QDir(configPath()).exists());
    EXPECT_TRUE(_config.device().isEmpty());
}

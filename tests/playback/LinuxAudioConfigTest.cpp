#include "LinuxAudioConfig.h"

#include "LogCapture.h"

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

constexpr char const* commonText =
    ";Ombravision auto-generated this file.\n"
    ";Any previous version of this file has been backed up as .openalrc_before_ombravision.\n"
    ";All manual edits to this file will be erased if you change the audio device in the Ombravision Audio "
    "Preferences.\n"
    ";Set the desired device in the Ombravision Audio Preferences and then add any customization to this file.\n"
    "(define devices '(%1))\n"
    ";You can safely manually edit from here onwards.\n"
    ";This sets the number of speakers.\n"
    "(define speaker-num 2)\n"
    ";This sets the sounds sampling rate.\n"
    "(define sampling-rate 44100)\n";

constexpr char const* alsaText =
    ";This sets the alsa device. Use aplay -L for a list of alsa devices on the system.\n"
    ";e.g. front:CARD=default,DEV=0 Microsoft LifeChat LX-3000 , USB Audio Front speakers.\n"
    ";The should then be specified like this (define alsa-device \"front:default,0\")\n"
    "(define alsa-device \"default\")\n";

} // namespace

TEST_F(LinuxAudioConfigTest, WritesTheWholeFileAndReadsTheDeviceBack)
{
    struct {
        char const* name;
        QString expectedDevice;
    } const cases[] = {
        {"alsa", "alsa"},
        {"oss", "oss"},
        {"Card, One (CARD=PCH,DEV=0)", "Card, One (CARD=PCH,DEV=0)"},
        {"Größe", "Größe"},
        {"two\nlines", "two lines"},
    };
    for (auto const& testCase : cases) {
        SCOPED_TRACE(testCase.name);
        QString const name = QString::fromUtf8(testCase.name);
        _config.setDevice(name);
        QString expected = QString::fromUtf8(commonText).arg(testCase.expectedDevice);
        if (name == "alsa")
            expected += alsaText;
        EXPECT_EQ(read(configPath()), expected.toUtf8());
        EXPECT_EQ(_config.device(), testCase.expectedDevice);
    }
    EXPECT_FALSE(QFile::exists(backupPath())) << "a generated file needs no backup";
}

TEST_F(LinuxAudioConfigTest, AHandWrittenFileIsKeptAsideOnce)
{
    LogCapture capture;
    write(configPath(), "(define devices '(mine))\n");
    write(backupPath(), "older");
    EXPECT_TRUE(_config.device().isEmpty()) << "not the program's choice";

    _config.setDevice("alsa");
    EXPECT_EQ(read(backupPath()), "(define devices '(mine))\n");
    EXPECT_TRUE(capture.contains("Removing old openalrc backup file"));
    EXPECT_TRUE(capture.contains("Backing up custom openalrc file"));
    EXPECT_TRUE(capture.contains("Writing new openalrc file for device alsa"));

    _config.setDevice("oss");
    EXPECT_EQ(read(backupPath()), "(define devices '(mine))\n");
    EXPECT_EQ(_config.device(), "oss");
    EXPECT_TRUE(capture.contains("Found the magic line"));
}

TEST_F(LinuxAudioConfigTest, TheSameDeviceAgainKeepsWhatTheUserAdded)
{
    _config.setDevice("alsa");
    write(configPath(), "(define speaker-num 4)\n", QIODevice::Append);
    QByteArray const edited = read(configPath());
    _config.setDevice("alsa");
    EXPECT_EQ(read(configPath()), edited);
    _config.setDevice("oss");
    EXPECT_FALSE(read(configPath()).contains("speaker-num 4"));
}

TEST_F(LinuxAudioConfigTest, WhatCannotBeReadIsLeftAlone)
{
    LogCapture capture;
    EXPECT_FALSE(_config.configIsGenerated());
    EXPECT_TRUE(capture.contains("Failed to open openalrc"));

    ASSERT_TRUE(QDir(_home.path()).mkdir(".openalrc"));
    _config.setDevice("alsa");
    EXPECT_TRUE(QDir(configPath()).exists());
    EXPECT_TRUE(_config.device().isEmpty());
}

TEST_F(LinuxAudioConfigTest, OnlyTheFirstLineMarksAGeneratedFile)
{
    struct {
        QByteArray text;
        bool generated;
    } const cases[] = {
        {"", false},
        {";Ombravision auto-generated this file.", true},
        {";Ombravision auto-generated this file.\r\nmore", true},
        {"\n;Ombravision auto-generated this file.\n", false},
        {";Ombravision auto-generated this file. Not\n", false},
        {QByteArray(1000000, 'x'), false},
    };
    for (auto const& testCase : cases) {
        write(configPath(), testCase.text);
        EXPECT_EQ(_config.configIsGenerated(), testCase.generated) << testCase.text.left(80).constData();
    }
}

#include "FileName.h"

#include <QDir>

#include <gtest/gtest.h>

TEST(FileName, BytesSurviveEveryWayThroughText)
{
    struct Case {
        QByteArray argument;
        QString name;
        QByteArray bytes;
        QString title;
    };
    QByteArray const here = QDir::currentPath().toLocal8Bit();
    Case const cases[] = {
        {"/a/b.mp4", "/a/b.mp4", "/a/b.mp4", "b.mp4"},
        {"/a/f\xC3\xA9.mp4", QString::fromUtf8("/a/f\xC3\xA9.mp4"), "/a/f\xC3\xA9.mp4",
         QString::fromUtf8("f\xC3\xA9.mp4")},
        {"/a/f\xE9 %.mp4", "file:///a/f%E9%20%25.mp4", "/a/f\xE9 %.mp4", QString::fromUtf8("f\xE9 %.mp4")},
        {"f\xE9", "file://" + QDir::currentPath() + "/f%E9", here + "/f\xE9", QString::fromUtf8("f\xE9")},
        {"file:///a/b%20c%E9#1?.mp4", "file:///a/b%20c%E9#1?.mp4", "/a/b c\xE9#1?.mp4",
         QString::fromUtf8("b c\xE9#1?.mp4")},
        {"FILE://LocalHost/a%2", "FILE://LocalHost/a%2", "/a%2", "a%2"},
        {"file:///a%00b%+1%zz", "file:///a%00b%+1%zz", "/a%00b%+1%zz", "a%00b%+1%zz"},
        {"file://other/a", "file://other/a", "", "file://other/a"},
    };
    for (Case const& c : cases) {
        QString const name = FileName::fromArgument(c.argument.constData());
        EXPECT_EQ(name, c.name) << c.argument.constData();
        EXPECT_EQ(FileName::toLocal8Bit(name), c.bytes) << c.argument.constData();
        EXPECT_EQ(FileName::title(name), c.title) << c.argument.constData();
        EXPECT_EQ(FileName::toLocal8Bit(FileName::fromAddress(name)), c.bytes) << c.argument.constData();
        EXPECT_EQ(FileName::toLocal8Bit(FileName::toAddress(name)), c.bytes) << c.argument.constData();
    }
    EXPECT_EQ(FileName::fromAddress("file:///a/b%20c"), "/a/b c");
    EXPECT_EQ(FileName::fromArgument("http://h/f\xE9?a=%20"), "http://h/f%E9?a=%20");
}

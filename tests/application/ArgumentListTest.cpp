#include "ArgumentList.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace
{

/// The list from a command line as main() gets it, the program's name put before it.
ArgumentList listOf(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), "ombravision");
    std::vector<char*> argv;
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    return ArgumentList(static_cast<int>(argv.size()), argv.data());
}

/// A value in words, since an absent one and an empty one differ.
QString described(QString const& value)
{
    return value.isNull() ? QStringLiteral("absent") : QStringLiteral("<%1>").arg(value);
}

} // namespace

TEST(ArgumentList, ValueOfASwitch)
{
    struct {
        std::vector<std::string> arguments;
        char const* expectedDebug;
        char const* expectedDemo;
    } const cases[] = {
        {{}, "absent", "absent"},
        {{"-debug", "Foo,,Bar"}, "<Foo,,Bar>", "absent"},
        {{"-demo", "-debug=Foo"}, "<Foo>", "<>"},
        {{"-debug=One", "-debug=Two"}, "<One>", "absent"},
        {{"-debug", "--", "-demo"}, "<>", "absent"},
        {{"a=--", "-demo"}, "absent", "<>"},
    };
    for (auto const& testCase : cases) {
        ArgumentList const list = listOf(testCase.arguments);
        SCOPED_TRACE(qPrintable(list.join('|')));
        EXPECT_EQ(described(list.getSwitchArg("-debug", QString())), testCase.expectedDebug);
        EXPECT_EQ(described(list.getSwitchArg("-demo", QString())), testCase.expectedDemo);
    }
}

TEST(ArgumentList, WhatToPlayIsTakenAsGiven)
{
    struct {
        std::vector<std::string> arguments;
        QStringList expected;
    } const cases[] = {
        {{"http://host/a?b=c&d==e"}, {"http://host/a?b=c&d==e"}},
        {{"-fullscreen", "a=b.mp4", "-demo"}, {"a=b.mp4"}},
        {{"-debug", "-fullscreen", "a.mp4"}, {"a.mp4"}},
        {{"-debug", "rtsp://host/a"}, {"rtsp://host/a"}},
        {{"a.mp4", "--", "-demo", "--", "-x=y.mp4"}, {"a.mp4", "-demo", "--", "-x=y.mp4"}},
        {{"Gr\xc3\xbc\xc3\x9f"
          "e.mp4"},
         {"Grüße.mp4"}},
    };
    for (auto const& testCase : cases) {
        ArgumentList const list = listOf(testCase.arguments);
        EXPECT_EQ(list.positionalArguments(), testCase.expected) << qPrintable(list.join('|'));
    }
}

TEST(ArgumentList, WhatIsAFileIsNoListOfClasses)
{
    QTemporaryDir const directory;
    QString const before = QDir::currentPath();
    QDir::setCurrent(directory.path());
    QFile("Film").open(QIODevice::WriteOnly);
    QDir().mkdir("Window");
    struct {
        std::vector<std::string> arguments;
        QStringList expectedClasses;
        QStringList expectedNames;
    } const cases[] = {
        {{"-debug", "Film"}, {}, {"Film"}},
        {{"-debug", "Window"}, {"Window"}, {}},
        {{"-debug", "One,,Two", "Film"}, {"One", "Two"}, {"Film"}},
        {{"-debug=Film", "Film"}, {"Film"}, {"Film"}},
    };
    for (auto const& testCase : cases) {
        ArgumentList const list = listOf(testCase.arguments);
        EXPECT_EQ(list.debugClasses(), testCase.expectedClasses) << qPrintable(list.join('|'));
        EXPECT_EQ(list.positionalArguments(), testCase.expectedNames) << qPrintable(list.join('|'));
    }
    QDir::setCurrent(before);
}

TEST(ArgumentList, UnknownSwitchesAreFound)
{
    EXPECT_EQ(listOf({"-demo", "-nonsense=1", "--debug", "--help", "--", "-x"}).unknownSwitches(),
              (QStringList{"-nonsense", "--debug"}));
}

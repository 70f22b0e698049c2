#include "CentralisedBiscottiGreeting.h"

#include <gtest/gtest.h>

namespace
{

struct Case {
    QByteArray line;
    char const* versions; ///< Protocol and message version, null if the line is no greeting.
    char const* notes;
};

} // namespace

TEST(CentralisedBiscottiGreeting, OpensTheClientsSide)
{
    EXPECT_EQ(CentralisedBiscottiGreeting({1, 0}, {1, 0}).toLine(), "~@ 1.0 1.0 \n");
    EXPECT_EQ(CentralisedBiscottiGreeting({1, 2}, {3, 4}, "MDWMS=5").toLine(), "~@ 1.2 3.4 MDWMS=5\n");
}

TEST(CentralisedBiscottiGreeting, ReadsAServersLine)
{
    Case const cases[] = {
        {"~@ 1.0 1.0 \n", "1.0 1.0", ""},
        {"~@ 1.0 1.0\r\n", "1.0 1.0", ""},
        {"~@ 1.0 1.0 ", "1.0 1.0", ""},
        {"~@\t2.13  10.7 bakery MDWMS=60000 \r\n", "2.13 10.7", "bakery MDWMS=60000"},
        {"~@ 1.0 1.0 " + QByteArray(499, 'x') + "\n", "1.0 1.0", nullptr}, // 511 bytes
        {"~@ 1.0 1.0 " + QByteArray(500, 'x') + "\n", nullptr, nullptr},   // one too many
        {"~@ 1.0 1.0", nullptr, nullptr},                                  // without anything behind the versions
        {" ~@ 1.0 1.0 \n", nullptr, nullptr},
        {"~@ 1 1.0 \n", nullptr, nullptr},
        {"~@ -1.0 1.0 \n", nullptr, nullptr},
        {"~@ 99999999999.0 1.0 \n", nullptr, nullptr},
        {"HTTP/1.1 400 Bad Request\r\n", nullptr, nullptr},
        {"~@ \xD9\xA1.0 1.0 \n", nullptr, nullptr},
        {"", nullptr, nullptr},
    };
    for (Case const& c : cases) {
        SCOPED_TRACE(c.line.toStdString());
        auto const greeting = CentralisedBiscottiGreeting::fromLine(c.line);
        ASSERT_EQ(greeting.has_value(), c.versions != nullptr);
        if (!greeting)
            continue;
        EXPECT_EQ(greeting->protocolVersion().toString() + ' ' + greeting->messageVersion().toString(), c.versions);
        if (c.notes) {
            EXPECT_EQ(greeting->notes(), c.notes);
        }
    }
}

TEST(CentralisedBiscottiGreeting, FindsTheMaximumDataWaitInTheNotes)
{
    struct Notes {
        char const* notes;
        bool isNamed;
        std::optional<qint64> milliseconds;
    };
    Notes const cases[] = {
        {"MDWMS=60000", true, 60000},
        {"a=1,MDWMS=0;b", true, 0},
        {"MDWMS=9223372036854775807", true, 9223372036854775807},
        {"MDWMS=9223372036854775808", true, std::nullopt},
        {"MDWMS=-1", false, std::nullopt},
        {"mdwms=1", false, std::nullopt},
        {"", false, std::nullopt},
    };
    for (Notes const& c : cases) {
        CentralisedBiscottiGreeting const greeting({1, 0}, {1, 0}, c.notes);
        EXPECT_EQ(greeting.hasMaxDataWait(), c.isNamed) << c.notes;
        EXPECT_EQ(greeting.maxDataWaitMs(), c.milliseconds) << c.notes;
    }
}

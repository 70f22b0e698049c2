#include "BiscottiPostPrinter.h"
#include "BiscottiToolOptions.h"

#include <gtest/gtest.h>

TEST(BiscottiToolOptions, ServersAreNamedWithOrWithoutPort)
{
    struct Case {
        char const* text;
        char const* host; ///< Null when it is wrong.
        int port;
    };
    std::vector<Case> const cases = {
        {"example", "example", 22473},
        {"example:1", "example", 1},
        {"127.0.0.1:65535", "127.0.0.1", 65535},
        {"[::1]:5", "::1", 5},
        {"[::1]", "::1", 22473},
        {"fe80::1", "fe80::1", 22473},
        {"", nullptr, 0},
        {":5", nullptr, 0},
        {"example:", nullptr, 0},
        {"example:0", nullptr, 0},
        {"a:65536", nullptr, 0},
        {"a:b", nullptr, 0},
        {"[::1]:x", nullptr, 0},
    };
    for (Case const& one : cases) {
        QString error;
        auto const options = BiscottiToolOptions::parse({"--server", one.text, "sub", ".a"}, error);
        ASSERT_EQ(options.has_value(), one.host != nullptr) << one.text << qPrintable(error);
        if (options) {
            EXPECT_EQ(options->host, one.host);
            EXPECT_EQ(options->port, one.port) << one.text;
        }
    }
}

TEST(BiscottiPostPrinter, NothingOfAPostBreaksItsLine)
{
    BiscottiPost post;
    post.setTopics({BiscottiTopic("A.b"), BiscottiTopic("c")});
    post.setSenderName(QString::fromUtf8("ann\r\n\x1b[2J"));
    post.setBody("tab\t back\\ nul" + QByteArray(1, '\0') + " \xe2\x80\xae \xc3\xa9\xf0\x9f\x98\x80 \xff\n");
    QDateTime const arrival(QDate(2026, 11, 21), QTime(16, 2, 34));
    EXPECT_EQ(QString::fromUtf8(BiscottiPostPrinter::line(post, arrival)),
              QString::fromUtf8("2026-11-21 16:02:34 .a.b,.c ann\\x0d\\n\\x1b[2J: tab\\t back\\\\ nul\\x00 \\u202e "
                                "\xc3\xa9\xf0\x9f\x98\x80 \xef\xbf\xbd\\n\n"));
}

#include "BiscottiPostPrinter.h"
#include "BiscottiToolOptions.h"

#include <gtest/gtest.h>

TEST(BiscottiToolOptions, ServersAreNamedWithOrWithoutPort)
{
    std::pair<char const*, QString> const cases[] = {
        {"example", "example 22473"},
        {"127.0.0.1:65535", "127.0.0.1 65535"},
        {"[::1]:5", "::1 5"},
        {"fe80::1", "fe80::1 22473"},
        {":5", ""},
        {"example:0", ""},
        {"a:65536", ""},
    };
    for (auto const& [text, expected] : cases) {
        QString error;
        auto const options = BiscottiToolOptions::parse({"--server", text, "sub", ".a"}, error);
        EXPECT_EQ(options ? QString("%1 %2").arg(options->host).arg(options->port) : "", expected) << text;
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

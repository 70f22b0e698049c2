#include "BiscottiPostPrinter.h"

#include <gtest/gtest.h>

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

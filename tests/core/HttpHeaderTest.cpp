#include "HttpRequestHeader.h"
#include "HttpResponseHeader.h"

#include <gtest/gtest.h>

TEST(HttpHeader, KeepsOrderAndRepetition)
{
    HttpRequestHeader header("GET", "/a b");
    header.addValue("Pragma", "one");
    header.addValue("Host", "h");
    header.addValue("pragma", "two");
    header.setValue("PRAGMA", "first");
    header.setContentLength(7);
    EXPECT_EQ(header.toString(),
              "GET /a b HTTP/1.1\r\nPragma: first\r\nHost: h\r\npragma: two\r\nContent-Length: 7\r\n\r\n");
    EXPECT_EQ(header.keys(), (QStringList{"Pragma", "Host", "Content-Length"}));
    EXPECT_EQ(header.allValues("pRAGMA"), (QStringList{"first", "two"}));
    EXPECT_EQ(HttpRequestHeader(header.toString()), header);

    EXPECT_EQ(header.contentLength(), 7);
    header.setValue("content-length", "-1");
    EXPECT_EQ(header.contentLength(), 0);
    header.setValue("content-type", "video/x-ms-asf ; charset=x");
    EXPECT_EQ(header.contentType(), "video/x-ms-asf");
}

TEST(HttpHeader, ReadsWhatServersSend)
{
    struct {
        char const* text;
        int status; ///< 0: not a header.
        char const* reason;
        char const* value; ///< Of "A".
    } const cases[] = {
        {"HTTP/1.1 200 OK\r\nA: b\r\n\r\n", 200, "OK", "b"},
        {"HTTP/1.0 404\r\n\r\n", 404, "", ""},
        {"HTTP/1.1  302  Moved  here \nA:b\n\nA2: no\n", 302, "Moved  here", "b"},
        {"ICY 200 OK\r\na:\t b \r\n\r\n", 200, "OK", "b"},
        {"HTTP/2 453 Not Enough Bandwidth\r\n", 453, "Not Enough Bandwidth", ""},
        {"HTTP/1.1 200 OK\r\nA: b\r\n\t c\r\n d:e\r\n\r\n", 200, "OK", "b c d:e"},
        {"HTTP/1.1 200 OK\r\nA : \xe4\xa0\r\n\r\n", 200, "OK", "\xe4\xa0"},
        {"HTTP/1.1 200 OK\r\nno colon\r\n\r\n", 0, "", ""},
        {"HTTP/1.1 200 OK\r\n folded\r\n\r\n", 0, "", ""},
        {"HTTP/1.1 2000 OK\r\n\r\n", 0, "", ""},
        {"HTTP/1.1 2x0 OK\r\n\r\n", 0, "", ""},
        {"", 0, "", ""},
    };
    for (auto const& [text, status, reason, value] : cases) {
        HttpResponseHeader const header(QString::fromLatin1(text));
        EXPECT_EQ(header.isValid(), status != 0) << text;
        EXPECT_EQ(header.value("A"), QString::fromLatin1(value)) << text;
        if (status != 0) {
            EXPECT_EQ(header.statusCode(), status);
            EXPECT_EQ(header.reasonPhrase(), reason);
            EXPECT_EQ(HttpResponseHeader(header.toString()), header) << text;
        }
    }
    EXPECT_FALSE(HttpResponseHeader(QString("HTTP/1.1 200 OK\r\nA: b") + QChar(0) + "c\r\n\r\n").isValid());
}

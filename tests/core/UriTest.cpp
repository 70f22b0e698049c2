#include "Uri.h"

#include "NetworkErrors.h"

#include <QHash>

#include <gtest/gtest.h>
#include <stdexcept>

TEST(Uri, IsTakenApartAtTheScheme)
{
    struct {
        char const* text;
        char const* scheme;
        char const* whole;
        char const* base;
    } const cases[] = {
        {" mms://h/a/b.asf ", "mms", "mms://h/a/b.asf", "mms://h/a"},
        {"HTTP://h/a/b?q=/x/y", "http", "http://h/a/b?q=/x/y", "http://h/a"},
        {"http://h/a/b#f/g", "http", "http://h/a/b#f/g", "http://h/a"},
        {"rtsp://h/", "rtsp", "rtsp://h/", "rtsp://h"},
        {"rtsp://h", "rtsp", "rtsp://h", "rtsp://h"},
        {"rtsp://h?q", "rtsp", "rtsp://h?q", "rtsp://h"},
        {"file:/a/b c", "file", "file:/a/b c", "file:/a"},
        {"urn:x:y", "urn", "urn:x:y", "urn:x:y"},
        {"x:", "x", "x:", "x:"},
    };
    for (auto const& [text, scheme, whole, base] : cases) {
        Uri const uri{QString(text)};
        EXPECT_EQ(uri.scheme(), UriScheme(scheme)) << text;
        EXPECT_EQ(uri.toString(), whole) << text;
        EXPECT_EQ(uri.base(), base) << text;
        EXPECT_EQ(Uri(uri.toString()), uri) << text;
    }
}

TEST(Uri, TextWithoutASchemeIsRefused)
{
    for (char const* const text : {"", "  ", "no scheme", "/a/b", "://h/a", "1x://h", "a b://h", "h/a:b"}) {
        try {
            Uri const uri{QString(text)};
            ADD_FAILURE() << text;
        } catch (std::invalid_argument const& error) {
            EXPECT_STREQ(error.what(), "Invalid URI: no scheme found.");
        }
    }
}

TEST(Uri, NullIsAValueOfItsOwn)
{
    EXPECT_TRUE(Uri::Null().isNull());
    EXPECT_EQ(Uri::Null().toString(), "Uri::Null");
    EXPECT_EQ(Uri::Null(), Uri());
    EXPECT_NE(Uri(QString("Uri:")), Uri::Null());
}

TEST(Uri, IsAHashKeyAndAnotherUrisText)
{
    QHash<Uri, int> const hash{{Uri(QString("a:/1")), 1}, {Uri(QString("b:/1")), 2}, {Uri(QString("A:/1")), 3}};
    EXPECT_EQ(hash.size(), 2);
    EXPECT_EQ(hash.value(Uri(QString("a:/1"))), 3);
    EXPECT_EQ(Uri(QString("http://h/ä b?c&d")).toPercentEncodedString(), "http%3A%2F%2Fh%2F%C3%A4%20b%3Fc%26d");
    EXPECT_EQ(QMetaType::fromName("Uri"), QMetaType::fromType<Uri>());
}

TEST(NetworkErrors, EachNumberHasItsText)
{
    char const* const texts[] = {"No error",
                                 "There was a general error",
                                 "End of stream encountered",
                                 "Could not resolve resource",
                                 "Could not connect to server",
                                 "Stream unavailable",
                                 "Resource not available",
                                 "A remote server closed the connection",
                                 "Unknown error",
                                 "Authentication required",
                                 "Proxy authentication required",
                                 "The operation unexpectedly succeeded",
                                 "The operation was unexpectedly redirected",
                                 "There was an unexpected client error",
                                 "There was an unexpected server error",
                                 "Unknown error"};
    int code = 0;
    for (char const* const text : texts)
        EXPECT_EQ(NetworkErrors::stringForError(static_cast<NetworkErrors::NetworkError>(code++)), text);
}

#include "Uri.h"

#include "NetworkErrors.h"

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
        {"rtsp://h", "rtsp", "rtsp://h", "rtsp://h"},
        {"file:/a/b c", "file", "file:/a/b c", "file:/a"},
        {"file:///a", "file", "file:///a", "file://"},
    };
    for (auto const& [text, scheme, whole, base] : cases) {
        Uri const uri{QString(text)};
        EXPECT_EQ(uri.scheme(), UriScheme(scheme)) << text;
        EXPECT_EQ(uri.toString(), whole) << text;
        EXPECT_EQ(uri.base(), base) << text;
        EXPECT_EQ(Uri(uri.toString()), uri) << text;
        EXPECT_NE(uri, Uri::Null()) << text;
    }
    for (char const* const text : {"", "no scheme", "://h/a", "1x://h", "h/a:b"})
        EXPECT_THROW(Uri{QString(text)}, std::invalid_argument) << text;
}

TEST(Uri, WithoutUserInfo)
{
    struct {
        char const* typed;
        char const* shown;
    } const cases[] = {
        {"http://u:p@w@h:80/x", "http://h:80/x"},
        {"http://u:p@[::1]/x@y", "http://[::1]/x@y"},
        {"http://h?q=a@b", "http://h?q=a@b"},
        {"mail@home", "mail@home"},
        {"://u:p@h", "://h"},
    };
    for (auto const& [typed, shown] : cases)
        EXPECT_EQ(Uri::withoutUserInfo(typed), shown) << typed;
}

TEST(NetworkErrors, EachNumberHasATextOfItsOwn)
{
    QStringList texts;
    for (int code = 0; code <= 14; ++code)
        texts.append(NetworkErrors::stringForError(static_cast<NetworkErrors::NetworkError>(code)));
    EXPECT_EQ(texts.removeDuplicates(), 0);
    EXPECT_EQ(texts.at(NetworkErrors::CouldNotConnect), "Could not connect to server");
}

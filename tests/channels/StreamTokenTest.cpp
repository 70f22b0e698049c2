#include "StreamToken.h"

#include <gtest/gtest.h>

// The sums are those of `printf '%s' '/vault~2000000000' | openssl dgst -sha256 -hmac secret`.
TEST(StreamToken, OpensOnePathForSomeTime)
{
    QByteArray const token = StreamToken::make("secret", "/vault", 2'000'000'000);
    EXPECT_EQ(token, "2000000000~0c9a253de2bab44cc1739872a2420099342ec9430982ddb76e38e093da6ce626");
    EXPECT_TRUE(StreamToken::isValid("secret", "/vault", token, 2'000'000'000));
    EXPECT_FALSE(StreamToken::isValid("secret", "/vault", token, 2'000'000'001));
    EXPECT_FALSE(StreamToken::isValid("secret", "/other", token, 1));
    EXPECT_FALSE(StreamToken::isValid("secrets", "/vault", token, 1));
    EXPECT_FALSE(StreamToken::isValid({}, "/vault", StreamToken::make({}, "/vault", 9), 1));
    QByteArrayList const wrong = {"",
                                  "~",
                                  "2000000000",
                                  token.chopped(1),
                                  token.toUpper(),
                                  token + "0",
                                  "+" + token,
                                  QByteArray(30, '9') + "~00",
                                  QByteArray(token).replace("~", "1~")};
    for (QByteArray const& text : wrong)
        EXPECT_FALSE(StreamToken::isValid("secret", "/vault", text, 1)) << text.constData();
}

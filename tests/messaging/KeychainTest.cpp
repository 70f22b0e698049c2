#include "FakeHttpClientFactory.h"
#include "PersistentKeychain.h"
#include "RestfulKeychain.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace
{

/// A keychain over a service that the test plays, seen through the one that would keep its keys.
struct KeychainTest : testing::Test {
    FakeHttpClientFactory factory;
    RestfulKeychain restful{&factory, Uri("https://keys.example.org:8443/v1/keys")};
    PersistentKeychain keychain{&restful};
    QSignalSpy updated{&keychain, &Keychain::publicKeyUpdated};
    QSignalSpy unavailable{&keychain, &Keychain::publicKeyUnavailable};

    void answer(int status, QByteArray const& body, HttpClient::Error error = HttpClient::NoError)
    {
        FakeHttpClient* const client = factory.clients().constLast();
        client->respond(HttpResponseHeader(QStringLiteral("HTTP/1.1 %1 X\r\n\r\n").arg(status)));
        client->receive(body);
        if (factory.clients().contains(client))
            client->finish(error);
    }
};

} // namespace

TEST_F(KeychainTest, AsksTheServiceOnceForAKey)
{
    EXPECT_TRUE(keychain.publicKeyFor("ann/\u00E9").isEmpty());
    EXPECT_TRUE(keychain.publicKeyFor("ann/\u00E9").isEmpty());
    ASSERT_EQ(factory.clients().size(), 1);
    FakeHttpClient const* const client = factory.clients().constFirst();
    EXPECT_EQ(client->host(), "keys.example.org");
    EXPECT_EQ(client->port(), 8443);
    EXPECT_EQ(client->mode(), HttpClient::ConnectionModeHttps);
    EXPECT_EQ(client->sent().constFirst().header.path(), "/v1/keys/ann%2F%C3%A9");

    answer(200, "KEY");
    ASSERT_EQ(updated.size(), 1);
    EXPECT_EQ(updated[0], (QVariantList{"ann/\u00E9", QByteArray("KEY")}));
    EXPECT_EQ(keychain.publicKeyFor("ann/\u00E9"), "KEY");
    EXPECT_TRUE(factory.clients().isEmpty());
}

TEST_F(KeychainTest, TellsWhenThereIsNoKeyAndAsksAgainLater)
{
    struct Case {
        int status;
        QByteArray body;
        HttpClient::Error error;
    };
    Case const cases[] = {
        {404, "not found", HttpClient::NoError},
        {200, "", HttpClient::NoError},
        {200, "half a k", HttpClient::UnexpectedClose},
        {200, QByteArray(RestfulKeychain::maximumKeyBytes + 1, 'k'), HttpClient::NoError},
    };
    for (Case const& c : cases) {
        unavailable.clear();
        EXPECT_TRUE(keychain.publicKeyFor("ann").isEmpty());
        answer(c.status, c.body, c.error);
        ASSERT_EQ(unavailable.size(), 1);
        EXPECT_EQ(unavailable[0][0], "ann");
        EXPECT_TRUE(factory.clients().isEmpty());
    }
    EXPECT_TRUE(updated.isEmpty());
}

TEST_F(KeychainTest, HoldsThePrivateKeysThatItIsGiven)
{
    EXPECT_TRUE(keychain.privateKeyFor("ann").isEmpty());
    keychain.setPrivateKeyFor("ann", "SECRET");
    EXPECT_EQ(keychain.privateKeyFor("ann"), "SECRET");
    EXPECT_TRUE(keychain.publicKeyFor("ann").isEmpty());
}

TEST_F(KeychainTest, LeavesNoRequestBehind)
{
    {
        RestfulKeychain shortLived(&factory, Uri("http://127.0.0.1/"));
        shortLived.publicKeyFor("ann");
        EXPECT_EQ(factory.clients().size(), 1);
    }
    EXPECT_TRUE(factory.clients().isEmpty());
}

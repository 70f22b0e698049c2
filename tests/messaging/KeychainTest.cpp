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

    void answer(QByteArray const& body, HttpClient::Error error = HttpClient::NoError)
    {
        FakeHttpClient* const client = factory.clients().constLast();
        client->receive(body);
        client->finish(error);
    }
};

} // namespace

TEST_F(KeychainTest, AnUnknownKeyIsWaitedForWithoutARequest)
{
    EXPECT_TRUE(keychain.publicKeyFor("ann").isEmpty());
    EXPECT_TRUE(keychain.publicKeyFor("ann").isEmpty());
    ASSERT_EQ(factory.clients().size(), 1);
    EXPECT_TRUE(factory.clients().constFirst()->sent().isEmpty()) << "nobody has said what to ask for";
    answer("half a k", HttpClient::UnexpectedClose);
    ASSERT_EQ(unavailable.size(), 1);
    EXPECT_EQ(unavailable[0][0], "ann");

    EXPECT_TRUE(keychain.publicKeyFor("ann").isEmpty());
    answer("KEY");
    ASSERT_EQ(updated.size(), 1);
    EXPECT_EQ(updated[0], (QVariantList{"ann", QByteArray("KEY")}));
    EXPECT_EQ(keychain.publicKeyFor("ann"), "KEY");
    EXPECT_TRUE(factory.clients().isEmpty());
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

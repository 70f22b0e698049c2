#include "FakeHttpClientFactory.h"
#include "PersistentKeychain.h"
#include "RestfulKeychain.h"

#include <QSignalSpy>

#include <gtest/gtest.h>
#include <memory>

TEST(Keychain, AnUnknownKeyIsWaitedForWithoutARequest)
{
    FakeHttpClientFactory factory;
    auto restful = std::make_unique<RestfulKeychain>(&factory, Uri("https://keys.example.org:8443/v1/keys"));
    PersistentKeychain keychain(restful.get());
    QSignalSpy updated(&keychain, &Keychain::publicKeyUpdated);
    QSignalSpy unavailable(&keychain, &Keychain::publicKeyUnavailable);
    EXPECT_TRUE(keychain.publicKeyFor("ann").isEmpty());
    EXPECT_TRUE(keychain.publicKeyFor("ann").isEmpty());
    ASSERT_EQ(factory.clients().size(), 1);
    EXPECT_TRUE(factory.clients().constFirst()->sent().isEmpty()) << "nobody has said what to ask for";
    factory.clients().constLast()->receive("half a k");
    factory.clients().constLast()->finish(HttpClient::UnexpectedClose);
    ASSERT_EQ(unavailable.size(), 1);
    EXPECT_EQ(unavailable[0][0], "ann");

    EXPECT_TRUE(keychain.publicKeyFor("ann").isEmpty());
    factory.clients().constLast()->receive("KEY");
    factory.clients().constLast()->finish();
    ASSERT_EQ(updated.size(), 1);
    EXPECT_EQ(updated[0], (QVariantList{"ann", QByteArray("KEY")}));
    EXPECT_EQ(keychain.publicKeyFor("ann"), "KEY");
    keychain.setPrivateKeyFor("ann", "SECRET");
    EXPECT_EQ(keychain.privateKeyFor("ann"), "SECRET");

    keychain.publicKeyFor("bob");
    EXPECT_EQ(factory.clients().size(), 1);
    restful.reset();
    EXPECT_TRUE(factory.clients().isEmpty());
}

#include "FakeHttpClientFactory.h"
#include "PersistentKeychain.h"
#include "RestfulKeychain.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

TEST(Keychain, AKeyThatIsNotKnownIsAskedForOnceAndToldOrMissed)
{
    FakeHttpClientFactory clients;
    RestfulKeychain service(&clients, Uri(QString("http://keys/")));
    PersistentKeychain keychain(&service);
    QSignalSpy const updated(&keychain, &Keychain::publicKeyUpdated);
    QSignalSpy const unavailable(&keychain, &Keychain::publicKeyUnavailable);
    for (char const* const id : {"a", "b", "c", "a"})
        EXPECT_EQ(keychain.publicKeyFor(id), "");
    ASSERT_EQ(clients.clients().size(), 3);
    clients.clients().constFirst()->receive("key");
    for (auto const error : {HttpClient::NoError, HttpClient::NoError, HttpClient::HostNotFound})
        clients.clients().constFirst()->finish(error);
    EXPECT_TRUE(clients.clients().isEmpty());
    EXPECT_EQ(updated, (QList<QVariantList>{{"a", QByteArray("key")}}));
    EXPECT_EQ(unavailable, (QList<QVariantList>{{"b"}, {"c"}})) << "an empty answer is no key";
    EXPECT_EQ(keychain.publicKeyFor("a"), "key");
}

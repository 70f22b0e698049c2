#include "EventLoop.h"
#include "SoapAllowedChannels.h"
#include "SoapLogin.h"
#include "SoapMessages.h"
#include "SoapSignup.h"

#include <QProcess>
#include <QSignalSpy>

#include <gtest/gtest.h>

/// A service made with another kit understands us, and we understand it.
TEST(ForeignService, IsCalled)
{
    QProcess server;
    server.start("/usr/bin/python3", {FOREIGN_SERVICE});
    ASSERT_TRUE(server.waitForReadyRead()) << "it needs python3-spyne";
    QNetworkAccessManager manager;
    SoapService const service =
        SoapService::at(Uri("http://127.0.0.1:" + QString::fromLatin1(server.readLine()).trimmed()), &manager);
    auto const wait = [](QSignalSpy& spy) { return processEventsUntil([&] { return !spy.isEmpty(); }); };

    SoapLogin login(service);
    QSignalSpy in(&login, &SoapLogin::loginCompleted);
    login.login({"ann@example.com", "p w\"<ü>&月 ", "node", "3.2.0"});
    ASSERT_TRUE(wait(in));
    auto const response = in[0][1].value<SoapLoginResponse>();
    EXPECT_TRUE(response.authenticated) << qPrintable(response.message);
    EXPECT_EQ(response.userId, "ann@example.com|p w\"<ü>&月 ");
    EXPECT_EQ(response.multiviewChannels, 9);
    ASSERT_EQ(response.roles.size(), 2);
    EXPECT_EQ(response.roles[0].title() + response.roles[0].valueForVariable("b"), "Chat Moderator2");

    SoapSignup signup(service);
    QSignalSpy up(&signup, &SoapSignup::signupCompleted);
    signup.signup("ann", " ü'\"", true);
    ASSERT_TRUE(wait(up));
    EXPECT_EQ(up[0], (QVariantList{false, "ann\ntrue"}));

    SoapAllowedChannels allowed(service);
    QSignalSpy channels(&allowed, &SoapAllowedChannels::allowedChannelsReceived);
    allowed.getAllowedChannels("CH");
    ASSERT_TRUE(wait(channels));
    EXPECT_EQ(channels[0], (QVariantList{"", "CH", "", "", QStringList{"1", "2"}}));

    SoapMessages messages(service);
    QSignalSpy failed(&messages, &SoapMessages::checkFailed);
    messages.checkForMessages("node");
    ASSERT_TRUE(wait(failed));
    EXPECT_EQ(failed[0][0], "Nothing for <you>");
    server.kill();
    server.waitForFinished();
}

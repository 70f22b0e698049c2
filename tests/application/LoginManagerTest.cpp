#include "LoginManager.h"

#include "AppData.h"
#include "EventLoop.h"
#include "FakeTickCounter.h"
#include "FakeTimerFactory.h"
#include "HttpTestServer.h"
#include "LogCapture.h"
#include "LoginDialog.h"
#include "RsaProvider.h"
#include "SettingsFile.h"
#include "SignIn.h"
#include "SignupDialog.h"
#include "UpdateDialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

namespace
{

QByteArray answerTo(QByteArray const& method, QByteArray const& value)
{
    QByteArray const body = "<Envelope><Body><" + method + "Response><return>" + value + "</return></" + method +
                            "Response></Body></Envelope>";
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

QByteArray loginAnswer(QByteArray const& value)
{
    return answerTo("LoginWithErrorHandling", value);
}

/// The open dialog of a kind.
template<typename Dialog>
Dialog* shown()
{
    for (QWidget* const widget : QApplication::allWidgets())
        if (auto* const dialog = qobject_cast<Dialog*>(widget); dialog && dialog->isVisible())
            return dialog;
    ADD_FAILURE() << "the dialog is not open";
    return nullptr;
}

template<typename Child>
Child* in(QWidget* dialog, char const* name)
{
    return dialog->findChild<Child*>(name);
}

QString messageOf(QWidget* dialog)
{
    return in<QLabel>(dialog, "message")->text();
}

std::string textOfSettings()
{
    QSettings settings = settingsFile();
    settings.sync();
    QFile file(settings.fileName());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().toStdString();
}

class LoginManagerTest : public testing::Test
{
protected:
    LoginManagerTest()
    {
        settingsFile().setValue("application/service/url", QString("http://127.0.0.1:%1").arg(_server.port()));
        _appData.initialize(nullptr);
        _appData.loginManager()->disconnect(_appData.signIn()); // It would ask again by dialog.
    }
    ~LoginManagerTest() override
    {
        _appData.uninitialize();
        settingsFile().clear();
    }

    LoginManager& manager() { return *_appData.loginManager(); }

    /// Does something to a dialog that is about to be opened.
    template<typename Action>
    void whenOpen(Action action)
    {
        QTimer::singleShot(0, &_context, action);
    }

    HttpTestServer _server;
    AppData _appData;
    QObject _context;
};

} // namespace

TEST_F(LoginManagerTest, ASignInPushesWhatTheServiceAllowsInItsOrder)
{
    AppSettings& settings = _appData.settings;
    QStringList told;
    auto const on = [&](char const* name, void (AppSettings::*signal)()) {
        QObject::connect(&settings, signal, &_context, [&told, name] { told.append(name); });
    };
    on("sponsorship", &AppSettings::sponsorshipEnabledChanged);
    on("chat", &AppSettings::chatAllowedChanged);
    on("sizes", &AppSettings::bannerAdvertisingSizesChanged);
    on("delay", &AppSettings::bannerAdvertisingDelayChanged);
    on("url", &AppSettings::bannerAdvertisingUrlChanged);
    on("enabled", &AppSettings::bannerAdvertisingEnabledChanged);
    QSignalSpy completed(&manager(), &LoginManager::loginCompleted);
    QSignalSpy started(&manager(), &LoginManager::loginStarted);
    LogCapture capture;
    EXPECT_FALSE(manager().autoLogin()) << "nobody has signed in yet";
    manager().login("ann@example.com", "correct horse", false);
    manager().login("ann@example.com", "correct horse", false);
    _server.answer(loginAnswer(
        "<authenticated>true</authenticated><user_id>7</user_id><show_banners>true</show_banners><banners_base_url>b"
        "</banners_base_url><banner_refresh_rate>9</banner_refresh_rate><banner_sizes>a,b</"
        "banner_sizes><chat_allowed>"
        "true</chat_allowed><show_sponsorship>false</show_sponsorship><multiview_channels>4</"
        "multiview_channels><tck>k"
        "</tck><groups><item><id>1</id><name>staff</name></item></groups><roles><item><title>Moderator</title></item>"
        "</roles>"));
    ASSERT_TRUE(processEventsUntil([&] { return !completed.isEmpty(); }));
    EXPECT_EQ(completed[0], (QVariantList{true, "ann@example.com"}));
    EXPECT_EQ(started.count(), 1);
    EXPECT_EQ(_server.connectionCount(), 1);
    EXPECT_EQ(told, (QStringList{"enabled", "url", "delay", "sizes", "chat", "sponsorship"}));
    EXPECT_EQ(settings.bannerAdvertisingSizes(), (QStringList{"a", "b"}));
    EXPECT_EQ(settings.multiviewChannelLimit(), 4);
    EXPECT_EQ(settings.twitterConsumerKey(), "k");
    OmbravisionUser const user = manager().user();
    EXPECT_EQ(user.id() + user.email(), "7ann@example.com");
    EXPECT_EQ(user.nodeId().size(), 64);
    EXPECT_TRUE(user.hasRoleWithTitle("Moderator") && user.hasGroupWithTitle("staff"));
    EXPECT_FALSE(user.hasRoleWithTitle("staff") || user.hasGroupWithTitle("Moderator"));
    EXPECT_TRUE(capture.contains("Login succeeded for ann@example.com"));
    EXPECT_FALSE(capture.contains("correct horse"));
}

TEST_F(LoginManagerTest, ACriticalUpdateRefusesTheSignInAndSaysWhereToGetIt)
{
    QSignalSpy completed(&manager(), &LoginManager::loginCompleted);
    LogCapture capture;
    manager().login("ann", "secret", false);
    _server.answer(
        loginAnswer("<authenticated>true</authenticated><response_code>2</response_code><update_version>3.3"
                    "</update_version><update_message>&lt;b>%1&lt;/b></update_message><update_url>"
                    "https://example.com/x</update_url><chat_allowed>true</chat_allowed>"));
    ASSERT_TRUE(processEventsUntil([&] { return !completed.isEmpty(); }));
    EXPECT_EQ(completed[0], (QVariantList{false, "You must install the critical update"}));
    EXPECT_TRUE(capture.contains("Login failed for ann: You must install the critical update"));
    EXPECT_TRUE(manager().user().isNull());
    EXPECT_TRUE(_appData.settings.chatAllowed());
    auto* const dialog = shown<UpdateDialog>();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(in<QPlainTextEdit>(dialog, "updateMessage")->toPlainText(), "<b>%1</b>");
    EXPECT_TRUE(in<QLabel>(dialog, "heading")->text().contains("critical update to version 3.3"));
    dialog->close();
    for (char const* const address : {"http://example.com/x", "file:///x", "https:x", "https://a@example.com", ""})
        EXPECT_FALSE(UpdateDialog::downloadUrl(address).isValid()) << address;
}

TEST_F(LoginManagerTest, WhatTheServiceHasAnsweredIsToldAndNotTriedAgain)
{
    FakeTickCounter clock;
    FakeTimerFactory timers(clock);
    SignIn signIn(_appData, &timers);
    _appData.settings.setStartupMode(true);
    QSignalSpy completed(&manager(), &LoginManager::autoLoginCompleted);
    manager().login("ann", "secret", true);
    _server.answer(loginAnswer("<authenticated>true</authenticated><response_code>2</response_code>"
                               "<update_version>3.3</update_version>"));
    ASSERT_TRUE(processEventsUntil([&] { return !completed.isEmpty(); }));
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&poll] {
        auto* const update = qobject_cast<UpdateDialog*>(QApplication::activeModalWidget());
        if (!update)
            return; // The dialog is above it, and it cannot be used.
        poll.stop();
        auto* const dialog = shown<LoginDialog>();
        EXPECT_EQ(messageOf(dialog), "You must install the critical update");
        update->close();
        dialog->close();
    });
    poll.start(1);
    timers.advance(SignIn::dialogDelay);
    EXPECT_FALSE(poll.isActive());
    clock.advance(SignIn::autoSignInDelay);
    EXPECT_EQ(_server.connectionCount(), 1);
}

TEST_F(LoginManagerTest, TheDialogTellsWhatIsWrongAndKeepsThePasswordEncipheredForTheNextStart)
{
    LogCapture capture;
    whenOpen([this] {
        auto* const dialog = shown<LoginDialog>();
        ASSERT_TRUE(dialog);
        QTest::keyClick(dialog, Qt::Key_Return); // Nothing is filled in yet.
        EXPECT_FALSE(dialog->isBusy());
        QTest::keyClicks(in<QLineEdit>(dialog, "email"), " ann/x@example.com ");
        QTest::keyClicks(in<QLineEdit>(dialog, "password"), " pass 'w\" ");
        in<QCheckBox>(dialog, "keepSignedIn")->setChecked(true);
        QTest::keyClick(dialog, Qt::Key_Return);
        EXPECT_TRUE(dialog->isBusy());
        _server.answer(
            loginAnswer("<authenticated>false</authenticated><message>No &lt;b>such&lt;/b> account</message>"));
        ASSERT_TRUE(processEventsUntil([&] { return !dialog->isBusy(); }));
        EXPECT_EQ(messageOf(dialog), "No <b>such</b> account");

        QTest::keyClick(dialog, Qt::Key_Return);
        EXPECT_TRUE(dialog->isBusy());
        _server.takeRequest();
        QTest::keyClick(dialog, Qt::Key_Escape);
        EXPECT_TRUE(dialog->isVisible() && !dialog->isBusy()) << "the first one ends the asking";

        QTest::keyClick(dialog, Qt::Key_Return);
        EXPECT_TRUE(dialog->isBusy());
        _server.answer(loginAnswer("<authenticated>true</authenticated>"));
    });
    EXPECT_TRUE(manager().loginWithGui(nullptr));
    EXPECT_TRUE(_appData.rsaProvider()->isReady() ||
                QSignalSpy(_appData.rsaProvider(), &RsaProvider::ready).wait(100000));
    EXPECT_THAT(textOfSettings(), testing::Not(testing::HasSubstr("pass 'w")));
    EXPECT_FALSE(capture.contains("pass 'w"));

    QSignalSpy automatic(&manager(), &LoginManager::autoLoginCompleted);
    ASSERT_TRUE(manager().autoLogin());
    QByteArray const body = _server.takeRequest().body;
    qsizetype const begin = body.indexOf("<login>") + 7;
    EXPECT_TRUE(QByteArray::fromBase64(body.mid(begin, body.indexOf("</login>") - begin))
                    .startsWith("ann%2Fx%40example.com %20pass%20%27w%22%20 "));
    _server.send("HTTP/1.1 500 Oops\r\nContent-Length: 0\r\n\r\n");
    ASSERT_TRUE(processEventsUntil([&] { return !automatic.isEmpty(); }));
    EXPECT_EQ(automatic[0], (QVariantList{false, "The service answered with the status 500."}));

    QString const key = AppSettings::userGroup("ann/x@example.com") + "/password";
    settingsFile().setValue(key, "by hand");
    EXPECT_THAT(textOfSettings(), testing::HasSubstr("by hand"));
    ASSERT_TRUE(manager().autoLogin());
    _server.answer(loginAnswer("<authenticated>true</authenticated>"));
    ASSERT_TRUE(processEventsUntil([&] { return automatic.count() == 2; }));
    EXPECT_THAT(textOfSettings(), testing::Not(testing::HasSubstr("by hand")));

    whenOpen([this] {
        auto* const dialog = shown<LoginDialog>();
        ASSERT_TRUE(dialog);
        EXPECT_EQ(dialog->email(), "ann/x@example.com");
        EXPECT_TRUE(dialog->keepSignedIn());
        in<QCheckBox>(dialog, "keepSignedIn")->setChecked(false);
        QTest::keyClicks(in<QLineEdit>(dialog, "password"), "x");
        QTest::keyClick(dialog, Qt::Key_Return);
        _server.answer(loginAnswer("<authenticated>1</authenticated>"));
    });
    EXPECT_TRUE(manager().loginWithGui(nullptr));
    EXPECT_FALSE(manager().autoLogin());
    whenOpen([] { shown<LoginDialog>()->close(); });
    EXPECT_FALSE(manager().loginWithGui(nullptr));
}

TEST_F(LoginManagerTest, ANewAccountIsCheckedAsOneTypesAndFillsInTheSignIn)
{
    whenOpen([this] {
        auto* const login = shown<LoginDialog>();
        ASSERT_TRUE(login);
        whenOpen([this] {
            auto* const dialog = shown<SignupDialog>();
            ASSERT_TRUE(dialog);
            std::pair<char const*, char const*> const steps[] = {
                {"email:ann@", "This is not an e-mail address yet."},         {"email:example.com", ""},
                {"password:sesame", "The password needs 2 more characters."}, {"password:!!", ""},
                {"repetition:sesamo", "The two passwords differ."},
            };
            for (auto const& [step, hint] : steps) {
                QString const text = step;
                QTest::keyClicks(in<QLineEdit>(dialog, qPrintable(text.section(':', 0, 0))), text.section(':', 1));
                EXPECT_EQ(messageOf(dialog), hint) << step;
                QTest::keyClick(dialog, Qt::Key_Return);
                EXPECT_FALSE(dialog->isBusy());
            }
            in<QLineEdit>(dialog, "repetition")->setText("sesame!!");
            QTest::keyClick(dialog, Qt::Key_Return);
            EXPECT_TRUE(_server.takeRequest().body.contains("<email_allowed>false</email_allowed>"));
            _server.send(answerTo("Register", "&lt;errors>&lt;error>Taken&lt;/error>&lt;/errors>"));
            ASSERT_TRUE(processEventsUntil([&] { return !dialog->isBusy(); }));
            EXPECT_EQ(messageOf(dialog), "Taken");
            QTest::keyClick(dialog, Qt::Key_Return);
            _server.answer(answerTo("Register", "&lt;response/>"));
        });
        in<QPushButton>(login, "signup")->click();
        EXPECT_EQ(login->email() + ' ' + login->password(), "ann@example.com sesame!!");
        login->close();
    });
    EXPECT_FALSE(manager().loginWithGui(nullptr));
    EXPECT_EQ(_server.connectionCount(), 1);
}

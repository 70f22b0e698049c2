#include "AppData.h"
#include "ConnectionTest.h"
#include "EventLoop.h"
#include "HttpTestServer.h"
#include "LoginManager.h"
#include "NetworkPage.h"
#include "PreferencesDialog.h"
#include "PreferencesPage.h"
#include "SettingsFile.h"
#include "SignIn.h"
#include "StreamInformation.h"
#include "SupportReport.h"
#include "WebCache.h"

#include <QAbstractSlider>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSpinBox>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace
{

class PreferencesTest : public testing::Test
{
protected:
    PreferencesTest()
    {
        settingsFile().clear();
        settingsFile().setValue("application/service/url", "http://127.0.0.1:9"); // Nobody is there.
        _appData.initialize(nullptr);
        _dialog = std::make_unique<PreferencesDialog>(_appData, nullptr);
        _dialog->show();
    }
    ~PreferencesTest() override
    {
        _dialog.reset();
        _appData.uninitialize();
    }

    /// Does something to every widget of all pages that shows a setting.
    void changeEverything()
    {
        for (int page = 0; page < PreferencesDialog::pageCount; ++page) {
            QWidget* const widget = _dialog->page(static_cast<PreferencesDialog::Page>(page));
            for (auto* const box : widget->findChildren<QCheckBox*>())
                box->toggle();
            for (auto* const box : widget->findChildren<QSpinBox*>())
                box->stepBy(box->value() == box->maximum() ? -1 : 1);
            for (auto* const slider : widget->findChildren<QAbstractSlider*>())
                slider->setValue(slider->value() == slider->maximum() ? slider->minimum() : slider->maximum());
            for (auto* const box : widget->findChildren<QComboBox*>()) {
                int const index = box->count() - 1 - box->currentIndex();
                box->setCurrentIndex(index);
                emit box->activated(index);
            }
            for (auto* const line : widget->findChildren<QLineEdit*>())
                if (!line->parentWidget()->inherits("QAbstractSpinBox")) {
                    line->setText(line->text() + "x");
                    emit line->editingFinished();
                }
        }
    }

    static QStringList differences(SettingsValues const& a, SettingsValues const& b)
    {
        QStringList names;
        for (Setting const& setting : settingsTable())
            if (std::visit([&](auto field) { return a.*field != b.*field; }, setting.field))
                names.append(setting.key);
        names.removeDuplicates();
        return names;
    }

    AppData _appData;
    std::unique_ptr<PreferencesDialog> _dialog;
};

} // namespace

TEST_F(PreferencesTest, ChangesCountAtOnceAndCancelGivesEverythingBack)
{
    AppSettings& settings = _appData.settings;
    settings.setMuted(true);
    settings.setVolume(0.3);
    settings.setMuted(true);
    settings.setAlertDisplayDuration(12345); // More than the box tells.
    _dialog->hide();
    _dialog->show();
    SettingsValues const before = settings.values();
    changeEverything();
    QStringList const changed = differences(before, settings.values());
    constexpr int settingsInPages = 30;
    EXPECT_GE(changed.size(), settingsInPages) << qPrintable(changed.join(' '));
    for (char const* const key : {"alwaysOnTop", "videoDrawMode", "deinterlace", "volume", "ProxyHostName", "limit",
                                  "chatNick", "alertDisplayDuration", "chatFontSize", "presentation"})
        EXPECT_TRUE(changed.contains(key)) << key;
    EXPECT_EQ(_appData.proxy().hostName(), "x");

    _dialog->reject();
    EXPECT_EQ(differences(before, settings.values()), QStringList());
    EXPECT_EQ(settings.alertDisplayDuration(), 12345);
    EXPECT_EQ(_appData.proxy().hostName(), QString());
}

TEST_F(PreferencesTest, WhatIsAcceptedIsStoredAndCancelledLaterNoMore)
{
    changeEverything();
    SettingsValues const chosen = _appData.settings.values();
    _dialog->accept();
    AppSettings second;
    second.loadGlobalSettings();
    EXPECT_EQ(second.deinterlace(), chosen.deinterlace);
    EXPECT_EQ(second.cacheLimit(), qint64{chosen.cacheLimit} << 20);
    EXPECT_EQ(second.allowPlainCredentials(), chosen.allowPlainCredentials);
    EXPECT_EQ(second.presentation(), chosen.presentation);
    EXPECT_EQ(second.values().startPage, chosen.startPage);
    _dialog->show();
    _dialog->reject();
    EXPECT_EQ(differences(chosen, _appData.settings.values()), QStringList());
}

TEST_F(PreferencesTest, DefaultsAreOfThisPageAndWidgetsFollowTheSettings)
{
    AppSettings& settings = _appData.settings;
    settings.setAlertDisplayOpacity(10);
    settings.setDrawMode(2);
    PreferencesPage* const video = _dialog->page(PreferencesDialog::Video);
    auto* const size = video->findChildren<QComboBox*>().constFirst();
    EXPECT_EQ(size->currentData().toInt(), 2);
    settings.setDrawMode(3);
    EXPECT_EQ(size->currentData().toInt(), 3) << "changed elsewhere";
    video->binding().setDefaults();
    EXPECT_EQ(settings.drawMode(), SettingsValues().drawMode);
    EXPECT_EQ(size->currentData().toInt(), SettingsValues().drawMode);
    EXPECT_EQ(settings.alertDisplayOpacity(), 10) << "of another page";
    _dialog->reject();
    EXPECT_EQ(settings.drawMode(), 3) << "as it was, in spite of the defaults";
}

TEST_F(PreferencesTest, WhatIsCancelledAfterASignInOrOutIsNobodyElses)
{
    AppSettings& settings = _appData.settings;
    auto const enter = [this] { _appData.signIn()->onAutoLoginCompleted(true, "ann@example.com"); };
    auto* const automatic = _dialog->page(PreferencesDialog::Account)->findChildren<QCheckBox*>().constFirst();
    for (bool const signsOut : {false, true}) {
        settings.setChatFontSize(33);
        settings.saveUserSettings("ann@example.com");
        settings.setChatFontSize(21);
        if (signsOut)
            enter();
        EXPECT_EQ(automatic->isEnabled(), signsOut) << "it is an account's";
        changeEverything();
        EXPECT_NE(settings.chatFontSize(), signsOut ? 33 : 21);
        bool const isAutomatic = settings.autoLogin();
        signsOut ? _appData.signOut(true) : enter();
        EXPECT_EQ(settings.chatFontSize(), signsOut ? 21 : 33);
        _dialog->reject();
        EXPECT_EQ(settings.chatFontSize(), signsOut ? 21 : 33);
        signsOut ? enter() : _appData.signOut(true);
        EXPECT_EQ(settings.chatFontSize(), signsOut ? 33 : 21);
        EXPECT_TRUE(!signsOut || settings.autoLogin() == isAutomatic) << "who leaves has chosen it";
        _appData.signOut(true);
        _dialog->show();
    }
}

TEST_F(PreferencesTest, TheWindowStaysAsItIsFromPageToPage)
{
    QApplication::processEvents();
    QSize const size = _dialog->size();
    for (int page = 0; page < PreferencesDialog::pageCount; ++page) {
        _dialog->showPage(static_cast<PreferencesDialog::Page>(page));
        QApplication::processEvents();
        EXPECT_EQ(_dialog->width(), size.width()) << page;
        EXPECT_EQ(_dialog->height(), size.height()) << page;
    }
}

TEST_F(PreferencesTest, NeitherTheWheelNorHalfANumberChangesAnything)
{
    PreferencesPage* const page = _dialog->page(PreferencesDialog::Network);
    _dialog->showPage(PreferencesDialog::Network);
    int const limit = _appData.settings.values().cacheLimit;
    QSpinBox* box = nullptr;
    for (auto* const found : page->findChildren<QSpinBox*>())
        box = found->value() == limit ? found : box;
    ASSERT_TRUE(box);
    _dialog->setFocus();
    for (QWidget* const widget : {static_cast<QWidget*>(box), static_cast<QWidget*>(page->findChild<QComboBox*>())}) {
        SettingsValues const before = _appData.settings.values();
        QWheelEvent wheel({5, 5}, widget->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &wheel);
        EXPECT_EQ(differences(before, _appData.settings.values()), QStringList());
    }
    box->selectAll();
    QTest::keyClicks(box, "77");
    EXPECT_EQ(_appData.settings.values().cacheLimit, limit) << "still being typed";
    _dialog->hide(); // With the window.
    _dialog->show();
    _dialog->accept();
    EXPECT_EQ(_appData.settings.values().cacheLimit, 77);
}

TEST_F(PreferencesTest, SaysWhatIsKeptWithAnAccountOnly)
{
    auto const* const note = _dialog->findChild<QLabel*>("note");
    for (auto const page : {PreferencesDialog::General, PreferencesDialog::Network}) {
        _dialog->showPage(page);
        EXPECT_FALSE(note->isVisible()) << "it is the installation's";
    }
    _dialog->showPage(PreferencesDialog::Alerts);
    EXPECT_TRUE(note->isVisible());
    _appData.signIn()->onAutoLoginCompleted(true, "ann@example.com");
    EXPECT_FALSE(note->isVisible());
    SettingsWriter& file = _appData.settings.file();
    SettingsWriter::Group(file, AppSettings::userGroup("ann@example.com"))->setValue("password", "x");
    _dialog->page(PreferencesDialog::Account);
    _appData.settings.setAutoLogin(true);
    _dialog->page(PreferencesDialog::Alerts)->binding().setDefaults();
    for (auto* const box : _dialog->page(PreferencesDialog::Account)->findChildren<QCheckBox*>())
        box->setChecked(false);
    _dialog->accept();
    EXPECT_FALSE(_appData.loginManager()->hasStoredPassword("ann@example.com"));
}

TEST_F(PreferencesTest, TheConnectionTestSaysInWordsHowItWent)
{
    HttpTestServer server;
    ConnectionTest test(&_appData.timerFactory);
    QStringList words;
    QObject::connect(&test, &ConnectionTest::finished, &test, [&words](bool isReachable, QString const& text) {
        words.append((isReachable ? "+" : "-") + text);
    });
    auto const wordsOf = [&](Uri const& uri, QNetworkProxy const& proxy, QByteArray const& answer = {}) {
        words.clear();
        test.start(uri, proxy);
        if (!answer.isEmpty())
            server.answer(answer);
        processEventsUntil([&words] { return !words.isEmpty(); });
        return words.join('\n');
    };
    Uri const here(QString("http://127.0.0.1:%1").arg(server.port()));
    QByteArray const missing = "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n";
    QByteArray const portal = "HTTP/1.1 302 Found\r\nLocation: http://cafe.example/\r\nContent-Length: 0\r\n\r\n";
    EXPECT_TRUE(wordsOf(here, QNetworkProxy::NoProxy, missing).startsWith("+127.0.0.1 answered"));
    EXPECT_TRUE(wordsOf(here, QNetworkProxy::NoProxy, portal).startsWith("-The network answers with a page of cafe"));
    EXPECT_TRUE(wordsOf(Uri("http://127.0.0.1:9"), QNetworkProxy::NoProxy).startsWith("-127.0.0.1 accepts no"));
    QNetworkProxy const nobody(QNetworkProxy::HttpProxy, "127.0.0.1", 9);
    QString const refused = wordsOf(here, nobody);
    EXPECT_TRUE(refused.startsWith("-The proxy 127.0.0.1 accepts no")) << qPrintable(refused);
    test.start(here, QNetworkProxy::NoProxy);
    test.cancel();
    words.clear();
    processPendingEvents();
    EXPECT_TRUE(words.isEmpty() && !test.isRunning());
}

TEST_F(PreferencesTest, TheCacheCanBeEmptied)
{
    QString const path = _appData.settings.cacheDirectory() + "/" + QString(32, 'a') + ".data";
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("x") == 1);
    file.close();
    qint64 left = -1;
    QObject::connect(
        _appData.webCache(), &WebCache::cleared, _dialog.get(), [&left](qint64 bytes) { left = bytes; },
        Qt::QueuedConnection);
    _appData.webCache()->clear();
    ASSERT_TRUE(processEventsUntil([&left] { return left >= 0; }));
    EXPECT_EQ(left, 0);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(PreferencesTest, TheSupportReportHasNoSecrets)
{
    AppSettings& settings = _appData.settings;
    settings.setProxyUser("alice");
    settings.setProxyPassword("hunter2");
    settings.setStreamHistory({"http://private.example/x"});
    QString const report = SupportReport::ofProgram(_appData, *_dialog);
    EXPECT_TRUE(report.contains("Ombravision " + settings.version()) && report.contains("video/deinterlace: true"));
    for (char const* const secret : {"alice", "hunter2", "private.example"})
        EXPECT_FALSE(report.contains(secret)) << secret;
    EXPECT_EQ(SupportReport::withoutSecrets("a http://ann:pw@host/x <ann@example.com> " + QDir::homePath() + "/f"),
              "a http://host/x <(e-mail)> ~/f");
    EXPECT_EQ(SupportReport::withoutSecrets("http://host/get?username=u&password=p, latte_616e6e3a736563726574"),
              "http://host/get?... latte_...");
    settings.setActiveChannel("latte_616e6e3a736563726574");
    EXPECT_FALSE(SupportReport::ofProgram(_appData, *_dialog).contains("616e6e"));
    StreamInformation stream;
    stream.channel = "Top %1 TV";
    stream.address = "http://host/a%3Ab%20%2";
    QString const text = stream.asText();
    EXPECT_TRUE(text.startsWith("channel: Top %1 TV\naddress: http://host/a%3Ab%20%2\n")) << text.toStdString();
    EXPECT_FALSE(text.contains("per second"));
}

#include "NetworkPage.h"

#include "AppData.h"
#include "RsaProvider.h"
#include "WebCache.h"

#include <QLabel>
#include <QLineEdit>
#include <QNetworkProxy>
#include <QPushButton>
#include <QSpinBox>

namespace
{
constexpr int longestHost = 253;
constexpr int longestSecret = 255; // RFC 1929.
} // namespace

NetworkPage::NetworkPage(AppData& appData) : PreferencesPage(appData), _test(&appData.timerFactory)
{
    appData.rsaProvider()->prepare(); // For the password.
    addProxy();
    addTest();
    addCache();
}

void NetworkPage::addProxy()
{
    using V = SettingsValues;
    addSection(tr("Proxy"));
    QComboBox* const type = addChoice<int>(tr("&Kind:"), &V::proxyType,
                                           {{tr("none"), QNetworkProxy::NoProxy},
                                            {tr("as the system says"), QNetworkProxy::DefaultProxy},
                                            {tr("HTTP"), QNetworkProxy::HttpProxy},
                                            {tr("HTTP, for web pages only"), QNetworkProxy::HttpCachingProxy},
                                            {tr("SOCKS 5"), QNetworkProxy::Socks5Proxy}},
                                           [](int const& other) { return tr("another (%1)").arg(other); });
    _proxyWidgets = {addText(tr("&Host:"), &V::proxyHostName, longestHost), addNumber(tr("&Port:"), &V::proxyPort),
                     addText(tr("&User:"), &V::proxyUser, longestSecret)};
    QLineEdit* const password = addText(tr("Pass&word:"), &V::proxyPassword, longestSecret);
    password->setEchoMode(QLineEdit::Password);
    _proxyWidgets.append(password);
    connect(&appData().settings, &AppSettings::proxyChanged, this, &NetworkPage::enableProxy);
    connect(type, &QComboBox::activated, this, &NetworkPage::enableProxy);
    enableProxy();
}

void NetworkPage::enableProxy()
{
    int const type = appData().settings.proxyType();
    for (QWidget* const widget : _proxyWidgets)
        widget->setEnabled(type != QNetworkProxy::NoProxy && type != QNetworkProxy::DefaultProxy);
}

void NetworkPage::addTest()
{
    _testButton = new QPushButton(tr("&Test the connection"), this);
    _testButton->setAutoDefault(false);
    _testButton->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    addLine(_testButton);
    _testResult = addResult();
    connect(_testButton, &QPushButton::clicked, this, &NetworkPage::toggleTest);
    connect(&_test, &ConnectionTest::finished, this, &NetworkPage::onTested);
}

void NetworkPage::toggleTest()
{
    if (_test.isRunning()) {
        _test.cancel();
        onTested(false, tr("The test was ended."));
        return;
    }
    binding().commit();
    _testButton->setText(tr("End the &test"));
    _testResult->setText(tr("Asking the service..."));
    _test.start(appData().settings.soapHost(), appData().proxy());
}

void NetworkPage::onTested(bool, QString const& words)
{
    _testButton->setText(tr("&Test the connection"));
    _testResult->setText(words);
}

void NetworkPage::addCache()
{
    addSection(tr("Cache of channels and logos"));
    addNumber(tr("&Limit:"), &SettingsValues::cacheLimit, tr(" MiB"));
    _clear = new QPushButton(tr("&Empty the cache"), this);
    _clear->setAutoDefault(false);
    _clear->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    addLine(_clear);
    _clearResult = addResult();
    connect(_clear, &QPushButton::clicked, this, [this] {
        _clear->setEnabled(false);
        _clearResult->setText(tr("Removing..."));
        appData().webCache()->clear();
    });
    connect(appData().webCache(), &WebCache::cleared, this, &NetworkPage::onCleared, Qt::QueuedConnection);
}

void NetworkPage::onCleared(qint64 bytesLeft)
{
    _clear->setEnabled(true);
    _clearResult->setText(
        bytesLeft == 0
            ? tr("The cache is empty.")
            : tr("Some files could not be removed; %1 are left.").arg(locale().formattedDataSize(bytesLeft)));
}

#include "ChannelFeed.h"

#include "AppData.h"
#include "CentralisedBiscotti.h"
#include "FileChannelDescriptionProvider.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "LoginManager.h"
#include "ResourceImage.h"
#include "RestfulChannelDescriptionProvider.h"
#include "SoapAllowedChannels.h"
#include "ThreadedMemoQueue.h"
#include "Timer.h"
#include "TimerFactory.h"
#include "UserChannelGizmo.h"
#include "WebCache.h"

#include <QImage>

#include <stdexcept>
#include <utility>

Logger* ChannelFeed::log = LoggerManager::logger();

ChannelFeed::ChannelFeed(AppData& appData, TimerFactory* timers, ProviderFactory const& factory, QObject* parent)
    : QObject(parent), _appData(appData), _timers(timers), _factory(factory), _retryTimer(timers->createTimer())
{
    _retryTimer->setSingleShot(true);
    connect(_retryTimer, &Timer::timeout, this, &ChannelFeed::onStartChecking);
}

ChannelFeed::~ChannelFeed()
{
    blockSignals(true); // Whoever follows them is going as well.
    stopChecking();
    _timers->disposeTimer(_retryTimer);
}

void ChannelFeed::startChecking()
{
    if (_provider)
        return;
    clearErrors();
    _provider = createProvider();
    connect(_provider.get(), &ChannelDescriptionProvider::channelsUpdated, this, &ChannelFeed::channelsUpdated);
    connect(_provider.get(), &ChannelDescriptionProvider::channelLogoUpdated, this, &ChannelFeed::channelLogoUpdated);
    start();
    LOG_INFO("Started checking for channels");
}

void ChannelFeed::start()
{
    try {
        _provider->start();
    } catch (std::logic_error const& error) {
        // The file may come yet: it is looked for again and again.
        LOG_ERROR("%s", error.what());
        onChannelParsingError(tr(error.what()));
    }
}

void ChannelFeed::refresh()
{
    try {
        if (_provider)
            _provider->refresh();
    } catch (std::logic_error const& error) {
        LOG_ERROR("%s", error.what());
        onChannelParsingError(tr(error.what()));
    }
}

std::unique_ptr<ChannelDescriptionProvider> ChannelFeed::createProvider()
{
    if (_factory)
        return _factory();
    AppSettings const& settings = _appData.settings;
    if (settings.demoMode()) {
        auto provider = std::make_unique<FileChannelDescriptionProvider>(
            _appData.memoThread(), settings.localChannelFile(), settings.logoDirectory(), fileCheckInterval);
        connect(provider.get(), &ChannelDescriptionProvider::channelsUpdated, this, &ChannelFeed::clearErrors);
        return provider;
    }
    return createServiceProvider();
}

std::unique_ptr<ChannelDescriptionProvider> ChannelFeed::createServiceProvider()
{
    AppSettings const& settings = _appData.settings;
    OmbravisionUser const user = _appData.loginManager()->user();
    _gizmo = std::make_unique<UserChannelGizmo>(_appData.biscotti(), user.id());
    QImage const logo = ResourceImage::png(":/Resources/latte_en.png");
    auto provider = std::make_unique<RestfulChannelDescriptionProvider>(
        _appData.webCache(), user, &_appData.dateTimeBuilder, settings.channelsDocumentUri(), settings.soapHost(),
        logo, logo, nullptr, [login = _appData.loginManager()](Uri const&) {
            return std::make_unique<SoapAllowedChannels>(login->service());
        });
    using Provider = RestfulChannelDescriptionProvider;
    connect(_gizmo.get(), &UserChannelGizmo::refreshUserChannels, provider.get(), &Provider::refresh);
    // What the viewer has just added may be in no copy of the document yet.
    connect(_gizmo.get(), &UserChannelGizmo::refreshUserChannels, provider.get(),
            [cache = _appData.webCache(), document = settings.channelsDocumentUri()] { cache->update(document); });
    connect(provider.get(), &Provider::allowedChannelsLoaded, this, &ChannelFeed::onAllowedChannelsLoaded);
    connect(provider.get(), &Provider::allowedChannelsError, this, &ChannelFeed::onAllowedChannelsError);
    connect(provider.get(), &Provider::refreshFailed, this, &ChannelFeed::refreshed);
    connect(provider.get(), &Provider::channelParsingError, this, &ChannelFeed::onChannelParsingError);
    return provider;
}

void ChannelFeed::stopChecking()
{
    stopWaiting();
    clearErrors();
    if (!_provider)
        return;
    _provider->blockSignals(true);
    _provider->stop();
    _gizmo.reset();
    // Later: a signal of its own may be what has led here. At the latest with this, as long as there is what it uses.
    ChannelDescriptionProvider* const provider = _provider.release();
    provider->setParent(this);
    provider->retire();
    LOG_INFO("Stopped checking for channels");
}

/// What the provider has read stays with it; what went wrong stays told until that is over.
void ChannelFeed::onStartChecking()
{
    stopWaiting();
    refresh();
}

void ChannelFeed::stopWaiting()
{
    _isWaiting = false;
    _retryTimer->stop();
}

void ChannelFeed::clearErrors()
{
    bool const hadError = std::exchange(_hasError, false);
    if (hadError)
        emit failed({});
}

void ChannelFeed::onAllowedChannelsLoaded(QString const& ipAddress, QString const& countryId,
                                          QString const& confidenceFactor, QString const& defaultId)
{
    _ipAddress = ipAddress;
    _countryId = countryId;
    _confidenceFactor = confidenceFactor;
    _defaultChannelId = defaultId;
    LOG_INFO("Allowed channels were loaded ipAddress %s countryId %s confidenceFactor %s", qUtf8Printable(ipAddress),
             qUtf8Printable(countryId), qUtf8Printable(confidenceFactor));
    stopWaiting();
    clearErrors();
    emit refreshed({});
}

void ChannelFeed::onAllowedChannelsError(QString const& text)
{
    if (!_provider || _isWaiting)
        return;
    _isWaiting = true;
    _hasError = true;
    emit failed(text + tr("\nRetrying..."));
    _retryTimer->start(retryTime);
    LOG_INFO("Scheduling a retry for allowed channels in %d ms", retryTime);
}

void ChannelFeed::onChannelParsingError(QString const& text)
{
    _hasError = true;
    emit failed(text);
}

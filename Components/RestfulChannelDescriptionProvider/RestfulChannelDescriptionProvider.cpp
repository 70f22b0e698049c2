#include "RestfulChannelDescriptionProvider.h"

#include "BoundedImage.h"
#include "DateTimeBuilder.h"
#include "DeleteLaterMemo.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MemoQueue.h"
#include "ProviderMemo.h"
#include "SoapAllowedChannels.h"
#include "WebCache.h"

#include <QNetworkAccessManager>
#include <QPointer>

#include <utility>

Logger* RestfulChannelDescriptionProvider::log = LoggerManager::logger();

RestfulChannelDescriptionProvider::RestfulChannelDescriptionProvider(
    WebCache* webCache, OmbravisionUser const& user, DateTimeBuilder* dateTimeBuilder, Uri const& channelsUri,
    Uri const& serviceUri, QImage const& defaultLogo, QImage const& noLogo, QObject* parent,
    AllowedChannelsFactory const& allowedChannelsFactory)
    : ChannelDescriptionProvider(parent), _webCache(webCache), _queue(webCache->memoQueue()),
      _dateTimeBuilder(dateTimeBuilder), _channelsUri(channelsUri), _defaultLogo(defaultLogo), _noLogo(noLogo),
      _user(user)
{
    if (allowedChannelsFactory)
        _allowedChannels = allowedChannelsFactory(serviceUri);
    else
        _allowedChannels =
            std::make_unique<SoapAllowedChannels>(SoapService::at(serviceUri, new QNetworkAccessManager(this)));
    connect(_allowedChannels.get(), &SoapAllowedChannels::allowedChannelsReceived, this,
            &RestfulChannelDescriptionProvider::onAllowedChannelsReceived);
    connect(_allowedChannels.get(), &SoapAllowedChannels::allowedChannelsError, this,
            &RestfulChannelDescriptionProvider::onAllowedChannelsError);
    _queue->acquire(this);
    followCache();
}

RestfulChannelDescriptionProvider::~RestfulChannelDescriptionProvider()
{
    _queue->release(this);
    if (_isRunning)
        RestfulChannelDescriptionProvider::stop();
}

/// The cache signals on its queue's thread, and may do so while this is being deleted here: only a memo reaches the
/// provider for certain, or not at all.
void RestfulChannelDescriptionProvider::followCache()
{
    using Provider = RestfulChannelDescriptionProvider;
    auto const pass = [provider = this, queue = _queue](ProviderMemo::Call const& call) {
        queue->handleNow(new ProviderMemo(provider, call));
    };
    connect(
        _webCache, &WebCache::updated, this,
        [pass](Uri const& uri, bool hasChanged, QDateTime const& date) {
            pass([=](Provider& provider) { provider.onUpdated(uri, hasChanged, date); });
        },
        Qt::DirectConnection);
    connect(
        _webCache, &WebCache::available, this,
        [pass](Uri const& uri) { pass([=](Provider& provider) { provider.onAvailable(uri); }); },
        Qt::DirectConnection);
    connect(
        _webCache, &WebCache::refused, this,
        [pass](Uri const& uri, QString const& fault) {
            pass([=](Provider& provider) { provider.onRefused(uri, fault); });
        },
        Qt::DirectConnection);
    connect(
        _webCache, &WebCache::unavailable, this,
        [pass](Uri const& uri, NetworkErrors::NetworkError error) {
            pass([=](Provider& provider) { provider.onUnavailable(uri, error); });
        },
        Qt::DirectConnection);
}

/// Has something done on the queue's thread.
void RestfulChannelDescriptionProvider::post(ProviderMemo::Call const& call)
{
    _queue->handleNow(new ProviderMemo(this, call));
}

/// Has something done on this object's thread.
void RestfulChannelDescriptionProvider::later(std::function<void()> const& call)
{
    QMetaObject::invokeMethod(this, call, Qt::QueuedConnection);
}

long long RestfulChannelDescriptionProvider::numChannels() const
{
    QMutexLocker const locker(&_mutex);
    return _published.channels().size();
}

ChannelDescription RestfulChannelDescriptionProvider::descriptionAt(long long index) const
{
    QMutexLocker const locker(&_mutex);
    return _published.channels().value(index);
}

bool RestfulChannelDescriptionProvider::isAllowedLoaded() const
{
    QMutexLocker const locker(&_mutex);
    return _isAllowedLoaded;
}

void RestfulChannelDescriptionProvider::start()
{
    LOG_INFO("Provider started...");
    QMutexLocker locker(&_mutex);
    _isRunning = true;
    bool const wasResetPending = std::exchange(_isResetPending, false);
    int const count = static_cast<int>(_published.channels().size());
    QSet<Uri> const logos = _directory.logos();
    locker.unlock();
    QPointer<QObject> const self(this);
    if (wasResetPending) {
        LOG_INFO("Doing immediate model reset (was pending)...");
        LOG_INFO("%d channels loaded.", count);
        updated();
    }
    if (!self)
        return;
    _webCache->watch(_channelsUri, {&ChannelDocumentReader::faultOf, true});
    for (Uri const& logo : logos)
        _webCache->watch(logo, {&BoundedImage::faultOf});
}

void RestfulChannelDescriptionProvider::stop()
{
    QMutexLocker locker(&_mutex);
    QSet<Uri> const logos = _directory.logos();
    bool const isRequestInFlight = std::exchange(_isAllowedRequestInFlight, false);
    locker.unlock();
    _webCache->ignore(_channelsUri);
    _webCache->ignore(logos);
    if (isRequestInFlight)
        _allowedChannels->cancelRequest();
    LOG_INFO("Provider stopped.");
    locker.relock();
    _isRunning = false;
}

/// The destructor waits for a memo that runs, which may be reading a long document: it comes after the last of them.
void RestfulChannelDescriptionProvider::retire()
{
    _webCache->disconnect(this);
    _queue->clear(this);
    _queue->handleNow(new DeleteLaterMemo(this));
}

void RestfulChannelDescriptionProvider::refresh()
{
    QMutexLocker locker(&_mutex);
    if (std::exchange(_isRefreshPosted, true))
        return; // Triggers may come by hundreds.
    locker.unlock();
    post([](RestfulChannelDescriptionProvider& provider) {
        QMutexLocker posted(&provider._mutex);
        provider._isRefreshPosted = false;
        posted.unlock();
        provider.readCachedDocument(); // One that is missing is the cache's to fetch, less and less often.
    });
}

void RestfulChannelDescriptionProvider::takeLogo(Uri const& logo, ChannelLogo const& image)
{
    LOG_DEBUG("Logo for %s updated.", qPrintable(logo.toString()));
    QMutexLocker locker(&_mutex);
    _directory.setLogo(logo, image);
    QList<ChannelDescription> const changed = _published.setLogo(logo, image);
    locker.unlock();
    logosUpdated(changed);
}

void RestfulChannelDescriptionProvider::onDirectoryTaken()
{
    QMutexLocker locker(&_mutex);
    if (_isRunning) {
        locker.unlock();
        readAllowedChannels();
        return;
    }
    _published = _directory.only(_allowed);
    _isResetPending = true;
    QSet<Uri> const logos = _directory.logos();
    locker.unlock();
    LOG_INFO("Should reset, but not running. Will reset when started.");
    _webCache->ignore(logos); // It may have been stopped while they began to be watched.
}

void RestfulChannelDescriptionProvider::readAllowedChannels()
{
    {
        QMutexLocker const locker(&_mutex);
        if (_isAllowedRequestInFlight || !_isRunning)
            return;
        _isAllowedRequestInFlight = true;
        _isAllowedLoaded = false;
    }
    _allowedChannels->getAllowedChannels(_user.nodeId());
}

void RestfulChannelDescriptionProvider::onAllowedChannelsReceived(QString const& confidenceFactor,
                                                                  QString const& countryId, QString const& ipAddress,
                                                                  QString const& defaultChannel,
                                                                  QStringList const& ids)
{
    QMutexLocker locker(&_mutex);
    if (!std::exchange(_isAllowedRequestInFlight, false))
        return; // It was cancelled.
    QSet<QString> const allowed(ids.cbegin(), ids.cend());
    _isListOld = _isListOld || allowed != _allowed;
    _allowed = allowed;
    locker.unlock();
    _confidenceFactor = confidenceFactor;
    _countryId = countryId;
    _ipAddress = ipAddress;
    _defaultChannel = defaultChannel;
    parseAllowedChannels();
}

/// Publishes what is allowed of the last document.
void RestfulChannelDescriptionProvider::parseAllowedChannels()
{
    QMutexLocker locker(&_mutex);
    _isAllowedLoaded = true;
    if (std::exchange(_isListOld, false))
        _published = _directory.only(_allowed);
    bool const isRunning = _isRunning;
    _isResetPending = !isRunning;
    locker.unlock();
    _lastPublished = _dateTimeBuilder->currentDateTime();
    QPointer<QObject> const self(this);
    emit allowedChannelsLoaded(_ipAddress, _countryId, _confidenceFactor, _defaultChannel);
    if (!self)
        return;
    if (isRunning) {
        LOG_INFO("Resetting model now.");
        updated();
    } else {
        LOG_INFO("Should reset, but not running. Will reset when started.");
    }
}

void RestfulChannelDescriptionProvider::onAllowedChannelsError(QString const& text)
{
    {
        QMutexLocker const locker(&_mutex);
        if (!std::exchange(_isAllowedRequestInFlight, false))
            return;
    }
    LOG_ERROR("Error loading allowed channels %s", qPrintable(text));
    reportFailure(text);
}

/// Tells why there is no list; a list that is there goes on.
void RestfulChannelDescriptionProvider::reportFailure(QString const& text)
{
    QMutexLocker locker(&_mutex);
    bool const isRunning = _isRunning;
    bool const isMissing = _published.channels().isEmpty();
    locker.unlock();
    if (isRunning && isMissing)
        emit allowedChannelsError(text);
    else if (isRunning)
        emit refreshFailed(text);
}

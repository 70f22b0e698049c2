// What a provider does on the thread of the cache's queue: it reads documents and decodes logos.

#include "BoundedImage.h"
#include "Logger.h"
#include "RestfulChannelDescriptionProvider.h"
#include "WebCache.h"

#include <QCryptographicHash>

#include <utility>

namespace
{

QByteArray digestOf(QByteArray const& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

} // namespace

void RestfulChannelDescriptionProvider::readCachedDocument()
{
    if (_webCache->isAvailable(_channelsUri))
        parse(_webCache->content(_channelsUri));
}

void RestfulChannelDescriptionProvider::onUpdated(Uri const& uri, bool hasChanged, QDateTime const&)
{
    LOG_DEBUG("Update from WebCache for %s", qPrintable(uri.toString()));
    if (uri == _channelsUri) {
        LOG_DEBUG("It's the channel XML.");
        parse(_webCache->content(uri));
    } else if (hasChanged || isMissingLogo(uri)) {
        loadLogo(uri);
    }
}

/// What was in the cache before it was watched.
void RestfulChannelDescriptionProvider::onAvailable(Uri const& uri)
{
    if (uri == _channelsUri)
        readCachedDocument();
    else if (isMissingLogo(uri))
        loadLogo(uri);
}

void RestfulChannelDescriptionProvider::onRefused(Uri const& uri, QString const& fault)
{
    if (uri == _channelsUri)
        parsingFailed(fault);
}

void RestfulChannelDescriptionProvider::onUnavailable(Uri const& uri, NetworkErrors::NetworkError error)
{
    if (uri == _channelsUri)
        later([this, error] { reportFailure(NetworkErrors::stringForError(error)); });
}

bool RestfulChannelDescriptionProvider::isMissingLogo(Uri const& uri) const
{
    QMutexLocker const locker(&_mutex);
    return _directory.hasLogo(uri) && !_directory.isLogoSet(uri);
}

void RestfulChannelDescriptionProvider::parse(QByteArray const& xml)
{
    LOG_INFO("Parsing %d bytes.", static_cast<int>(xml.size()));
    QByteArray const digest = digestOf(xml);
    if (digest == _parsedDigest) {
        // The channels are the same, but perhaps not those that are allowed.
        later([this] { readAllowedChannels(); });
        return;
    }
    ChannelDocumentReader::Document const document = ChannelDocumentReader::read(xml);
    if (!document.error.isEmpty()) {
        parsingFailed(document.error);
        return;
    }
    ChannelDirectory directory(document.entries, _defaultLogo, _noLogo);
    loadCachedLogos(directory);
    _parsedDigest = digest;
    takeDirectory(directory);
}

void RestfulChannelDescriptionProvider::parsingFailed(QString const& fault)
{
    LOG_ERROR("Error parsing channels.xml\n%s", qPrintable(fault));
    _webCache->update(_channelsUri);
    later([this] { emit channelParsingError(tr("Error parsing channels\nRetrying...")); });
}

/// From now on logos are those of this directory. The list follows when it is known what is allowed of it.
void RestfulChannelDescriptionProvider::takeDirectory(ChannelDirectory const& directory)
{
    QMutexLocker locker(&_mutex);
    ChannelDirectory const old = std::exchange(_directory, directory);
    _directory.adoptLogos(old);
    _isAllowedLoaded = false;
    _isListOld = true;
    bool const isRunning = _isRunning;
    locker.unlock();
    if (isRunning) {
        _webCache->ignore(old.logos() - directory.logos());
        for (Uri const& logo : directory.logos() - old.logos())
            _webCache->watch(logo, {&BoundedImage::faultOf});
    }
    later([this] { onDirectoryTaken(); });
}

/// The logos that have been decoded before are adopted later, and those beyond the limit come when they are watched.
void RestfulChannelDescriptionProvider::loadCachedLogos(ChannelDirectory& directory) const
{
    QMutexLocker locker(&_mutex);
    ChannelDirectory const known = _directory;
    locker.unlock();
    int loaded = 0;
    for (Uri const& logo : directory.logos()) {
        if (loaded == logosWithList)
            return;
        if (known.isLogoSet(logo) || !_webCache->isAvailable(logo))
            continue;
        ++loaded;
        if (ChannelLogo const image(BoundedImage::decode(_webCache->content(logo))); !image.isNull())
            directory.setLogo(logo, image);
    }
}

void RestfulChannelDescriptionProvider::loadLogo(Uri const& logo)
{
    QMutexLocker locker(&_mutex);
    bool const isOurs = _directory.hasLogo(logo);
    locker.unlock();
    if (!isOurs)
        return; // Others use the cache, too.
    LOG_DEBUG("Logo fetched %s", qPrintable(logo.toString()));
    ChannelLogo const image(BoundedImage::decode(_webCache->content(logo)));
    if (image.isNull())
        LOG_WARNING("The logo %s is no picture that can be shown.", qPrintable(logo.toString()));
    else
        later([this, logo, image] { takeLogo(logo, image); });
}

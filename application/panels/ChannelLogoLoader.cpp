#include "ChannelLogoLoader.h"

#include "BoundedImage.h"
#include "WebCache.h"

ChannelLogoLoader::ChannelLogoLoader(WebCache* cache, QObject* parent) : QObject(parent), _cache(cache)
{
    _decoder.setMaxThreadCount(1);
    if (!_cache)
        return;
    // The cache tells on its own thread.
    connect(_cache, &WebCache::available, this, &ChannelLogoLoader::onAvailable, Qt::QueuedConnection);
    connect(_cache, &WebCache::updated, this, &ChannelLogoLoader::onUpdated, Qt::QueuedConnection);
}

ChannelLogoLoader::~ChannelLogoLoader()
{
    forgetAll();
    _decoder.clear();
    _decoder.waitForDone(); // One picture at most.
}

void ChannelLogoLoader::want(Uri const& logo)
{
    if (!_cache || logo.isNull() || _wanted.contains(logo))
        return;
    _wanted.insert(logo);
    if (_cache->isWatched(logo)) {
        load(logo);
        return;
    }
    _watched.insert(logo);
    _cache->watch(logo, {&BoundedImage::faultOf});
}

void ChannelLogoLoader::forgetAll()
{
    if (_cache)
        _cache->ignore(_watched);
    _watched.clear();
    _wanted.clear();
}

void ChannelLogoLoader::onAvailable(Uri const& uri)
{
    if (_wanted.contains(uri))
        load(uri);
}

void ChannelLogoLoader::onUpdated(Uri const& uri, bool hasChanged)
{
    if (hasChanged && _wanted.contains(uri))
        load(uri);
}

void ChannelLogoLoader::load(Uri const& logo)
{
    _decoder.start([this, cache = _cache, logo] {
        ChannelLogo const image(BoundedImage::decode(cache->content(logo)));
        if (image.isNull())
            return;
        QMetaObject::invokeMethod(
            this,
            [this, logo, image] {
                if (_wanted.contains(logo))
                    emit loaded(logo, image);
            },
            Qt::QueuedConnection);
    });
}

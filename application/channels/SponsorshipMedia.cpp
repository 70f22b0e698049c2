#include "SponsorshipMedia.h"

#include "AbstractMemo.h"
#include "BoundedImage.h"
#include "FileName.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MemoQueue.h"
#include "OwnChannels.h"
#include "ResourceImage.h"
#include "WebCache.h"

#include <QDir>
#include <QSaveFile>
#include <QUrl>

#include <functional>
#include <utility>

Logger* SponsorshipMedia::log = LoggerManager::logger();

class SponsorshipMedia::Memo : public AbstractMemo
{
public:
    Memo(SponsorshipMedia* media, std::function<void()> call) : AbstractMemo(media), _call(std::move(call)) {}

    void handle() override { _call(); }

private:
    std::function<void()> const _call;
};

SponsorshipMedia::SponsorshipMedia(WebCache* cache, MemoQueue* memos, QString const& directory, QObject* parent)
    : QObject(parent), _cache(cache), _memos(memos), _directory(directory)
{
    _memos->acquire(this);
    connect(cache, &WebCache::updated, this, &SponsorshipMedia::onUpdated);
}

SponsorshipMedia::~SponsorshipMedia()
{
    _memos->release(this);
    _cache->ignore(_watched);
}

void SponsorshipMedia::prepare(SponsorshipResponse const& response)
{
    _cache->ignore(std::exchange(_watched, {}));
    watch(response.url);
    _logoUrl = OwnChannels::isAddress(response.logoUrl) ? response.logoUrl : QString();
    if (!_logoUrl.isEmpty())
        watch(_logoUrl);
    _memos->handleNow(new Memo(this, [this, response, number = ++_number] { read(response, number); }));
}

void SponsorshipMedia::forget()
{
    cancel();
    _logoUrl.clear();
    _cache->ignore(std::exchange(_watched, {}));
}

void SponsorshipMedia::watch(QString const& url)
{
    _cache->watch(Uri(url));
    _watched.insert(Uri(url));
}

void SponsorshipMedia::read(SponsorshipResponse const& response, int number)
{
    QString const address = mediaAddress(response.url);
    QImage const image = logo(response.logoUrl);
    QMetaObject::invokeMethod(
        this,
        [this, response, number, address, image] {
            if (number == _number)
                emit prepared(response, address, image);
        },
        Qt::QueuedConnection);
}

void SponsorshipMedia::onUpdated(Uri const& uri)
{
    if (!_logoUrl.isEmpty() && uri == Uri(_logoUrl))
        _memos->handleNow(new Memo(this, [this, url = _logoUrl] { readLogo(url); }));
}

void SponsorshipMedia::readLogo(QString const& url)
{
    QImage const image = logo(url);
    QMetaObject::invokeMethod(
        this,
        [this, url, image] {
            if (url == _logoUrl)
                emit logoUpdated(image);
        },
        Qt::QueuedConnection);
}

/// What is in the cache plays from a file of its own, since the cache may drop its copy at any time.
QString SponsorshipMedia::mediaAddress(QString const& url) const
{
    Uri const uri(url);
    QString const name = QUrl(url).fileName();
    QDir const directory(_directory);
    if (name.isEmpty() || name.startsWith('.') || !_cache->isAvailable(uri) || !directory.mkpath(".")) {
        LOG_INFO("Opening sponsorship url %s", qUtf8Printable(url));
        return url;
    }
    QString const path = directory.filePath(name);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(_cache->content(uri)) <= 0 || !file.commit()) {
        LOG_WARNING("%s: %s", qUtf8Printable(path), qUtf8Printable(file.errorString()));
        return url;
    }
    for (QString const& other : directory.entryList(QDir::Files))
        if (other != name)
            QFile::remove(directory.filePath(other)); // Of the pre-rolls before.
    LOG_INFO("Opening cached sponsorship file %s", qUtf8Printable(path));
    return FileName::toAddress(path);
}

QImage SponsorshipMedia::logo(QString const& url) const
{
    if (OwnChannels::isAddress(url)) {
        if (QImage const cached = BoundedImage::decode(_cache->content(Uri(url))); !cached.isNull()) {
            LOG_INFO("Sponsorship logo has been cached for url %s", qUtf8Printable(url));
            return cached;
        }
    }
    LOG_INFO("Setting default sponsorship logo to default for url %s", qUtf8Printable(url));
    return ResourceImage::png(":/Resources/latte_en.png");
}

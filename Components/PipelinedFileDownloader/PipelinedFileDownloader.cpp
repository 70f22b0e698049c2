#include "PipelinedFileDownloader.h"

#include "HttpDate.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MemoQueue.h"
#include "PFDDownload.h"
#include "PFDDownloadMemo.h"
#include "PFDNetwork.h"
#include "PFDReaperMemo.h"
#include "PFDTimeoutMemo.h"
#include "TickCounter.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QRegularExpression>
#include <QThread>
#include <QUrl>

#include <algorithm>
#include <limits>

namespace
{

constexpr int maximumRedirects = 5;
constexpr qint64 readBufferBytes = 256 << 10; ///< A server that is faster than the disk has to wait.
constexpr qsizetype maximumOldReplies = 64;   ///< Of one server; each is a few KB.

} // namespace

Logger* PipelinedFileDownloader::log = LoggerManager::logger();

PipelinedFileDownloader::PipelinedFileDownloader(MemoQueue* queue, TickCounter* tickCounter, QObject* parent)
    : QObject(parent), _queue(queue), _tickCounter(tickCounter)
{
    _queue->acquire(this);
}

PipelinedFileDownloader::~PipelinedFileDownloader()
{
    _queue->release(this);
    if (!_network)
        return;
    if (_network->thread() == QThread::currentThread())
        delete _network;
    else
        _network->deleteLater();
}

bool PipelinedFileDownloader::downloadFile(Uri const& uri, QString const& destination, QDateTime const& lastModified,
                                           bool isUrgent)
{
    DownloadableObject const object{uri, destination, lastModified, isUrgent};
    return !object.host().isEmpty() && _queue->handleNow(new PFDDownloadMemo(*this, object));
}

PFDNetwork& PipelinedFileDownloader::network()
{
    if (!_network)
        _network = new PFDNetwork;
    return *_network;
}

/// Null when the download is over.
PFDDownload* PipelinedFileDownloader::currentDownload(QString const& host, int number)
{
    auto const state = network().hosts.constFind(host);
    PFDDownload* const download = state == network().hosts.cend() ? nullptr : state->current;
    return download && download->number() == number ? download : nullptr;
}

void PipelinedFileDownloader::queueObject(DownloadableObject const& object)
{
    QString const host = object.host();
    network().hosts[host].queueObject(object);
    if (!network().isReaperPosted)
        network().isReaperPosted = _queue->handleSoon(PFDReaperMemo::ReaperIntervalMs, new PFDReaperMemo(*this));
    doNext(host);
}

QSet<Uri> PipelinedFileDownloader::dropWaiting(QSet<Uri> const& uris)
{
    QSet<Uri> dropped;
    for (PFDHost& host : network().hosts)
        dropped.unite(host.dropObjects(uris));
    return dropped;
}

void PipelinedFileDownloader::doNext(QString const& host)
{
    LOG_DEBUG("Doing next download for host %s...", qPrintable(host));
    PFDHost& state = network().hosts[host];
    if (state.current) {
        LOG_DEBUG("Already downloading an object from %s.", qPrintable(host));
        return;
    }
    if (!state.hasObjects()) {
        LOG_DEBUG("  None left.");
        return;
    }
    DownloadableObject const object = state.dequeueObject();
    LOG_DEBUG("Found an object (%s)...", qPrintable(object.uri.toString()));
    send(host, state, object);
}

void PipelinedFileDownloader::send(QString const& host, PFDHost& state, DownloadableObject const& object)
{
    LOG_DEBUG("Creating new request for %s.", qPrintable(object.uri.toString()));
    QNetworkRequest request(QUrl(object.uri.toString()));
    request.setMaximumRedirectsAllowed(maximumRedirects);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Ombravision"));
    if (object.lastModified.isValid())
        request.setRawHeader("If-Modified-Since", HttpDate::toString(object.lastModified).toLatin1());
    QNetworkReply* const reply = network().manager.get(request);
    reply->setReadBufferSize(readBufferBytes);
    state.msLastActive = _tickCounter->msSinceEpoch();
    state.current = new PFDDownload(*this, *_queue, object, ++_lastNumber, reply, state.msLastActive, &network());
    _queue->handleSoon(SilenceMs, new PFDTimeoutMemo(*this, host, _lastNumber));
}

void PipelinedFileDownloader::readDownload(QString const& host, int number)
{
    if (PFDDownload* const download = currentDownload(host, number)) {
        network().hosts[host].msLastActive = _tickCounter->msSinceEpoch();
        download->read();
    }
}

void PipelinedFileDownloader::onTimeout(QString const& host, int number)
{
    PFDDownload* const download = currentDownload(host, number);
    if (!download)
        return;
    qint64 const now = _tickCounter->msSinceEpoch();
    qint64 const end =
        std::min(network().hosts[host].msLastActive + SilenceMs, download->msStarted() + qint64{LongestMs});
    if (now < end) {
        _queue->handleSoon(static_cast<unsigned int>(end - now), new PFDTimeoutMemo(*this, host, number));
        return;
    }
    LOG_WARNING("Download timed out for %s.", qPrintable(download->object().uri.toString()));
    download->abort(QStringLiteral("no answer in time"));
}

void PipelinedFileDownloader::finishDownload(QString const& host, int number)
{
    PFDDownload* const download = currentDownload(host, number);
    if (!download)
        return;
    LOG_DEBUG("*** Finishing with %s", qPrintable(download->object().uri.toString()));
    download->read();
    int const statusCode = download->statusCode();
    if (statusCode != 0)
        LOG_DEBUG("Status code is %d.", statusCode);
    else
        LOG_DEBUG("Could not read HTTP status code - defaulting.");
    PFDHost& state = network().hosts[host];
    state.current = nullptr;
    state.msLastActive = _tickCounter->msSinceEpoch();
    report(*download, statusCode);
    queueOldReplyForCleanup(host, state, download);
    doNext(host);
}

QDateTime PipelinedFileDownloader::lastModifiedOf(QNetworkReply const& reply) const
{
    QString const text = QString::fromLatin1(reply.rawHeader("Last-Modified"));
    if (!text.isEmpty())
        LOG_DEBUG("Last-Modified: %s", qPrintable(text));
    return HttpDate::parse(text);
}

/// 0 when the server tells none.
int PipelinedFileDownloader::maxAgeSecondsOf(QNetworkReply const& reply) const
{
    static QRegularExpression const pattern(QStringLiteral("max-age=(\\d+)"));
    QRegularExpressionMatch const match = pattern.match(QString::fromLatin1(reply.rawHeader("Cache-Control")));
    if (!match.hasMatch())
        return 0;
    bool isInt = false;
    int const seconds = match.captured(1).toInt(&isInt);
    int const maxAge = isInt ? seconds : std::numeric_limits<int>::max();
    LOG_DEBUG("Maximum age is %d seconds.", maxAge);
    return maxAge;
}

/// Tells how a download has ended. The file is closed before anybody hears of it.
void PipelinedFileDownloader::report(PFDDownload& download, int statusCode)
{
    constexpr int ok = 200;
    constexpr int notModified = 304;
    Uri const uri = download.object().uri;
    QNetworkReply const& reply = *download.reply();
    bool const isWhole = reply.error() == QNetworkReply::NoError && download.failure().isEmpty();
    download.close(isWhole && statusCode == ok && !download.isInMemory());
    if (statusCode != 0 && statusCode != ok && statusCode != notModified && download.failure().isEmpty()) {
        LOG_WARNING("HTTP error while downloading %s", qPrintable(uri.toString()));
        emit error(uri, QString("HTTP error %1").arg(statusCode));
    } else if (!isWhole || statusCode == 0) {
        LOG_WARNING("Network or file error while downloading %s", qPrintable(uri.toString()));
        QString const reason = download.failure().isEmpty() ? reply.errorString() : download.failure();
        emit error(uri, QString("Network error %1 (%2)").arg(reply.error()).arg(reason));
    } else if (statusCode == notModified) {
        LOG_DEBUG("Object %s was unmodified.", qPrintable(uri.toString()));
        emit unmodified(uri, lastModifiedOf(reply), maxAgeSecondsOf(reply));
    } else {
        LOG_DEBUG("Successfully downloaded %s", qPrintable(uri.toString()));
        if (download.isInMemory())
            emit downloadedToMemory(uri, download.bytesInMemory(), lastModifiedOf(reply), maxAgeSecondsOf(reply));
        else
            emit downloaded(uri, download.object().destination, lastModifiedOf(reply), maxAgeSecondsOf(reply));
    }
}

void PipelinedFileDownloader::queueOldReplyForCleanup(QString const& host, PFDHost& state, PFDDownload* download)
{
    state.oldReplies.append(download->reply());
    download->deleteLater();
    if (state.oldReplies.size() > maximumOldReplies)
        state.oldReplies.takeFirst()->deleteLater();
    LOG_DEBUG("Now %d old replies for %s.", static_cast<int>(state.oldReplies.size()), qPrintable(host));
}

void PipelinedFileDownloader::reapReplies()
{
    qint64 const now = _tickCounter->msSinceEpoch();
    LOG_DEBUG("Reaping old replies, time now is %lld...", now);
    QHash<QString, PFDHost>& hosts = network().hosts;
    for (auto host = hosts.begin(); host != hosts.end();) {
        LOG_DEBUG("Checking connection %s (last active %lld)...", qPrintable(host.key()), host->msLastActive);
        if (host->current || now - host->msLastActive < PFDReaperMemo::ReaperIntervalMs) {
            LOG_DEBUG("  ...still potentially active.");
            ++host;
            continue;
        }
        LOG_DEBUG("  ...inactive - reaping.");
        for (QNetworkReply* const reply : std::as_const(host->oldReplies))
            reply->deleteLater();
        host = hosts.erase(host);
    }
    network().isReaperPosted =
        !hosts.isEmpty() && _queue->handleSoon(PFDReaperMemo::ReaperIntervalMs, new PFDReaperMemo(*this));
}

#include "HttpFileDownloader.h"

#include "HttpClient.h"
#include "HttpClientFactory.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "TimedHttpClient.h"

#include <QCoreApplication>
#include <QFutureWatcher>
#include <QPointer>
#include <QPromise>
#include <QThreadPool>

#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <unistd.h>
#include <utility>

namespace
{

constexpr int ok = 200;
constexpr int silenceSeconds = 60; ///< A server that says nothing for so long is given up.

bool isSecure(QUrl const& url)
{
    return url.scheme() == "https";
}

bool isWeb(QUrl const& url)
{
    return url.isValid() && !url.host().isEmpty() && (isSecure(url) || url.scheme() == "http");
}

bool isRedirection(int status)
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

/// Has the file written to the disk and given its name, unless it is dropped; what went wrong, in words. Waits for
/// the disk.
QString moveIntoPlace(QString const& from, QString const& to, std::atomic_bool const& isDropped)
{
    int const descriptor = ::open(QFile::encodeName(from).constData(), O_RDONLY | O_CLOEXEC);
    bool const isWritten = descriptor >= 0 && ::fsync(descriptor) == 0;
    QString const fault = isWritten ? QString() : qt_error_string(errno);
    if (descriptor >= 0)
        ::close(descriptor);
    if (isWritten && !isDropped &&
        std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0)
        return {};
    QString const text = isWritten ? qt_error_string(errno) : fault;
    QFile::remove(from);
    return text;
}

} // namespace

Logger* HttpFileDownloader::log = LoggerManager::logger();

HttpFileDownloader::HttpFileDownloader(HttpClientFactory* httpClientFactory, Uri const& uri, QString const& path,
                                       QObject* parent)
    : QObject(parent), _httpClientFactory(httpClientFactory), _uri(uri), _path(path)
{
}

HttpFileDownloader::~HttpFileDownloader()
{
    release();
}

QString HttpFileDownloader::temporaryPath() const
{
    return QString("%1.%2-%3.part").arg(_path).arg(QCoreApplication::applicationPid()).arg(_attempt);
}

void HttpFileDownloader::start()
{
    if (std::exchange(_isUnderWay, true))
        return;
    ++_attempt;
    _redirections = 0;
    _bytesDone = _bytesTotal = 0;
    _errorString.clear();
    _file.setFileName(temporaryPath());
    int const attempt = _attempt;
    QPointer<HttpFileDownloader> const self = this;
    emit started(this);
    if (!self || !_isUnderWay || attempt != _attempt)
        return; // Deleted or cancelled from there.
    if (!_file.open(QIODevice::WriteOnly))
        fail(_file.errorString());
    else if (!send(QUrl(_uri.toString())))
        fail(tr("The address cannot be downloaded from."));
}

bool HttpFileDownloader::send(QUrl const& url)
{
    if (!isWeb(url))
        return false;
    _url = url;
    _header = {};
    _client = _httpClientFactory->createHttpClient(nullptr);
    connect(_client, &HttpClient::responseHeaderReceived, this, &HttpFileDownloader::onResponseHeaderReceived);
    connect(_client, &HttpClient::dataReadProgress, this, &HttpFileDownloader::onDataReadProgress);
    connect(_client, &HttpClient::done, this, &HttpFileDownloader::onDone);
    _client->setHost(url.host(), isSecure(url) ? HttpClient::ConnectionModeHttps : HttpClient::ConnectionModeHttp,
                     url.port(0));
    QString const path = url.path(QUrl::FullyEncoded);
    QString const query = url.hasQuery() ? QString("?" + url.query(QUrl::FullyEncoded)) : QString();
    QString const target = (path.isEmpty() ? QStringLiteral("/") : path) + query;
    if (TimedHttpClient* const timedClient = qobject_cast<TimedHttpClient*>(_client))
        timedClient->get(target, silenceSeconds);
    else
        _client->get(target);
    return true;
}

/// Gives back the client, and removes what has come.
void HttpFileDownloader::release()
{
    if (_isDropped)
        *_isDropped = true;
    if (HttpClient* const client = std::exchange(_client, nullptr)) {
        client->disconnect(this);
        client->abort();
        _httpClientFactory->disposeHttpClient(client);
    }
    if (_file.isOpen()) {
        _file.close();
        _file.remove();
    }
}

void HttpFileDownloader::cancel()
{
    if (!std::exchange(_isUnderWay, false))
        return;
    release();
    emit cancelled(this);
}

void HttpFileDownloader::fail(QString const& text)
{
    LOG_WARNING("%s could not be downloaded: %s", qPrintable(_uri.toString()), qPrintable(text));
    _errorString = text;
    _isUnderWay = false;
    release();
    emit error(this);
}

void HttpFileDownloader::onResponseHeaderReceived(HttpClient*, HttpResponseHeader const& header)
{
    _header = header;
    _bytesTotal = header.statusCode() == ok ? header.contentLength() : 0;
}

void HttpFileDownloader::onDataReadProgress(HttpClient*, int, int)
{
    if (!writeArrived())
        fail(_file.errorString());
    else if (_header.statusCode() == ok)
        emit progressChanged(this);
}

/// Whether what has come is in the file; the text of another status is dropped.
bool HttpFileDownloader::writeArrived()
{
    QByteArray const bytes = _client->readAll();
    if (_header.statusCode() != ok)
        return true;
    _bytesDone += bytes.size();
    return _file.write(bytes) == bytes.size();
}

void HttpFileDownloader::onDone(HttpClient* client, bool isError)
{
    int const status = _header.statusCode();
    if (isError)
        fail(tr("The connection failed (%1).").arg(client->error()));
    else if (isRedirection(status))
        redirect(_header.value("Location"));
    else if (status != ok)
        fail(tr("The server answered %1 %2.").arg(QString::number(status), _header.reasonPhrase()));
    else if (!writeArrived() || !_file.flush())
        fail(_file.errorString());
    else
        finish();
}

void HttpFileDownloader::redirect(QString const& location)
{
    QUrl const url = _url.resolved(QUrl(location));
    bool const isFollowed = ++_redirections <= maximumRedirections && (isSecure(url) || !isSecure(_url));
    HttpClient* const client = std::exchange(_client, nullptr);
    client->disconnect(this);
    _httpClientFactory->disposeHttpClient(client);
    if (!isFollowed || !send(url))
        fail(tr("The server leads to another place that cannot be used."));
}

/// The disk is waited for by a thread of Qt's pool.
void HttpFileDownloader::finish()
{
    _file.close();
    release();
    _isDropped = std::make_shared<std::atomic_bool>(false);
    auto const promise = std::make_shared<QPromise<QString>>();
    auto* const watcher = new QFutureWatcher<QString>(this);
    connect(watcher, &QFutureWatcher<QString>::finished, this, [this, watcher, attempt = _attempt] {
        watcher->deleteLater();
        if (!_isUnderWay || attempt != _attempt)
            return;
        if (QString const fault = watcher->result(); !fault.isEmpty()) {
            fail(fault);
            return;
        }
        _isUnderWay = false;
        emit complete(this);
    });
    promise->start();
    watcher->setFuture(promise->future());
    QThreadPool::globalInstance()->start([promise, isDropped = _isDropped, from = _file.fileName(), to = _path] {
        promise->addResult(moveIntoPlace(from, to, *isDropped));
        promise->finish();
    });
}

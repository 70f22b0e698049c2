#include "HttpFileDataSource.h"

#include "DownloadBuffer.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "NetworkErrors.h"
#include "StreamOpener.h"
#include "Uri.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QUrl>

#include <algorithm>
#include <cstdlib>

Logger* HttpFileDataSource::log = LoggerManager::logger();

HttpFileDataSource::HttpFileDataSource(QString const& url, QObject* parent)
    : GLMovieDataSource(url, parent), _buffer(std::make_shared<DownloadBuffer>())
{
}

HttpFileDataSource::~HttpFileDataSource()
{
    blockSignals(true);
    HttpFileDataSource::close();
}

void HttpFileDataSource::open()
{
    if (!_isClosed)
        return;
    setInterrupted(false);
    _isClosed = false;
    start();
    startBuffering();
}

void HttpFileDataSource::close()
{
    setInterrupted(true);
    _isClosed = true;
    stopBuffering();
    dropDemuxer();
    stop();
    _opened = false;
    _isStream = false;
    _isUntrusted = false;
    _triedBytes = 0;
    _buffer = std::make_shared<DownloadBuffer>(); // The demuxer may still look at the old one.
}

void HttpFileDataSource::start()
{
    GLMovieDataSource::start();
}

void HttpFileDataSource::stop()
{
    GLMovieDataSource::stop();
}

int HttpFileDataSource::readFrame(AVPacket* packet)
{
    int const result = GLMovieDataSource::readFrame(packet);
    if (result >= 0 || result == AVERROR(EAGAIN) || result == AVERROR_EXIT)
        return result;
    if (_buffer->state() != DownloadBuffer::Failed)
        return result;
    auto const broken = demuxer();
    if (!_buffer->hasLength() && broken) {
        broken->retire();
        QMetaObject::invokeMethod(this, &HttpFileDataSource::leaveToStream, Qt::QueuedConnection);
        return GLMovieDataSource::readFrame(packet); // Until the other source takes its place.
    }
    reportLoss();
    return result == AVERROR_EOF ? AVERROR(EIO) : result;
}

quint64 HttpFileDataSource::bytesRead() const
{
    return static_cast<quint64>(_buffer->size());
}

qint64 HttpFileDataSource::position() const
{
    return _buffer->position();
}

void HttpFileDataSource::startBuffering()
{
    QUrl const url(uri());
    if (url.scheme() != "http" && url.scheme() != "https") {
        LOG_ERROR("Network Error %s", "not an address of the web");
        return fail();
    }
    _buffer->setState(DownloadBuffer::Running);
    _manager = std::make_unique<QNetworkAccessManager>();
    _manager->setTransferTimeout(_transferTimeout);
    QNetworkRequest request(url);
    request.setRawHeader("Accept-Encoding", "identity"); // Or the length would be that of something else.
    request.setHeader(QNetworkRequest::UserAgentHeader, QCoreApplication::applicationName());
    _reply.reset(_manager->get(request));
    connect(_reply.get(), &QNetworkReply::readyRead, this, &HttpFileDataSource::onReadyRead);
    connect(_reply.get(), &QNetworkReply::errorOccurred, this, &HttpFileDataSource::onError);
    connect(_reply.get(), &QNetworkReply::sslErrors, this, &HttpFileDataSource::onSslErrors);
    connect(_reply.get(), &QNetworkReply::downloadProgress, this, &HttpFileDataSource::onDownloadProgress);
    connect(_reply.get(), &QNetworkReply::finished, this, &HttpFileDataSource::onFinished);
    LOG_INFO("Started downloading %s", qPrintable(uri()));
    emit stateChanged(this, tr("Acquiring Channel...\nPlease wait"));
}

void HttpFileDataSource::stopBuffering()
{
    if (_buffer->state() == DownloadBuffer::Running)
        _buffer->setState(DownloadBuffer::Idle);
    if (!_reply)
        return;
    disconnect(_reply.get(), nullptr, this, nullptr);
    _reply->abort();
    _reply.release()->deleteLater(); // May be the sender of the signal that led here.
    _manager.release()->deleteLater();
    LOG_INFO("Stopped downloading %s", qPrintable(uri()));
}

void HttpFileDataSource::onReadyRead()
{
    if (status() >= 400) { // The words of an error page are no film, and they need not end.
        LOG_ERROR("Network Error the server answers %d", status());
        return breakOff();
    }
    QByteArray const bytes = _reply->readAll();
    LOG_DEBUG("Http bytes received %d", static_cast<int>(bytes.size()));
    QVariant const length = _reply->header(QNetworkRequest::ContentLengthHeader);
    qsizetype const size = _buffer->append(bytes, length.isValid() ? length.toLongLong() : -1);
    if (size > maximumBytes) {
        LOG_ERROR("Network Error %s", "more than can be kept in memory");
        _failure = tr("The file is too long to be kept in memory");
        _buffer->setState(DownloadBuffer::Failed);
        return stopBuffering();
    }
    if (_opened && !_buffer->hasLength() && keepsPace())
        return leaveToStream();
    if (size >= 2 * _triedBytes)
        attempt();
}

bool HttpFileDataSource::isBroadcast() const
{
    if (!_reply || _buffer->hasLength() || duration() > 0.0 || _buffer->state() == DownloadBuffer::Finished)
        return false;
    // The headers that radio stations have, whatever serves them.
    auto const isIcy = [](QByteArray const& name) { return name.toLower().startsWith("icy-"); };
    QList<QByteArray> const names = _reply->rawHeaderList();
    bool const hasFrames = _reply->attribute(QNetworkRequest::Http2WasUsedAttribute).toBool(); // In place of chunks.
    bool const tellsEnd = hasFrames || _reply->rawHeader("Transfer-Encoding").toLower().contains("chunked");
    return !tellsEnd || std::ranges::any_of(names, isIcy);
}

/// Whether, for long, what has come has been read, but for what was ahead before: nobody sends a file like that. Who
/// has read all there is tells nothing, for the network may be slower than a film.
bool HttpFileDataSource::keepsPace()
{
    if (duration() > 0.0)
        return false;
    Pace const now{currentMilliseconds(), _buffer->size(), _buffer->size() - _buffer->position()};
    if (now.time - _pace.time < paceTime)
        return false;
    Pace const before = std::exchange(_pace, now);
    qint64 const size = now.size - before.size;
    bool const isAhead = now.unread * (now.time - before.time) >= size * leastAhead;
    return isAhead && 10 * std::abs(now.unread - before.unread) < size;
}

void HttpFileDataSource::leaveToStream()
{
    if (_isClosed || std::exchange(_isStream, true))
        return; // A seek interrupts, too, but ends nothing.
    LOG_INFO("%s is left to a source for streams", qPrintable(uri()));
    emit streamFound(); // Before the reader can take the end of the download for that of the film.
    stopBuffering();
}

void HttpFileDataSource::onError(QNetworkReply::NetworkError code)
{
    if (code == QNetworkReply::ProtocolFailure && _buffer->size() == 0)
        return leaveToStream(); // Some stations' servers speak a protocol of their own, which FFmpeg knows.
    LOG_ERROR("Network Error %s", qPrintable(_reply->errorString()));
    breakOff();
}

/// The download has failed.
void HttpFileDataSource::breakOff()
{
    if (_buffer->size() == 0 && mayPass())
        return leaveToStream(); // Which is tried again.
    _failure = errorReason();
    _buffer->setState(DownloadBuffer::Failed);
    if (status() >= 400)
        stopBuffering();
    if (!_opened && !hasDemuxer())
        fail(_failure);
}

bool HttpFileDataSource::mayPass() const
{
    switch (_reply->error()) {
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::TimeoutError:
    case QNetworkReply::OperationCanceledError: // By the transfer timeout: what is ended here tells nothing.
        return true;
    default:
        return status() / 100 == 5;
    }
}

int HttpFileDataSource::status() const
{
    return _reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

QString HttpFileDataSource::errorReason() const
{
    switch (_reply->error()) {
    case QNetworkReply::HostNotFoundError:
        return NetworkErrors::stringForError(NetworkErrors::CouldNotResolve);
    case QNetworkReply::ConnectionRefusedError:
        return NetworkErrors::stringForError(NetworkErrors::CouldNotConnect);
    case QNetworkReply::SslHandshakeFailedError:
        return _isUntrusted ? NetworkErrors::untrustedCertificate()
                            : NetworkErrors::stringForError(NetworkErrors::CouldNotConnect);
    default:
        break;
    }
    NetworkErrors::NetworkError const error = NetworkErrors::ofHttpStatus(status());
    return NetworkErrors::stringForError(error == NetworkErrors::NoError ? NetworkErrors::StreamUnavailable : error);
}

void HttpFileDataSource::onSslErrors(QList<QSslError> const& errors)
{
    _isUntrusted = true;
    LOG_ERROR("Ssl Errors:");
    for (QSslError const& sslError : errors)
        LOG_ERROR("%s", qPrintable(sslError.errorString()));
}

void HttpFileDataSource::onDownloadProgress(qint64 received, qint64 total)
{
    LOG_DEBUG("Downloaded %lld of %lld bytes ( %.1lf%% )", static_cast<long long>(received),
              static_cast<long long>(total), total > 0 ? 100.0 * double(received) / double(total) : 0.0);
    emit downloadProgressChanged(received, total);
}

void HttpFileDataSource::onFinished()
{
    if (_reply->error() != QNetworkReply::NoError)
        return;
    _buffer->setState(DownloadBuffer::Finished);
    LOG_INFO("Download completed for %s", qPrintable(uri()));
    emit downloadComplete();
    attempt();
}

void HttpFileDataSource::attempt()
{
    if (_opened || _isStream || hasDemuxer() || _isClosed)
        return;
    _triedBytes = _buffer->size();
    _needsMore = std::make_shared<std::atomic<bool>>(false);
    auto const opening = [name = uri(), buffer = _buffer, needsMore = _needsMore](Demuxer const& demuxer) {
        return tryOpen(name, *buffer, *needsMore, demuxer);
    };
    startDemuxer(opening, -1); // The index may come last: the end of the download is what the opening waits for.
}

void HttpFileDataSource::onOpeningEnded(bool success)
{
    if (_isClosed)
        return;
    if (success && isBroadcast())
        return leaveToStream();
    if (success) {
        _opened = true;
        _pace = {currentMilliseconds(), _buffer->size(), _buffer->size() - _buffer->position()};
        emit opened(this);
        return;
    }
    DownloadBuffer::State const state = _buffer->state();
    qsizetype const size = _buffer->size();
    bool const hasGrown = size >= 2 * _triedBytes || (state == DownloadBuffer::Finished && size > _triedBytes);
    if (*_needsMore && hasGrown)
        return attempt();
    if (*_needsMore && state == DownloadBuffer::Running)
        return;
    stopBuffering();
    fail(state == DownloadBuffer::Failed ? _failure : NetworkErrors::nothingToPlay());
}

void HttpFileDataSource::fail(QString const& reason)
{
    raiseError(tr("Failed to open %1").arg(Uri::withoutUserInfo(uri())) +
               (reason.isEmpty() ? QString() : "\n" + reason));
}

FormatContextPointer HttpFileDataSource::tryOpen(QString const& name, DownloadBuffer& buffer,
                                                 std::atomic<bool>& needsMore, Demuxer const& demuxer)
{
    bool const isRunning = buffer.state() == DownloadBuffer::Running;
    QByteArray const beginning = buffer.rewind(maximumProbeBytes);
    bool const mayGrow = isRunning && beginning.size() < maximumProbeBytes;
    int score = 0;
    AVInputFormat const* const format = FFwrapper::probeFormat(beginning, &score);
    if (!format || (mayGrow && score <= AVPROBE_SCORE_RETRY)) {
        LOG_DEBUG("Failed to determine file format for %s", qPrintable(name));
        needsMore = mayGrow;
        return nullptr;
    }
    AVFormatContext* const prepared = avformat_alloc_context();
    prepared->protocol_whitelist = av_strdup("crypto,data"); // The file is all there is: it leads nowhere else.
    buffer.setInterrupt(demuxer.interruptCallback());
    FFwrapper::setFFHandler(prepared, &DownloadBuffer::read, &DownloadBuffer::seek, &buffer);
    return StreamOpener::open(prepared, {StreamOpener::Download, name, {}, format}, demuxer);
}

#include "HttpFileDataSource.h"

#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QMutex>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QThread>
#include <QUrl>
#include <QWaitCondition>

#include <algorithm>
#include <cstring>

Logger* HttpFileDataSource::log = LoggerManager::logger();

/// Runs one attempt to open.
class HttpFileDataSource::HttpFileDataSourceThread : public QThread
{
public:
    explicit HttpFileDataSourceThread(HttpFileDataSource& source) : _source(source) {}

    OpenResult result() const { return _result; }

protected:
    void run() override { _result = _source.tryOpen(); }

private:
    HttpFileDataSource& _source;
    std::atomic<OpenResult> _result{OpenFailed};
};

HttpFileDataSource::HttpFileDataSource(QString const& url, QObject* parent) : GLMovieDataSource(url, parent) {}

HttpFileDataSource::~HttpFileDataSource()
{
    blockSignals(true);
    HttpFileDataSource::close();
}

void HttpFileDataSource::open()
{
    if (_reply)
        return;
    setInterrupted(false);
    start();
    startBuffering();
}

void HttpFileDataSource::close()
{
    setInterrupted(true);
    stopBuffering();
    if (_thread) {
        disconnect(_thread.get(), nullptr, this, nullptr);
        _thread->wait();
        _thread.reset();
    }
    setFormatContext(nullptr);
    stop();
    _opened = false;
    _triedBytes = 0;
    std::lock_guard const lock(_bufferMutex);
    _openedContext.reset();
    _buffer.clear();
    _position = 0;
    _contentLength = -1;
    _finished = false;
    _failed = false;
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
    {
        std::lock_guard const lock(_bufferMutex);
        if (!_failed)
            return result;
    }
    reportLoss();
    return result == AVERROR_EOF ? AVERROR(EIO) : result;
}

int HttpFileDataSource::seekFrame(AVStream* stream, long long timestamp, int flags)
{
    _seeking = true;
    int const result = GLMovieDataSource::seekFrame(stream, timestamp, flags);
    _seeking = false;
    return result;
}

quint64 HttpFileDataSource::bytesRead() const
{
    std::lock_guard const lock(_bufferMutex);
    return static_cast<quint64>(_buffer.size());
}

qint64 HttpFileDataSource::position() const
{
    std::lock_guard const lock(_bufferMutex);
    return _position;
}

void HttpFileDataSource::startBuffering()
{
    QUrl const url(uri());
    if (url.scheme() != "http" && url.scheme() != "https") {
        LOG_ERROR("Network Error %s", "not an address of the web");
        return fail();
    }
    {
        std::lock_guard const lock(_bufferMutex);
        _running = true;
    }
    _manager = std::make_unique<QNetworkAccessManager>();
    _manager->setTransferTimeout(_transferTimeout);
    QNetworkRequest request(url);
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
    {
        std::lock_guard const lock(_bufferMutex);
        _running = false;
    }
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
    if (_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() >= 400)
        return; // The words of an error page are no film.
    QByteArray const bytes = _reply->readAll();
    LOG_DEBUG("Http bytes received %d", static_cast<int>(bytes.size()));
    qsizetype size = 0;
    {
        std::lock_guard const lock(_bufferMutex);
        _contentLength = _reply->header(QNetworkRequest::ContentLengthHeader).isValid()
                             ? _reply->header(QNetworkRequest::ContentLengthHeader).toLongLong()
                             : -1;
        _buffer.append(bytes);
        size = _buffer.size();
    }
    if (size > maximumBytes) {
        LOG_ERROR("Network Error %s", "more than can be kept in memory");
        {
            std::lock_guard const lock(_bufferMutex);
            _failed = true;
        }
        return stopBuffering();
    }
    if (size >= 2 * _triedBytes)
        startThread();
}

void HttpFileDataSource::onError(QNetworkReply::NetworkError)
{
    LOG_ERROR("Network Error %s", qPrintable(_reply->errorString()));
    {
        std::lock_guard const lock(_bufferMutex);
        _running = false;
        _failed = true;
    }
    if (!_opened && !_thread)
        fail();
}

void HttpFileDataSource::onSslErrors(QList<QSslError> const& errors)
{
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
    {
        std::lock_guard const lock(_bufferMutex);
        _running = false;
        _finished = true;
    }
    LOG_INFO("Download completed for %s", qPrintable(uri()));
    emit downloadComplete();
    startThread();
}

void HttpFileDataSource::startThread()
{
    if (_opened || _thread || isInterrupted())
        return;
    {
        std::lock_guard const lock(_bufferMutex);
        _triedBytes = _buffer.size();
    }
    _thread = std::make_unique<HttpFileDataSourceThread>(*this);
    connect(_thread.get(), &QThread::finished, this, &HttpFileDataSource::onThreadFinished);
    _thread->start();
}

void HttpFileDataSource::onThreadFinished()
{
    if (!_thread || !_thread->isFinished())
        return; // From an attempt that close() has ended.
    _thread->wait();
    OpenResult const result = _thread->result();
    _thread.reset();
    if (isInterrupted())
        return;
    if (result == OpenSucceeded) {
        FormatContextPointer context;
        {
            std::lock_guard const lock(_bufferMutex);
            context = std::move(_openedContext);
        }
        setFormatContext(std::move(context));
        _opened = true;
        emit opened(this);
        return;
    }
    bool mayGrow = false;
    bool hasGrown = false;
    {
        std::lock_guard const lock(_bufferMutex);
        mayGrow = _running;
        hasGrown = _buffer.size() >= 2 * _triedBytes || (_finished && _buffer.size() > _triedBytes);
    }
    if (result == OpenNeedsMore && hasGrown)
        return startThread();
    if (result == OpenNeedsMore && mayGrow)
        return;
    stopBuffering();
    fail();
}

void HttpFileDataSource::fail()
{
    raiseError(tr("Failed to open %1").arg(uri()));
}

HttpFileDataSource::OpenResult HttpFileDataSource::tryOpen()
{
    QByteArray beginning;
    bool mayGrow = false;
    {
        std::lock_guard const lock(_bufferMutex);
        beginning = _buffer.left(maximumProbeBytes);
        mayGrow = _running && beginning.size() < maximumProbeBytes;
        _position = 0;
    }
    int score = 0;
    AVInputFormat const* const format = FFwrapper::probeFormat(beginning, &score);
    if (!format || (mayGrow && score <= AVPROBE_SCORE_RETRY)) {
        LOG_DEBUG("Failed to determine file format for %s", qPrintable(uri()));
        return mayGrow ? OpenNeedsMore : OpenFailed;
    }
    AVFormatContext* opening = avformat_alloc_context();
    opening->interrupt_callback = {&url_interrupt_cb, this};
    opening->protocol_whitelist = av_strdup("crypto,data"); // The file is all there is: it leads nowhere else.
    FFwrapper::setFFHandler(opening, &readCallback, &seekCallback, this);
    if (int const result = FFwrapper::openContext(opening, "", format); result < 0) {
        LOG_ERROR("Could not open %s: %s", qPrintable(uri()), qPrintable(FFwrapper::errorText(result)));
        return OpenFailed;
    }
    FormatContextPointer context(opening);
    if (int const result = avformat_find_stream_info(opening, nullptr); result < 0) {
        LOG_ERROR("av_find_stream_info failed with error code %d for %s", result, qPrintable(uri()));
        return OpenFailed;
    }
    int const video = firstStream(opening, AVMEDIA_TYPE_VIDEO);
    int const audio = firstStream(opening, AVMEDIA_TYPE_AUDIO);
    if (video < 0 && audio < 0) {
        LOG_ERROR("No video or audio streams found. Cannot play %s", qPrintable(uri()));
        return OpenFailed;
    }
    LOG_DEBUG("Video stream index = %d Audio stream index = %d for %s", video, audio, qPrintable(uri()));
    std::lock_guard const lock(_bufferMutex);
    _openedContext = std::move(context);
    return OpenSucceeded;
}

bool HttpFileDataSource::isWaitingForBytes() const
{
    std::lock_guard const lock(_bufferMutex);
    return _running && _position >= _buffer.size();
}

int HttpFileDataSource::readCallback(void* userData, unsigned char* buffer, int size)
{
    auto* const source = static_cast<HttpFileDataSource*>(userData);
    QMutex mutex;
    QWaitCondition wait;
    while (source->isWaitingForBytes() && !source->isInterrupted() && !source->_seeking) {
        QEventLoop().processEvents();
        QMutexLocker const lock(&mutex);
        wait.wait(&mutex, 1);
    }
    if (source->isInterrupted())
        return AVERROR_EXIT;
    int const count = source->readBytes(buffer, size);
    if (count > 0)
        return count;
    std::lock_guard const lock(source->_bufferMutex);
    if (source->_finished)
        return AVERROR_EOF;
    LOG_WARNING("This should not happen before we finish the download");
    return AVERROR(EIO);
}

int HttpFileDataSource::readBytes(unsigned char* buffer, int size)
{
    std::lock_guard const lock(_bufferMutex);
    qint64 const left = _buffer.size() - _position;
    if (left < 0)
        LOG_DEBUG("FFmpeg tried to read beyond the end of the available data.");
    if (left <= 0)
        return 0;
    int const count = static_cast<int>(std::min<qint64>(size, left));
    std::memcpy(buffer, _buffer.constData() + _position, static_cast<size_t>(count));
    LOG_DEBUG("FFmpeg read %d bytes from offset %ld", count, static_cast<long>(_position));
    _position += count;
    return count;
}

std::int64_t HttpFileDataSource::seekCallback(void* userData, std::int64_t offset, int origin)
{
    auto* const source = static_cast<HttpFileDataSource*>(userData);
    std::lock_guard const lock(source->_bufferMutex);
    if (origin & AVSEEK_SIZE)
        return source->_finished            ? source->_buffer.size()
               : source->_contentLength > 0 ? source->_contentLength
                                            : AVERROR(ENOSYS);
    origin &= ~AVSEEK_FORCE;
    if (origin != SEEK_SET && origin != SEEK_CUR)
        return AVERROR(EINVAL);
    std::int64_t const base = origin == SEEK_CUR ? source->_position : 0;
    std::int64_t target = 0;
    if (__builtin_add_overflow(base, offset, &target) || target < 0)
        return AVERROR(EINVAL);
    source->_position = target;
    return target;
}

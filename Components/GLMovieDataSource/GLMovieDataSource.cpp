#include "GLMovieDataSource.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "NetworkErrors.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QDataStream>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <chrono>

Logger* GLMovieDataSource::log = LoggerManager::logger();

GLMovieDataSource::GLMovieDataSource(QString const& uri, QObject* parent)
    : QObject(parent), _interruption(std::make_shared<std::atomic<bool>>(false)), _uri(uri), _errorTimer(this)
{
    _errorTimer.setObjectName("errorTimer");
    _errorTimer.setSingleShot(true);
    connect(&_errorTimer, &QTimer::timeout, this, &GLMovieDataSource::onErrorTimer);
    connect(this, &GLMovieDataSource::resetErrorTimer, this, &GLMovieDataSource::onResetErrorTimer);
}

GLMovieDataSource::~GLMovieDataSource()
{
    stopRecording();
}

void GLMovieDataSource::start()
{
    {
        std::lock_guard const lock(_mutex);
        _watching = true;
        _errorTimeout = firstFrameTimeout;
        _framesRead = 0;
        _totalFrameTime = 0.0;
        _averageFrameTime = 0.0;
        _byteCount = 0;
    }
    _errorTimer.start(firstFrameTimeout);
}

void GLMovieDataSource::stop()
{
    _errorTimer.stop();
    bool wasInError = false;
    {
        std::lock_guard const lock(_mutex);
        _watching = false;
        wasInError = std::exchange(_inError, false);
    }
    if (wasInError)
        emit error(this, QString());
}

int GLMovieDataSource::readFrame(AVPacket* packet)
{
    {
        std::lock_guard const lock(_contextMutex);
        if (isInterrupted())
            return AVERROR_EXIT;
        if (!isReadable())
            return AVERROR(EINVAL);
        if (int const result = av_read_frame(_formatContext.get(), packet); result < 0)
            return isInterrupted() ? AVERROR_EXIT : result;
    }
    countFrame(*packet);
    recordBytes(*packet);
    emit resetErrorTimer();
    return 0;
}

void GLMovieDataSource::freeFrame(AVPacket* packet)
{
    av_packet_unref(packet);
}

int GLMovieDataSource::seekFrame(AVStream* stream, long long timestamp, int flags)
{
    std::lock_guard const lock(_contextMutex);
    if (!stream || !isReadable())
        return AVERROR(EINVAL);
    return av_seek_frame(_formatContext.get(), stream->index, timestamp, flags);
}

bool GLMovieDataSource::isSeekable() const
{
    if (!_formatContext || (_formatContext->ctx_flags & AVFMTCTX_UNSEEKABLE))
        return false;
    // Formats without an I/O of their own, such as segments, can seek as far as they know their length.
    return _formatContext->pb ? _formatContext->pb->seekable != 0 : duration() > 0.0;
}

double GLMovieDataSource::duration() const
{
    if (!_formatContext || _formatContext->duration == AV_NOPTS_VALUE || _formatContext->duration <= 0)
        return 0.0;
    return static_cast<double>(_formatContext->duration) / AV_TIME_BASE;
}

quint64 GLMovieDataSource::bytesRead() const
{
    std::lock_guard const lock(_mutex);
    return _byteCount;
}

AVStream* GLMovieDataSource::videoStream() const
{
    return _videoStreamIndex < 0 ? nullptr : _formatContext->streams[_videoStreamIndex];
}

AVStream* GLMovieDataSource::audioStream() const
{
    return _audioStreamIndex < 0 ? nullptr : _formatContext->streams[_audioStreamIndex];
}

double GLMovieDataSource::startTime() const
{
    if (!_formatContext || _formatContext->start_time == AV_NOPTS_VALUE)
        return 0.0;
    return static_cast<double>(_formatContext->start_time) / AV_TIME_BASE;
}

int GLMovieDataSource::url_interrupt_cb(void* opaque)
{
    auto const* const source = static_cast<GLMovieDataSource const*>(opaque);
    return source && source->isInterrupted() ? 1 : 0;
}

int GLMovieDataSource::firstStream(AVFormatContext const* context, int mediaType)
{
    for (unsigned int i = 0; context && i < context->nb_streams; ++i)
        if (context->streams[i]->codecpar->codec_type == mediaType)
            return static_cast<int>(i);
    return -1;
}

void GLMovieDataSource::setFormatContext(FormatContextPointer context)
{
    std::lock_guard const lock(_contextMutex);
    _formatContext = std::move(context);
    _videoStreamIndex = firstStream(_formatContext.get(), AVMEDIA_TYPE_VIDEO);
    _audioStreamIndex = firstStream(_formatContext.get(), AVMEDIA_TYPE_AUDIO);
}

void GLMovieDataSource::raiseError(QString const& text)
{
    {
        std::lock_guard const lock(_mutex);
        _inError = true;
    }
    emit error(this, text);
}

void GLMovieDataSource::reportLoss()
{
    auto const raise = [this] {
        bool inError = false;
        {
            std::lock_guard const lock(_mutex);
            inError = _inError;
        }
        if (_formatContext && !inError)
            onErrorTimer();
    };
    QMetaObject::invokeMethod(this, raise, Qt::QueuedConnection);
}

qint64 GLMovieDataSource::currentMilliseconds() const
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void GLMovieDataSource::onResetErrorTimer()
{
    bool wasInError = false;
    {
        std::lock_guard const lock(_mutex);
        if (!_watching)
            return; // The frame was read before stop(), its signal came after.
        int const timeout =
            _framesRead == 0
                ? _errorTimeout
                : static_cast<int>(std::clamp(_averageFrameTime * 10.0, double(minimumFrameTimeout), 1e9));
        _errorTimer.start(timeout);
        wasInError = std::exchange(_inError, false);
    }
    if (wasInError)
        emit error(this, QString());
}

void GLMovieDataSource::onErrorTimer()
{
    raiseError(NetworkErrors::stringForError(NetworkErrors::StreamUnavailable));
}

void GLMovieDataSource::countFrame(AVPacket const& packet)
{
    qint64 const now = currentMilliseconds();
    std::lock_guard const lock(_mutex);
    _byteCount += static_cast<quint64>(std::max(packet.size, 0));
    if (_framesRead++ > 0) {
        _totalFrameTime += static_cast<double>(now - _frameTime);
        _averageFrameTime = _totalFrameTime / static_cast<double>(_framesRead);
    }
    _frameTime = now;
}

bool GLMovieDataSource::startRecording(QString const& directoryAndName)
{
    stopRecording();
    QString const path = directoryAndName + QDateTime::currentDateTime().toString("yyMMddhhmmss") + ".dump";
    auto file = std::make_unique<QFile>(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file->open(QIODevice::WriteOnly)) {
        LOG_ERROR("Could not record to file %s: %s", qPrintable(path), qPrintable(file->errorString()));
        return false;
    }
    LOG_INFO("Recording to file %s", qPrintable(path));
    std::lock_guard const lock(_recordMutex);
    _recordFile = std::move(file);
    _recordStream = std::make_unique<QDataStream>(_recordFile.get());
    _recordedBytes = 0;
    _recording = true;
    return true;
}

void GLMovieDataSource::stopRecording()
{
    std::lock_guard const lock(_recordMutex);
    _recording = false;
    _recordStream.reset();
    _recordFile.reset();
}

bool GLMovieDataSource::isRecording() const
{
    std::lock_guard const lock(_recordMutex);
    return _recording;
}

void GLMovieDataSource::recordBytes(AVPacket const& packet)
{
    std::lock_guard const lock(_recordMutex);
    if (!_recording)
        return;
    bool const written =
        _recordStream->writeRawData(reinterpret_cast<char const*>(packet.data), packet.size) == packet.size &&
        _recordFile->flush(); // At once, so that the dump is usable after a crash.
    if (written) {
        _recordedBytes += packet.size;
        return;
    }
    LOG_ERROR("Recording stopped after %lld bytes: %s", static_cast<long long>(_recordedBytes),
              qPrintable(_recordFile->errorString()));
    _recording = false;
    _recordStream.reset();
    _recordFile.reset();
}

#include "GLMovieDataSource.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "NetworkErrors.h"
#include "PacketRecorder.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <chrono>

Logger* GLMovieDataSource::log = LoggerManager::logger();

GLMovieDataSource::GLMovieDataSource(QString const& uri, QObject* parent)
    : QObject(parent), _uri(uri), _errorTimer(this)
{
    _errorTimer.setObjectName("errorTimer");
    _errorTimer.setSingleShot(true);
    connect(&_errorTimer, &QTimer::timeout, this, &GLMovieDataSource::onErrorTimer);
    connect(this, &GLMovieDataSource::resetErrorTimer, this, &GLMovieDataSource::onResetErrorTimer);
}

GLMovieDataSource::~GLMovieDataSource()
{
    dropDemuxer();
    for (auto const& finishing : _finishing)
        if (auto const recorder = finishing.lock())
            recorder->forgetListener();
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
        _longestWait = 0;
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
    if (isInterrupted())
        return AVERROR_EXIT;
    auto const source = demuxer();
    if (!source)
        return AVERROR(EINVAL);
    qint64 const asked = currentMilliseconds();
    if (int const result = source->read(packet, silenceLimit()); result < 0)
        return result;
    countFrame(*packet, currentMilliseconds() - asked);
    record(*packet);
    emit resetErrorTimer();
    return 0;
}

void GLMovieDataSource::freeFrame(AVPacket* packet)
{
    av_packet_unref(packet);
}

int GLMovieDataSource::seekFrame(AVStream* stream, long long timestamp, int flags)
{
    auto const source = demuxer();
    return source ? source->seek(stream, timestamp, flags) : AVERROR(EINVAL);
}

bool GLMovieDataSource::isSeekable() const
{
    return _streams.seekable;
}

double GLMovieDataSource::duration() const
{
    return _streams.duration;
}

quint64 GLMovieDataSource::bytesRead() const
{
    std::lock_guard const lock(_mutex);
    return _byteCount;
}

void GLMovieDataSource::setInterrupted(bool interrupted)
{
    std::lock_guard const lock(_demuxerMutex);
    _interrupted = interrupted;
    if (_demuxer)
        _demuxer->setInterrupted(interrupted);
}

std::shared_ptr<Demuxer> GLMovieDataSource::demuxer() const
{
    std::lock_guard const lock(_demuxerMutex);
    return _demuxer;
}

void GLMovieDataSource::startDemuxer(Demuxer::Opening opening, int deadline)
{
    cancelOpening();
    auto const opened = [this, number = _openingNumber] {
        if (number == _openingNumber)
            onDemuxed();
    };
    _opening = Demuxer::start(std::move(opening), deadline, this, opened);
}

void GLMovieDataSource::cancelOpening()
{
    ++_openingNumber;
    if (auto const opening = std::exchange(_opening, nullptr))
        opening->abandon();
}

void GLMovieDataSource::onDemuxed()
{
    if (!_opening->isOpen()) {
        cancelOpening();
        return onOpeningEnded(false);
    }
    if (!_streams.isEmpty() && !goesOnWith(_opening->info()))
        return cancelOpening();
    unsigned int const number = _openingNumber;
    if (!_streams.isEmpty())
        emit closed(this);
    if (number != _openingNumber)
        return; // A listener has closed this source.
    takeDemuxer(std::exchange(_opening, nullptr));
    onOpeningEnded(true);
}

void GLMovieDataSource::takeDemuxer(std::shared_ptr<Demuxer> const& opened)
{
    dropDemuxer();
    setStreams(opened->info());
    std::lock_guard const lock(_demuxerMutex);
    _demuxer = opened;
    _demuxer->setInterrupted(_interrupted);
}

void GLMovieDataSource::dropDemuxer()
{
    cancelOpening();
    stopRecording();
    setStreams({});
    std::lock_guard const lock(_demuxerMutex);
    if (_demuxer)
        _demuxer->abandon();
    _demuxer.reset();
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
        if (!_streams.isEmpty())
            onErrorTimer();
    };
    QMetaObject::invokeMethod(this, raise, Qt::QueuedConnection);
}

int GLMovieDataSource::silenceLimit() const
{
    if (_silenceLimit < 0)
        return -1;
    std::lock_guard const lock(_mutex);
    return static_cast<int>(std::clamp<qint64>(3 * _longestWait, _silenceLimit, 1000000000));
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
    onFrameRead();
}

/// What has been told of the silence already tells more.
void GLMovieDataSource::onErrorTimer()
{
    {
        std::lock_guard const lock(_mutex);
        if (_inError)
            return;
    }
    raiseError(NetworkErrors::stringForError(NetworkErrors::StreamUnavailable));
}

void GLMovieDataSource::countFrame(AVPacket const& packet, qint64 waited)
{
    qint64 const now = currentMilliseconds();
    std::lock_guard const lock(_mutex);
    _byteCount += static_cast<quint64>(std::max(packet.size, 0));
    if (_framesRead++ > 0) {
        _totalFrameTime += static_cast<double>(now - _frameTime);
        _averageFrameTime = _totalFrameTime / static_cast<double>(_framesRead);
    }
    _frameTime = now;
    _longestWait = std::max(_longestWait, waited);
}

void GLMovieDataSource::startRecording(QString const& directoryAndName, bool dump)
{
    stopRecording();
    if (_streams.isEmpty())
        return;
    std::lock_guard const lock(_recordMutex);
    auto const failed = [this, number = ++_recordingNumber](QString const& reason) {
        if (number == _recordingNumber) // Else it is the end of one before.
            stopRecording();
        emit recordingFailed(this, reason);
    };
    _recorder = PacketRecorder::start(directoryAndName, _streams, dump, this, failed);
}

void GLMovieDataSource::stopRecording()
{
    std::lock_guard const lock(_recordMutex);
    if (!_recorder)
        return;
    _recorder->finish();
    std::erase_if(_finishing, [](auto const& finishing) { return finishing.expired(); });
    _finishing.push_back(_recorder);
    _recorder.reset();
}

bool GLMovieDataSource::isRecording() const
{
    std::lock_guard const lock(_recordMutex);
    return _recorder != nullptr;
}

void GLMovieDataSource::record(AVPacket const& packet)
{
    std::lock_guard const lock(_recordMutex);
    if (_recorder)
        _recorder->write(packet);
}

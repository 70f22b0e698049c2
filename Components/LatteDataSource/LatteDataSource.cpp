#include "LatteDataSource.h"

#include "Latte.h"
#include "LatteClient.h"
#include "LatteDataSourceThread.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QEventLoop>
#include <QMutex>
#include <QWaitCondition>

#include <algorithm>
#include <cstring>
#include <exception>

Logger* LatteDataSource::log = LoggerManager::logger();

namespace
{

constexpr int pollInterval = 1;    // ms, in a read that waits for the client
constexpr int resetPoll = 20;      // ms, in a read that waits for a reset
constexpr int analyzeDuration = 2; // seconds of the stream that FFmpeg may look at before it plays

void sleepFor(int milliseconds)
{
    QMutex mutex;
    QWaitCondition condition;
    QMutexLocker const lock(&mutex);
    condition.wait(&mutex, static_cast<unsigned long>(milliseconds));
}

/// Whether a decoder can be made for every stream without looking at more of it.
bool isComplete(AVFormatContext const* context)
{
    for (unsigned int i = 0; i < context->nb_streams; ++i) {
        AVCodecParameters const* const p = context->streams[i]->codecpar;
        if (p->codec_type == AVMEDIA_TYPE_VIDEO && (p->width <= 0 || p->format < 0))
            return false;
        if (p->codec_type == AVMEDIA_TYPE_AUDIO && (p->sample_rate <= 0 || p->ch_layout.nb_channels <= 0))
            return false;
    }
    return true;
}

} // namespace

LatteDataSource::LatteDataSource(Latte* latte, StreamDescription const& streamDescription, QString const& name,
                                 QObject* parent)
    : GLMovieDataSource(name.isEmpty() ? streamDescription.uri().toString() : name, parent), _latte(latte),
      _streamDescription(streamDescription), _retryTimer(this), _resetTimer(this)
{
    _retryTimer.setObjectName("retryTimer");
    _resetTimer.setObjectName("resetTimer");
    for (QTimer* timer : {&_retryTimer, &_resetTimer})
        timer->setSingleShot(true);
    connect(&_retryTimer, &QTimer::timeout, this, &LatteDataSource::tryOpen);
    connect(&_resetTimer, &QTimer::timeout, this, &LatteDataSource::onReset);
}

LatteDataSource::~LatteDataSource()
{
    blockSignals(true);
    LatteDataSource::close();
}

void LatteDataSource::open()
{
    if (_client)
        return;
    setInterrupted(false);
    try {
        _client = _latte->open(_streamDescription.uri());
    } catch (std::exception const& failure) {
        LOG_ERROR("Could not open %s: %s", qPrintable(uri()), failure.what());
    }
    if (!_client)
        return onErrorTimer();
    // Queued, so that a client that signals from inside read() does not call back into it.
    connect(_client, &LatteClient::readyRead, this, &LatteDataSource::onLatteBytesReady, Qt::QueuedConnection);
    connect(_client, &LatteClient::descriptorChanged, this, &LatteDataSource::onLatteDescriptorChanged,
            Qt::QueuedConnection);
    connect(_client, &LatteClient::stateChanged, this, &LatteDataSource::onLatteStateChanged, Qt::QueuedConnection);
    connect(_client, &LatteClient::error, this, &LatteDataSource::onLatteError, Qt::QueuedConnection);
    connect(_client, &LatteClient::progressChanged, this, &LatteDataSource::onProgressChanged, Qt::QueuedConnection);
    _thread = std::make_unique<LatteDataSourceThread>(*_client, thread());
    _openTime = currentMilliseconds();
    start();
}

void LatteDataSource::start()
{
    if (!_thread || _thread->isRunning())
        return;
    GLMovieDataSource::start();
    LOG_DEBUG("switch thread to latte thread");
    _client->moveToThread(_thread.get());
    _thread->start(QThread::InheritPriority);
}

void LatteDataSource::stop()
{
    if (!_thread)
        return;
    GLMovieDataSource::stop();
    if (!_thread->finish())
        LOG_ERROR("The client of %s did not come back from its thread", qPrintable(uri()));
    _thread.reset();
}

void LatteDataSource::close()
{
    if (!_client)
        return;
    setInterrupted(true);
    _retryTimer.stop();
    _resetTimer.stop();
    stop();
    LOG_DEBUG("moving back to GUI thread");
    if (_client->thread() != QThread::currentThread())
        _client->moveToThread(QThread::currentThread());
    disconnect(_client, nullptr, this, nullptr);
    setFormatContext(nullptr); // Waits for a read that still runs.
    _latte->close(_client);
    _client = nullptr;
    _opened = false;
    _firstReadDone = false;
    _resetPending = false;
    _dataBuffer.clear();
    _dataPosition = 0;
    _descriptorBuffer.clear();
}

int LatteDataSource::readFrame(AVPacket* packet)
{
    int const result = GLMovieDataSource::readFrame(packet);
    if (result >= 0 || isInterrupted())
        return result;
    if (_opened && !_resetPending) {
        if (_client->state() == LatteClient::Finished)
            return result;
        reportLoss();
        return result == AVERROR_EOF ? AVERROR(EIO) : result;
    }
    sleepFor(resetPoll); // Between two streams there is nothing to read, but this is not the end.
    return AVERROR(EAGAIN);
}

int LatteDataSource::seekFrame(AVStream*, long long, int)
{
    return 0;
}

void LatteDataSource::onLatteBytesReady(LatteClient* client)
{
    if (client != _client || _opened)
        return;
    if (!takeBytes(client))
        return;
    UriScheme const scheme = client->uri().scheme();
    bool const startsAtOnce = scheme == UriScheme("mms") || scheme == UriScheme("http");
    if (startsAtOnce || _dataBuffer.size() >= minimumBufferedBytes)
        tryOpen();
    else if (isExhausted()) {
        LOG_ERROR("Only %d bytes came from %s. Cannot play", static_cast<int>(_dataBuffer.size()), qPrintable(uri()));
        onErrorTimer();
    }
}

bool LatteDataSource::takeBytes(LatteClient* client)
{
    qint64 const size = std::min<qint64>(client->bytesAvailable(), maximumBufferedBytes - _dataBuffer.size());
    if (size <= 0)
        return true;
    QByteArray bytes(size, Qt::Uninitialized);
    qint64 const count = client->read(bytes.data(), size);
    if (count < 0)
        return false;
    _dataBuffer.append(bytes.constData(), count);
    return true;
}

bool LatteDataSource::isExhausted() const
{
    return _client->state() != LatteClient::Delivering && _client->bytesAvailable() <= 0;
}

void LatteDataSource::tryOpen()
{
    if (!_client || _opened)
        return;
    QByteArray header = _client->descriptor(0);
    if (header.isEmpty())
        header = _streamDescription.descriptor();
    _descriptorBuffer = header;
    if (contextFromHeader(header) == 0) {
        _opened = true;
        emit opened(this);
    } else if (!_retryTimer.isActive() && isExhausted()) {
        onErrorTimer(); // No more data will come to try again with.
    }
}

int LatteDataSource::contextFromHeader(QByteArray const& header)
{
    qint64 const elapsed = currentMilliseconds() - _openTime;
    if (elapsed < _attemptDelay) {
        _retryTimer.start(static_cast<int>(_attemptDelay - elapsed));
        return 1;
    }
    _firstReadDone = false;
    _dataPosition = 0;
    _prevReadCallbackReturn = 0;
    if (!FFwrapper::probeFormat(header)) {
        LOG_ERROR("No format recognises the header of %s", qPrintable(uri()));
        setFormatContext(nullptr);
        return 0;
    }
    if (openFormat(header) == 0)
        return 0;
    _openTime = currentMilliseconds();
    _attemptDelay = openDelay;
    _firstReadDone = false;
    setFormatContext(nullptr);
    return -1;
}

int LatteDataSource::openFormat(QByteArray const& header)
{
    QByteArray const address = _streamDescription.uri().toString().toUtf8();
    LOG_DEBUG("Opening %s", address.constData());
    setFormatContext(nullptr);
    AVFormatContext* opening = avformat_alloc_context();
    opening->interrupt_callback = {&url_interrupt_cb, this};
    opening->protocol_whitelist = av_strdup("crypto,data"); // The client's bytes are all there is.
    opening->max_analyze_duration = analyzeDuration * AV_TIME_BASE;
    FFwrapper::setFFHandler(opening, &latteReadCallback, nullptr, this);
    int result = FFwrapper::openContext(opening, "", FFwrapper::probeFormat(header));
    FormatContextPointer context(opening);
    if (context) {
        LOG_DEBUG("av_find_stream_info begin for %s", address.constData());
        result = avformat_find_stream_info(context.get(), nullptr);
        LOG_DEBUG("av_find_stream_info end for %s", address.constData());
    }
    bool const ranDry = _firstReadDone && _prevReadCallbackReturn <= 0;
    if (result < 0)
        LOG_ERROR("av_find_stream_info failed. Cannot play %s", address.constData());
    if (result < 0 || (ranDry && !isComplete(context.get()))) {
        if (ranDry)
            LOG_ERROR("prevReadCallbackReturn %d", _prevReadCallbackReturn);
        return -1;
    }
    int const video = firstStream(context.get(), AVMEDIA_TYPE_VIDEO);
    int const audio = firstStream(context.get(), AVMEDIA_TYPE_AUDIO);
    LOG_INFO("Video stream index = %d Audio stream index = %d for %s", video, audio, address.constData());
    if (video < 0 && audio < 0) {
        LOG_ERROR("No video or audio streams found. Cannot play %s", address.constData());
        return -1;
    }
    context->pb->eof_reached = 0; // What ran dry while probing goes on when reading.
    context->pb->error = 0;
    setFormatContext(std::move(context));
    return 0;
}

int LatteDataSource::latteReadCallback(void* opaque, unsigned char* buffer, int size)
{
    auto* const source = static_cast<LatteDataSource*>(opaque);
    if (!source)
        return AVERROR_EOF;
    source->_firstReadDone = true;
    int const count = source->_opened ? source->bytesForReading(buffer, size) : source->bytesForProbing(buffer, size);
    return count == 0 ? AVERROR_EOF : count;
}

int LatteDataSource::bytesForProbing(unsigned char* buffer, int size)
{
    int count = static_cast<int>(std::min<qsizetype>(size, _descriptorBuffer.size()));
    if (count > 0) {
        std::memcpy(buffer, _descriptorBuffer.constData(), static_cast<size_t>(count));
        _descriptorBuffer.remove(0, count);
    } else {
        // The data stays where it is, so that another attempt can begin with it again.
        count = bytesFromBuffer(buffer, size);
    }
    return _prevReadCallbackReturn = count;
}

int LatteDataSource::bytesForReading(unsigned char* buffer, int size)
{
    for (;;) {
        if (int const count = bytesFromBuffer(buffer, size); count > 0)
            return count;
        if (isInterrupted())
            return AVERROR_EXIT;
        if (_resetPending)
            return AVERROR_EOF; // What the client holds now belongs to the next header.
        bool const ended = _client->state() != LatteClient::Delivering;
        if (_client->bytesAvailable() > 0) {
            if (qint64 const count = _client->read(reinterpret_cast<char*>(buffer), size); count != 0)
                return count < 0 ? AVERROR(EIO) : static_cast<int>(count);
            // A client may hand out whole packets only, and the next one be longer than `size`.
            if (takeBytes(_client) && !_dataBuffer.isEmpty())
                continue;
        }
        if (ended)
            return AVERROR_EOF;
        QEventLoop().processEvents();
        sleepFor(pollInterval);
    }
}

int LatteDataSource::bytesFromBuffer(unsigned char* buffer, int size)
{
    int const count = static_cast<int>(std::min<qsizetype>(size, _dataBuffer.size() - _dataPosition));
    if (count == 0)
        return 0;
    std::memcpy(buffer, _dataBuffer.constData() + _dataPosition, static_cast<size_t>(count));
    _dataPosition += count;
    if (_opened && _dataPosition == _dataBuffer.size()) {
        _dataBuffer = QByteArray();
        _dataPosition = 0;
    }
    return count;
}

void LatteDataSource::onLatteDescriptorChanged(LatteClient* client, qint64)
{
    if (client != _client || !_firstReadDone || _resetPending)
        return;
    _resetPending = true;
    _resetTimer.start(resetDelay);
}

void LatteDataSource::onLatteStateChanged(LatteClient*) {}

void LatteDataSource::onReset()
{
    if (!_client || !_resetPending)
        return;
    emit closed(this);
    if (!_client)
        return; // A listener has closed this source.
    GLMovieDataSource::stop();
    {
        std::lock_guard const lock(contextMutex()); // A late read ends first: none waits while a reset is pending.
        _firstReadDone = false;
        _opened = false;
        _resetPending = false;
    }
    _dataBuffer.clear();
    _dataPosition = 0;
    GLMovieDataSource::start(); // Silence after the reset is an error like any other.
    onLatteBytesReady(_client);
}

void LatteDataSource::onLatteError(LatteClient* client, NetworkErrors::NetworkError code)
{
    if (client != _client || code == NetworkErrors::NoError)
        return;
    if (code == NetworkErrors::UnexpectedSuccess)
        emit plainFileFound();
    else
        raiseError(NetworkErrors::stringForError(code));
}

void LatteDataSource::onProgressChanged(LatteClient* client, QString const& text)
{
    if (client != _client)
        return;
    LOG_INFO("Progress changed: %s", qPrintable(text));
    emit stateChanged(this, text);
}

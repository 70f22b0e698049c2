#include "LatteDataSource.h"

#include "Latte.h"
#include "LatteClient.h"
#include "LatteDataSourceThread.h"
#include "LatteInput.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "StreamOpener.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <chrono>
#include <exception>
#include <thread>

Logger* LatteDataSource::log = LoggerManager::logger();

namespace
{
constexpr std::chrono::milliseconds resetPoll(20); // In a read that waits for a reset.
constexpr int analyzeDuration = 2;                 // seconds of the stream that FFmpeg may look at before it plays
} // namespace

LatteDataSource::LatteDataSource(Latte* latte, StreamDescription const& streamDescription, QString const& name,
                                 QObject* parent)
    : GLMovieDataSource(name.isEmpty() ? streamDescription.uri().toString() : name, parent), _latte(latte),
      _streamDescription(streamDescription), _retryTimer(this), _resetTimer(this), _flowTimer(this)
{
    _retryTimer.setObjectName("retryTimer");
    _resetTimer.setObjectName("resetTimer");
    _flowTimer.setObjectName("flowTimer");
    for (QTimer* timer : {&_retryTimer, &_resetTimer, &_flowTimer})
        timer->setSingleShot(true);
    _flowTimer.setInterval(flowTime);
    connect(&_flowTimer, &QTimer::timeout, this, &LatteDataSource::onFlowEnded);
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
    connect(_client, &LatteClient::playing, this, &LatteDataSource::onLattePlaying, Qt::QueuedConnection);
    _repeatsUntil = never;
    // At once: what comes again may be read before the event is.
    connect(
        _client, &LatteClient::playing, this,
        [this] { _repeatsUntil = _repeatsUntil == never ? 0 : currentMilliseconds() + repetitionTime; },
        Qt::DirectConnection);
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
    forgetHeldBack();
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
    dropDemuxer();
    leaveInput();
    _latte->close(_client);
    _client = nullptr;
    _opened = false;
    _resetPending = false;
    _dataBuffer.clear();
}

void LatteDataSource::leaveInput()
{
    if (_input)
        _input->leave();
    _input.reset();
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
    std::this_thread::sleep_for(resetPoll); // Between two streams there is nothing to read, but this is not the end.
    return AVERROR(EAGAIN);
}

std::optional<qint64> LatteDataSource::comeback() const
{
    qint64 const until = _repeatsUntil;
    return currentMilliseconds() < until ? until : 0;
}

int LatteDataSource::seekFrame(AVStream*, long long, int)
{
    return 0;
}

void LatteDataSource::onLatteBytesReady(LatteClient* client)
{
    if (client != _client)
        return;
    _heldBackState.clear(); // A buffer that was full, or whatever it was: it goes on.
    if (_opened || hasDemuxer())
        return;
    if (!takeBytes(client))
        return;
    UriScheme const scheme = client->uri().scheme();
    bool const startsAtOnce = scheme == UriScheme("mms") || scheme == UriScheme("http");
    if (_dataBuffer.isEmpty() && !isExhausted())
        return; // The header alone, after a reset: an attempt would fail, and the next would be late.
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
    if (!_client || _opened || hasDemuxer())
        return;
    QByteArray header = _client->descriptor(0);
    if (header.isEmpty())
        header = _streamDescription.descriptor();
    if (contextFromHeader(header) == 0) {
        _opened = true;
        emit opened(this);
    }
}

int LatteDataSource::contextFromHeader(QByteArray const& header)
{
    qint64 const elapsed = currentMilliseconds() - _openTime;
    if (elapsed < _attemptDelay) {
        _retryTimer.start(static_cast<int>(_attemptDelay - elapsed));
        return 1;
    }
    if (!FFwrapper::probeFormat(header)) {
        LOG_ERROR("No format recognises the header of %s", qPrintable(uri()));
        return 0;
    }
    leaveInput();
    _input = std::make_shared<LatteInput>(*_client, header, _dataBuffer);
    QString const address = _streamDescription.uri().toString();
    startDemuxer([address, header, input = _input](Demuxer const& demuxer) {
        return openFormat(address, header, input, demuxer);
    });
    return 1;
}

void LatteDataSource::onOpeningEnded(bool success)
{
    if (success) {
        _input->startReading();
        _dataBuffer.clear();
        _opened = true;
        emit opened(this);
        return;
    }
    leaveInput();
    _openTime = currentMilliseconds();
    _attemptDelay = openDelay;
    if (isExhausted())
        onErrorTimer(); // No more data will come to try again with.
    else if (_client->bytesAvailable() > 0)
        onLatteBytesReady(_client); // What has come meanwhile.
}

FormatContextPointer LatteDataSource::openFormat(QString const& address, QByteArray const& header,
                                                 std::shared_ptr<LatteInput> const& input, Demuxer const& demuxer)
{
    LOG_DEBUG("Opening %s", qPrintable(address));
    AVFormatContext* const prepared = avformat_alloc_context();
    prepared->protocol_whitelist = av_strdup("crypto,data"); // The client's bytes are all there is.
    prepared->max_analyze_duration = analyzeDuration * AV_TIME_BASE;
    input->setInterrupt(demuxer.interruptCallback());
    FFwrapper::setFFHandler(prepared, &LatteInput::latteReadCallback, nullptr, input.get());
    auto const accepts = [&input](AVFormatContext* context) { return input->accepts(context); };
    return StreamOpener::open(prepared, {StreamOpener::Live, address, {}, FFwrapper::probeFormat(header), accepts},
                              demuxer);
}

void LatteDataSource::onLatteDescriptorChanged(LatteClient* client, qint64)
{
    bool const isRead = _input && _input->isRead();
    if (client != _client || !isRead || _resetPending)
        return;
    _resetPending = true;
    _input->expectNewHeader();
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
    dropDemuxer();
    leaveInput();
    _opened = false;
    _resetPending = false;
    _dataBuffer.clear();
    GLMovieDataSource::start(); // Silence after the reset is an error like any other.
    onLatteBytesReady(_client);
}

void LatteDataSource::onLatteError(LatteClient* client, NetworkErrors::NetworkError code)
{
    if (client != _client || code == NetworkErrors::NoError)
        return;
    if (code == NetworkErrors::UnexpectedSuccess)
        emit plainFileFound();
    else if (_flowTimer.isActive())
        _heldBackError = NetworkErrors::stringForError(code);
    else
        raiseError(NetworkErrors::stringForError(code));
}

void LatteDataSource::onProgressChanged(LatteClient* client, QString const& text)
{
    if (client != _client)
        return;
    LOG_INFO("Progress changed: %s", qPrintable(text));
    if (_flowTimer.isActive())
        _heldBackState = text;
    else
        emit stateChanged(this, text);
}

void LatteDataSource::onLattePlaying(LatteClient* client)
{
    if (client != _client)
        return;
    _heldBackState.clear();
    _heldBackError.clear();
    emit playing(this);
}

void LatteDataSource::onFrameRead()
{
    _flowTimer.start();
}

void LatteDataSource::onFlowEnded()
{
    QString const state = std::exchange(_heldBackState, {});
    QString const error = std::exchange(_heldBackError, {});
    if (!state.isEmpty())
        emit stateChanged(this, state);
    if (!error.isEmpty() && _client) // Whoever was told may have closed this.
        raiseError(error);
}

void LatteDataSource::forgetHeldBack()
{
    _flowTimer.stop();
    _heldBackState.clear();
    _heldBackError.clear();
}

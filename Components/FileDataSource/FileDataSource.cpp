#include "FileDataSource.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "NetworkErrors.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavutil/error.h>
}

#include <QHashFunctions>

#include <algorithm>

Logger* FileDataSource::log = LoggerManager::logger();

namespace
{

/// What tells a packet from all others of a stream, but not from itself when it is sent again.
std::size_t identityOf(AVPacket const& packet)
{
    static constexpr int enough = 256; // Bytes, beside the time and the size.
    std::size_t const content = qHashBits(packet.data, static_cast<std::size_t>(std::min(packet.size, enough)));
    return qHashMulti(content, packet.stream_index, static_cast<qint64>(packet.dts), packet.size);
}

} // namespace

FileDataSource::FileDataSource(QString const& path, QObject* parent)
    : FileDataSource(path, StreamReopener::machine(), parent)
{
}

FileDataSource::FileDataSource(QString const& path, StreamReopener::Means const& means, QObject* parent)
    : GLMovieDataSource(path, parent), _isNetwork(FileOpening::isNetwork(path)),
      _goesThere(_isNetwork && !FileOpening::isListening(path)), _reopener(means, [this] { return isAnswered(); })
{
    connect(&_reopener, &StreamReopener::attemptDue, this, &FileDataSource::onAttemptDue);
    connect(&_reopener, &StreamReopener::givenUp, this, &FileDataSource::onGivenUp);
    connect(&_reopener, &StreamReopener::retrying, this, &FileDataSource::tellState);
}

FileDataSource::~FileDataSource()
{
    blockSignals(true);
    FileDataSource::close();
}

void FileDataSource::open()
{
    if (hasDemuxer() || !_reopener.isIdle())
        return;
    setInterrupted(false);
    _newest = _newestAtLoss = 0;
    _reopener.begin(_goesThere);
    if (_isNetwork)
        tellState();
}

void FileDataSource::tellState()
{
    emit stateChanged(this,
                      _reopener.hasPlayed() ? QStringLiteral("Reconnecting...") : QStringLiteral("Connecting..."));
}

void FileDataSource::onAttemptDue()
{
    FileOpening const opening(uri(), _proxy);
    _progress = opening.progress();
    startDemuxer(opening, -1); // The reopener looks at the time.
}

bool FileDataSource::isAnswered() const
{
    return !_goesThere || _progress->isAnswered;
}

void FileDataSource::onOpeningEnded(bool success)
{
    if (!success)
        return _reopener.failed(_progress->isForGood());
    _isLive = _isNetwork && streams().endless;
    bool const comesBack = _isLive && _goesThere;
    _reopener.succeeded();
    if (!comesBack)
        _reopener.end();
    setSilenceLimit(comesBack ? silenceLimitOf(streams()) : -1);
    _entry = comesBack ? LiveEntry(streams()) : LiveEntry();
    start();
    emit opened(this);
}

int FileDataSource::silenceLimitOf(StreamInfo const& streams)
{
    AVRational const rate = streams.videoSnapshot.frameRate;
    bool const isDense = streams.audioSnapshot.parameters || (rate.num > 0 && rate.num >= rate.den);
    if (!isDense)
        return minimumFrameTimeout;
    return streams.listed ? listSilenceLimit : silenceLimit;
}

bool FileDataSource::goesOnWith(StreamInfo const& opened)
{
    if (opened.endless)
        return true;
    end();
    return false;
}

void FileDataSource::end()
{
    LOG_INFO("%s has ended", qPrintable(uri()));
    _reopener.end();
    demuxer()->finish();
    emit playing(this); // The viewer need not wait.
}

void FileDataSource::onGivenUp()
{
    cancelOpening();
    if (hasDemuxer())
        setInterrupted(true); // Whoever waits for it to come back need not any more.
    QString const reason = _isNetwork ? _progress->reason() : QString();
    raiseError(NetworkErrors::stringForError(NetworkErrors::StreamUnavailable) +
               (reason.isEmpty() ? QString() : "\n" + reason));
}

void FileDataSource::close()
{
    _reopener.end();
    stop();
    dropDemuxer();
}

void FileDataSource::start()
{
    GLMovieDataSource::start();
}

void FileDataSource::stop()
{
    GLMovieDataSource::stop();
}

int FileDataSource::readWhatIsPlayed(AVPacket* packet)
{
    for (;;) {
        int const result = GLMovieDataSource::readFrame(packet);
        if (result >= 0 && _isLive)
            _newest = identityOf(*packet);
        if (result < 0 || !_entry.isAhead(*packet))
            return result;
        freeFrame(packet);
    }
}

int FileDataSource::readFrame(AVPacket* packet)
{
    int const result = readWhatIsPlayed(packet);
    if (result >= 0 || result == AVERROR(EAGAIN) || result == AVERROR_EXIT || !_isNetwork)
        return result;
    bool const isBroken =
        !_isLive && streams().listed && _progress->isBroken; // Lost, not a piece left out in between.
    if (result == AVERROR_EOF && !_isLive && !isBroken)
        return result;
    LOG_ERROR("Lost %s: %s", qPrintable(uri()), qPrintable(FFwrapper::errorText(result)));
    if (_isLive && _goesThere)
        // FFmpeg takes the end of what has no length for a failure.
        return waitForReopening(packet, result == AVERROR_EOF || result == AVERROR(EIO));
    reportLoss();
    return result == AVERROR_EOF ? AVERROR(EIO) : result;
}

int FileDataSource::waitForReopening(AVPacket* packet, bool isEnd)
{
    auto const lost = demuxer();
    if (!lost)
        return AVERROR(EIO);
    lost->retire();
    bool const broughtNews = std::exchange(_newestAtLoss, _newest) != _newest;
    auto const tell = [this, lost, isEnd, broughtNews] {
        if (lost != demuxer())
            return; // It is back, or closed.
        stop();     // Silence is no error while it is looked for.
        // Lists are also at their end when the server has none any more.
        if (isEnd && !broughtNews && !streams().listed && _reopener.hasLasted())
            return end();
        _reopener.lost(broughtNews);
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
    return GLMovieDataSource::readFrame(packet);
}

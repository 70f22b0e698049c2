#include "GLMovieAudioOutput.h"

#include "GLMovie.h"
#include "GLMovieAudioSource.h"
#include "GLMovieClock.h"
#include "GLMoviePacketQueue.h"
#include "GLMovieRequests.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <QElapsedTimer>

#include <algorithm>

Logger* GLMovieAudioOutput::log = LoggerManager::logger();

namespace
{
constexpr double shortestLateStart = 0.1; // Seconds; below this, picture and sound begin together.
constexpr double longestLateStart = 10.0;
constexpr double longestLead = 1.0;             // Seconds; as far ahead of what is heard as the source's ring may be.
constexpr qint64 longestWaitForPicture = 10000; // ms
constexpr int patience = 25; // Packets in a row that cannot be converted; an advert's odd beginning has fewer.
constexpr qint64 shortestPause = 1000; // µs
constexpr qint64 longestPause = 10000; // µs; the picture may leap, the device come back.
} // namespace

GLMovieAudioOutput::GLMovieAudioOutput(GLMovieContext const& context, AVStream* stream, bool renderAudio)
    : _context(context), _stream(stream), _renderAudio(renderAudio)
{
}

int GLMovieAudioOutput::openAudioStream()
{
    AVCodecID const id = _stream->codecpar->codec_id;
    LOG_INFO("Searching for a decoder for audioCodec id = %d", static_cast<int>(id));
    if (!GLMovieAudioSource::isDeviceExpected(!_context.movie.videoStream())) {
        LOG_INFO("No audio device present.");
        return GLMovie::NoAudioDevice;
    }
    if (!avcodec_find_decoder(id)) {
        LOG_ERROR("%s", qPrintable(missingDecoderText(id)));
        return GLMovie::NoAudioDecoder;
    }
    if (_decoder.open(_stream) < 0) {
        LOG_ERROR("Could not open audio codec %s. Cannot play", avcodec_get_name(id));
        return GLMovie::AudioCodecFailed;
    }
    switch (_context.source.open()) {
    case GLMovieAudioSource::OpenResult::NoBuffers:
        LOG_ERROR("Failed alGenBuffers. Cannot play");
        return GLMovie::NoAudioBuffers;
    case GLMovieAudioSource::OpenResult::NoSource:
        LOG_ERROR("Failed alGenSources. Cannot play");
        return GLMovie::NoAudioSource;
    case GLMovieAudioSource::OpenResult::Opened:
        break;
    }
    LOG_INFO("%s", qPrintable(_decoder.formatText()));
    LOG_INFO("Opened audio codec %s.", qPrintable(_decoder.name()));
    return GLMovie::NoError;
}

QString GLMovieAudioOutput::missingDecoderText(int codecId)
{
    switch (codecId) {
    case AV_CODEC_ID_VORBIS:
        return QStringLiteral("Could not locate an audio decoder for Vorbis. Cannot play");
    case AV_CODEC_ID_AC3:
        return QStringLiteral("Could not locate an audio decoder for AC3. Cannot play");
    case AV_CODEC_ID_AAC:
        return QStringLiteral("Could not locate an audio decoder for AAC. Cannot play");
    case AV_CODEC_ID_DTS:
        return QStringLiteral("Could not locate an audio decoder for DTS. Cannot play");
    default:
        return QStringLiteral("Could not locate an audio decoder. Cannot play");
    }
}

void GLMovieAudioOutput::flush(std::optional<double> hearFrom)
{
    _decoder.flush();
    _hearFrom = hearFrom;
    _begun = false;
}

void GLMovieAudioOutput::handleAudioPacket(AVPacket const* packet)
{
    if (packet && packet->size == 0)
        return; // To the decoder it would be the end.
    QList<GLMovieSound> const sounds = _decoder.decodeAudioPacket(packet);
    if (!sounds.isEmpty())
        takeUp();
    else if (packet && _begun)
        paceSilence(*packet);
    for (GLMovieSound const& sound : sounds) {
        if (_context.requests.watchersMustEnd())
            return;
        hear(sound);
    }
    if (!_decoder.isRefused() || _refusedPackets == patience)
        return;
    _refusedPackets = packet ? _refusedPackets + 1 : patience;
    if (_refusedPackets == patience)
        giveUp();
}

void GLMovieAudioOutput::hear(GLMovieSound const& sound)
{
    double const seconds = sound.seconds.value_or(_nextSeconds);
    _nextSeconds = seconds + sound.duration();
    if (isBeforeItsPlace(sound, seconds))
        return;
    if (!_begun && !_context.requests.watchersMustEnd())
        beginAudio(seconds);
    double const at = waitUntilDue(seconds);
    if (!_context.requests.watchersMustEnd())
        queueAudioPacket(sound, seconds, at);
}

bool GLMovieAudioOutput::isBeforeItsPlace(GLMovieSound const& sound, double seconds)
{
    if (!_hearFrom)
        return false;
    if (seconds + sound.duration() <= *_hearFrom)
        return true;
    waitForPicture();
    _hearFrom.reset();
    return false;
}

void GLMovieAudioOutput::beginAudio(double seconds)
{
    if (isToWaitForPicture())
        waitForPicture();
    LOG_DEBUG("First audio packet with pts %lf seconds", seconds);
    emit _context.movie.firstAudioPacketReceived();
    _begun = true;
}

bool GLMovieAudioOutput::isToWaitForPicture() const
{
    AVStream const* const video = _context.movie.videoStream();
    if (!video || video->start_time == AV_NOPTS_VALUE || _stream->start_time == AV_NOPTS_VALUE)
        return false;
    double const gap = static_cast<double>(_stream->start_time) * av_q2d(_stream->time_base) -
                       static_cast<double>(video->start_time) * av_q2d(video->time_base);
    return gap >= shortestLateStart && gap <= longestLateStart;
}

void GLMovieAudioOutput::waitForPicture()
{
    if (!_context.clock.hasVideo())
        return;
    QElapsedTimer waited;
    waited.start();
    while (_context.clock.waitingForFirstVideo() && waited.elapsed() < longestWaitForPicture) {
        // A picture that needs packets which the reader cannot bring, since the sound's queue is full, never comes.
        if (_context.audioQueue.isFull() && _context.videoQueue.length() == 0)
            return;
        if (_context.videoQueue.isDrained())
            return;
        if (!pause(shortestPause))
            return;
    }
}

double GLMovieAudioOutput::waitUntilDue(double seconds)
{
    GLMovieClock& clock = _context.clock;
    while (true) {
        GLMovieClock::Due const due = clock.soundDue(seconds, _context.source.audioTime());
        if (due.wait <= 0.0)
            return due.at;
        auto const microseconds = static_cast<qint64>(due.wait / clock.rate() * 1000000.0);
        if (!pause(std::clamp(microseconds, shortestPause, longestPause)))
            return due.at;
    }
}

void GLMovieAudioOutput::queueAudioPacket(GLMovieSound const& sound, double seconds, double at)
{
    GLMovieAudioSource& source = _context.source;
    auto const goOn = [this](qint64 microseconds) { return pause(microseconds); };
    bool const queued =
        _renderAudio && source.waitForAudioQueue(sound.format, goOn) && source.bufferAudioData(sound, at);
    if (!queued)
        passUnheard(at);
    if (_context.requests.watchersMustEnd())
        return;
    _context.clock.soundQueued(seconds, at, sound.duration());
    if (queued && source.ensureAudioPlaying())
        LOG_INFO("Movie %s: Source was starved of audio data", qPrintable(_context.movie.url()));
    emit _context.movie.audioDataReceived(sound.samples);
    bool const isTheTime = _context.clock.syncToAudio() || !_context.clock.hasVideo();
    if (isTheTime && !_context.requests.isPaused())
        emit _context.movie.movieTimeUpdated(_context.clock.movieTime());
}

void GLMovieAudioOutput::passUnheard(double at)
{
    GLMovieClock& clock = _context.clock;
    while (!clock.waitingForFirstAudio() && at > clock.time({}))
        if (!pause(longestPause))
            return;
}

void GLMovieAudioOutput::paceSilence(AVPacket const& packet)
{
    if (packet.pts == AV_NOPTS_VALUE)
        return;
    double const seconds = static_cast<double>(packet.pts) * av_q2d(_stream->time_base);
    GLMovieClock& clock = _context.clock;
    while (clock.soundDue(seconds, _context.source.audioTime()).at - clock.time(_context.source.audioTime()) >
           longestLead)
        if (!pause(longestPause))
            return;
}

void GLMovieAudioOutput::giveUp()
{
    _context.clock.leaveSound();
    if (!_context.clock.hasVideo())
        emit _context.movie.error(&_context.movie, GLMovie::UnsupportedAudioFormat);
}

void GLMovieAudioOutput::takeUp()
{
    if (_refusedPackets == patience && _renderAudio)
        _context.clock.takeSound();
    _refusedPackets = 0;
}

bool GLMovieAudioOutput::pause(qint64 microseconds) const
{
    _context.requests.pauseWatcher(microseconds);
    return !_context.requests.watchersMustEnd();
}

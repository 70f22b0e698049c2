// What the owner of a movie sets and asks.

#include "GLMovie.h"
#include "GLMovieDataSource.h"
#include "GLMoviePacketQueue.h"
#include "GLMoviePacketQueueWatcher.h"
#include "Logger.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/time.h>
}

#include <algorithm>

double GLMovie::aspectRatio() const
{
    if (!_videoStream)
        return 0.0;
    int const width = _width > 0 ? _width.load() : codecWidth();
    int const height = _height > 0 ? _height.load() : codecHeight();
    if (width <= 0 || height <= 0)
        return 0.0;
    AVRational sample = _videoStream->sample_aspect_ratio;
    if (sample.num <= 0)
        sample = _videoStream->codecpar->sample_aspect_ratio;
    double const stretch = sample.num > 0 && sample.den > 0 ? av_q2d(sample) : 1.0;
    return stretch * width / height;
}

double GLMovie::movieTime() const
{
    return _syncToAudio ? _lastAudioPts : _lastVideoPts;
}

bool GLMovie::setMovieTime(double seconds)
{
    if (!_opened)
        return false;
    bool const wasPlaying = _playing;
    // Neither the demuxer nor the decoders may be in use meanwhile.
    _stopRequested = true;
    _dataSource->setInterrupted(true);
    joinThreads();
    _dataSource->setInterrupted(false);
    _videoQueue->clear();
    _audioQueue->clear();
    _audio.stop();

    bool sought = false;
    if (_videoStream) {
        LOG_DEBUG("Seeking video stream to %s seconds", qPrintable(QString::number(seconds)));
        sought = seekStream(_videoStream, seconds);
        if (!sought)
            LOG_WARNING("Seeking video stream failed");
    }
    // One seek moves every stream of a container; a second one would lose the key frame that the first one found.
    if (_audioStream && !sought) {
        LOG_DEBUG("Seeking audio stream to %s seconds", qPrintable(QString::number(seconds)));
        sought = seekStream(_audioStream, seconds);
        if (!sought)
            LOG_WARNING("Seeking audio stream failed");
    }
    stopWatchers();
    _lastVideoPts = seconds;
    _lastAudioPts = seconds;
    _dropUntilKeyframe = _videoStream != nullptr;
    _stopRequested = false;
    if (wasPlaying) {
        startWatchers();
        resetStartTime();
        _startTime = _startTime - static_cast<qint64>(seconds * 1000000.0);
        start(QThread::InheritPriority);
    }
    return sought;
}

double GLMovie::movieDuration() const
{
    return _dataSource->duration();
}

void GLMovie::setVolume(double volume)
{
    _volume = std::clamp(volume, 0.0, 1.0);
    _audio.setGain(_muted ? 0.0 : _volume);
}

void GLMovie::setMuted(bool muted)
{
    _muted = muted;
    _audio.setGain(_muted ? 0.0 : _volume);
}

void GLMovie::setSpeed(double speed)
{
    _speed = speed;
    _audio.setPitch(speed);
}

double GLMovie::speed() const
{
    return _audio.pitch();
}

void GLMovie::setPaused(bool paused)
{
    if (_paused == paused)
        return;
    qint64 const now = av_gettime_relative();
    if (paused) {
        _pauseBegan = now;
    } else {
        // The clocks stood still.
        qint64 const stood = now - _pauseBegan;
        _startTime = _startTime + stood;
        if (_lastAudioClockTime != 0)
            _lastAudioClockTime = _lastAudioClockTime + stood;
        _pauseBegan = 0;
    }
    _paused = paused;
    _audio.setPaused(paused);
}

void GLMovie::setPacketDump(bool video, bool audio, QString const& directory)
{
    _dumpVideo = video;
    _dumpAudio = audio;
    _dumpDirectory = directory;
}

int GLMovie::codecWidth() const
{
    return _videoStream ? _videoStream->codecpar->width : 0;
}

int GLMovie::codecHeight() const
{
    return _videoStream ? _videoStream->codecpar->height : 0;
}

int GLMovie::videoBitrate() const
{
    return _videoStream ? static_cast<int>(_videoStream->codecpar->bit_rate) : 0;
}

double GLMovie::videoFramerate() const
{
    return _videoStream && _videoStream->avg_frame_rate.den > 0 ? av_q2d(_videoStream->avg_frame_rate) : 0.0;
}

int GLMovie::audioBitrate() const
{
    return _audioStream ? static_cast<int>(_audioStream->codecpar->bit_rate) : 0;
}

int GLMovie::audioSampleRate() const
{
    return _audioStream ? _audioStream->codecpar->sample_rate : 0;
}

int GLMovie::audioSampleSize() const
{
    if (!_audioStream)
        return 0;
    return av_get_bytes_per_sample(static_cast<AVSampleFormat>(_audioStream->codecpar->format)) * 8;
}

int GLMovie::audioChannels() const
{
    return _audioStream ? _audioStream->codecpar->ch_layout.nb_channels : 0;
}

QString GLMovie::audioCodecName() const
{
    return _audioCodec ? QString::fromLatin1(_audioCodec->codec->name) : QString();
}

QString GLMovie::videoCodecName() const
{
    return _videoCodec ? QString::fromLatin1(_videoCodec->codec->name) : QString();
}

GLMoviePacketStatistics GLMovie::packetStatistics() const
{
    std::lock_guard const lock(_statisticsMutex);
    return _statistics;
}

// What the owner of a movie sets and asks.

#include "GLMovie.h"
#include "GLMovieAudioOutput.h"
#include "GLMovieDataSource.h"
#include "GLMoviePacketQueue.h"
#include "GLMovieVideoOutput.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>

GLMovieTexture* GLMovie::texture() const
{
    return _videoOutput ? _videoOutput->texture() : nullptr;
}

void GLMovie::setWatched(bool watched)
{
    _options.watched = watched;
    if (_videoOutput)
        _videoOutput->setWatched(watched);
}

int GLMovie::width() const
{
    return _videoOutput ? _videoOutput->shown().width : 0;
}

int GLMovie::height() const
{
    return _videoOutput ? _videoOutput->shown().height : 0;
}

double GLMovie::aspectRatio() const
{
    if (!_videoStream || codecWidth() <= 0 || codecHeight() <= 0)
        return 0.0;
    double const shown = _videoOutput ? _videoOutput->shown().aspectRatio : 0.0;
    if (shown > 0.0)
        return shown;
    AVRational sample = _videoStream->sample_aspect_ratio;
    if (sample.num <= 0)
        sample = _videoStream->codecpar->sample_aspect_ratio;
    double const stretch = sample.num > 0 && sample.den > 0 ? av_q2d(sample) : 1.0;
    return stretch * codecWidth() / codecHeight();
}

double GLMovie::movieTime() const
{
    return _requests.pendingSeek().value_or(_clock.movieTime());
}

bool GLMovie::setMovieTime(double seconds)
{
    if (!_opened || !_dataSource->isSeekable())
        return false;
    double const duration = movieDuration();
    double const target = std::clamp(seconds, 0.0, duration > 0.0 ? duration : std::max(seconds, 0.0));
    if (!_requests.requestSeek(target))
        return false;
    _videoQueue->wake();
    _audioQueue->wake();
    return true;
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
    _clock.setRate(speed);
    _audio.setPitch(speed);
}

void GLMovie::setPaused(bool paused)
{
    _clock.setPaused(paused);
    _requests.setPaused(paused);
    _audio.setPaused(paused);
}

void GLMovie::setPacketDump(bool video, bool audio, QString const& directory)
{
    _options.dumpVideo = video;
    _options.dumpAudio = audio;
    _options.dumpDirectory = directory;
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
    return _audioOutput ? _audioOutput->name() : QString();
}

QString GLMovie::videoCodecName() const
{
    return _videoOutput ? _videoOutput->name() : QString();
}

GLMoviePictureStatistics GLMovie::pictureStatistics() const
{
    return _videoOutput ? _videoOutput->statistics() : GLMoviePictureStatistics();
}

GLMoviePacketStatistics GLMovie::packetStatistics() const
{
    return _counter.statistics();
}

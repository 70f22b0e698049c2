// How an open stream plays and is shown.

#include "ChannelStream.h"
#include "GLMovie.h"
#include "GLMovieDataSource.h"

void ChannelStream::fadeIn(int ms, double volume, bool fadeVideo, bool fadeAudio)
{
    _volume = volume;
    _isFadingOut = false;
    if (fadeVideo)
        setOpacity(1.0); // The fade goes on below it.
    if (_renderer)
        _renderer->fadeIn(ms, volume, fadeVideo, fadeAudio);
}

void ChannelStream::fadeOut(int ms, bool fadeVideo, bool fadeAudio)
{
    _isFadingOut = true;
    if (_renderer)
        _renderer->fadeOut(ms, fadeVideo, fadeAudio);
}

bool ChannelStream::isOpen() const
{
    return _renderer && _opened;
}

bool ChannelStream::isPlaying() const
{
    return _renderer && _renderer->movie() && _renderer->movie()->isPlaying();
}

bool ChannelStream::isBuffering() const
{
    return _renderer && !_opened;
}

bool ChannelStream::isFading() const
{
    return _renderer && _renderer->isFading();
}

bool ChannelStream::hasVideo() const
{
    return _renderer && _renderer->movie() && _renderer->movie()->hasVideo();
}

bool ChannelStream::hasAudio() const
{
    return _renderer && _renderer->movie() && _renderer->movie()->hasAudio();
}

bool ChannelStream::hasPicture() const
{
    return hasVideo() && !_renderer->movieSize().isEmpty() && !_renderer->isBuffering();
}

bool ChannelStream::isSeekable() const
{
    return isOpen() && _dataSource->isSeekable();
}

double ChannelStream::aspectRatio() const
{
    return _renderer ? _renderer->aspectRatio() : 0.0;
}

void ChannelStream::setSpeed(double speed)
{
    _speed = speed;
    applySpeed();
}

void ChannelStream::applySpeed()
{
    if (_renderer)
        _renderer->setSpeed(isSeekable() ? _speed : 1.0);
}

void ChannelStream::playBeside(ChannelStream const& other)
{
    setVolume(0.0);
    setMuted(other._muted);
    setSpeed(other._speed);
    setOpacity(other._opacity);
    setWatched(other._watched);
    setUnseen(other._unseen);
}

void ChannelStream::setVolume(double volume)
{
    _volume = volume;
    if (_renderer)
        _renderer->setVolume(volume);
    emit volumeChanged(this, volume);
}

void ChannelStream::setMuted(bool muted)
{
    _muted = muted;
    if (_renderer)
        _renderer->setMuted(muted);
    emit mutedChanged(this, muted);
}

void ChannelStream::setWatched(bool watched)
{
    _watched = watched;
    if (_renderer)
        _renderer->setWatched(watched);
}

void ChannelStream::setUnseen(bool unseen)
{
    _unseen = unseen;
    onRecordChanged();
}

void ChannelStream::setLoop(bool loop)
{
    _loop = loop;
    if (_renderer)
        _renderer->setLoop(loop);
}

void ChannelStream::setOpacity(double opacity)
{
    _opacity = opacity;
    if (_renderer)
        _renderer->setOpacity(opacity);
}

void ChannelStream::seekForwards(double seconds)
{
    if (_renderer && _dataSource->isSeekable())
        _renderer->setMovieTime(_renderer->movieTime() + seconds);
}

void ChannelStream::seekBackwards(double seconds)
{
    if (_renderer && _dataSource->isSeekable())
        _renderer->setMovieTime(qMax(0.0, _renderer->movieTime() - seconds));
}

double ChannelStream::movieTime() const
{
    return _renderer ? _renderer->movieTime() : 0.0;
}

double ChannelStream::movieDuration() const
{
    return _renderer ? _renderer->movieDuration() : 0.0;
}

bool ChannelStream::setMovieTime(double seconds)
{
    return isSeekable() && _renderer->setMovieTime(seconds);
}

void ChannelStream::setPaused(bool paused)
{
    if (isSeekable() && _renderer->movie())
        _renderer->movie()->setPaused(paused);
}

bool ChannelStream::isPaused() const
{
    return _renderer && _renderer->movie() && _renderer->movie()->isPaused();
}

void ChannelStream::updateVideoTexture()
{
    if (_renderer)
        _renderer->updateVideoTexture();
}

bool ChannelStream::hitTest(QPointF point) const
{
    return _renderer && _renderer->hitTest(point);
}

void ChannelStream::drawVideoOrthoMode(QRect const& area, GLMovieRenderer::DrawMode mode)
{
    if (!_renderer)
        return;
    if (_renderer->exceedsTextures())
        drawVideoWithDrawPixels(area);
    else
        _renderer->drawVideoOrthoMode(area.x(), area.y(), area.width(), area.height(), mode);
}

void ChannelStream::drawVideoPerspectiveMode(QRectF const& area, bool keepAspect, double z)
{
    if (_renderer)
        _renderer->drawVideoPerspectiveMode(area.x(), area.y(), area.width(), area.height(), keepAspect, z);
}

void ChannelStream::drawVideoWithDrawPixels(QRect const& area)
{
    if (_renderer)
        _renderer->drawVideoWithDrawPixels(area.x(), area.y(), area.width(), area.height());
}

std::optional<GLMoviePicture> ChannelStream::plainPicture(QRect const& area, GLMovieRenderer::DrawMode mode)
{
    return _renderer ? _renderer->plainPicture(area, mode) : std::nullopt;
}

QRect ChannelStream::videoWindow() const
{
    return _renderer ? _renderer->videoWindow() : QRect();
}

QSize ChannelStream::movieSize() const
{
    GLMovie const* const movie = _renderer ? _renderer->movie() : nullptr;
    if (!movie || !movie->hasVideo())
        return {};
    return {qRound(movie->codecHeight() * movie->aspectRatio()), movie->codecHeight()};
}

// The life of a movie: opening, closing, settings, signals.

#include "GLMovieRenderer.h"

#include "GLMovie.h"
#include "GLMovieColourConversion.h"
#include "GLMovieDataSource.h"
#include "GLMovieOverlay.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <algorithm>
#include <utility>

Logger* GLMovieRenderer::log = LoggerManager::logger();

GLMovieRenderer::GLMovieRenderer(QObject* parent) : QObject(parent)
{
    for (GLAnimation* const fade : {&_videoFade, &_audioFade}) {
        fade->setValue(1.0);
        connect(fade, &GLAnimation::valueChanged, this, &GLMovieRenderer::onAnimationValueChanged);
        connect(fade, &GLAnimation::completed, this, &GLMovieRenderer::onAnimationCompleted);
    }
}

GLMovieRenderer::~GLMovieRenderer()
{
    close();
}

bool GLMovieRenderer::createYUVtoRGBFragmentProgram(unsigned int& id)
{
    return GLMovieColourConversion::createFragmentProgram(id);
}

bool GLMovieRenderer::createYUVtoRGBShaderProgram(GLMovieShader* shader)
{
    return GLMovieColourConversion::createShaderProgram(shader);
}

void GLMovieRenderer::open(GLMovieDataSource* source)
{
    if (_movie)
        return;
    _hasPicture = false;
    _hasSound = false;
    _painter.forgetPicture();
    _overlay = std::make_unique<GLMovieOverlay>();
    _overlay->setName(_videoName);
    _overlay->setMessage(_videoMessage);

    _dataSource = source;
    _movie = std::make_unique<GLMovie>(source, _useHardwareColourConversion && _painter.hasColourConversion());
    _movie->setDeinterlacing(_deinterlace);
    _movie->setWatched(_watched);
    _movie->setLoop(_loop);
    _movie->setMuted(_muted);
    _movie->setSpeed(_speed);
    applyVolume();
    connectMovie();
    connect(source, &GLMovieDataSource::error, this, &GLMovieRenderer::onError);
    connect(source, &GLMovieDataSource::stateChanged, this, &GLMovieRenderer::onStateChanged);
    source->open();
}

void GLMovieRenderer::connectMovie()
{
    GLMovie* const movie = _movie.get();
    // Queued where the movie emits on this thread too, since a listener may close and so delete it.
    connect(movie, &GLMovie::opened, this, &GLMovieRenderer::onOpened, Qt::QueuedConnection);
    connect(movie, &GLMovie::error, this, &GLMovieRenderer::onMovieError, Qt::QueuedConnection);
    connect(movie, &GLMovie::completed, this, &GLMovieRenderer::onCompleted, Qt::QueuedConnection);
    connect(movie, &GLMovie::looped, this, &GLMovieRenderer::onLooped, Qt::QueuedConnection);
    connect(movie, &GLMovie::firstKeyFrameReceived, this, &GLMovieRenderer::onFirstKeyFrameReceived,
            Qt::QueuedConnection);
    connect(movie, &GLMovie::firstAudioPacketReceived, this, &GLMovieRenderer::onFirstAudioPacketReceived,
            Qt::QueuedConnection);
    connect(movie, &GLMovie::firstVideoPacketReceived, this, &GLMovieRenderer::onFirstVideoPacketReceived,
            Qt::QueuedConnection);
    connect(movie, &GLMovie::movieTimeUpdated, this, &GLMovieRenderer::onMovieTimeUpdated, Qt::QueuedConnection);
    // On the watcher's thread: pictures that come while one is still to be painted announce nothing new.
    connect(
        movie, &GLMovie::pictureUpdated, this,
        [this] {
            if (!_pictureAnnounced.exchange(true))
                QMetaObject::invokeMethod(this, &GLMovieRenderer::onPictureUpdated, Qt::QueuedConnection);
        },
        Qt::DirectConnection);
}

void GLMovieRenderer::close()
{
    if (!_movie)
        return;
    emit closing(this);
    if (!_movie)
        return; // A listener has closed it.
    _movie->disconnect(this);
    _dataSource->disconnect(this);
    _movie->close(true);
    _movie.reset();
    _dataSource->close();
    _dataSource = nullptr;
    _overlay.reset();
    _hasPicture = false;
    _hasSound = false;
    _windowCoordinates.clear();
}

bool GLMovieRenderer::isBuffering() const
{
    return _movie && !_hasPicture && !_hasSound;
}

void GLMovieRenderer::setWatched(bool watched)
{
    _watched = watched;
    if (_movie)
        _movie->setWatched(watched);
}

void GLMovieRenderer::setLoop(bool loop)
{
    _loop = loop;
    if (_movie)
        _movie->setLoop(loop);
}

void GLMovieRenderer::setMuted(bool muted)
{
    _muted = muted;
    if (_movie)
        _movie->setMuted(muted);
}

void GLMovieRenderer::setVolume(double volume)
{
    _volume = std::clamp(volume, 0.0, 1.0);
    applyVolume();
}

void GLMovieRenderer::setSpeed(double speed)
{
    _speed = speed;
    if (_movie)
        _movie->setSpeed(speed);
}

void GLMovieRenderer::setOpacity(double opacity)
{
    _opacity = std::clamp(opacity, 0.0, 1.0);
    emit pictureUpdated(this);
}

void GLMovieRenderer::applyVolume()
{
    if (_movie)
        _movie->setVolume(_volume * _audioFade.value());
}

QSize GLMovieRenderer::movieSize() const
{
    return _movie ? QSize(_movie->width(), _movie->height()) : QSize();
}

double GLMovieRenderer::aspectRatio() const
{
    return _movie ? _movie->aspectRatio() : 0.0;
}

double GLMovieRenderer::movieDuration() const
{
    return _movie ? _movie->movieDuration() : 0.0;
}

double GLMovieRenderer::movieTime() const
{
    return _movie ? _movie->movieTime() : 0.0;
}

bool GLMovieRenderer::setMovieTime(double seconds)
{
    return _movie && _movie->setMovieTime(seconds);
}

void GLMovieRenderer::setVideoName(QString const& name)
{
    _videoName = name;
    if (_overlay)
        _overlay->setName(name);
    emit pictureUpdated(this);
}

void GLMovieRenderer::setVideoMessage(QString const& message)
{
    _videoMessage = message;
    if (_overlay)
        _overlay->setMessage(message);
    emit pictureUpdated(this);
}

void GLMovieRenderer::onOpened(GLMovie* movie)
{
    if (movie != _movie.get())
        return;
    // A source that opens anew by itself begins a new film.
    _painter.forgetPicture();
    emit opened(this);
}

void GLMovieRenderer::onCompleted(GLMovie* movie)
{
    if (movie == _movie.get())
        emit completed(this);
}

void GLMovieRenderer::onLooped(GLMovie* movie)
{
    if (movie == _movie.get())
        emit looped(this);
}

void GLMovieRenderer::onMovieError(GLMovie* movie, int code)
{
    if (movie == _movie.get())
        emit error(this, GLMovie::errorText(code));
}

void GLMovieRenderer::onError(GLMovieDataSource*, QString const& text)
{
    emit error(this, text);
}

void GLMovieRenderer::onStateChanged(GLMovieDataSource*, QString const& state)
{
    emit stateChanged(this, state);
}

void GLMovieRenderer::onFirstKeyFrameReceived(int width, int height)
{
    if (!_movie)
        return;
    _hasPicture = true;
    _painter.forgetPicture();
    if (int const milliseconds = std::exchange(_waitingVideoFade, notWaiting); milliseconds != notWaiting)
        _videoFade.start(0.0, 1.0, milliseconds);
    emit firstKeyFrameReceived(this, width, height);
}

void GLMovieRenderer::onFirstAudioPacketReceived()
{
    if (!_movie)
        return;
    _hasSound = true;
    if (int const milliseconds = std::exchange(_waitingAudioFade, notWaiting); milliseconds != notWaiting)
        _audioFade.start(0.0, 1.0, milliseconds);
    emit firstAudioPacketReceived(this);
}

void GLMovieRenderer::onFirstVideoPacketReceived()
{
    if (_movie)
        emit firstVideoPacketReceived(this);
}

void GLMovieRenderer::onMovieTimeUpdated(double seconds)
{
    if (_movie)
        emit movieTimeUpdated(this, seconds);
}

void GLMovieRenderer::onPictureUpdated()
{
    _pictureAnnounced = false;
    emit pictureUpdated(this);
}

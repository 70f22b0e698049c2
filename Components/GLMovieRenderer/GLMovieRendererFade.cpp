// Fades of picture and sound.

#include "GLMovie.h"
#include "GLMovieRenderer.h"

#include <algorithm>
#include <utility>

void GLMovieRenderer::fadeIn(int milliseconds, double volume, bool fadeVideo, bool fadeAudio)
{
    if (std::exchange(_fadingOut, false)) {
        _videoFade.stop();
        _audioFade.stop();
    }
    _volume = std::clamp(volume, 0.0, 1.0);
    fadeOneIn(_videoFade, _waitingVideoFade, fadeVideo, _hasPicture, milliseconds);
    fadeOneIn(_audioFade, _waitingAudioFade, fadeAudio, _hasSound, milliseconds);
    applyVolume();
    emit pictureUpdated(this);
    _fadingIn = true;
    endFade();
}

void GLMovieRenderer::fadeOneIn(GLAnimation& fade, int& waiting, bool wanted, bool begun, int milliseconds)
{
    if (!wanted) {
        // One that runs, or waits for its beginning, goes on.
        if (!fade.isRunning() && waiting == notWaiting)
            fade.setValue(1.0);
    } else if (!begun) {
        fade.setValue(0.0);
        waiting = std::max(0, milliseconds);
    } else {
        waiting = notWaiting;
        // From where an unfinished fade-out has come to; what is wholly there begins anew.
        fade.start(fade.value() < 1.0 ? fade.value() : 0.0, 1.0, milliseconds);
    }
}

void GLMovieRenderer::fadeOut(int milliseconds, bool fadeVideo, bool fadeAudio)
{
    _waitingVideoFade = notWaiting;
    _waitingAudioFade = notWaiting;
    _fadingIn = false;
    _fadingOut = fadeVideo || fadeAudio;
    if (fadeVideo)
        _videoFade.startTo(0.0, milliseconds);
    if (fadeAudio)
        _audioFade.startTo(0.0, milliseconds);
    if (!fadeVideo && !fadeAudio)
        emit fadeOutCompleted(this);
}

void GLMovieRenderer::onAnimationValueChanged(GLAnimation* animation)
{
    if (animation == &_audioFade)
        applyVolume();
    else
        emit pictureUpdated(this);
}

void GLMovieRenderer::onAnimationCompleted(GLAnimation*)
{
    endFade();
}

void GLMovieRenderer::endFade()
{
    if (isFading())
        return;
    if (std::exchange(_fadingOut, false))
        emit fadeOutCompleted(this);
    else if (_fadingIn && !isFadeWaiting() && std::exchange(_fadingIn, false))
        emit fadeInCompleted(this);
}

/// For what the movie, once it is open, does not have nobody waits.
bool GLMovieRenderer::isFadeWaiting() const
{
    bool const isKnown = _movie && _movie->isOpened();
    return (_waitingVideoFade != notWaiting && (!isKnown || _movie->hasVideo())) ||
           (_waitingAudioFade != notWaiting && (!isKnown || _movie->hasAudio()));
}

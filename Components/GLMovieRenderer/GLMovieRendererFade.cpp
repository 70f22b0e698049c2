// Fades of picture and sound.

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
    if (!_fadingOut || isFading())
        return;
    _fadingOut = false;
    emit fadeOutCompleted(this);
}

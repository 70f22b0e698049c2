#pragma once

#include <QtGlobal>

#include <atomic>

/// How the pictures of a movie have fared since it was opened.
struct GLMoviePictureStatistics {
    qint64 shown = 0;
    qint64 dropped = 0;         ///< Came too late, or depend on one that did.
    double soundAhead = 0.0;    ///< Seconds by which the sound was before the last picture.
    bool isSynchronous = false; ///< The last picture went by the sound.
};

/// Counts on the video watcher's thread, for any thread to look at. The fields need not fit each other to the
/// picture.
class GLMoviePictureCounter
{
public:
    void countShown(bool isSynchronous, double soundAhead)
    {
        ++_shown;
        _isSynchronous = isSynchronous;
        _soundAhead = soundAhead;
    }
    void countDropped() { ++_dropped; }
    GLMoviePictureStatistics statistics() const { return {_shown, _dropped, _soundAhead, _isSynchronous}; }

private:
    std::atomic<qint64> _shown{0};
    std::atomic<qint64> _dropped{0};
    std::atomic<double> _soundAhead{0.0};
    std::atomic<bool> _isSynchronous{false};
};

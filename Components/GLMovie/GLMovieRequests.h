#pragma once

#include <QtGlobal>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>

/// What the owner of a movie wants of its threads, how far they have got, and their waits, which a new wish ends at
/// once.
///
/// The owner's thread asks; the reader obeys, and ends the two watchers on the way to another place of the film. Any
/// thread may call anything.
class GLMovieRequests
{
public:
    /// Ends a blocked read, or lets reads block again. Called under the lock, so that a request and its interruption
    /// are seen together; must not call back.
    using Interrupt = std::function<void(bool)>;

    explicit GLMovieRequests(Interrupt interrupt);

    /// No stop, no seek: threads may start.
    void begin();
    void requestStop();
    bool isStopRequested() const;

    /// Asks the reader to go to a movie time, in seconds; a later request replaces one that waits. Returns false when
    /// no reader runs.
    bool requestSeek(double seconds);
    /// The reader's: the place to go to, once. Reads may block again.
    std::optional<double> takeSeek();
    /// The reader's: the clock stands at the place that was taken.
    void seekHasGone();
    /// The place that is still to be gone to.
    std::optional<double> pendingSeek() const;

    /// The reader's: the watchers are to end for a while.
    void setRestarting(bool restarting);
    /// Whether a watcher is to end.
    bool watchersMustEnd() const;
    /// Whether the reader has something else to do than to go on.
    bool readerMustTurn() const;

    void setPaused(bool paused);
    bool isPaused() const;
    void setLoop(bool loop);
    bool loop() const;

    /// The reader's: it plays, between two loops it does not; it has ended, with `lost` before the film did.
    void setPlaying(bool playing);
    bool isPlaying() const;
    void endReader(bool lost);
    bool isLost() const;

    /// Sleeps on a watcher's, or the reader's, thread; a request that concerns it ends that at once.
    void pauseWatcher(qint64 microseconds);
    void pauseReader(qint64 microseconds);

private:
    bool watchersEnd() const { return _stopRequested || _restarting; }
    bool readerTurns() const { return _stopRequested || _seek; }

    Interrupt const _interrupt;
    mutable std::mutex _mutex; ///< Guards everything below.
    std::condition_variable _wake;
    bool _stopRequested = false;
    bool _restarting = false;
    bool _paused = false;
    bool _loop = false;
    bool _reading = false;
    bool _playing = false;
    bool _lost = false;
    std::optional<double> _seek;
    std::optional<double> _going; ///< Taken, and not yet told to the clock.
};

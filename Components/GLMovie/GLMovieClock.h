#pragma once

#include <QtGlobal>

#include <functional>
#include <mutex>
#include <optional>

class Logger;

/// When the pictures and the sound of a movie are due. Only sums under one mutex: it waits for nothing, calls nobody
/// back but its time source, and any thread may use it.
///
/// Seconds come in as a stream counts them. Inside, each kind is shifted onto one timeline that never leaps, so that
/// a sender that sets its clock anew moves picture and sound together, each when its own packets get there. Movie
/// time, for the viewer, counts from the first of its kind. `heard` is where on the timeline the sound is that is
/// heard now, nothing while none is: while there is some, it is the time; otherwise time goes on from there at the
/// film's speed.
class GLMovieClock
{
public:
    /// Microseconds of a clock that never goes back.
    using TimeSource = std::function<qint64()>;

    static constexpr double jumpSeconds = 10.0;    ///< Time stamps that leap further belong to a new clock.
    static constexpr double gapSeconds = 3.0;      ///< A longer gap in live picture and sound at once is left out.
    static constexpr double shortestSilence = 0.1; ///< Seconds; sound that comes later than this waits for its time.
    static constexpr double longestSilence = 1.0;  ///< Seconds; then pictures no longer go by the sound.

    /// Where something lies on the timeline, and how many seconds remain until then (negative: late).
    struct Due {
        double at = 0.0;
        double wait = 0.0;
        bool jumped = false; ///< For pictures: the sender's clock has gone back since the last one.
    };

    GLMovieClock();
    explicit GLMovieClock(TimeSource now);

    /// Begins anew: nothing has been shown or heard, movie time is 0. What is live has gaps that stand for losses.
    void reset(bool hasPicture, bool hasSound, bool isLive = true);

    /// Begins anew at a movie time; what counts as its zero stays. Returns that time as the streams count it, where
    /// `streamStart` is their first time stamp if nothing has been shown or heard yet.
    double seek(double movieTime, double streamStart);

    /// The sound is given up: time and movie time leave it, until it is taken up again.
    void leaveSound();
    void takeSound();
    bool hasSound() const;
    bool hasVideo() const;

    /// Speed: seconds of film in a second.
    void setRate(double rate);
    double rate() const;
    void setPaused(bool paused);
    /// Seconds that pictures are shown early (positive) or late.
    void setPresentationOffset(double seconds);

    /// Seconds on the timeline. 0 before anything has begun.
    double time(std::optional<double> heard);

    /// Whether pictures go by the sound: it has begun, and was heard a moment ago.
    bool syncToAudio() const;

    bool waitingForFirstVideo() const;
    bool waitingForFirstAudio() const;
    /// Movie time of what was shown or queued last; after a seek, its target until then.
    double movieTime() const;

    /// Packets of this kind are ignored: it counts as begun. Returns whether it had not.
    bool ignoreVideo();
    bool ignoreAudio();

    /// The first picture: time begins with it, unless the sound has begun.
    void beginVideo(double seconds);
    /// When a picture is due. May be asked again and again while it waits: the sound may start, stop or leap.
    Due videoDue(double seconds, std::optional<double> heard);
    /// The picture was shown.
    void videoShown(double seconds);
    /// Seconds by which a picture is late; nothing where its time stamp belongs to a new clock.
    std::optional<double> videoLateness(double seconds, std::optional<double> heard);
    /// Time goes on from a picture: nothing was there to show for a while, and nobody heard anything either.
    void restartVideo(double seconds);
    /// Whether the sender's clock has gone back in the sound since this was asked last.
    bool takeSoundJump();
    /// The movie time of a picture; of one that is dropped, what movieTime() says from now on.
    double videoMovieTime(double seconds) const;
    void videoDropped(double seconds);

    /// When sound is due; as soon as it comes, unless there would have to be silence before it.
    Due soundDue(double seconds, std::optional<double> heard);
    /// Sound was queued, or passed by unheard, from `at` on the timeline.
    void soundQueued(double seconds, double at, double duration);

private:
    struct Track {
        bool present = false;
        bool begun = false;
        std::optional<double> first;   ///< Stream seconds that movie time counts from.
        double shift = 0.0;            ///< From stream seconds to the timeline.
        std::optional<double> end;     ///< Where on the timeline the last one ended, or for pictures, began.
        std::optional<double> pending; ///< Where on the timeline the one is that waits.
        double movieTime = 0.0;
    };

    /// Seconds left out of the stream that are not waited for.
    double gap() const { return _isLive ? gapSeconds : jumpSeconds; }
    double masterClockTime() const;
    qint64 instant() const;
    void startAt(double time);
    void hear(std::optional<double> heard);
    bool goesBySound() const;
    double movieTimeOf(double seconds) const;
    void followVideoLeap(double seconds, Due& due);
    void followSoundLeap(double seconds);
    void moveTo(Track& track, double seconds, double time);

    static Logger* log;

    TimeSource const _now;
    mutable std::mutex _mutex; ///< Guards everything below.
    Track _video;
    Track _audio;
    double _videoStep = 0.04; ///< Seconds between the last two pictures.
    bool _isLive = true;
    bool _soundJumped = false;
    bool _started = false;
    double _baseTime = 0.0; ///< Timeline seconds at _startTime.
    qint64 _startTime = 0;  ///< Microseconds.
    qint64 _lastHeard = 0;  ///< Microseconds, as is the next.
    qint64 _lastShown = 0;
    std::optional<qint64> _pauseBegan;
    double _rate = 1.0;
    double _presentationOffset = 0.0;
    std::optional<double> _sought; ///< The movie time of a seek that has not shown anything yet.
};

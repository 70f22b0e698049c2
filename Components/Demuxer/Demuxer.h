#pragma once

#include "FFwrapper.h"

extern "C" {
#include <libavutil/rational.h>
}

#include <QDeadlineTimer>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

class KeyFrameSeek;
class QObject;
struct AVCodecParameters;
struct AVIOInterruptCB;
struct AVPacket;
struct AVStream;

/// What a stream was when it was opened; for any thread, and for longer than the stream, whose own fields FFmpeg may
/// change with each packet that it reads.
struct StreamSnapshot {
    int index = -1;
    AVRational timeBase{0, 1};
    AVRational aspectRatio{0, 1};                        ///< Of a pixel; 0 when it is not known.
    AVRational frameRate{0, 1};                          ///< On average; 0 when it is not known.
    bool isCover = false;                                ///< One picture without a time, that belongs to the sound.
    std::shared_ptr<AVCodecParameters const> parameters; ///< Null for a stream that is not there.
};

/// What a film is played from: the first stream of each kind, and what is known of the whole. The streams belong to
/// the format context; null when absent.
struct StreamInfo {
    AVStream* video = nullptr;
    AVStream* audio = nullptr;
    StreamSnapshot videoSnapshot;
    StreamSnapshot audioSnapshot;
    double duration = 0.0;  ///< Seconds; 0 when it is not known.
    double startTime = 0.0; ///< The time stamp of the beginning in seconds; 0 when it is not known.
    bool seekable = false;
    bool endless = false; ///< Has no length, neither in bytes nor in time, as what is sent live.
    bool listed = false;  ///< Comes in files of some seconds each, of which a list tells, as HLS and DASH do.

    bool isEmpty() const { return !video && !audio; }

    /// What of the two can be recorded: all but a cover, video first.
    std::vector<StreamSnapshot> recordable() const;
};

/// One format context and the thread that all of FFmpeg's work on it runs on: opening, reading a few packets ahead,
/// seeking, freeing.
///
/// FFmpeg can be held up where nothing ends it, as in a name look-up or on a disk that does not answer. So nobody
/// waits for the thread: whoever waits for its answer can be woken at any moment, and the thread, once abandoned,
/// ends by itself as soon as FFmpeg lets it. It shares the ownership of this object and of what the opening holds.
///
/// Every operation is for any thread.
class Demuxer : public std::enable_shared_from_this<Demuxer>
{
public:
    static constexpr std::size_t readAhead = 8; ///< Packets; it saves a change of threads for each of them.

    /// Opens the format context, on the demuxer's thread. Null for a failure, which it has logged unless the demuxer
    /// is abandoned. What it holds lives as long as the context does.
    using Opening = std::function<FormatContextPointer(Demuxer const&)>;

    /// Starts to open, for so many milliseconds at most; `opened` is called, in either case, on the thread of
    /// `listener`, which must abandon the demuxer before it goes.
    static std::shared_ptr<Demuxer> start(Opening opening, int deadline, QObject* listener,
                                          std::function<void()> opened);

    Demuxer(Opening opening, int deadline);
    ~Demuxer();
    Demuxer(Demuxer const&) = delete;
    Demuxer& operator=(Demuxer const&) = delete;

    /// Ends whatever runs and waits, for good, and waits for nothing itself. The streams must not be used any more.
    void abandon();
    bool isAbandoned() const;

    /// Whether the opening has ended with a context.
    bool isOpen() const;

    /// What was opened; empty before.
    StreamInfo info() const;

    /// Ends all reading and seeking, and the connection, as far as FFmpeg has only one; the streams stay. From now on
    /// read() waits until it is interrupted.
    void retire();

    /// Of what is retired: there is nothing to wait for, so that read() returns the end, once.
    void finish();

    /// Waits for the next packet, and moves it to `packet`. Returns 0, or FFmpeg's negative error: AVERROR_EXIT when
    /// interrupted or abandoned, AVERROR(ETIMEDOUT) when none came within `limit` milliseconds, -1 for no limit.
    /// Reading goes on after an error when it is asked for again.
    int read(AVPacket* packet, int limit = -1);

    /// Waits until a stream stands at a time stamp, as KeyFrameSeek does it; what was read ahead is gone then. A
    /// running read or seek of another thread gives way. Returns FFmpeg's result, AVERROR_EXIT when interrupted or
    /// abandoned.
    int seek(AVStream const* stream, long long timestamp, int flags);

    /// While set, read() and seek() return at once. Reading that has begun goes on for later.
    void setInterrupted(bool interrupted);

    /// For the format context: ends its blocked calls when the demuxer wants that.
    AVIOInterruptCB interruptCallback() const;

private:
    struct Result {
        AVPacket* packet;
        int error;
    };
    struct Seek {
        int stream;
        long long timestamp;
        int flags;
        unsigned int number;
    };

    /// Whether it was open; by the end its context has been freed.
    bool run(QObject* listener, std::function<void()> const& opened);
    bool finishOpening(AVFormatContext* context, QObject* listener, std::function<void()> const& opened);
    bool serve(AVFormatContext& context, KeyFrameSeek& seeker);
    void serveSeek(AVFormatContext& context, KeyFrameSeek& seeker, std::unique_lock<std::mutex>& lock);
    void serveRead(AVFormatContext& context, std::unique_lock<std::mutex>& lock);
    bool mayRead() const;
    static void disconnect(AVFormatContext& context);
    static void forgetCutOff(AVFormatContext& context);
    void clearResults();
    static int interrupted(void* opaque);

    Opening const _opening;
    QDeadlineTimer const _deadline; ///< For the opening.

    std::atomic<bool> _opened{false}; ///< The opening has ended. Set under _mutex, read by FFmpeg's callback without.
    std::atomic<bool> _endCall{false};   ///< FFmpeg's running call is to end. The same.
    std::atomic<bool> _callEnded{false}; ///< FFmpeg's running call has been told so, by whatever thread it asked on.

    mutable std::mutex _mutex;       ///< Guards what follows.
    std::condition_variable _work;   ///< For the demuxer's thread.
    std::condition_variable _answer; ///< For those who wait for it.
    bool _abandoned = false;
    bool _retired = false;
    bool _interrupted = false;
    bool _wanted = false;         ///< A packet is waited for.
    bool _reading = false;        ///< Reading ahead is worth it: someone has read, and the last result was no error.
    std::deque<Result> _results;  ///< Read ahead.
    std::optional<Seek> _seek;    ///< Waits to be served.
    unsigned int _seekNumber = 0; ///< Of the newest seek.
    unsigned int _seeksServed = 0;
    int _seekResult = 0; ///< Of the seek that was served last.
    bool _isOpen = false;
    StreamInfo _info;
};

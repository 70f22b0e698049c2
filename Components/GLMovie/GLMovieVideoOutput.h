#pragma once

#include "GLMovieContext.h"
#include "GLMovieDeinterlacer.h"
#include "GLMoviePictureStatistics.h"
#include "GLMovieVideoTarget.h"

#include <QString>

#include <optional>

class Logger;
struct AVPacket;
struct AVStream;

/// From packets of pictures to the texture, each picture at its time. The video watcher's thread decodes and shows;
/// open() and flush() are called while it does not run; what is shown may be asked for on any thread.
class GLMovieVideoOutput
{
public:
    /// What is to be made of pictures.
    struct Options {
        bool useHardwareColourConversion = false; ///< They stay YUV, when the card can convert them.
        bool deinterlace = true;
        bool emitKeyframes = false;
    };

    GLMovieVideoOutput(GLMovieContext const& context, AVStream* stream, Options const& options);
    ~GLMovieVideoOutput();
    GLMovieVideoOutput(GLMovieVideoOutput const&) = delete;
    GLMovieVideoOutput& operator=(GLMovieVideoOutput const&) = delete;

    /// Opens the decoder. Returns 0 or a GLMovie::Error.
    int openVideoStream();

    /// Decodes one packet and shows what comes of it, until the watcher must end. Null is the end of the stream.
    void handleVideoPacket(AVPacket const* packet);

    /// Forgets what the decoder holds, which belongs to another place of the film. What comes next is shown from a
    /// place on, in seconds of the stream, after a key frame; what is before it is decoded only.
    void flush(std::optional<double> showFrom);

    /// Gives the texture up, on the owner's thread while the watcher does not run.
    void releaseTexture();

    /// The decoder's name.
    QString name() const;
    /// The texture with the newest picture; null before the first key frame. Lives until releaseTexture().
    GLMovieTexture* texture() const { return _target.texture(); }
    GLMovieVideoTarget::Shown shown() const { return _target.shown(); }
    GLMoviePictureStatistics statistics() const { return _counter.statistics(); }

    void setWatched(bool watched) { _target.setWatched(watched); }

    /// Whether there is one picture only, such as the cover of an album, which belongs to no time.
    bool isStill() const;

private:
    int openCodec();
    std::optional<double> packetSeconds(AVPacket const& packet) const;
    bool checkIfPacketNeedsDropping(AVPacket const& packet);
    void noteStep(double seconds);
    double lateEnough() const;
    void skipWhatIsNotShown(AVPacket const& packet);
    void presentPicture(AVFrame const* frame, std::optional<double> seconds);
    bool isToBeShown(AVFrame const* frame, std::optional<double> seconds);
    bool beginVideo(std::optional<double> seconds, qint64 timestamp);
    void waitForPresentationTime(double seconds);
    bool showKeyFrame(double seconds);
    void showStill(AVFrame const* frame);
    void updateTexture(AVFrame const* frame);
    double aspectRatioOf(AVFrame const* frame) const;

    static Logger* log;

    GLMovieContext const _context;
    AVStream* const _stream;
    Options const _options;
    CodecContextPointer _codec;
    FramePointer _frame;
    GLMovieDeinterlacer _deinterlacer;
    GLMovieVideoTarget _target;
    GLMoviePictureCounter _counter;
    double _frameDelay = 0.0;            ///< Seconds that the last picture took to process.
    double _lastVideoSeconds = 0.0;      ///< When the last picture was due, as the stream counts.
    std::optional<double> _newestPacket; ///< Its seconds.
    double _step = 0.0;                  ///< Seconds between the newest packet and the one before; 0 for none ...
    double _stepBefore = 0.0;            ///< ... and between the two before.
    std::optional<double> _showFrom;
    bool _seenKeyframe = false;   ///< A key frame has been shown since time stamps last went back.
    bool _passedKeyframe = false; ///< A key frame was decoded, if only on the way to what is to be shown.
    bool _dropUntilKeyframe = false;
};

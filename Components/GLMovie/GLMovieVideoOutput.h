#pragma once

#include "GLMovieContext.h"
#include "GLMovieDeinterlacer.h"

extern "C" {
#include <libavutil/pixfmt.h>
}

#include <QString>

#include <memory>
#include <mutex>
#include <optional>

class GLMovieTexture;
class Logger;
struct AVCodecContext;
struct AVFrame;
struct AVPacket;
struct AVStream;
struct SwsContext;

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

    /// What is being shown; all 0 before the first key frame.
    struct Shown {
        int width = 0; ///< Pixels of the texture.
        int height = 0;
        double aspectRatio = 0.0; ///< Width over height of the newest picture as it is meant.
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
    GLMovieTexture* texture() const;
    Shown shown() const;

private:
    struct CodecContextDeleter {
        void operator()(AVCodecContext* context) const;
    };
    struct FrameDeleter {
        void operator()(AVFrame* frame) const;
    };
    struct SwsDeleter {
        void operator()(SwsContext* context) const;
    };

    int openCodec();
    void chooseColourConversion();
    std::optional<double> packetSeconds(AVPacket const& packet) const;
    bool checkIfPacketNeedsDropping(AVPacket const& packet);
    void skipWhatIsNotShown(AVPacket const& packet);
    void presentPicture(AVFrame const* frame, std::optional<double> seconds);
    bool isToBeShown(AVFrame const* frame, std::optional<double> seconds);
    bool beginVideo(std::optional<double> seconds, qint64 timestamp);
    void waitForPresentationTime(double seconds);
    bool showKeyFrame(double seconds);
    int allocateTexture();
    void updateTexture(AVFrame const* frame, bool isKeyFrame);
    AVFrame const* pictureInOutputFormat(AVFrame const* frame);
    double aspectRatioOf(AVFrame const* frame) const;

    static Logger* log;

    GLMovieContext const _context;
    AVStream* const _stream;
    Options const _options;
    std::unique_ptr<AVCodecContext, CodecContextDeleter> _codec;
    std::unique_ptr<AVFrame, FrameDeleter> _frame;
    std::unique_ptr<AVFrame, FrameDeleter> _outputFrame; ///< The picture in the output pixel format.
    std::unique_ptr<SwsContext, SwsDeleter> _swsContext;
    GLMovieDeinterlacer _deinterlacer;
    AVPixelFormat _outputPixelFormat = AV_PIX_FMT_NONE;
    double _frameDelay = 0.0;       ///< Seconds that the last picture took to process.
    double _lastVideoSeconds = 0.0; ///< When the last picture was due, as the stream counts.
    std::optional<double> _showFrom;
    bool _seenKeyframe = false;   ///< A key frame has been shown since time stamps last went back.
    bool _passedKeyframe = false; ///< A key frame was decoded, if only on the way to what is to be shown.
    bool _dropUntilKeyframe = false;

    mutable std::mutex _shownMutex; ///< Guards what follows; the texture's planes have a lock of their own.
    std::unique_ptr<GLMovieTexture> _texture;
    bool _textureAllocated = false;
    Shown _shown;
};

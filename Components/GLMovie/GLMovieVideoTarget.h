#pragma once

#include "FFmpegPointers.h"

extern "C" {
#include <libavutil/pixfmt.h>
}

#include <QtGlobal>

#include <memory>
#include <mutex>

class GLMovieTexture;
class Logger;

/// Where decoded pictures go: converted to the output pixel format, into the texture that is drawn from. The video
/// watcher's thread makes and updates it; the owner's thread releases it while the watcher does not run; what is
/// shown may be asked for on any thread.
class GLMovieVideoTarget
{
public:
    /// What is being shown; all 0 before the first key frame.
    struct Shown {
        int width = 0; ///< Pixels of the texture.
        int height = 0;
        double aspectRatio = 0.0; ///< Width over height of the newest picture as it is meant.
    };

    GLMovieVideoTarget();
    ~GLMovieVideoTarget();
    GLMovieVideoTarget(GLMovieVideoTarget const&) = delete;
    GLMovieVideoTarget& operator=(GLMovieVideoTarget const&) = delete;

    /// Chooses what pictures of a decoder's format become: YUV where the card converts colours, else RGB24. Returns
    /// false when there is no memory.
    bool open(AVPixelFormat decoded, bool useHardwareColourConversion);

    /// Makes the texture for the pictures of a decoder, if there is none. Returns 0 or a GLMovie::Error.
    int allocateTexture(AVCodecContext const* codec);

    /// Converts a picture and hands it to the texture, which must be there; while nobody looks, one in a second.
    void update(AVFrame const* frame, double aspectRatio);

    /// Whether somebody looks. Starts true. Any thread.
    void setWatched(bool watched);

    void release();

    /// The texture with the newest picture; null before the first key frame. Lives until release().
    GLMovieTexture* texture() const;
    Shown shown() const;

private:
    void chooseColourConversion(AVPixelFormat decoded, bool useHardwareColourConversion);
    bool isWorthWhile(double aspectRatio);
    AVFrame const* pictureInOutputFormat(AVFrame const* frame);

    static Logger* log;

    AVPixelFormat _outputPixelFormat = AV_PIX_FMT_NONE;
    FramePointer _outputFrame; ///< The picture in the output pixel format.
    SwsContextPointer _swsContext;

    mutable std::mutex _mutex; ///< Guards what follows; the texture's planes have a lock of their own.
    std::unique_ptr<GLMovieTexture> _texture;
    Shown _shown;
    bool _watched = true;
    qint64 _lastUpdate = 0; ///< Microseconds, av_gettime_relative().
};

#pragma once

extern "C" {
#include <libavutil/frame.h>
}

#include <QImage>

#include <memory>

class GLMovieTexture;

struct FrameDeleter {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
using Frame = std::unique_ptr<AVFrame, FrameDeleter>;

/// A frame with room for a picture.
Frame emptyPicture(int width, int height, AVPixelFormat format);

/// Soft waves, other ones in each plane, in a format. Sides are even.
Frame testPicture(int width, int height, AVPixelFormat format);

/// The same picture in RGB as FFmpeg converts it, with the chroma smoothed between its samples.
QImage convertedByFFmpeg(AVFrame const* frame);

/// A texture that holds the picture in a format, to which the texture has to convert by itself.
std::unique_ptr<GLMovieTexture> textureOf(AVFrame const* frame, AVPixelFormat format);

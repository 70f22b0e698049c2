#include "GLMovieVideoTarget.h"

#include "GLARBFragmentProgram.h"
#include "GLARBMultiTexture.h"
#include "GLARBShaderObjects.h"
#include "GLMovie.h"
#include "GLMovieTexture.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
#include <libavutil/time.h>
#include <libswscale/swscale.h>
}

#include <utility>

Logger* GLMovieVideoTarget::log = LoggerManager::logger();

namespace
{
constexpr qint64 unwatchedInterval = 1000000; // µs; who looks again finds a picture that is not older.

bool isRgb(AVPixelFormat format)
{
    AVPixFmtDescriptor const* const descriptor = av_pix_fmt_desc_get(format);
    return descriptor && (descriptor->flags & AV_PIX_FMT_FLAG_RGB) != 0;
}

bool hasFullChroma(AVPixelFormat format)
{
    AVPixFmtDescriptor const* const descriptor = av_pix_fmt_desc_get(format);
    return descriptor && descriptor->nb_components >= 3 && descriptor->log2_chroma_w == 0 &&
           descriptor->log2_chroma_h == 0;
}

AVPixelFormat plainFormat(AVFrame const* frame)
{
    return GLMovieColourSpace::plainFormat(static_cast<AVPixelFormat>(frame->format));
}

} // namespace

GLMovieVideoTarget::GLMovieVideoTarget() = default;
GLMovieVideoTarget::~GLMovieVideoTarget() = default;

bool GLMovieVideoTarget::open(AVPixelFormat decoded, bool useHardwareColourConversion)
{
    _outputFrame.reset(av_frame_alloc());
    if (!_outputFrame)
        return false;
    chooseColourConversion(decoded, useHardwareColourConversion);
    return true;
}

void GLMovieVideoTarget::chooseColourConversion(AVPixelFormat decoded, bool useHardwareColourConversion)
{
    bool const programs =
        GLARBFragmentProgram::instance()->isSupported() || GLARBShaderObjects::instance()->isSupported();
    bool const multitexturing = GLARBMultiTexture::instance()->isSupported();
    if (!programs)
        LOG_INFO("This system does not support fragment programs.");
    if (!multitexturing)
        LOG_INFO("This system does not support multitexturing.");

    if (!programs || !multitexturing || !useHardwareColourConversion) {
        LOG_INFO("Switching to software YUV to RGB conversion.");
        _outputPixelFormat = AV_PIX_FMT_RGB24;
        return;
    }
    LOG_INFO("Switching to hardware YUV to RGB conversion.");
    if (isRgb(decoded))
        _outputPixelFormat = AV_PIX_FMT_RGB24; // There is nothing to convert.
    else
        _outputPixelFormat = hasFullChroma(decoded) ? AV_PIX_FMT_YUV444P : AV_PIX_FMT_YUV420P;
}

int GLMovieVideoTarget::allocateTexture(AVCodecContext const* codec)
{
    if (texture())
        return GLMovie::NoError;
    if (av_image_get_buffer_size(_outputPixelFormat, codec->width, codec->height, 1) < 0) {
        LOG_ERROR("avpicture_get_size was -1. Cannot play");
        return GLMovie::NoPictureSize;
    }
    av_frame_unref(_outputFrame.get());
    _outputFrame->format = _outputPixelFormat;
    _outputFrame->width = codec->width;
    _outputFrame->height = codec->height;
    if (av_frame_get_buffer(_outputFrame.get(), 0) < 0) {
        LOG_ERROR("Failed allocating buffer. Cannot play");
        return GLMovie::NoPictureBuffer;
    }
    std::unique_ptr<GLMovieTexture> made(new (std::nothrow) GLMovieTexture);
    if (!made) {
        LOG_ERROR("Failed allocating movie texture. Cannot play");
        return GLMovie::NoTexture;
    }
    if (made->create(codec, _outputPixelFormat) != 0) {
        LOG_ERROR("Failed creating movie texture. Cannot play");
        return GLMovie::TextureFailed;
    }
    LOG_DEBUG("Allocated video texture. Size = %d x %d", codec->width, codec->height);
    std::lock_guard const lock(_mutex);
    _texture = std::move(made);
    _shown = {codec->width, codec->height, 0.0};
    return GLMovie::NoError;
}

void GLMovieVideoTarget::update(AVFrame const* frame, double aspectRatio)
{
    if (!isWorthWhile(aspectRatio))
        return;
    if (AVFrame const* const picture = pictureInOutputFormat(frame))
        _texture->update(picture, frame->key_frame != 0);
}

bool GLMovieVideoTarget::isWorthWhile(double aspectRatio)
{
    qint64 const now = av_gettime_relative();
    std::lock_guard const lock(_mutex);
    if (!_watched && now - _lastUpdate < unwatchedInterval)
        return false;
    _lastUpdate = now;
    _shown.aspectRatio = aspectRatio;
    return true;
}

void GLMovieVideoTarget::setWatched(bool watched)
{
    std::lock_guard const lock(_mutex);
    _watched = watched;
}

AVFrame const* GLMovieVideoTarget::pictureInOutputFormat(AVFrame const* frame)
{
    AVFrame* const output = _outputFrame.get();
    // Scaling a picture to what it is already would only copy it.
    if (plainFormat(frame) == output->format && frame->width == output->width && frame->height == output->height)
        return frame;
    // The source may change its size or format at any picture; the texture keeps the size of the first one.
    SwsContext* const old = _swsContext.release();
    _swsContext.reset(sws_getCachedContext(old, frame->width, frame->height, plainFormat(frame), output->width,
                                           output->height, _outputPixelFormat, SWS_BILINEAR, nullptr, nullptr,
                                           nullptr));
    if (!_swsContext)
        return nullptr;
    GLMovieColourSpace::apply(_swsContext.get(), frame, output);
    sws_scale(_swsContext.get(), frame->data, frame->linesize, 0, frame->height, output->data, output->linesize);
    return output;
}

void GLMovieVideoTarget::release()
{
    std::lock_guard const lock(_mutex);
    _texture.reset();
    _shown = {};
}

GLMovieTexture* GLMovieVideoTarget::texture() const
{
    std::lock_guard const lock(_mutex);
    return _texture.get();
}

GLMovieVideoTarget::Shown GLMovieVideoTarget::shown() const
{
    std::lock_guard const lock(_mutex);
    return _shown;
}

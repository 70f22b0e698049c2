#include "GLMovieScaler.h"

#include "GLMovieCut.h"
#include "GLMovieTexture.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavutil/buffer.h>
#include <libavutil/frame.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

#include <QThread>

#include <algorithm>
#include <array>

Logger* GLMovieScaler::log = LoggerManager::logger();

namespace
{
constexpr AVPixelFormat targetFormat = AV_PIX_FMT_BGRA;
constexpr int maximumThreads = 4; ///< More bring nothing at the sizes of screens.

/// A buffer that owns nothing: FFmpeg copies a frame that is in none.
AVBufferRef* borrowed(uint8_t const* data)
{
    return av_buffer_create(
        const_cast<uint8_t*>(data), 1, [](void*, uint8_t*) {}, nullptr, AV_BUFFER_FLAG_READONLY);
}
} // namespace

void GLMovieScaler::Deleter::operator()(SwsContext* context) const
{
    sws_freeContext(context);
}

void GLMovieScaler::Deleter::operator()(AVFrame* frame) const
{
    av_frame_free(&frame);
}

bool GLMovieScaler::isFast(AVPixelFormat format)
{
    // Measured: YUV 4:4:4 costs swscale 17 ms at 1280x720, for which OpenGL in software takes half as long.
    return format == AV_PIX_FMT_YUV420P || format == AV_PIX_FMT_RGB24 || format == AV_PIX_FMT_RGBA;
}

bool GLMovieScaler::prepare(Kind const& kind)
{
    if (kind == _kind)
        return _context != nullptr; // What has failed once is not tried with each picture.
    _kind = kind;
    _context.reset(sws_alloc_context());
    if (!_context)
        return false;
    bool const isScaled = kind.from != kind.to;
    int const threads = isScaled ? std::clamp(QThread::idealThreadCount(), 1, maximumThreads) : 1;
    struct Option {
        char const* name;
        int64_t value;
    };
    // Not "fast bilinear": it moves the picture by up to half a pixel to the right.
    for (Option const& option :
         {Option{"srcw", kind.from.width()}, Option{"srch", kind.from.height()}, Option{"src_format", kind.format},
          Option{"dstw", kind.to.width()}, Option{"dsth", kind.to.height()}, Option{"dst_format", targetFormat},
          Option{"sws_flags", SWS_BILINEAR}, Option{"threads", threads}})
        av_opt_set_int(_context.get(), option.name, option.value, 0);
    if (sws_init_context(_context.get(), nullptr, nullptr) < 0) {
        LOG_ERROR("Could not scale pictures from %d x %d to %d x %d", kind.from.width(), kind.from.height(),
                  kind.to.width(), kind.to.height());
        _context.reset();
        return false;
    }
    return true;
}

bool GLMovieScaler::isWithin(GLMovieTexture const& texture, GLMovieCut const& cut)
{
    QRect const picture(0, 0, texture.planeWidth(0), texture.planeHeight(0));
    if (!cut.source.isEmpty() && picture.contains(cut.source))
        return true;
    LOG_ERROR("Could not take %d x %d pixels out of a picture of %d x %d", cut.source.width(), cut.source.height(),
              picture.width(), picture.height());
    return false;
}

bool GLMovieScaler::scale(GLMovieTexture const& texture, GLMovieCut const& cut, unsigned char* target, int stride)
{
    Frame const picture(av_frame_alloc());
    if (!picture || !isWithin(texture, cut))
        return false;
    bool const isYUV = texture.planeCount() > 1;
    for (int plane = 0; plane < texture.planeCount(); ++plane) {
        int const shift = isYUV && plane > 0 ? 1 : 0;
        int const row = texture.textureWidth(plane) * texture.bytesPerPixel();
        picture->linesize[plane] = row;
        picture->data[plane] = const_cast<uint8_t*>(texture.plane(plane)) +
                               static_cast<ptrdiff_t>(cut.source.y() >> shift) * row +
                               static_cast<ptrdiff_t>(cut.source.x() >> shift) * texture.bytesPerPixel();
    }
    picture->format = texture.pixelFormat();
    picture->width = cut.source.width();
    picture->height = cut.source.height();
    bool const isConverted = cut.isOneToOne() && picture->height > 1;
    // swscale's fast way from YUV goes by two rows.
    int const height = isConverted && isYUV ? (picture->height + 1) / 2 * 2 : picture->height;
    QSize const from(picture->width, height);
    if (!prepare({texture.pixelFormat(), from, isConverted ? from : cut.scaled}))
        return false;
    GLMovieColourSpace::apply(_context.get(), texture.colourSpace(), {});
    return isConverted ? convertPixels(*picture, target, stride) : scaleFrame(*picture, cut.scaled, target, stride);
}

bool GLMovieScaler::convertPixels(AVFrame const& picture, unsigned char* target, int stride)
{
    // The last row of an odd height of YUV is followed by the one before it.
    bool const isYUV = picture.data[1];
    int const pairs = isYUV ? picture.height / 2 * 2 : picture.height;
    uint8_t* const rows[] = {target, nullptr, nullptr, nullptr};
    int const strides[] = {stride, 0, 0, 0};
    if (sws_scale(_context.get(), picture.data, picture.linesize, 0, pairs, rows, strides) < 0)
        return false;
    if (pairs == picture.height)
        return true;
    std::array<uint8_t const*, 4> const last = {
        picture.data[0] + static_cast<ptrdiff_t>(pairs) * picture.linesize[0],
        picture.data[1] + static_cast<ptrdiff_t>(pairs / 2) * picture.linesize[1],
        picture.data[2] + static_cast<ptrdiff_t>(pairs / 2) * picture.linesize[2], nullptr};
    int const upward[] = {-picture.linesize[0], picture.linesize[1], picture.linesize[2], 0};
    return sws_scale(_context.get(), last.data(), upward, pairs, 2, rows, strides) >= 0;
}

bool GLMovieScaler::scaleFrame(AVFrame& picture, QSize const& size, unsigned char* target, int stride)
{
    Frame const scaled(av_frame_alloc());
    picture.buf[0] = borrowed(picture.data[0]);
    if (!scaled || !picture.buf[0])
        return false;
    scaled->buf[0] = borrowed(target);
    scaled->data[0] = target;
    scaled->linesize[0] = stride;
    scaled->format = targetFormat;
    scaled->width = size.width();
    scaled->height = size.height();
    return scaled->buf[0] && sws_scale_frame(_context.get(), scaled.get(), &picture) >= 0;
}

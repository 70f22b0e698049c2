#include "GLMovieTexture.h"

#include "GLARBTextureNonPowerOfTwo.h"
#include "GLTexture.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "YuvToRgb.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/pixdesc.h>
}

#include <QMutexLocker>

#include <cstring>
#include <qopengl.h>

Logger* GLMovieTexture::log = LoggerManager::logger();

namespace
{
/// A picture whose sides are both greater than this may have a texture of its own size.
constexpr int largestPowerOfTwoOnlySide = 511;

/// More than any card can hold; keeps the sizes below within an int.
constexpr int largestSide = 16384;

unsigned char const* frameRow(AVFrame const* frame, int plane, int y)
{
    return frame->data[plane] + static_cast<ptrdiff_t>(frame->linesize[plane]) * y;
}
} // namespace

GLMovieTexture::GLMovieTexture(QObject* parent) : QObject(parent) {}

int GLMovieTexture::create(AVCodecContext const* context, AVPixelFormat format)
{
    destroy();
    QMutexLocker const locker(&_mutex);
    if (context->width <= 0 || context->height <= 0 || context->width > largestSide || context->height > largestSide)
        return 1;
    _pixelFormat = format;
    switch (format) {
    case AV_PIX_FMT_YUV420P:
    case AV_PIX_FMT_YUV444P:
        return createYUV(context);
    case AV_PIX_FMT_RGB24:
    case AV_PIX_FMT_RGBA:
        return createRGB(context);
    default:
        _pixelFormat = AV_PIX_FMT_NONE;
        return 1;
    }
}

int GLMovieTexture::createYUV(AVCodecContext const* context)
{
    _glFormat = GL_LUMINANCE;
    _bytesPerPixel = 1;
    _planeCount = 3;
    bool const halved = _pixelFormat == AV_PIX_FMT_YUV420P;
    allocatePlane(0, context->width, context->height);
    for (int index = 1; index < _planeCount; ++index) {
        size_t const i = static_cast<size_t>(index);
        allocatePlane(index, context->width, context->height);
        if (!halved)
            continue;
        // An odd side has its last chroma sample for one pixel alone.
        _planeWidth[i] = (_planeWidth[i] + 1) / 2;
        _planeHeight[i] = (_planeHeight[i] + 1) / 2;
        _textureWidth[i] = (_textureWidth[i] + 1) / 2;
        _textureHeight[i] = (_textureHeight[i] + 1) / 2;
        _planes[i].resize(static_cast<size_t>(_textureWidth[i]) * static_cast<size_t>(_textureHeight[i]) + padding);
    }
    return 0;
}

int GLMovieTexture::createRGB(AVCodecContext const* context)
{
    bool const hasAlpha = _pixelFormat == AV_PIX_FMT_RGBA;
    _glFormat = hasAlpha ? GL_RGBA : GL_RGB;
    _bytesPerPixel = hasAlpha ? 4 : 3;
    _planeCount = 1;
    allocatePlane(0, context->width, context->height);
    return 0;
}

void GLMovieTexture::allocatePlane(int index, int width, int height)
{
    size_t const i = static_cast<size_t>(index);
    bool const exact = GLARBTextureNonPowerOfTwo::instance()->isSupported() && width > largestPowerOfTwoOnlySide &&
                       height > largestPowerOfTwoOnlySide;
    _planeWidth[i] = width;
    _planeHeight[i] = height;
    _textureWidth[i] = exact ? width : GLTexture::nearestPowerOfTwo(width);
    _textureHeight[i] = exact ? height : GLTexture::nearestPowerOfTwo(height);
    _planes[i].assign(static_cast<size_t>(_textureWidth[i]) * static_cast<size_t>(_textureHeight[i]) *
                              static_cast<size_t>(_bytesPerPixel) +
                          padding,
                      0);
}

void GLMovieTexture::destroy()
{
    QMutexLocker const locker(&_mutex);
    for (std::vector<unsigned char>& plane : _planes)
        plane = {};
    _planeWidth = _planeHeight = _textureWidth = _textureHeight = {};
    _colourSpace = {};
    _pixelFormat = AV_PIX_FMT_NONE;
    _glFormat = 0;
    _bytesPerPixel = 0;
    _planeCount = 0;
    _refusalReported = false;
}

void GLMovieTexture::update(AVFrame const* frame, bool isKeyFrame)
{
    {
        QMutexLocker const locker(&_mutex);
        if (!updatePlanes(frame)) {
            if (!_refusalReported)
                LOG_WARNING("A picture of size %d x %d and format %d does not fit the texture", frame->width,
                            frame->height, frame->format);
            _refusalReported = true;
            return;
        }
        ++_generation;
    }
    emit updated(isKeyFrame);
}

bool GLMovieTexture::updatePlanes(AVFrame const* frame)
{
    if (_planeCount == 0 || frame->width != _planeWidth[0] || frame->height != _planeHeight[0])
        return false;
    // The range that an old name implies is in the colour space.
    AVPixelFormat const format = GLMovieColourSpace::plainFormat(static_cast<AVPixelFormat>(frame->format));
    bool const isYUV = _planeCount == 3;
    if (isYUV) {
        if (format != _pixelFormat)
            return false;
        _colourSpace = GLMovieColourSpace::fromFrame(frame);
        updateYUV(frame);
        return true;
    }
    switch (format) {
    case AV_PIX_FMT_YUV420P:
        updateYUV420PtoRGB(frame);
        break;
    case AV_PIX_FMT_YUV444P:
        updateYUV444PtoRGB(frame);
        break;
    case AV_PIX_FMT_RGB24:
        if (_bytesPerPixel == 3)
            updateRGB24toRGB(frame);
        else
            updateRGB24toRGBA(frame);
        break;
    case AV_PIX_FMT_RGBA:
        if (_bytesPerPixel != 4)
            return false;
        copyPlane(0, frame);
        break;
    default:
        return false;
    }
    repeatEdge(0);
    return true;
}

void GLMovieTexture::updateYUV(AVFrame const* frame)
{
    for (int index = 0; index < _planeCount; ++index) {
        copyPlane(index, frame);
        repeatEdge(index);
    }
}

void GLMovieTexture::updateYUV420PtoRGB(AVFrame const* frame)
{
    YuvToRgb const conversion(GLMovieColourSpace::fromFrame(frame));
    int const width = _planeWidth[0];
    int const height = _planeHeight[0];
    int const chromaWidth = (width + 1) / 2;
    int const chromaHeight = (height + 1) / 2;
    std::vector<unsigned char> u(static_cast<size_t>(chromaWidth) * 2);
    std::vector<unsigned char> v(u.size());
    for (int y = 0; y < height; ++y) {
        int const near = y / 2;
        int const far = std::clamp(y % 2 == 0 ? near - 1 : near + 1, 0, chromaHeight - 1);
        YuvToRgb::widenChroma(frameRow(frame, 1, near), frameRow(frame, 1, far), chromaWidth, width, u.data());
        YuvToRgb::widenChroma(frameRow(frame, 2, near), frameRow(frame, 2, far), chromaWidth, width, v.data());
        conversion.convertRow({frameRow(frame, 0, y), u.data(), v.data()}, width, row(0, y), _bytesPerPixel);
    }
}

void GLMovieTexture::updateYUV444PtoRGB(AVFrame const* frame)
{
    YuvToRgb const conversion(GLMovieColourSpace::fromFrame(frame));
    for (int y = 0; y < _planeHeight[0]; ++y)
        conversion.convertRow({frameRow(frame, 0, y), frameRow(frame, 1, y), frameRow(frame, 2, y)}, _planeWidth[0],
                              row(0, y), _bytesPerPixel);
}

void GLMovieTexture::updateRGB24toRGB(AVFrame const* frame)
{
    copyPlane(0, frame);
}

void GLMovieTexture::updateRGB24toRGBA(AVFrame const* frame)
{
    for (int y = 0; y < _planeHeight[0]; ++y) {
        unsigned char const* source = frameRow(frame, 0, y);
        unsigned char* target = row(0, y);
        for (int x = 0; x < _planeWidth[0]; ++x, source += 3, target += 4) {
            std::copy_n(source, 3, target);
            target[3] = 255;
        }
    }
}

void GLMovieTexture::copyPlane(int index, AVFrame const* frame)
{
    size_t const i = static_cast<size_t>(index);
    size_t const rowBytes = static_cast<size_t>(_planeWidth[i]) * static_cast<size_t>(_bytesPerPixel);
    bool const sameSize = _planeWidth[i] == _textureWidth[i] && _planeHeight[i] == _textureHeight[i];
    if (sameSize && frame->linesize[i] > 0 && static_cast<size_t>(frame->linesize[i]) == rowBytes) {
        std::memcpy(_planes[i].data(), frame->data[i], rowBytes * static_cast<size_t>(_planeHeight[i]));
        return;
    }
    for (int y = 0; y < _planeHeight[i]; ++y)
        std::memcpy(row(index, y), frameRow(frame, index, y), rowBytes);
}

void GLMovieTexture::repeatEdge(int index)
{
    size_t const i = static_cast<size_t>(index);
    size_t const pixel = static_cast<size_t>(_bytesPerPixel);
    size_t const rowBytes = static_cast<size_t>(_textureWidth[i]) * pixel;
    if (_textureWidth[i] > _planeWidth[i])
        for (int y = 0; y < _planeHeight[i]; ++y) {
            unsigned char* const behind = row(index, y) + static_cast<size_t>(_planeWidth[i]) * pixel;
            std::memcpy(behind, behind - pixel, pixel);
        }
    if (_textureHeight[i] > _planeHeight[i])
        std::memcpy(row(index, _planeHeight[i]), row(index, _planeHeight[i] - 1), rowBytes);
}

unsigned char* GLMovieTexture::row(int index, int y)
{
    size_t const i = static_cast<size_t>(index);
    return _planes[i].data() +
           static_cast<size_t>(y) * static_cast<size_t>(_textureWidth[i]) * static_cast<size_t>(_bytesPerPixel);
}

QByteArray GLMovieTexture::image()
{
    QMutexLocker const locker(&_mutex);
    if (_planeCount != 1)
        return {};
    QByteArray pixels(static_cast<qsizetype>(_planeWidth[0]) * _planeHeight[0] * 4, Qt::Uninitialized);
    char* target = pixels.data();
    for (int y = 0; y < _planeHeight[0]; ++y) {
        unsigned char const* source = row(0, y);
        for (int x = 0; x < _planeWidth[0]; ++x, source += _bytesPerPixel, target += 4) {
            target[0] = static_cast<char>(source[2]);
            target[1] = static_cast<char>(source[1]);
            target[2] = static_cast<char>(source[0]);
            target[3] = static_cast<char>(255);
        }
    }
    return pixels;
}

#include "moc_GLMovieTexture.cpp"

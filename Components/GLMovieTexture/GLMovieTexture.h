#pragma once

#include "GLMovieColourSpace.h"

extern "C" {
#include <libavutil/pixfmt.h>
}

#include <QByteArray>
#include <QMutex>
#include <QObject>

#include <algorithm>
#include <array>
#include <vector>

class Logger;
struct AVCodecContext;
struct AVFrame;

/// The newest picture of a film, in planes: what crosses from the decoder to the GL thread.
///
/// The video watcher overwrites the planes with update(); the GL thread uploads them between lock() and unlock().
/// There is no queue: a picture that was not painted in time is gone. No OpenGL call is made here.
///
/// Where the texture of a plane is larger than the plane, the plane's last column and row are repeated once behind
/// it, so that a filter at the edge finds no foreign colour.
class GLMovieTexture : public QObject
{
    Q_OBJECT

public:
    static constexpr int maximumPlanes = 3;
    static constexpr size_t padding = 64; ///< Bytes behind a plane that may be read along with its last ones.

    explicit GLMovieTexture(QObject* parent = nullptr);

    /// Allocates the planes for pictures of the decoder's size. Takes YUV 4:2:0, YUV 4:4:4, RGB24 and RGBA.
    /// Returns 0, or 1 for a format or size that it cannot hold.
    int create(AVCodecContext const* context, AVPixelFormat format);
    void destroy();

    void lock() { _mutex.lock(); }
    void unlock() { _mutex.unlock(); }

    /// Copies a picture of the created size into the planes and emits updated(). Its format is the created one; an
    /// RGB or RGBA texture takes YUV 4:2:0 and 4:4:4 too and converts them, RGBA also RGB24. Any other picture is
    /// refused with a log line. The colours may change from picture to picture. Any thread.
    void update(AVFrame const* frame, bool isKeyFrame);

    /// The current RGB picture as 4 bytes per pixel (blue, green, red, 255), rows top to bottom, no padding;
    /// empty for YUV. Locks by itself.
    QByteArray image();

    int planeCount() const { return _planeCount; }
    AVPixelFormat pixelFormat() const { return _pixelFormat; }
    unsigned int glFormat() const { return _glFormat; }
    int bytesPerPixel() const { return _bytesPerPixel; }

    /// The plane's bytes, textureWidth() times textureHeight() pixels and `padding` bytes. Between lock() and
    /// unlock() only.
    unsigned char const* plane(int index) const { return _planes[static_cast<size_t>(index)].data(); }
    int planeWidth(int index) const { return _planeWidth[static_cast<size_t>(index)]; }
    int planeHeight(int index) const { return _planeHeight[static_cast<size_t>(index)]; }
    int textureWidth(int index) const { return _textureWidth[static_cast<size_t>(index)]; }
    int textureHeight(int index) const { return _textureHeight[static_cast<size_t>(index)]; }

    /// The columns and rows that hold the plane and, where there is room, its repeated edge.
    int usedWidth(int index) const { return std::min(planeWidth(index) + 1, textureWidth(index)); }
    int usedHeight(int index) const { return std::min(planeHeight(index) + 1, textureHeight(index)); }

    /// What the numbers in YUV planes stand for; the default for RGB. Between lock() and unlock() only.
    GLMovieColourSpace colourSpace() const { return _colourSpace; }

    /// Counts pictures, so that a painter knows whether it has seen this one. Between lock() and unlock() only.
    quint64 generation() const { return _generation; }

signals:
    /// Emitted on the thread that called update().
    void updated(bool keyFrame);

private:
    int createYUV(AVCodecContext const* context);
    int createRGB(AVCodecContext const* context);
    void allocatePlane(int index, int width, int height);
    bool updatePlanes(AVFrame const* frame);
    void updateYUV(AVFrame const* frame);
    void updateYUV420PtoRGB(AVFrame const* frame);
    void updateYUV444PtoRGB(AVFrame const* frame);
    void updateRGB24toRGB(AVFrame const* frame);
    void updateRGB24toRGBA(AVFrame const* frame);
    void copyPlane(int index, AVFrame const* frame);
    void repeatEdge(int index);
    unsigned char* row(int index, int y);

    static Logger* log;

    QMutex _mutex; ///< Guards all down to _generation; the rest is fixed between create() and destroy().
    std::array<std::vector<unsigned char>, maximumPlanes> _planes;
    GLMovieColourSpace _colourSpace; ///< Of the picture in the planes.
    quint64 _generation = 0;

    std::array<int, maximumPlanes> _planeWidth{};
    std::array<int, maximumPlanes> _planeHeight{};
    std::array<int, maximumPlanes> _textureWidth{};
    std::array<int, maximumPlanes> _textureHeight{};
    AVPixelFormat _pixelFormat = AV_PIX_FMT_NONE;
    unsigned int _glFormat = 0;
    int _bytesPerPixel = 0;
    int _planeCount = 0;
    bool _refusalReported = false; ///< Guarded by _mutex.
};

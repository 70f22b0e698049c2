#pragma once

#include "GLMovieColourSpace.h"

#include <QOpenGLContext>
#include <QPointF>
#include <QPointer>
#include <QSize>

#include <array>

class GLMovieTexture;

/// The newest picture as OpenGL textures, one per plane: what GLMovieTexture holds, on the graphics card.
///
/// GL thread with a current context; the destructor finds its context by itself.
class GLMovieVideoTexture
{
public:
    GLMovieVideoTexture() = default;
    ~GLMovieVideoTexture();
    GLMovieVideoTexture(GLMovieVideoTexture const&) = delete;
    GLMovieVideoTexture& operator=(GLMovieVideoTexture const&) = delete;

    /// Uploads the planes, unless their picture is here already. All planes are taken under one lock, so that they
    /// are of one picture.
    void updateVideoTexture(GLMovieTexture& texture);

    /// Binds every plane to its unit, 0 to 2. With `pixelExact`, pixels are taken as they are; otherwise they are
    /// smoothed. The chroma of 4:2:0 always is, unless setSmoothChroma() says otherwise.
    void bindVideoTexture(bool pixelExact);

    /// Whether chroma is smoothed between its samples where the picture is drawn pixel by pixel. Starts true.
    void setSmoothChroma(bool smooth) { _smoothChroma = smooth; }

    /// Has the next updateVideoTexture() upload in any case: the picture may be of another film.
    void forgetPicture() { _generation = 0; }

    /// Deletes the textures.
    void destroy();

    bool hasPicture() const { return _planeCount > 0; }
    bool isYUV() const { return _planeCount > 1; }
    int planeCount() const { return _planeCount; }
    GLMovieColourSpace colourSpace() const { return _colourSpace; }
    QSize pictureSize() const { return _pictureSize; }
    unsigned int handle(int plane) const { return _planes[static_cast<size_t>(plane)].texture; }

    /// The texture coordinates in a plane of a point of the picture, (0, 0) to (1, 1).
    QPointF textureCoordinates(int plane, QPointF const& point) const;

private:
    struct Plane {
        unsigned int texture = 0;
        QSize size;         ///< Allocated.
        QPointF far;        ///< Texture coordinates of the picture's far corner.
        bool exact = false; ///< The filter that is set: nearest, not linear.
        bool halved = false;
    };

    bool matches(GLMovieTexture const& texture) const;
    void createTextures(GLMovieTexture const& texture);
    void updateTexture(int plane, bool multi, GLMovieTexture const& texture);
    static void selectUnit(int plane, bool multi);

    std::array<Plane, 3> _planes;
    QPointer<QOpenGLContext> _context; ///< Where the textures live.
    QSize _pictureSize;
    GLMovieColourSpace _colourSpace; ///< Of the picture uploaded last.
    int _planeCount = 0;
    unsigned int _format = 0;
    bool _smoothChroma = true;
    quint64 _generation = 0; ///< Of the picture uploaded last; 0 for none.
};

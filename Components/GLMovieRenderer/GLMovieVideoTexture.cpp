#include "GLMovieVideoTexture.h"

#include "GLARBMultiTexture.h"
#include "GLContextScope.h"
#include "GLMovieTexture.h"

#include <mutex>
#include <qopengl.h>

GLMovieVideoTexture::~GLMovieVideoTexture()
{
    destroy();
}

void GLMovieVideoTexture::updateVideoTexture(GLMovieTexture& texture)
{
    if (!matches(texture)) {
        destroy();
        createTextures(texture);
    }
    std::lock_guard const lock(texture);
    if (texture.generation() == _generation)
        return;
    _generation = texture.generation();
    _colourSpace = texture.colourSpace();
    bool const multi = isYUV();
    for (int plane = _planeCount - 1; plane >= 0; --plane)
        updateTexture(plane, multi, texture);
}

bool GLMovieVideoTexture::matches(GLMovieTexture const& texture) const
{
    if (_planeCount != texture.planeCount() || _format != texture.glFormat() ||
        _pictureSize != QSize(texture.planeWidth(0), texture.planeHeight(0)) || !_context ||
        !QOpenGLContext::areSharing(_context, QOpenGLContext::currentContext()))
        return false;
    for (int plane = 0; plane < _planeCount; ++plane)
        if (_planes[static_cast<size_t>(plane)].size !=
            QSize(texture.textureWidth(plane), texture.textureHeight(plane)))
            return false;
    return true;
}

void GLMovieVideoTexture::createTextures(GLMovieTexture const& texture)
{
    _context = QOpenGLContext::currentContext();
    _planeCount = texture.planeCount();
    _format = texture.glFormat();
    _pictureSize = QSize(texture.planeWidth(0), texture.planeHeight(0));
    for (int index = _planeCount - 1; index >= 0; --index) {
        Plane& plane = _planes[static_cast<size_t>(index)];
        plane = Plane();
        plane.size = QSize(texture.textureWidth(index), texture.textureHeight(index));
        plane.halved =
            texture.planeWidth(index) != _pictureSize.width() || texture.planeHeight(index) != _pictureSize.height();
        // Half of an odd side ends amid the plane's last sample.
        double const scale = plane.halved ? 0.5 : 1.0;
        plane.far = QPointF(scale * _pictureSize.width() / plane.size.width(),
                            scale * _pictureSize.height() / plane.size.height());
        glGenTextures(1, &plane.texture);
        selectUnit(index, isYUV());
        glBindTexture(GL_TEXTURE_2D, plane.texture);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
        glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(_format), plane.size.width(), plane.size.height(), 0,
                     _format, GL_UNSIGNED_BYTE, nullptr);
    }
}

void GLMovieVideoTexture::updateTexture(int plane, bool multi, GLMovieTexture const& texture)
{
    int const rowLength = texture.textureWidth(plane);
    int const width = texture.usedWidth(plane);
    selectUnit(plane, multi);
    glBindTexture(GL_TEXTURE_2D, handle(plane));
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, width == rowLength ? 0 : rowLength);
    glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, width, texture.usedHeight(plane), _format, GL_UNSIGNED_BYTE,
                    texture.plane(plane));
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
}

void GLMovieVideoTexture::bindVideoTexture(bool pixelExact)
{
    for (int index = _planeCount - 1; index >= 0; --index) {
        Plane& plane = _planes[static_cast<size_t>(index)];
        selectUnit(index, isYUV());
        glBindTexture(GL_TEXTURE_2D, plane.texture);
        bool const exact = pixelExact && !(plane.halved && _smoothChroma);
        if (exact == plane.exact)
            continue;
        plane.exact = exact;
        GLint const filter = exact ? GL_NEAREST : GL_LINEAR;
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, filter);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, filter);
    }
}

void GLMovieVideoTexture::selectUnit(int plane, bool multi)
{
    if (multi)
        GLARBMultiTexture::instance()->activeTexture(GL_TEXTURE0 + static_cast<unsigned int>(plane));
}

QPointF GLMovieVideoTexture::textureCoordinates(int plane, QPointF const& point) const
{
    QPointF const& far = _planes[static_cast<size_t>(plane)].far;
    return QPointF(point.x() * far.x(), point.y() * far.y());
}

void GLMovieVideoTexture::destroy()
{
    if (_planeCount > 0) {
        GLContextScope const scope(_context);
        if (scope.isCurrent())
            for (Plane const& plane : _planes)
                if (plane.texture)
                    glDeleteTextures(1, &plane.texture);
    }
    _planes = {};
    _planeCount = 0;
    _pictureSize = QSize();
    _generation = 0;
}

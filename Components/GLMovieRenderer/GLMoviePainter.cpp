#include "GLMoviePainter.h"

#include "GLARBMultiTexture.h"
#include "GLMovieQuad.h"
#include "GLMovieTexture.h"
#include "GLMovieWindowMap.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <mutex>
#include <qopengl.h>

Logger* GLMoviePainter::log = LoggerManager::logger();

namespace
{
/// Calls corner(picture point, x, y) for the four corners of a quad.
template<typename Corner>
void forEachCorner(GLMovieQuad const& quad, Corner corner)
{
    corner(quad.part.topLeft(), quad.left, quad.top);
    corner(quad.part.topRight(), quad.right, quad.top);
    corner(quad.part.bottomRight(), quad.right, quad.bottom);
    corner(quad.part.bottomLeft(), quad.left, quad.bottom);
}

/// Draws a quad with one texture on unit 0 by the fixed functions. Alpha comes from the vertex colour alone, as on
/// the other ways: a picture or a shader that has one of its own does not make the window translucent.
template<typename TextureCoordinates>
void drawTextured(GLMovieQuad const& quad, TextureCoordinates coordinates)
{
    glEnable(GL_TEXTURE_2D);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_COMBINE);
    glTexEnvi(GL_TEXTURE_ENV, GL_COMBINE_RGB, GL_REPLACE);
    glTexEnvi(GL_TEXTURE_ENV, GL_SOURCE0_RGB, GL_TEXTURE);
    glTexEnvi(GL_TEXTURE_ENV, GL_COMBINE_ALPHA, GL_REPLACE);
    glTexEnvi(GL_TEXTURE_ENV, GL_SOURCE0_ALPHA, GL_PRIMARY_COLOR);
    glBegin(GL_QUADS);
    forEachCorner(quad, [&](QPointF const& point, double x, double y) {
        QPointF const texel = coordinates(point);
        glTexCoord2d(texel.x(), texel.y());
        glVertex3d(x, y, quad.z);
    });
    glEnd();
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
}
} // namespace

void GLMoviePainter::updateVideoTexture(GLMovieTexture& texture)
{
    _texture.updateVideoTexture(texture);
    if (_postProcessor.isActive())
        _postProcessor.createFrameBufferObjects(_texture.pictureSize());
    if (_texture.isYUV())
        GLARBMultiTexture::instance()->activeTexture(GL_TEXTURE0);
}

QPolygonF GLMoviePainter::draw(GLMovieQuad const& quad, double opacity)
{
    if (!hasPicture() || opacity <= 0.0 || quad.part.isEmpty())
        return {};
    if (_texture.isYUV() && !hasColourConversion()) {
        if (!_missingProgramReported)
            LOG_ERROR("There is no colour conversion program to draw the picture with");
        _missingProgramReported = true;
        return {};
    }
    GLMovieWindowMap const map;
    bool const pixelExact = map.isPixelExact(quad, _texture.pictureSize());
    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_CURRENT_BIT);
    if (_postProcessor.isActive() && _postProcessor.createFrameBufferObjects(_texture.pictureSize()))
        drawPostProcessed(quad, opacity, pixelExact);
    else
        drawPicture(quad, opacity, pixelExact);
    glPopAttrib();
    return map.map(quad);
}

void GLMoviePainter::beginOpacity(double opacity)
{
    glColor4d(1.0, 1.0, 1.0, opacity);
    if (opacity >= 1.0) {
        glDisable(GL_BLEND);
        return;
    }
    // The window stays opaque where the picture lets the background through.
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void GLMoviePainter::drawPicture(GLMovieQuad const& quad, double opacity, bool pixelExact)
{
    beginOpacity(opacity);
    _texture.bindVideoTexture(pixelExact);
    if (_texture.isYUV())
        drawYUV(quad);
    else
        drawRGB(quad);
}

void GLMoviePainter::drawYUV(GLMovieQuad const& quad)
{
    _programs.begin(_texture.colourSpace());
    GLARBMultiTexture const& gl = *GLARBMultiTexture::instance();
    glBegin(GL_QUADS);
    forEachCorner(quad, [&](QPointF const& point, double x, double y) {
        for (int plane = 0; plane < _texture.planeCount(); ++plane) {
            QPointF const texel = _texture.textureCoordinates(plane, point);
            gl.multiTexCoord2f(GL_TEXTURE0 + static_cast<unsigned int>(plane), static_cast<float>(texel.x()),
                               static_cast<float>(texel.y()));
        }
        glVertex3d(x, y, quad.z);
    });
    glEnd();
    _programs.end();
}

void GLMoviePainter::drawRGB(GLMovieQuad const& quad) const
{
    drawTextured(quad, [this](QPointF const& point) { return _texture.textureCoordinates(0, point); });
}

void GLMoviePainter::drawPostProcessed(GLMovieQuad const& quad, double opacity, bool pixelExact)
{
    QSize const size = _texture.pictureSize();
    GLMovieQuad const whole{.right = static_cast<double>(size.width()), .bottom = static_cast<double>(size.height())};
    _postProcessor.beginRenderToTexture(0);
    drawPicture(whole, 1.0, true);
    _postProcessor.endRenderToTexture();
    _postProcessor.postProcess();

    beginOpacity(opacity);
    glBindTexture(GL_TEXTURE_2D, _postProcessor.texture());
    GLint const filter = pixelExact ? GL_NEAREST : GL_LINEAR;
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, filter);
    QPointF const far = _postProcessor.farCorner();
    drawTextured(quad, [&far](QPointF const& point) { return QPointF(point.x() * far.x(), point.y() * far.y()); });
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glBindTexture(GL_TEXTURE_2D, 0);
}

void GLMoviePainter::drawWithDrawPixels(GLMovieTexture& texture, double x, double y, double scaleX, double scaleY)
{
    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_CURRENT_BIT | GL_PIXEL_MODE_BIT);
    glDisable(GL_BLEND);
    glRasterPos3f(static_cast<float>(x), static_cast<float>(y), 0.0F);
    glPixelZoom(static_cast<float>(scaleX), static_cast<float>(-scaleY)); // Rows run downward.
    glDisable(GL_TEXTURE_2D);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    {
        std::lock_guard const lock(texture);
        glPixelStorei(GL_UNPACK_ROW_LENGTH, texture.textureWidth(0));
        glDrawPixels(texture.planeWidth(0), texture.planeHeight(0), texture.glFormat(), GL_UNSIGNED_BYTE,
                     texture.plane(0));
    }
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glPixelZoom(1.0F, 1.0F);
    glPopAttrib();
}

// From the movie's texture to the screen.

#include "GLMovie.h"
#include "GLMovieOverlay.h"
#include "GLMovieQuad.h"
#include "GLMovieRenderer.h"
#include "GLMovieScaler.h"
#include "GLMovieTexture.h"
#include "Logger.h"

#include <QImage>

#include <algorithm>
#include <mutex>
#include <qopengl.h>

namespace
{
/// Fits a picture into a rectangle, and cuts off what exceeds it.
GLMovieQuad quadFor(QRectF const& picture, QRectF const& target)
{
    QRectF const shown = picture.intersected(target);
    GLMovieQuad quad{shown.left(), shown.top(), shown.right(), shown.bottom(), 0.0, {}};
    quad.part =
        QRectF((shown.left() - picture.left()) / picture.width(), (shown.top() - picture.top()) / picture.height(),
               shown.width() / picture.width(), shown.height() / picture.height());
    return quad;
}

bool hasPictureIn(GLMovieTexture& texture)
{
    std::lock_guard const lock(texture);
    return texture.generation() > 0;
}
} // namespace

bool GLMovieRenderer::canDraw() const
{
    return _movie && _movie->isOpened() && !_movie->isClosing();
}

void GLMovieRenderer::setColourConversionFragmentProgram(unsigned int program)
{
    _painter.setColourConversionFragmentProgram(program);
}

void GLMovieRenderer::setColourConversionShaderProgram(unsigned int program)
{
    _painter.setColourConversionShaderProgram(program);
}

bool GLMovieRenderer::postProcessingEnabled() const
{
    return _painter.postProcessor().isEnabled();
}

void GLMovieRenderer::setPostProcessingEnabled(bool enabled)
{
    _painter.postProcessor().setEnabled(enabled);
    emit pictureUpdated(this);
}

void GLMovieRenderer::addPostProcessingShaderProgram(unsigned int program)
{
    _painter.postProcessor().addProgram(program);
}

void GLMovieRenderer::removePostProcessingShaderProgram(unsigned int program)
{
    _painter.postProcessor().removeProgram(program);
}

void GLMovieRenderer::clearPostProcessingShaderPrograms()
{
    _painter.postProcessor().clearPrograms();
}

void GLMovieRenderer::updateVideoTexture()
{
    if (!canDraw() || !_movie->hasVideo() || _movie->width() <= 0 || _movie->height() <= 0)
        return;
    if (GLMovieTexture* const texture = _movie->texture())
        _painter.updateVideoTexture(*texture);
}

void GLMovieRenderer::drawVideoOrthoMode(int x, int y, int width, int height, GLMovieRenderer::DrawMode mode)
{
    if (!canDraw())
        return;
    QRectF const target(x, y, width, height);
    QRectF shown = target;
    if (_movie->texture() && _painter.hasPicture()) {
        QRectF const rectangle = computeVideoRectangle(target, movieSize(), aspectRatio(), mode);
        if (rectangle.isEmpty())
            return;
        shown = rectangle.intersected(target);
        calculateVideoWindowCoordinates(_painter.draw(quadFor(rectangle, target), visibleOpacity()));
    }
    drawVideoOverlay(shown);
}

bool GLMovieRenderer::isPlain() const
{
    if (!canDraw())
        return true;
    GLMovieTexture* const texture = _movie->texture();
    return texture && GLMovieScaler::isFast(texture->pixelFormat()) && visibleOpacity() >= 1.0 && !showsOverlay() &&
           !_painter.postProcessor().isActive();
}

std::optional<GLMoviePicture> GLMovieRenderer::plainPicture(QRect const& area, GLMovieRenderer::DrawMode mode)
{
    GLMovieTexture* const texture = canDraw() ? _movie->texture() : nullptr;
    if (!texture || !hasPictureIn(*texture))
        return {};
    QRect const rectangle = computeVideoRectangle(area, movieSize(), aspectRatio(), mode).toRect();
    QRect const visible = rectangle.intersected(area);
    if (visible.isEmpty())
        return {};
    calculateVideoWindowCoordinates(QRectF(visible));
    return GLMoviePicture{.texture = texture, .rectangle = rectangle, .visible = visible};
}

void GLMovieRenderer::drawVideoPerspectiveMode(double x, double y, double width, double height, bool keepAspect,
                                               double z)
{
    if (!canDraw() || !_movie->texture() || width <= 0.0 || height <= 0.0)
        return;
    double const aspect = aspectRatio();
    if (keepAspect && aspect > 0.0) {
        double const fittedWidth = std::min(width, height * aspect);
        double const fittedHeight = fittedWidth / aspect;
        x += (width - fittedWidth) / 2.0;
        y += (height - fittedHeight) / 2.0;
        width = fittedWidth;
        height = fittedHeight;
    }
    GLMovieQuad const quad{.left = x, .top = y + height, .right = x + width, .bottom = y, .z = z};
    calculateVideoWindowCoordinates(_painter.draw(quad, visibleOpacity()));
}

bool GLMovieRenderer::exceedsTextures() const
{
    GLMovieTexture const* const texture = canDraw() ? _movie->texture() : nullptr;
    if (!texture)
        return false;
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    return std::max(texture->textureWidth(0), texture->textureHeight(0)) > largest;
}

void GLMovieRenderer::drawVideoWithDrawPixels(int x, int y, int width, int height)
{
    GLMovieTexture* const texture = canDraw() ? _movie->texture() : nullptr;
    if (!texture || width <= 0 || height <= 0)
        return;
    QSize const size(texture->planeWidth(0), texture->planeHeight(0));
    double const aspect = aspectRatio() > 0.0 ? aspectRatio() : static_cast<double>(size.width()) / size.height();
    double const fittedWidth = std::min<double>(width, height * aspect);
    double const fittedHeight = fittedWidth / aspect;
    GLMoviePainter::drawWithDrawPixels(*texture, x + (width - fittedWidth) * 0.5, y + (height - fittedHeight) * 0.5,
                                       fittedWidth / size.width(), fittedHeight / size.height());
}

bool GLMovieRenderer::showsOverlay() const
{
    return _overlay && (!_hasPicture || !_videoMessage.isEmpty());
}

void GLMovieRenderer::drawVideoOverlay(QRectF const& rectangle)
{
    if (showsOverlay() && !rectangle.isEmpty())
        _overlay->draw(rectangle, _opacity);
}

void GLMovieRenderer::calculateVideoWindowCoordinates(QPolygonF const& corners)
{
    _windowCoordinates = corners;
}

bool GLMovieRenderer::hitTest(QPointF point) const
{
    return _windowCoordinates.containsPoint(point, Qt::OddEvenFill);
}

bool GLMovieRenderer::dumpTextureToDisk(unsigned int texture, QString const& path) const
{
    GLint width = 0;
    GLint height = 0;
    GLint luminance = 0;
    glBindTexture(GL_TEXTURE_2D, texture);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &height);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_LUMINANCE_SIZE, &luminance);
    QImage image(width, height, luminance > 0 ? QImage::Format_Grayscale8 : QImage::Format_RGBA8888);
    if (!image.isNull()) {
        glPixelStorei(GL_PACK_ALIGNMENT, 4); // As the rows of a QImage are.
        glGetTexImage(GL_TEXTURE_2D, 0, luminance > 0 ? GL_LUMINANCE : GL_RGBA, GL_UNSIGNED_BYTE, image.bits());
    }
    glBindTexture(GL_TEXTURE_2D, 0);
    if (!image.isNull() && image.save(path))
        return true;
    LOG_WARNING("Could not write texture %u to %s", texture, qPrintable(path));
    return false;
}

#include "GLCanvas.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

GLCanvas::GLCanvas(QObject* parent) : QObject(parent)
{
    _fade.setEasing(QEasingCurve::OutCubic);
    connect(&_fade, &GLAnimation::valueChanged, this, &GLCanvas::onFadeValueChanged);
    connect(&_fade, &GLAnimation::completed, this, &GLCanvas::onFadeCompleted);
}

GLCanvas::~GLCanvas() = default;

void GLCanvas::setGeometry(QRectF const& geometry)
{
    if (geometry == _geometry)
        return;
    _geometry = geometry;
    if (_visible)
        emit changed();
}

QRectF GLCanvas::drawnGeometry() const
{
    auto const onPixel = [this](double place) { return std::round(place * _scale) / _scale; };
    return {QPointF(onPixel(_geometry.left()), onPixel(_geometry.top())),
            QPointF(onPixel(_geometry.right()), onPixel(_geometry.bottom()))};
}

void GLCanvas::setOpacity(double opacity)
{
    _fade.stop();
    _opacity = std::clamp(opacity, 0.0, 1.0);
    if (_visible)
        emit changed();
}

void GLCanvas::setTexture(GLTexture* texture)
{
    _texture = texture;
    _image = {};
    _imageTexture.destroy();
}

void GLCanvas::setImage(QImage const& image)
{
    _texture = nullptr;
    _image = image;
    if (_visible)
        emit changed();
}

void GLCanvas::setVisible(bool visible)
{
    if (visible == _visible)
        return;
    _visible = visible;
    emit visibilityChanged(visible);
    emit changed();
}

void GLCanvas::fadeIn(int milliseconds)
{
    if (_visible && _fadesIn && (isFading() || _opacity >= 1.0))
        return; // It is there, or on the way.
    if (!_visible)
        _opacity = 0.0;
    _fadesIn = true;
    setVisible(true);
    _fade.start(_opacity, 1.0, milliseconds);
}

void GLCanvas::fadeOut(int milliseconds)
{
    if (!_visible || (isFading() && !_fadesIn))
        return;
    _fadesIn = false;
    _fade.start(_opacity, 0.0, milliseconds);
}

bool GLCanvas::hitTest(QPointF point) const
{
    return _visible && point.x() >= _geometry.left() && point.x() < _geometry.right() &&
           point.y() >= _geometry.top() && point.y() < _geometry.bottom();
}

void GLCanvas::render(double opacity) const
{
    double const alpha = opacity * _opacity;
    if (!_visible || alpha <= 0.0)
        return;
    if (!_image.isNull() && (_texturedImage != _image.cacheKey() || _imageTexture.isLost())) {
        _imageTexture.create(_image);
        _texturedImage = _image.cacheKey();
    }
    GLTexture const* const texture = _image.isNull() ? _texture : &_imageTexture;
    if (!texture || !texture->created())
        return;
    double const u = texture->maxU();
    double const v = texture->maxV();
    QRectF const area = drawnGeometry();
    glBindTexture(GL_TEXTURE_2D, texture->handle());
    glColor4d(alpha, alpha, alpha, alpha);
    glBegin(GL_QUADS);
    glTexCoord2d(0.0, 0.0);
    glVertex2d(area.left(), area.top());
    glTexCoord2d(u, 0.0);
    glVertex2d(area.right(), area.top());
    glTexCoord2d(u, v);
    glVertex2d(area.right(), area.bottom());
    glTexCoord2d(0.0, v);
    glVertex2d(area.left(), area.bottom());
    glEnd();
}

void GLCanvas::paint(QPainter& painter, double opacity) const
{
    double const alpha = opacity * _opacity;
    if (!_visible || _image.isNull() || alpha <= 0.0)
        return;
    painter.setOpacity(alpha);
    painter.drawImage(drawnGeometry(), _image);
}

void GLCanvas::onFadeValueChanged(GLAnimation* fade)
{
    _opacity = fade->value();
    if (_visible)
        emit changed();
}

void GLCanvas::onFadeCompleted(GLAnimation*)
{
    if (_opacity <= 0.0)
        setVisible(false);
}

#include "GLCanvas.h"

#include "GLTexture.h"

#include <algorithm>

GLCanvas::GLCanvas(QObject* parent) : QObject(parent)
{
    connect(&_fade, &GLAnimation::valueChanged, this, &GLCanvas::onFadeValueChanged);
    connect(&_fade, &GLAnimation::completed, this, &GLCanvas::onFadeCompleted);
}

GLCanvas::~GLCanvas() = default;

void GLCanvas::setOpacity(double opacity)
{
    _fade.stop();
    _opacity = std::clamp(opacity, 0.0, 1.0);
}

void GLCanvas::setTexture(GLTexture* texture)
{
    _texture = texture;
}

void GLCanvas::setVisible(bool visible)
{
    if (visible == _visible)
        return;
    _visible = visible;
    emit visibilityChanged(visible);
}

void GLCanvas::fadeIn(int milliseconds)
{
    if (!_visible)
        _opacity = 0.0;
    setVisible(true);
    _fade.start(_opacity, 1.0, milliseconds);
}

void GLCanvas::fadeOut(int milliseconds)
{
    if (_visible)
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
    if (!_visible || !_texture || !_texture->created() || alpha <= 0.0)
        return;
    double const u = _texture->maxU();
    double const v = _texture->maxV();
    glBindTexture(GL_TEXTURE_2D, _texture->handle());
    glColor4d(alpha, alpha, alpha, alpha);
    glBegin(GL_QUADS);
    glTexCoord2d(0.0, 0.0);
    glVertex2d(_geometry.left(), _geometry.top());
    glTexCoord2d(u, 0.0);
    glVertex2d(_geometry.right(), _geometry.top());
    glTexCoord2d(u, v);
    glVertex2d(_geometry.right(), _geometry.bottom());
    glTexCoord2d(0.0, v);
    glVertex2d(_geometry.left(), _geometry.bottom());
    glEnd();
}

void GLCanvas::onFadeValueChanged(GLAnimation* fade)
{
    _opacity = fade->value();
}

void GLCanvas::onFadeCompleted(GLAnimation*)
{
    if (_opacity <= 0.0)
        setVisible(false);
}

#include "GLPaintedControl.h"

#include <QGuiApplication>
#include <QPainter>

GLPaintedControl::GLPaintedControl(QString const& name, GLControlStyle const& style, QObject* parent)
    : GLControl(name, parent), _style(style)
{
}

void GLPaintedControl::setEnabled(bool enabled)
{
    if (enabled == isEnabled())
        return;
    GLControl::setEnabled(enabled);
    update();
}

void GLPaintedControl::setFocused(bool focused, bool shown)
{
    GLControl::setFocused(focused, shown);
    update();
}

void GLPaintedControl::update()
{
    _isOutdated = true;
    if (isVisible())
        emit changed();
}

void GLPaintedControl::recalcLayout(double scale)
{
    _isOutdated |= scale != this->scale();
    GLControl::recalcLayout(scale);
}

bool GLPaintedControl::isMirrored()
{
    return QGuiApplication::layoutDirection() == Qt::RightToLeft;
}

void GLPaintedControl::updateImage()
{
    QSizeF const size = drawnGeometry().size();
    QSize const pixels = QSizeF(size * scale()).toSize();
    if (!_isOutdated && image().size() == pixels)
        return;
    _isOutdated = false;
    QImage painted(pixels.expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    painted.fill(Qt::transparent);
    QPainter painter(&painted);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(QGuiApplication::layoutDirection());
    painter.scale(scale(), scale());
    painter.setFont(_style.font);
    draw(painter, size);
    painter.end();
    QSignalBlocker const quiet(this); // It is being drawn already.
    setImage(painted);
}

void GLPaintedControl::render(double opacity)
{
    if (isVisible())
        updateImage();
    GLControl::render(opacity);
}

void GLPaintedControl::paint(QPainter& painter, double opacity)
{
    if (isVisible())
        updateImage();
    GLControl::paint(painter, opacity);
}

void GLPaintedControl::drawFocus(QPainter& painter, QRectF const& rectangle) const
{
    if (!showsFocus())
        return;
    double const inset = _style.stroke / 2.0;
    painter.setPen(QPen(_style.accent, _style.stroke));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rectangle.adjusted(inset, inset, -inset, -inset), _style.radius, _style.radius);
}

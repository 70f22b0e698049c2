#include "PaletteIconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <QWidget>

namespace
{

QColor colourOf(QPalette const& palette, QIcon::Mode mode)
{
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::WindowText);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    default:
        return palette.color(QPalette::Active, QPalette::WindowText);
    }
}

} // namespace

QImage PaletteIconEngine::draw(QString const& path, QSize const& pixels, QColor const& colour)
{
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(path);
    if (!renderer.isValid())
        return image;
    QRectF square(QPointF(), renderer.defaultSize().scaled(pixels, Qt::KeepAspectRatio));
    square.moveCenter(QRectF(image.rect()).center());
    QPainter painter(&image);
    renderer.render(&painter, square);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), colour);
    return image;
}

QPixmap PaletteIconEngine::cached(QString const& path, QSize const& pixels, QColor const& colour)
{
    QString const name =
        QStringLiteral("%1 %2x%3 %4").arg(path).arg(pixels.width()).arg(pixels.height()).arg(colour.rgba());
    QPixmap pixmap;
    if (!QPixmapCache::find(name, &pixmap)) {
        pixmap = QPixmap::fromImage(draw(path, pixels, colour));
        QPixmapCache::insert(name, pixmap);
    }
    return pixmap;
}

void PaletteIconEngine::paint(QPainter* painter, QRect const& rect, QIcon::Mode mode, QIcon::State)
{
    qreal const ratio = painter->device()->devicePixelRatioF();
    auto const* const widget = dynamic_cast<QWidget*>(painter->device());
    QPixmap pixmap = cached(_path, (QSizeF(rect.size()) * ratio).toSize(),
                            colourOf(widget ? widget->palette() : QPalette(), mode));
    pixmap.setDevicePixelRatio(ratio);
    painter->drawPixmap(rect.topLeft(), pixmap);
}

QPixmap PaletteIconEngine::pixmap(QSize const& size, QIcon::Mode mode, QIcon::State state)
{
    return scaledPixmap(size, mode, state, 1.0);
}

QPixmap PaletteIconEngine::scaledPixmap(QSize const& size, QIcon::Mode mode, QIcon::State, qreal scale)
{
    // The size is in pixels already; the scale tells what they are for.
    QPixmap pixmap = cached(_path, size, colourOf(QGuiApplication::palette(), mode));
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

QSize PaletteIconEngine::actualSize(QSize const& size, QIcon::Mode, QIcon::State)
{
    return size;
}

#pragma once

#include <QColor>
#include <QIconEngine>
#include <QImage>
#include <QPixmap>

/// Draws an icon from vectors of one colour, in the colours of the application's palette, or of the widget on which
/// it is painted directly. Main thread only.
class PaletteIconEngine : public QIconEngine
{
public:
    explicit PaletteIconEngine(QString const& path) : _path(path) {}

    void paint(QPainter* painter, QRect const& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(QSize const& size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(QSize const& size, QIcon::Mode mode, QIcon::State state, qreal scale) override;
    QSize actualSize(QSize const& size, QIcon::Mode mode, QIcon::State state) override;
    QString key() const override { return QStringLiteral("PaletteIconEngine"); }
    QIconEngine* clone() const override { return new PaletteIconEngine(_path); }

    /// The vectors in a colour, as large as fits into so many pixels. Transparent if there are none.
    static QImage draw(QString const& path, QSize const& pixels, QColor const& colour);

    /// The same, drawn once as long as it is in use.
    static QPixmap cached(QString const& path, QSize const& pixels, QColor const& colour);

private:
    QString const _path;
};

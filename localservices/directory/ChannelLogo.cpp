#include "ChannelLogo.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <numbers>

namespace
{
constexpr int signCount = 6;
constexpr int cells = 5; ///< Of the strip at the foot, which tells ids apart that have the same sign.

QPointF onCircle(double turn, double radius)
{
    double const angle = turn * 2 * std::numbers::pi;
    return {64 + radius * std::sin(angle), 54 - radius * std::cos(angle)};
}

QPainterPath star(int points, double inner, double outer)
{
    QPainterPath path(onCircle(0, outer));
    for (int i = 1; i < 2 * points; ++i)
        path.lineTo(onCircle(i / (2.0 * points), i % 2 ? inner : outer));
    path.closeSubpath();
    return path;
}

QPainterPath signOf(unsigned number)
{
    QPainterPath path;
    switch (number % signCount) {
    case 0: // A triangle that plays.
        path.addPolygon(QPolygonF({{44, 22}, {96, 54}, {44, 86}, {44, 22}}));
        return path;
    case 1: // A ring.
        path.addEllipse(QPointF(64, 54), 36, 36);
        path.addEllipse(QPointF(64, 54), 20, 20);
        return path;
    case 2: // Bars, as of sound.
        for (int i = 0; i < 4; ++i)
            path.addRoundedRect(QRectF(30 + 19 * i, 80 - 17 * (1 + (i * 2 + 1) % 4), 12, 17 * (1 + (i * 2 + 1) % 4)),
                                4, 4);
        return path;
    case 3:
        return star(5, 17, 38);
    case 4:
        return star(4, 14, 40);
    default: // Waves.
        for (int i = 0; i < 3; ++i) {
            path.moveTo(24, 36 + 20 * i);
            path.cubicTo(44, 12 + 20 * i, 84, 60 + 20 * i, 104, 36 + 20 * i);
            path.lineTo(104, 44 + 20 * i);
            path.cubicTo(84, 68 + 20 * i, 44, 20 + 20 * i, 24, 44 + 20 * i);
        }
        return path;
    }
}
} // namespace

QImage ChannelLogo::draw(QString const& id)
{
    QByteArray const sum = QCryptographicHash::hash(id.toUtf8(), QCryptographicHash::Sha256);
    auto const byte = [&](int i) { return static_cast<unsigned char>(sum.at(i)); };
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    int const hue = (byte(0) << 8 | byte(1)) % 360;
    QLinearGradient ground(0, 0, size, size);
    ground.setColorAt(0, QColor::fromHsv(hue, 190, 205));
    ground.setColorAt(1, QColor::fromHsv((hue + 35) % 360, 220, 120));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(2, 2, size - 4, size - 4), 22, 22);
    painter.setBrush(QColor(255, 255, 255, 235));
    painter.drawPath(signOf(byte(2)));
    for (int i = 0; i < cells; ++i) {
        painter.setBrush(QColor::fromHsv((hue + 180 + byte(3 + i)) % 360, 40 + byte(8 + i) / 2, 255));
        painter.drawEllipse(QPointF(36 + 14 * i, 106), 4.5, 4.5);
    }
    return image;
}

QByteArray ChannelLogo::png(QString const& id)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    draw(id).save(&buffer, "PNG");
    return bytes;
}

#include "BufferLatteVisualiser.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>

BufferLatteVisualiser::BufferLatteVisualiser(LatteClient const* client, QWidget* parent)
    : LatteVisualiser(client, parent)
{
    connect(&_sampleTimer, &QTimer::timeout, this, &BufferLatteVisualiser::sample);
}

void BufferLatteVisualiser::start()
{
    _levels.clear();
    sample();
    _sampleTimer.start(sampleInterval);
    LatteVisualiser::start();
}

void BufferLatteVisualiser::stop()
{
    _sampleTimer.stop();
    LatteVisualiser::stop();
}

QSize BufferLatteVisualiser::sizeHint() const
{
    return {160, 48};
}

void BufferLatteVisualiser::sample()
{
    LatteClient const* const client = latteClient();
    if (!client) {
        _sampleTimer.stop();
        return;
    }
    qint64 const capacity = client->bufferByteLength();
    double const level = capacity > 0 ? double(client->bytesBuffered()) / double(capacity) : 0.0;
    _levels.append(std::clamp(level, 0.0, 1.0));
    if (_levels.size() > historySeconds)
        _levels.removeFirst();
}

QImage BufferLatteVisualiser::visualise(QSize size)
{
    QImage image = visualiseStopped(size);
    QRect const area = QRect(QPoint(), size).adjusted(1, 1, -1, -1);
    if (image.isNull() || area.isEmpty() || _levels.isEmpty())
        return image;
    QPainter painter(&image);
    painter.setClipRect(area);
    drawHistory(painter, area);
    QString const text = tr("%1%").arg(qRound(_levels.last() * 100));
    painter.setFont(font());
    if (painter.fontMetrics().height() <= area.height()) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(area.adjusted(3, 0, -3, 0), Qt::AlignLeft | Qt::AlignTop, text);
    }
    return image;
}

void BufferLatteVisualiser::drawHistory(QPainter& painter, QRectF const& area) const
{
    double const step = area.width() / historySeconds;
    double const left = area.right() - step * double(_levels.size());
    auto const height = [&](double level) { return area.bottom() - level * area.height(); };
    QPolygonF line{QPointF(left, height(_levels.first()))};
    for (qsizetype i = 0; i < _levels.size(); ++i)
        line.append(QPointF(left + step * double(i + 1), height(_levels[i])));
    QPolygonF surface = line;
    surface << QPointF(area.right(), area.bottom()) << QPointF(left, area.bottom());
    QColor const colour = palette().color(QPalette::Highlight);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour.lighter(150));
    painter.drawPolygon(surface);
    painter.setPen(colour);
    painter.drawPolyline(line);
}

LatteVisualiser* BufferLatteVisualiserFactory::createLatteVisualiser(LatteClient const* client)
{
    return new BufferLatteVisualiser(client);
}

void BufferLatteVisualiserFactory::disposeLatteVisualiser(LatteVisualiser* visualiser)
{
    if (visualiser)
        visualiser->deleteLater();
}

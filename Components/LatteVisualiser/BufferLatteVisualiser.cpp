#include "BufferLatteVisualiser.h"

#include <QPainter>

#include <algorithm>

QImage BufferLatteVisualiser::visualise(QSize size)
{
    QImage image = visualiseStopped(size);
    qint64 const capacity = latteClient()->bufferByteLength();
    if (image.isNull() || capacity <= 0)
        return image;
    double const fill = std::clamp(double(latteClient()->bytesAvailable()) / double(capacity), 0.0, 1.0);
    int const width = static_cast<int>((size.width() - 2) * fill);
    QPainter(&image).fillRect(1, 1, width, size.height() - 2, palette().color(QPalette::Highlight));
    return image;
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

#include "LatteVisualiser.h"

#include <QPainter>

LatteVisualiser::LatteVisualiser(LatteClient const* client, QWidget* parent) : QWidget(parent), _client(client)
{
    connect(&_refreshTimer, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

LatteClient const* LatteVisualiser::latteClient() const
{
    return _client;
}

bool LatteVisualiser::isStarted() const
{
    return _refreshTimer.isActive();
}

void LatteVisualiser::start()
{
    _refreshTimer.start(refreshInterval);
    update();
}

void LatteVisualiser::stop()
{
    _refreshTimer.stop();
    update();
}

QImage LatteVisualiser::visualiseStopped(QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(palette().color(QPalette::Base));
    QPainter painter(&image);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    return image;
}

QSize LatteVisualiser::sizeHint() const
{
    return {160, 16};
}

void LatteVisualiser::paintEvent(QPaintEvent*)
{
    bool const isRunning = isStarted() && latteClient();
    QPainter(this).drawImage(0, 0, isRunning ? visualise(size()) : visualiseStopped(size()));
}

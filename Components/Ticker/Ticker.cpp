#include "Ticker.h"

#include <QPainter>

#include <algorithm>

namespace
{

constexpr int stepMs = 20;
constexpr int stepPixels = 1;
constexpr int gapCharacters = 4; ///< Blank space between two texts, in average characters.

} // namespace

Ticker::Ticker(QWidget* parent) : QLabel(parent)
{
    _timer.setTimerType(Qt::PreciseTimer);
    _timer.setInterval(stepMs);
    connect(&_timer, &QTimer::timeout, this, &Ticker::onTimer);
}

void Ticker::addText(QString const& text)
{
    QString const line = text.simplified();
    if (line.isEmpty())
        return;
    if (_texts.isEmpty())
        _travelled = 0;
    _texts.append(line);
    run();
}

void Ticker::setHighlight(int index)
{
    _highlight = index;
    update();
}

QSize Ticker::sizeHint() const
{
    int const frame = 2 * (frameWidth() + margin());
    return {30 * fontMetrics().averageCharWidth() + frame, fontMetrics().height() + frame};
}

QSize Ticker::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

void Ticker::onTimer()
{
    if (!_texts.isEmpty()) {
        _travelled += stepPixels;
        if (int const advance = advanceOf(_texts.constFirst()); left() + advance <= 0) {
            _texts.removeFirst();
            _travelled -= advance;
            _highlight = std::max(_highlight - 1, -1);
        }
    }
    if (_texts.isEmpty())
        _timer.stop();
    update();
}

void Ticker::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event); // Frame and background.
    QPainter painter(this);
    QRect const area = contentsRect();
    painter.setClipRect(area);
    int x = left();
    for (int i = 0; i < _texts.size() && x < area.width(); ++i) {
        QString const& text = _texts.at(i);
        int const advance = advanceOf(text);
        painter.setPen(palette().color(i == _highlight ? QPalette::Highlight : foregroundRole()));
        painter.drawText(QRect(area.left() + x, area.top(), advance, area.height()),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
        x += advance;
    }
}

void Ticker::showEvent(QShowEvent* event)
{
    QLabel::showEvent(event);
    run();
}

void Ticker::hideEvent(QHideEvent* event)
{
    QLabel::hideEvent(event);
    _timer.stop();
}

/// Where the foremost text begins, in pixels from the left edge.
int Ticker::left() const
{
    return contentsRect().width() - _travelled;
}

/// The room that a text takes, with the gap after it.
int Ticker::advanceOf(QString const& text) const
{
    return fontMetrics().horizontalAdvance(text) + gapCharacters * fontMetrics().averageCharWidth();
}

void Ticker::run()
{
    if (isVisible() && !_texts.isEmpty() && !_timer.isActive())
        _timer.start();
}

#include "GLTextArea.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

GLTextArea::GLTextArea(QString const& name, QObject* parent) : GLControl(name, parent)
{
    _font.setPixelSize(20);
    setTexture(&_textTexture);
}

GLTextArea::~GLTextArea() = default;

void GLTextArea::setText(QString const& text)
{
    _changed |= text != _text;
    _text = text;
}

void GLTextArea::setFont(QFont const& font)
{
    _changed |= font != _font;
    _font = font;
}

void GLTextArea::setTextColour(QColor const& colour)
{
    _changed |= colour != _textColour;
    _textColour = colour;
}

void GLTextArea::setBackgroundColour(QColor const& colour)
{
    _changed |= colour != _backgroundColour;
    _backgroundColour = colour;
}

void GLTextArea::setAlignment(Qt::Alignment alignment)
{
    _changed |= alignment != _alignment;
    _alignment = alignment;
}

QSizeF GLTextArea::sizeForWidth(double width) const
{
    if (_text.isEmpty())
        return {};
    constexpr double inset = 2.0 * (margin + outlineWidth);
    QFontMetricsF const metrics(_font);
    QStringList const lines = wrapText(_text, _font, width - inset);
    double widest = 0.0;
    for (QString const& line : lines)
        widest = std::max(widest, metrics.horizontalAdvance(line));
    constexpr double rounding = 1.0; // Of the letters' places: without it the widest line would break.
    return QSizeF(std::min(width, std::ceil(widest + inset + rounding)),
                  std::ceil(metrics.lineSpacing() * static_cast<double>(lines.size()) + inset));
}

void GLTextArea::render(double opacity)
{
    if (_text.isEmpty() || !isVisible())
        return;
    if (_changed || _textTexture.isLost() || geometry().size() != _paintedSize)
        updateTexture();
    GLControl::render(opacity);
}

void GLTextArea::recalcLayout(double scale)
{
    _changed |= scale != _scale;
    _scale = scale;
    GLControl::recalcLayout(scale);
}

QStringList GLTextArea::wrapText(QString const& text, QFont const& font, double width)
{
    QStringList lines;
    for (QString const& paragraph : text.split('\n')) {
        QTextLayout layout(paragraph, font);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(std::max(1.0, width));
            lines.append(paragraph.mid(line.textStart(), line.textLength()).trimmed());
        }
        layout.endLayout();
    }
    return lines;
}

QFont GLTextArea::scaledFont() const
{
    QFont font = _font;
    if (font.pixelSize() > 0)
        font.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pixelSize() * _scale))));
    else
        font.setPointSizeF(font.pointSizeF() * _scale);
    return font;
}

void GLTextArea::updateTexture()
{
    _changed = false;
    _paintedSize = geometry().size();
    QFont const font = scaledFont();
    QFontMetricsF const metrics(font);
    double const inset = 2.0 * (margin + outlineWidth) * _scale;
    double const width = _paintedSize.width() * _scale;
    double const height = _paintedSize.height() * _scale;

    QStringList lines = wrapText(_text, font, width - inset);
    qsizetype const room = std::max<qsizetype>(1, static_cast<qsizetype>((height - inset) / metrics.lineSpacing()));
    if (lines.size() > room) {
        lines.resize(room);
        lines.last() =
            metrics.elidedText(lines.constLast() % QStringLiteral("\u2026"), Qt::ElideRight, width - inset);
    }
    _textTexture.create(static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(height)), margin * _scale,
                        outlineWidth * _scale, cornerRadius * _scale, _textColour, _backgroundColour, font,
                        lines.join('\n'), _alignment);
}

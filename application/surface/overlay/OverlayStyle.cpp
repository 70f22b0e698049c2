#include "OverlayStyle.h"

#include "Look.h"

#include <QFontInfo>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace
{
constexpr int smallestText = 13; ///< Pixels: it is read from farther away than a window.
}

GLControlStyle OverlayStyle::style()
{
    GLControlStyle style;
    style.font = QGuiApplication::font();
    style.font.setPixelSize(std::max(smallestText, QFontInfo(style.font).pixelSize()));
    style.ground = Look::overlayGround;
    style.text = Look::overlayText;
    style.dimText = Look::overlayDimText;
    style.hover = Look::overlayHover;
    style.pressed = Look::overlayPressed;
    style.line = Look::overlayLine;
    style.accent = Look::accent;
    style.alert = Look::alert;
    style.radius = Look::radius;
    style.stroke = Look::strokeWidth;
    style.padding = Look::grid;
    style.icon = Look::icon;
    return style;
}

QFont OverlayStyle::titleFont()
{
    QFont font = style().font;
    font.setPixelSize(static_cast<int>(std::lround(font.pixelSize() * Look::headingSize)));
    font.setWeight(QFont::DemiBold);
    return font;
}

GLButtonControl::IconPainter OverlayStyle::icon(Icon icon)
{
    return [icon](int pixels, QColor const& colour) { return Icons::image(icon, pixels, colour); };
}

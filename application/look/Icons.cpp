#include "Icons.h"

#include "PaletteIconEngine.h"

#include <QPainter>
#include <QSvgRenderer>

#include <array>

namespace
{

constexpr std::array<char const*, Icons::count> iconNames = {
    "play",          "pause",      "stop",        "previous",
    "next",          "multiview",  "full-screen", "leave-full-screen",
    "volume",        "volume-low", "muted",       "record",
    "screenshot",    "chat",       "alert",       "alert-off",
    "user",          "sign-out",   "search",      "favourite",
    "favourite-off", "add",        "remove",      "close",
    "settings",      "refresh",    "delete",      "carousel",
    "buffer",        "warning",    "error",       "info",
    "television",    "radio",      "lock",        "copy",
    "link",          "up",         "down",        "left",
    "right",         "edit",       "open",        "menu",
    "minimise",      "maximise",   "restore",
};

} // namespace

QString Icons::path(Icon icon)
{
    return QStringLiteral(":/Resources/icons/%1.svg").arg(QLatin1String(iconNames.at(static_cast<size_t>(icon))));
}

QIcon Icons::icon(Icon icon)
{
    return QIcon(new PaletteIconEngine(path(icon)));
}

QImage Icons::image(Icon icon, int pixels, QColor const& colour)
{
    if (pixels <= 0)
        return {};
    return PaletteIconEngine::draw(path(icon), {pixels, pixels}, colour);
}

QPixmap Icons::pixmap(Icon icon, int pixels, QColor const& colour)
{
    if (pixels <= 0)
        return {};
    return PaletteIconEngine::cached(path(icon), {pixels, pixels}, colour);
}

#include "LogoPixmaps.h"

#include <algorithm>
#include <memory>

QPixmap LogoPixmaps::pixmap(ChannelLogo const& logo, QSize const& box, double pixelRatio)
{
    if (logo.isNull() || box.isEmpty())
        return {};
    QSize const pixels = (QSizeF(box) * pixelRatio).toSize();
    if (pixels != _box || !qFuzzyCompare(pixelRatio, _pixelRatio)) {
        _pixmaps.clear();
        _box = pixels;
        _pixelRatio = pixelRatio;
    }
    if (QPixmap const* const kept = _pixmaps.object(logo.key()))
        return *kept;
    QImage const image = logo.image(pixels);
    if (image.isNull())
        return {};
    auto pixmap = std::make_unique<QPixmap>(QPixmap::fromImage(image));
    pixmap->setDevicePixelRatio(pixelRatio);
    QPixmap made = *pixmap;
    _pixmaps.insert(logo.key(), pixmap.release(), std::max(1, image.width() * image.height() * 4));
    return made;
}

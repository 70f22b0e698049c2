#pragma once

#include "ChannelLogo.h"

#include <QCache>
#include <QPixmap>
#include <QSize>

/// Logos in the size of a row, made when a row is first painted and kept for the rows in sight and around it. Main
/// thread only.
class LogoPixmaps
{
public:
    /// As large as fits into the box, which is in device-independent pixels. Null for no logo.
    QPixmap pixmap(ChannelLogo const& logo, QSize const& box, double pixelRatio);

private:
    static constexpr int mostBytes = 8 << 20;

    QCache<qint64, QPixmap> _pixmaps{mostBytes}; ///< By the logo's key.
    QSize _box;                                  ///< In pixels, as the next: those that the pixmaps are for.
    double _pixelRatio = 0.0;
};

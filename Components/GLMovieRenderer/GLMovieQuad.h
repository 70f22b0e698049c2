#pragma once

#include <QRectF>

/// Where a picture, or a part of it, is drawn: an upright rectangle at a depth. `top` is where the picture's upper
/// edge goes, whichever way the y axis points.
struct GLMovieQuad {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    double z = 0.0;
    /// The part of the picture to show; the whole is (0, 0) to (1, 1), with (0, 0) at its upper left.
    QRectF part{0.0, 0.0, 1.0, 1.0};
};

#pragma once

#include "GLMovieTexture.h"

#include <QPointer>
#include <QRect>

/// Where a film's picture is to be seen, in pixels of the surface.
struct GLMoviePicture {
    QPointer<GLMovieTexture>
        texture;     ///< The film's; another one is never taken for it, wherever that lies in memory.
    QRect rectangle; ///< Where the whole picture would be.
    QRect visible;   ///< What of that is seen.

    bool operator==(GLMoviePicture const&) const = default;
};

#pragma once

#include <QRect>

class GLMovieTexture;

/// Where a film's picture is to be seen, in pixels of the surface.
struct GLMoviePicture {
    GLMovieTexture* texture; ///< Borrowed from the film, for as long as that is open.
    QRect rectangle;         ///< Where the whole picture would be.
    QRect visible;           ///< What of that is seen.

    bool operator==(GLMoviePicture const&) const = default;
};

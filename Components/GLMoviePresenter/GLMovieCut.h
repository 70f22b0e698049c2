#pragma once

#include <QRect>
#include <QSize>

struct GLMoviePicture;

/// Which part of a picture has to be scaled, to what size, so that a part of the whole comes out as if the whole had
/// been scaled.
///
/// Scaling repeats itself: every so many pixels of the picture meet every so many of the result. A cut at such
/// places, with some pixels around for the filter, has all its pixels where the whole has them. Where there is no
/// such place (sides that share no factor) the whole is scaled.
struct GLMovieCut {
    QRect source; ///< Pixels of the picture; begins at even ones.
    QSize scaled; ///< What that part is scaled to.
    QRect shown;  ///< What of the result is to be seen.

    static GLMovieCut of(QSize const& picture, GLMoviePicture const& place);

    /// Neither enlarged nor reduced.
    bool isOneToOne() const { return source.size() == scaled; }
};

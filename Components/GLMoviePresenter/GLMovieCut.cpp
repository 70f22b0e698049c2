#include "GLMovieCut.h"

#include "GLMoviePicture.h"

#include <algorithm>
#include <numeric>

namespace
{
constexpr int margin = 4; ///< Pixels of the picture; the filter reaches two, on chroma of half the size.

struct Side {
    int source;
    int sourceLength;
    int scaledLength;
    int skipped; ///< Of the scaled, before what is to be seen.
};

/// Cuts one direction: `length` pixels from `from` on of a picture scaled to `whole`.
Side cut(int picture, int whole, int from, int length)
{
    int sourcePeriod = picture / std::gcd(picture, whole);
    int scaledPeriod = whole / std::gcd(picture, whole);
    if (sourcePeriod % 2 != 0) { // Chroma is for two pixels.
        sourcePeriod *= 2;
        scaledPeriod *= 2;
    }
    auto const toSource = [&](int scaled) { return static_cast<qint64>(scaled) * picture / whole; };
    qint64 const first = std::max<qint64>(0, toSource(from) - margin) / sourcePeriod;
    qint64 const last = (toSource(from + length) + margin + sourcePeriod) / sourcePeriod;
    int const source = static_cast<int>(first * sourcePeriod);
    int const scaled = static_cast<int>(first * scaledPeriod);
    int const sourceEnd = static_cast<int>(std::min<qint64>(picture, last * sourcePeriod));
    int const scaledEnd = sourceEnd == picture ? whole : static_cast<int>(last * scaledPeriod);
    return {source, sourceEnd - source, scaledEnd - scaled, from - scaled};
}
} // namespace

GLMovieCut GLMovieCut::of(QSize const& picture, GLMoviePicture const& place)
{
    QRect const& whole = place.rectangle;
    QRect const& visible = place.visible;
    Side const x = cut(picture.width(), whole.width(), visible.x() - whole.x(), visible.width());
    Side const y = cut(picture.height(), whole.height(), visible.y() - whole.y(), visible.height());
    return {.source = QRect(x.source, y.source, x.sourceLength, y.sourceLength),
            .scaled = QSize(x.scaledLength, y.scaledLength),
            .shown = QRect(QPoint(x.skipped, y.skipped), visible.size())};
}

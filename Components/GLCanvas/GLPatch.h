#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>

/// A part of what controls look like: an image of premultiplied device pixels, and its place on the surface in those.
struct GLPatch {
    QPoint place;
    QImage image;

    bool operator==(GLPatch const& other) const
    {
        return place == other.place && image.cacheKey() == other.image.cacheKey();
    }
    QRect rectangle() const { return {place, image.size()}; }
};

// Where a picture goes.

#include "GLMovieRenderer.h"

#include <cmath>

namespace
{
QRectF centred(QRectF const& target, double width, double height)
{
    double const w = std::round(width);
    double const h = std::round(height);
    return QRectF(target.left() + std::floor((target.width() - w) / 2.0),
                  target.top() + std::floor((target.height() - h) / 2.0), w, h);
}
} // namespace

QRectF GLMovieRenderer::computeVideoRectangle(QRectF const& target, QSize const& picture, double aspectRatio,
                                              GLMovieRenderer::DrawMode mode)
{
    if (picture.isEmpty() || target.isEmpty())
        return {};
    double const height = picture.height();
    double const aspect = aspectRatio > 0.0 ? aspectRatio : picture.width() / height;
    double const width = height * aspect;
    bool const isNarrower = aspect < target.width() / target.height();
    switch (mode) {
    case HalfSize:
        return centred(target, width / 2.0, height / 2.0);
    case NormalSize:
        return centred(target, width, height);
    case DoubleSize:
        return centred(target, width * 2.0, height * 2.0);
    case Stretch:
        return target;
    case TouchInside:
        return isNarrower ? centred(target, target.height() * aspect, target.height())
                          : centred(target, target.width(), target.width() / aspect);
    case TouchOutside:
        return isNarrower ? centred(target, target.width(), target.width() / aspect)
                          : centred(target, target.height() * aspect, target.height());
    }
    return target;
}

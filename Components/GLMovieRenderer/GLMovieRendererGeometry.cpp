// Where a picture goes.

#include "GLMovieRenderer.h"

#include <cmath>

namespace
{
/// A width to scale to: an even one, which costs swscale a fraction of an odd one; what it is too wide is cut off.
double scaledWidth(double width, QSize const& picture)
{
    double const rounded = std::round(width);
    return rounded == picture.width() ? rounded : std::ceil(rounded / 2.0) * 2.0;
}

QRectF centred(QRectF const& target, double width, double height)
{
    double const w = width;
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
    auto const fitted = [&](double w, double h) { return centred(target, scaledWidth(w, picture), h); };
    bool const isNarrower = aspect < target.width() / target.height();
    switch (mode) {
    case HalfSize:
        return fitted(width / 2.0, height / 2.0);
    case NormalSize:
        return fitted(width, height);
    case DoubleSize:
        return fitted(width * 2.0, height * 2.0);
    case Stretch:
        return QRectF(target.topLeft(), QSizeF(scaledWidth(target.width(), picture), target.height()));
    case TouchInside:
        return isNarrower ? fitted(target.height() * aspect, target.height())
                          : fitted(target.width(), target.width() / aspect);
    case TouchOutside:
        return isNarrower ? fitted(target.width(), target.width() / aspect)
                          : fitted(target.height() * aspect, target.height());
    }
    return target;
}

#pragma once

#include <QPointF>
#include <QPolygonF>
#include <QRect>
#include <QSize>

#include <QMatrix4x4>

struct GLMovieQuad;

/// The way from the current model-view coordinates to pixels of the window, whose upper left corner is (0, 0).
/// Made with a current context; reads its matrices and viewport, which does not wait for the card.
class GLMovieWindowMap
{
public:
    GLMovieWindowMap();

    QPointF map(double x, double y, double z) const;

    /// The four corners of a quad: upper left, upper right, lower right, lower left of the picture.
    QPolygonF map(GLMovieQuad const& quad) const;

    /// Whether the quad shows a picture of this size pixel by pixel, unmoved by fractions.
    bool isPixelExact(GLMovieQuad const& quad, QSize const& picture) const;

private:
    QMatrix4x4 _matrix;
    QRect _viewport;
};

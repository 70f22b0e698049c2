#include "GLMovieWindowMap.h"

#include "GLMovieQuad.h"

#include <QVector4D>
#include <array>
#include <cmath>
#include <qopengl.h>

namespace
{
constexpr double tolerance = 1.0 / 64.0; ///< Of a pixel; what rounding leaves of an integer.

QMatrix4x4 currentMatrix(GLenum name)
{
    std::array<float, 16> columns{};
    glGetFloatv(name, columns.data());
    return QMatrix4x4(columns.data()).transposed(); // QMatrix4x4 reads rows.
}

bool isWhole(double value)
{
    return std::abs(value - std::round(value)) < tolerance;
}
} // namespace

GLMovieWindowMap::GLMovieWindowMap()
    : _matrix(currentMatrix(GL_PROJECTION_MATRIX) * currentMatrix(GL_MODELVIEW_MATRIX))
{
    std::array<GLint, 4> viewport{};
    glGetIntegerv(GL_VIEWPORT, viewport.data());
    _viewport = QRect(viewport[0], viewport[1], viewport[2], viewport[3]);
}

QPointF GLMovieWindowMap::map(double x, double y, double z) const
{
    QVector4D const clip =
        _matrix * QVector4D(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z), 1.0F);
    double const w = clip.w() != 0.0F ? static_cast<double>(clip.w()) : 1.0;
    return QPointF((static_cast<double>(clip.x()) / w + 1.0) / 2.0 * _viewport.width(),
                   (1.0 - static_cast<double>(clip.y()) / w) / 2.0 * _viewport.height());
}

QPolygonF GLMovieWindowMap::map(GLMovieQuad const& quad) const
{
    return {{map(quad.left, quad.top, quad.z), map(quad.right, quad.top, quad.z),
             map(quad.right, quad.bottom, quad.z), map(quad.left, quad.bottom, quad.z)}};
}

bool GLMovieWindowMap::isPixelExact(GLMovieQuad const& quad, QSize const& picture) const
{
    QPolygonF const corners = map(quad);
    QPointF const first = corners.at(0);
    QPointF const last = corners.at(2);
    return isWhole(first.x()) && isWhole(first.y()) &&
           std::abs(last.x() - first.x() - quad.part.width() * picture.width()) < tolerance &&
           std::abs(last.y() - first.y() - quad.part.height() * picture.height()) < tolerance &&
           std::abs(corners.at(1).y() - first.y()) < tolerance && isWhole(quad.part.left() * picture.width()) &&
           isWhole(quad.part.top() * picture.height());
}

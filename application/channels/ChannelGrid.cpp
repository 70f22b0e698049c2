#include "ChannelGrid.h"

#include "Channel.h"
#include "GLMovieQuad.h"
#include "GLMovieWindowMap.h"

#include <QtMath>

#include <algorithm>
#include <cmath>
#include <qopengl.h>

namespace
{
constexpr double turn = 25.0;           // Degrees between neighbouring faces of the wall.
constexpr double viewingDistance = 1.2; // From the plane of the screen, in heights of the surface.
constexpr double nearest = 0.1;         // Of what is drawn, from the viewer, in heights of the surface.
constexpr double farthest = 10.0;       // The same in viewing distances.
constexpr double yaw = 25.0;            // Degrees that the viewer can turn to either side.
constexpr double pitch = 15.0;          // The same up and down.
constexpr double usualAspect = 16.0 / 9;
constexpr double clearly = 1.05; // What covers no more than that more does not rearrange the pictures.
} // namespace

int ChannelGrid::columns(int count)
{
    return static_cast<int>(std::ceil(std::sqrt(count)));
}

int ChannelGrid::columns(QSize const& area, QList<double> const& aspectRatios)
{
    auto const count = static_cast<int>(aspectRatios.size());
    int best = columns(count);
    auto const covered = [&](int across) {
        double const width = static_cast<double>(area.width()) / across;
        double const height = static_cast<double>(area.height()) / ((count + across - 1) / across);
        double sum = 0.0;
        for (double const known : aspectRatios) {
            double const aspect = known > 0.0 ? known : usualAspect;
            double const fitted = std::min(width, height * aspect);
            sum += fitted * fitted / aspect;
        }
        return sum;
    };
    if (area.isEmpty())
        return best;
    double most = covered(std::max(best, 1)) * clearly;
    for (int across = 1; across <= count; ++across)
        if (double const now = covered(across); now > most) {
            most = now;
            best = across;
        }
    return best;
}

int ChannelGrid::columnsFor(QList<Channel*> const& channels, QRect const& area)
{
    QList<double> aspectRatios;
    for (Channel const* const channel : channels)
        aspectRatios.append(channel->aspectRatio());
    return columns(area.size(), aspectRatios);
}

QRect ChannelGrid::placeOf(QList<Channel*> const& channels, Channel const* channel) const
{
    qsizetype const index = channels.indexOf(channel);
    if (index < 0 || !_faces.isEmpty() || _lastArea.isEmpty())
        return {};
    return cell(_lastArea, _lastColumns, static_cast<int>(channels.size()), static_cast<int>(index));
}

QRect ChannelGrid::cell(QRect const& area, int columns, int count, int index)
{
    int const rows = (count + columns - 1) / columns;
    int const column = index % columns;
    int const row = index / columns;
    // Neighbours share their borders, wherever the division leaves a rest.
    QPoint const first(area.width() * column / columns, area.height() * row / rows);
    QPoint const end(area.width() * (column + 1) / columns, area.height() * (row + 1) / rows);
    return {area.topLeft() + first, QSize(end.x() - first.x(), end.y() - first.y())};
}

void ChannelGrid::render(QList<Channel*> const& channels, QRect const& area, GLMovieRenderer::DrawMode mode)
{
    _lastArea = area;
    _faces.clear();
    _lastColumns = columnsFor(channels, area);
    int const count = static_cast<int>(channels.size());
    for (int i = 0; i < count; ++i) {
        QRect const place = cell(area, _lastColumns, count, i);
        channels.at(i)->updateVideoTexture();
        channels.at(i)->drawBackground(place);
        channels.at(i)->drawVideoOrthoMode(place, mode);
        channels.at(i)->drawOverlay(place);
    }
}

ChannelGrid::Face ChannelGrid::face(QSize const& surface, int count, int index)
{
    int const columnCount = columns(count);
    int const rows = (count + columnCount - 1) / columnCount;
    QSizeF const size(static_cast<double>(surface.width()) / columnCount,
                      static_cast<double>(surface.height()) / rows);
    Face face{.y = surface.height() / 2.0 - size.height() * (index / columnCount + 0.5), .size = size};
    // The outer edges are in the plane of the screen; from there the faces go inward, edge to edge.
    double width = 0.0;
    for (int column = 0; column < columnCount; ++column) {
        double const degrees = turn * (column - (columnCount - 1) / 2.0);
        double const dx = size.width() * std::cos(qDegreesToRadians(degrees));
        double const dz = size.width() * std::sin(qDegreesToRadians(degrees));
        if (column < index % columnCount) {
            face.x += dx;
            face.z += dz;
        } else if (column == index % columnCount) {
            face.x += dx / 2;
            face.z += dz / 2;
            face.degrees = -degrees;
        }
        width += dx;
    }
    face.x -= width / 2;
    return face;
}

void ChannelGrid::renderPerspective(QList<Channel*> const& channels, QRect const& area, bool keepAspect)
{
    _lastArea = area;
    _faces.clear();
    int const count = static_cast<int>(channels.size());
    double const distance = area.height() * viewingDistance;
    double const nearer = nearest / viewingDistance / 2;
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glFrustum(-area.width() * nearer, area.width() * nearer, -area.height() * nearer, area.height() * nearer,
              area.height() * nearest, distance * farthest);
    glMatrixMode(GL_MODELVIEW);
    for (int i = 0; i < count; ++i) {
        Face const place = face(area.size(), count, i);
        channels.at(i)->updateVideoTexture();
        glPushMatrix();
        glRotated(_viewpoint.y() * pitch, 1.0, 0.0, 0.0);
        glRotated(_viewpoint.x() * yaw, 0.0, 1.0, 0.0);
        glTranslated(place.x, place.y, place.z - distance);
        glRotated(place.degrees, 0.0, 1.0, 0.0);
        double const right = place.size.width() / 2;
        double const top = place.size.height() / 2;
        _faces.append(GLMovieWindowMap().map(GLMovieQuad{-right, top, right, -top, 0.0, {}}));
        drawFace(*channels.at(i), place.size, keepAspect);
        glPopMatrix();
    }
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
}

/// In a space whose origin is the middle of the face.
void ChannelGrid::drawFace(Channel& channel, QSizeF const& size, bool keepAspect)
{
    QPointF const corner(-size.width() / 2, -size.height() / 2);
    QRect const flat(QPoint(0, 0), size.toSize());
    auto const inPixels = [&](auto const& draw) {
        glPushMatrix();
        glScaled(1.0, -1.0, 1.0);
        glTranslated(corner.x(), corner.y(), 0.0);
        draw();
        glPopMatrix();
    };
    inPixels([&] { channel.drawBackground(flat); });
    channel.drawVideoPerspectiveMode(QRectF(corner, size), keepAspect);
    inPixels([&] { channel.drawOverlay(flat); });
}

bool ChannelGrid::isPlain(QList<Channel*> const& channels)
{
    return std::ranges::all_of(channels, &Channel::isPlain);
}

std::vector<GLMoviePicture> ChannelGrid::plainPictures(QList<Channel*> const& channels, QRect const& area,
                                                       GLMovieRenderer::DrawMode mode)
{
    _lastArea = area;
    _faces.clear();
    _lastColumns = columnsFor(channels, area);
    std::vector<GLMoviePicture> pictures;
    int const count = static_cast<int>(channels.size());
    for (int i = 0; i < count; ++i)
        channels.at(i)->appendPlainPictures(cell(area, _lastColumns, count, i), mode, pictures);
    return pictures;
}

Channel* ChannelGrid::channelAt(QList<Channel*> const& channels, QPointF point) const
{
    int const count = static_cast<int>(channels.size());
    if (!_faces.isEmpty()) {
        for (int i = 0; i < std::min<int>(count, static_cast<int>(_faces.size())); ++i)
            if (_faces.at(i).containsPoint(point, Qt::OddEvenFill))
                return channels.at(i);
        return nullptr;
    }
    for (int i = 0; i < count; ++i)
        if (cell(_lastArea, _lastColumns, count, i).contains(point.toPoint()))
            return channels.at(i);
    return nullptr;
}

#pragma once

#include "GLMovieRenderer.h"

#include <QList>
#include <QPointF>
#include <QPolygonF>
#include <QRect>
#include <QSizeF>

#include <vector>

class Channel;

/// Pictures side by side in rows, as square a grid as their number allows, and what is drawn and found in it. In
/// pixels of the surface, y downward; drawing with the surface's context current.
class ChannelGrid
{
public:
    /// The part of an area that belongs to one of `count` pictures, numbered from 0 row by row.
    static QRect cell(QRect const& area, int count, int index) { return cell(area, columns(count), count, index); }
    static QRect cell(QRect const& area, int columns, int count, int index);
    static int columns(int count);
    /// How many columns leave the least of the area empty, for pictures of these aspect ratios, 0 where one is not
    /// known.
    static int columns(QSize const& area, QList<double> const& aspectRatios);

    void render(QList<Channel*> const& channels, QRect const& area, GLMovieRenderer::DrawMode mode);

    /// Draws them on a wall that bends around the viewer: a column of pictures to each of its faces. The viewport is
    /// the surface, of which the area is all.
    void renderPerspective(QList<Channel*> const& channels, QRect const& area, bool keepAspect);

    /// Where a picture stands on that wall: the middle of its face in pixels, with (0, 0, 0) amid the surface, y
    /// upward and z towards the viewer, and by how many degrees it is turned about the y axis.
    struct Face {
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        double degrees = 0.0;
        QSizeF size;
    };
    static Face face(QSize const& surface, int count, int index);

    /// Whether render() would draw no more than opaque pictures as they are, on black.
    static bool isPlain(QList<Channel*> const& channels);
    /// Those pictures, to be shown without OpenGL in its place.
    std::vector<GLMoviePicture> plainPictures(QList<Channel*> const& channels, QRect const& area,
                                              GLMovieRenderer::DrawMode mode);

    /// The channel at a point of what was drawn last; null for none.
    Channel* channelAt(QList<Channel*> const& channels, QPointF point) const;

    /// Where a channel may draw, of what was drawn last in the flat grid; empty if it was not.
    QRect placeOf(QList<Channel*> const& channels, Channel const* channel) const;

    /// From where the wall is looked at: from -1, left or above, to 1.
    void setViewpoint(QPointF viewpoint) { _viewpoint = viewpoint; }

private:
    static int columnsFor(QList<Channel*> const& channels, QRect const& area);
    static void drawFace(Channel& channel, QSizeF const& size, bool keepAspect);

    QRect _lastArea;
    int _lastColumns = 1;
    QPointF _viewpoint;
    QList<QPolygonF> _faces; ///< Of the channels in their order, as drawn last; empty if those were in the flat grid.
};

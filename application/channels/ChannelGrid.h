#pragma once

#include "GLMovieRenderer.h"

#include <QList>
#include <QPointF>
#include <QRect>

#include <vector>

class Channel;

/// Pictures side by side in rows, as square a grid as their number allows, and what is drawn and found in it. In
/// pixels of the surface, y downward; drawing with the surface's context current.
class ChannelGrid
{
public:
    /// The part of an area that belongs to one of `count` pictures, numbered from 0 row by row.
    static QRect cell(QRect const& area, int count, int index);

    void render(QList<Channel*> const& channels, QRect const& area, GLMovieRenderer::DrawMode mode);

    /// Whether render() would draw no more than opaque pictures as they are, on black.
    static bool isPlain(QList<Channel*> const& channels);
    /// Those pictures, to be shown without OpenGL in its place.
    std::vector<GLMoviePicture> plainPictures(QList<Channel*> const& channels, QRect const& area,
                                              GLMovieRenderer::DrawMode mode);

    /// The channel at a point of what was drawn last; null for none.
    Channel* channelAt(QList<Channel*> const& channels, QPointF point) const;

private:
    QRect _lastArea;
};

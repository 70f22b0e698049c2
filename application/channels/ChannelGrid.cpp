#include "ChannelGrid.h"

#include "Channel.h"

#include <algorithm>
#include <cmath>

QRect ChannelGrid::cell(QRect const& area, int count, int index)
{
    int const columns = static_cast<int>(std::ceil(std::sqrt(count)));
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
    int const count = static_cast<int>(channels.size());
    for (int i = 0; i < count; ++i) {
        QRect const place = cell(area, count, i);
        channels.at(i)->updateVideoTexture();
        channels.at(i)->drawOrthoVideoArray(place, mode);
        channels.at(i)->drawOverlay(place);
    }
}

bool ChannelGrid::isPlain(QList<Channel*> const& channels)
{
    return std::ranges::all_of(channels, &Channel::isPlain);
}

std::vector<GLMoviePicture> ChannelGrid::plainPictures(QList<Channel*> const& channels, QRect const& area,
                                                       GLMovieRenderer::DrawMode mode)
{
    _lastArea = area;
    std::vector<GLMoviePicture> pictures;
    int const count = static_cast<int>(channels.size());
    for (int i = 0; i < count; ++i)
        channels.at(i)->appendPlainPictures(cell(area, count, i), mode, pictures);
    return pictures;
}

Channel* ChannelGrid::channelAt(QList<Channel*> const& channels, QPointF point) const
{
    int const count = static_cast<int>(channels.size());
    for (int i = 0; i < count; ++i)
        if (cell(_lastArea, count, i).contains(point.toPoint()))
            return channels.at(i);
    return nullptr;
}

#pragma once

#include <QtGlobal>

/// What has been read of a movie since it began, or since it last looped.
struct GLMoviePacketStatistics {
    qint64 videoCount = 0;
    qint64 videoBytes = 0;
    qint64 videoLost = 0; ///< Estimated from gaps in the time stamps.
    qint64 audioCount = 0;
    qint64 audioBytes = 0;
    qint64 audioLost = 0; ///< Estimated likewise.
};

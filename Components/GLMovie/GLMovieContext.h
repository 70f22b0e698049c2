#pragma once

class GLMovie;
class GLMovieAudioSource;
class GLMovieClock;
class GLMoviePacketQueue;
class GLMovieRequests;

/// What a movie shares with its two outputs. It outlives them, and each locks by itself.
struct GLMovieContext {
    GLMovie& movie; ///< For its signals only.
    GLMovieClock& clock;
    GLMovieRequests& requests;
    GLMovieAudioSource& source;
    GLMoviePacketQueue& videoQueue;
    GLMoviePacketQueue& audioQueue;
};

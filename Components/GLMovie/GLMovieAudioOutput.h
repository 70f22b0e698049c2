#pragma once

#include "GLMovieContext.h"
#include "GLMovieSoundDecoder.h"

#include <optional>

class Logger;
struct AVPacket;
struct AVStream;

/// From packets of sound to the OpenAL source, in time with the pictures. The audio watcher's thread decodes and
/// queues; open() and flush() are called while it does not run.
///
/// Where there is nothing to queue on, because the device has gone or takes no more, sound passes by unheard at the
/// pace of the clock: it is what paces the reader. Sound that cannot be converted is given up, until some
/// comes that can.
class GLMovieAudioOutput
{
public:
    /// Without renderAudio nothing is queued.
    GLMovieAudioOutput(GLMovieContext const& context, AVStream* stream, bool renderAudio);

    /// Opens the decoder and the source. Returns 0 or a GLMovie::Error.
    int openAudioStream();

    /// Decodes one packet and queues what comes of it, until the watcher must end. Null is the end of the stream.
    void handleAudioPacket(AVPacket const* packet);

    /// Forgets what the decoder holds, which belongs to another place of the film. What comes next is heard from a
    /// place on, in seconds of the stream, together with its picture.
    void flush(std::optional<double> hearFrom);

    /// The decoder's name.
    QString name() const { return _decoder.name(); }

private:
    void hear(GLMovieSound const& sound);
    bool isBeforeItsPlace(GLMovieSound const& sound, double seconds);
    void beginAudio(double seconds);
    bool isToWaitForPicture() const;
    void waitForPicture();
    double waitUntilDue(double seconds);
    void queueAudioPacket(GLMovieSound const& sound, double seconds, double at);
    void passUnheard(double at);
    void paceSilence(AVPacket const& packet);
    void giveUp();
    void takeUp();
    bool pause(qint64 microseconds) const;
    static QString missingDecoderText(int codecId);

    static Logger* log;

    GLMovieContext const _context;
    AVStream* const _stream;
    bool const _renderAudio;
    GLMovieSoundDecoder _decoder;
    std::optional<double> _hearFrom;
    double _nextSeconds = 0.0; ///< Where the last sound ended, as the stream counts.
    bool _begun = false;
    int _refusedPackets = 0; ///< In a row.
};

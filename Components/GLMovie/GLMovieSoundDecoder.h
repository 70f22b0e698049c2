#pragma once

#include "FFmpegPointers.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

class Logger;
struct AVPacket;
struct AVStream;

/// Sound as OpenAL takes it: signed 16 bit samples, interleaved, of one or two channels.
struct GLMovieSound {
    struct Format {
        int channels = 0;
        int sampleRate = 0;
        bool operator==(Format const&) const = default;
    };

    QByteArray samples;
    Format format;
    std::optional<double> seconds; ///< When it begins, as the stream counts; nothing when the stream does not tell.

    double duration() const
    {
        return format.channels > 0 && format.sampleRate > 0
                   ? static_cast<double>(samples.size()) / (2.0 * format.channels * format.sampleRate)
                   : 0.0;
    }
};

/// Decodes the sound of a film and converts it to 16 bit, more than two channels down to two. Rate, channels and kind
/// of sample may change at any frame, as they do where one programme ends and the next begins. One thread at a time.
class GLMovieSoundDecoder
{
public:
    GLMovieSoundDecoder();
    ~GLMovieSoundDecoder();

    /// Opens the decoder of a stream, which outlives this object. Returns 0 or FFmpeg's negative error.
    int open(AVStream const* stream);

    /// What comes out for a packet, in the order in which it is to be heard: a piece for each format that it holds.
    /// Null drains the decoder. A damaged packet gives nothing.
    QList<GLMovieSound> decodeAudioPacket(AVPacket const* packet);

    /// Forgets what belongs to another place of the film.
    void flush();

    /// Sound came that cannot be converted.
    bool isRefused() const { return _refused; }

    /// The decoder's name, and the format that the stream's header tells, in words for the log.
    QString name() const;
    QString formatText() const;

private:
    void append(AVFrame const* frame, QList<GLMovieSound>& sounds);
    bool follow(AVFrame const* frame);
    bool convertFrom(AVFrame const* frame);
    void logReason(AVFrame const* frame) const;

    static Logger* log;

    AVStream const* _stream = nullptr;
    CodecContextPointer _codec;
    FramePointer _frame;
    FramePointer _like;            ///< Has the format that is converted from; no samples.
    SwrContextPointer _swrContext; ///< From the format of _like; null when it is refused.
    GLMovieSound::Format _format;
    bool _refused = false;
};

#pragma once

#include "Demuxer.h"

class Logger;

/// Opens a format context, finds its streams, chooses those to play and logs all that: the same for every source.
class StreamOpener
{
public:
    /// How the lines of the log tell of it.
    enum Kind {
        File,     ///< A path or an address that FFmpeg opens by itself.
        Download, ///< Bytes of a file that is still being fetched.
        Live      ///< Bytes of a stream without an end.
    };

    struct Input {
        Kind kind;
        QString name;                          ///< For the log.
        QByteArray url;                        ///< What FFmpeg opens; empty when the context has a custom I/O.
        AVInputFormat const* format = nullptr; ///< Null lets FFmpeg probe.
        /// May refuse what was found; null stands for what could not be opened.
        std::function<bool(AVFormatContext*)> accepts = {};
    };

    /// Takes a prepared context, with its I/O, from avformat_alloc_context(). Returns null when nothing in it can be
    /// played, which is logged unless the demuxer is abandoned, and tells FFmpeg's `error`, AVERROR_STREAM_NOT_FOUND
    /// where there is nothing to play. On the demuxer's thread.
    static FormatContextPointer open(AVFormatContext* prepared, Input const& input, Demuxer const& demuxer,
                                     int* error = nullptr);

    /// The streams to play, and what is known of the whole.
    static StreamInfo describe(AVFormatContext const& context);

private:
    static int findStreams(AVFormatContext* context, Input const& input, Demuxer const& demuxer);

    static Logger* log;
};

#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>

class Logger;
struct AVFormatContext;
struct AVInputFormat;

/// The FFmpeg operations that have no object of their own. All static ones may be called on any thread; a format
/// context belongs to one thread at a time.
class FFwrapper : public QObject
{
    Q_OBJECT

public:
    /// Fills the buffer with up to `size` bytes; returns how many, or FFmpeg's negative error, AVERROR_EOF at the
    /// end.
    using ReadCallback = int (*)(void* userData, std::uint8_t* buffer, int size);
    /// Moves the read position; returns the new one or a negative error. With AVSEEK_SIZE, returns the size.
    using SeekCallback = std::int64_t (*)(void* userData, std::int64_t offset, int origin);

    explicit FFwrapper(QObject* parent = nullptr);
    ~FFwrapper() override;

    /// Opens a format context on nothing but a stream header, to look at its fields; packets cannot be read from it.
    /// Returns null when no format recognises the header or the format refuses it. Give it to closeContext().
    static AVFormatContext* contextFromHeader(void const* header, int size);

    /// Gives a context a custom read and seek pair (seek may be null: not seekable), in place of what it had, with a
    /// buffer of the context's own I/O size. Returns -1 for a null context, else 0.
    static int setFFHandler(AVFormatContext* context, ReadCallback read, SeekCallback seek, void* userData);

    /// avformat_open_input() for a context from avformat_alloc_context(): `format` null lets FFmpeg probe. The
    /// segments of a playlist are opened with the context's own correct_ts_overflow. On failure the context is freed
    /// with its custom I/O, nulled, and FFmpeg's negative error returned.
    static int openContext(AVFormatContext*& context, char const* url, AVInputFormat const* format);

    /// Closes and frees a context, custom I/O included, and nulls the pointer. Null is fine.
    static void closeContext(AVFormatContext*& context);

    /// The format that the beginning of a file belongs to, or null. A `score` receives FFmpeg's certainty.
    static AVInputFormat const* probeFormat(QByteArray const& beginning, int* score = nullptr);

    /// Bits per second of the whole, 0 when the header does not say.
    static int getMaxBitrate(AVFormatContext const* context);

    /// Bytes per ASF packet, 0 for other formats.
    static int getAsfPacketSize(AVFormatContext const* context);

    /// FFmpeg's words for one of its errors, for the log.
    static QString errorText(int error);

private:
    static Logger* log;
};

/// Owns a format context.
struct FormatContextDeleter {
    void operator()(AVFormatContext* context) const { FFwrapper::closeContext(context); }
};
using FormatContextPointer = std::unique_ptr<AVFormatContext, FormatContextDeleter>;

#pragma once

#include <QByteArray>

#include <cstdint>
#include <mutex>

class LatteClient;
class Logger;
struct AVFormatContext;
struct AVIOInterruptCB;

/// What FFmpeg reads a live stream from: its header, what was read from the client before the stream was opened, and
/// then the client itself. Shared by the source and the demuxer, which may outlive the client. Any thread.
class LatteInput
{
public:
    /// The client must live until leave().
    LatteInput(LatteClient& client, QByteArray const& header, QByteArray const& data);

    /// The client is not touched any more; what waits for it ends. Waits for no more than the client's own read.
    void leave();

    /// The stream is open: from now on the client's bytes follow.
    void startReading();

    /// What the client holds from now on belongs to the next header: reading ends.
    void expectNewHeader();

    /// Whether FFmpeg has read anything yet.
    bool isRead() const;

    /// What FFmpeg's wait for the client is ended by. Set before it reads.
    void setInterrupt(AVIOInterruptCB const& interrupt);

    /// Whether an opened context, or null for one that could not be opened, is one to play: the data may have run dry
    /// before the streams were known. Prepares it for more data.
    bool accepts(AVFormatContext* context) const;

    /// A read callback for FFwrapper::setFFHandler(), with this object, or null, as user data.
    static int latteReadCallback(void* opaque, unsigned char* buffer, int size);

private:
    int bytesForProbing(unsigned char* buffer, int size);
    int bytesForReading(unsigned char* buffer, int size, std::unique_lock<std::mutex>& lock);
    int bytesFromData(unsigned char* buffer, int size);
    int bytesFromClient(unsigned char* buffer, int size);

    static Logger* log;

    mutable std::mutex _mutex; ///< Guards what follows.
    LatteClient* _client;
    QByteArray _header; ///< Still to be given to FFmpeg.
    QByteArray _data;   ///< Read from the client, still to be given to FFmpeg from _position on.
    qsizetype _position = 0;
    int _prevReadCallbackReturn = 0; ///< The last count given while probing.
    bool _firstReadDone = false;
    bool _reading = false;
    bool _ended = false;
    int (*_interrupt)(void*) = nullptr;
    void* _interruptOpaque = nullptr;
};

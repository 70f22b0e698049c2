#pragma once

#include "FFwrapper.h"

#include <condition_variable>
#include <memory>
#include <mutex>

class Logger;
struct AVIOInterruptCB;

/// The bytes of a download, put in by one thread and read by FFmpeg on another, which waits for those that have yet
/// to come. Any thread.
class DownloadBuffer
{
public:
    enum State {
        Idle,     ///< Nothing more comes, and it has been ended by hand.
        Running,  ///< More bytes come.
        Finished, ///< Every byte has come.
        Failed    ///< The download has ended early.
    };

    void setState(State state);
    State state() const;

    /// Takes bytes, and the length of the whole, -1 when it is not known. Returns the size now.
    qsizetype append(QByteArray const& bytes, qint64 contentLength);

    /// Whether the length of the whole is known.
    bool hasLength() const;

    qsizetype size() const;
    qint64 position() const;

    /// The first bytes, up to a number; reading begins anew there.
    QByteArray rewind(qsizetype size);

    /// What FFmpeg's wait for bytes is ended by.
    void setInterrupt(AVIOInterruptCB const& interrupt);

    /// Callbacks for FFwrapper::setFFHandler(), with this object as user data. Reading beyond what has come waits for
    /// it; seeking does not.
    static int read(void* userData, unsigned char* buffer, int size);
    static std::int64_t seek(void* userData, std::int64_t offset, int origin);

private:
    int readBytes(unsigned char* buffer, int size);

    static Logger* log;

    mutable std::mutex _mutex; ///< Guards what follows.
    std::condition_variable _changed;
    QByteArray _bytes;
    qint64 _position = 0;
    qint64 _contentLength = -1;
    State _state = Idle;
    int (*_interrupt)(void*) = nullptr; ///< Set before FFmpeg reads.
    void* _interruptOpaque = nullptr;
};

#pragma once

#include "Demuxer.h"

#include <QString>

class Logger;
class MatroskaFile;
class QFile;

/// Records the packets of a film as they play: remultiplexed into Matroska, from the next key frame on, and, when
/// wanted, as raw bytes beside it. Both can be read after a crash.
///
/// Files are made and written on a thread of its own, which nobody waits for; it shares the ownership of this object,
/// and the end of the program gives it a moment to finish. Every operation is for any thread, write() for one at a
/// time.
class PacketRecorder : public std::enable_shared_from_this<PacketRecorder>
{
public:
    static constexpr qint64 maximumQueuedBytes = qint64(64) << 20; ///< A disk that is that far behind is too slow.

    /// Starts to record these streams to "<directory>/<name><yyMMddhhmmss>.mkv", and with `dump` to the same with
    /// ".dump", which never overwrite a file. `failed` is called with a reason for the viewer, on the thread of
    /// `listener`, which must call finish() and forgetListener() before it goes; nothing more is written then.
    static std::shared_ptr<PacketRecorder> start(QString const& directoryAndName, StreamInfo const& streams,
                                                 bool dump, QObject* listener, std::function<void(QString)> failed);

    PacketRecorder(QString const& directoryAndName, StreamInfo const& streams, bool dump, QObject* listener,
                   std::function<void(QString)> failed);
    ~PacketRecorder();
    PacketRecorder(PacketRecorder const&) = delete;
    PacketRecorder& operator=(PacketRecorder const&) = delete;

    /// Takes a reference to a packet's bytes. Does not wait.
    void write(AVPacket const& packet);

    /// Lets the thread write what it has, and complete the files. Does not wait. A failure of that is told, too.
    void finish();

    /// From now on a failure is only logged.
    void forgetListener();

private:
    void run();
    bool openFiles();
    std::unique_ptr<QFile> openFile(QString const& stem, QString const& suffix);
    bool writePacket(AVPacket& packet);
    bool writeDump(AVPacket const& packet);
    void fail(QString const& reason);
    AVPacket* nextPacket();

    static Logger* log;

    // For the recorder's thread.
    QString const _directoryAndName;
    StreamInfo const _streams;
    bool const _dumps;
    std::unique_ptr<MatroskaFile> _film;
    std::unique_ptr<QFile> _dump;
    qint64 _recordedBytes = 0;

    std::mutex _mutex; ///< Guards what follows.
    std::condition_variable _changed;
    QObject* _listener; ///< Null once it is forgotten, or has been told of a failure.
    std::function<void(QString)> const _failed;
    std::deque<AVPacket*> _queue;
    qint64 _queuedBytes = 0;
    bool _tooSlow = false;
    bool _finished = false;
};

#pragma once

#include "LatteClient.h"

#include <memory>
#include <mutex>

class Logger;
class QFile;

/// Delivers a local file, beginning with its header. Its descriptor is the part of the file that FFmpeg needs before
/// the first packet, its data the rest; a file that cannot be played from front to back is refused.
class FileLatteClient : public LatteClient
{
    Q_OBJECT

public:
    static constexpr qint64 minimumHeaderBytes = 32768;    ///< A format is recognised by this much.
    static constexpr qint64 maximumHeaderBytes = 32 << 20; ///< A longer header is no stream's.

    /// Throws std::invalid_argument for a file that cannot be opened or has no header.
    explicit FileLatteClient(Uri const& uri, QObject* parent = nullptr);
    ~FileLatteClient() override;

    void startBuffering() override;
    void stopBuffering() override;
    Uri uri() const override { return _uri; }
    LatteClientState state() const override;
    qint64 bufferByteLength() const override;
    /// Throws std::invalid_argument for a negative length.
    void setBufferByteLength(qint64 length) override;
    void clearBuffer() override;
    qint64 bytesAvailable() const override;
    void seekToTime(QDateTime const& time) override;
    qint64 read(char* data, qint64 size) override;
    bool isSeekable() const override { return false; }
    QByteArray descriptor(qint64 offset) const override;

private:
    qint64 findHeaderSize();
    qint64 bytesAvailableLocked() const;

    static Logger* log;

    Uri const _uri;
    QByteArray _header; ///< Set by the constructor.
    qint64 _fileSize = 0;

    mutable std::mutex _mutex; ///< Guards what follows.
    LatteClientState _state = Idle;
    std::unique_ptr<QFile> _file;
    qint64 _bufferByteLength = 5000;
    qint64 _position = 0; ///< In the file.
    bool _descriptorEmitted = false;
};

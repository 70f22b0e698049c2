#pragma once

#include "RecordingTimeline.h"

#include <QString>

#include <cstdint>
#include <memory>

class Logger;
class QFile;
struct AVFormatContext;
struct AVPacket;

/// A film of one picture and one sound, written packet by packet. A cluster reaches the file as soon as it is a
/// second long, and needs nothing that comes later; finish() adds the index and the length. For one thread.
class MatroskaFile
{
public:
    static constexpr int clusterTime = 1000; ///< ms

    /// Takes an empty file, open for writing.
    MatroskaFile(std::unique_ptr<QFile> file, std::vector<StreamSnapshot> const& streams);
    ~MatroskaFile();
    MatroskaFile(MatroskaFile const&) = delete;
    MatroskaFile& operator=(MatroskaFile const&) = delete;

    /// Writes a packet of one of the streams, whose content it may change; skips others, and what cannot be shown
    /// yet. False when the file cannot be written or holds no such streams.
    bool write(AVPacket& packet);

    /// Completes the file. False when that could not be written.
    bool finish();

    /// What went wrong, in words for the viewer.
    QString errorString() const { return _error; }

    /// Writes all of it: a disk that is nearly full takes a part, and tells its error only when asked for the rest.
    static bool writeAll(QFile& file, char const* data, qint64 size);

private:
    bool begin();
    bool addStream(StreamSnapshot const& snapshot);
    std::size_t outputOf(AVPacket const& packet) const;
    static int writeCallback(void* opaque, unsigned char* data, int size);
    static std::int64_t seekCallback(void* opaque, std::int64_t offset, int origin);

    static Logger* log;

    std::unique_ptr<QFile> _file;
    std::vector<StreamSnapshot> const _streams;
    AVFormatContext* _context = nullptr;
    RecordingTimeline _timeline;
    QString _error;
    bool _begun = false;
    bool _refusalLogged = false;
};

#pragma once

#include <QString>

#include <cstdio>
#include <memory>
#include <mutex>

class Logger;
struct AVPacket;

/// A text file with the time stamps and bytes of every packet of a movie, for looking into a broken stream.
/// Any thread may dump.
class GLMoviePacketDump
{
public:
    /// Opens "<directory>/<yyMMddhhmmss>_PacketDump.txt" anew. Returns false, with a log line, when that fails.
    bool openPacketDumpFile(QString const& directory);
    void close();

    /// Writes "<label> - PTS .. DTS .. Size .." and the data as pairs of hexadecimal digits. Nothing when not open.
    void dumpPacket(char const* label, AVPacket const& packet);

private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    static Logger* log;

    std::mutex _mutex; ///< Guards the file.
    std::unique_ptr<std::FILE, Closer> _file;
};

#include "GLMoviePacketDump.h"

#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavcodec/packet.h>
}

#include <QDateTime>
#include <QDir>

Logger* GLMoviePacketDump::log = LoggerManager::logger();

bool GLMoviePacketDump::openPacketDumpFile(QString const& directory)
{
    QString const name = QDateTime::currentDateTime().toString("yyMMddhhmmss") + "_PacketDump.txt";
    QString const path = QDir(directory).filePath(name);
    std::lock_guard const lock(_mutex);
    _file.reset(std::fopen(QFile::encodeName(path).constData(), "wte"));
    if (!_file)
        LOG_WARNING("Could not open packet dump file %s", qPrintable(path));
    return _file != nullptr;
}

void GLMoviePacketDump::close()
{
    std::lock_guard const lock(_mutex);
    _file.reset();
}

void GLMoviePacketDump::dumpPacket(char const* label, AVPacket const& packet)
{
    std::lock_guard const lock(_mutex);
    if (!_file)
        return;
    std::fprintf(_file.get(), "%s - PTS %lld DTS %lld Size %d\n", label, static_cast<long long>(packet.pts),
                 static_cast<long long>(packet.dts), packet.size);
    for (int i = 0; i < packet.size; ++i)
        std::fprintf(_file.get(), "%02x", packet.data[i]);
    std::fputc('\n', _file.get());
}

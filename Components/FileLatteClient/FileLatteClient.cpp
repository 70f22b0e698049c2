#include "FileLatteClient.h"

#include "FFwrapper.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavformat/avformat.h>
}

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <stdexcept>

Logger* FileLatteClient::log = LoggerManager::logger();

namespace
{

/// Reads a file as a stream would arrive: forwards only, and not without end.
int readForwards(void* userData, std::uint8_t* buffer, int size)
{
    auto* const file = static_cast<QFile*>(userData);
    if (file->pos() >= FileLatteClient::maximumHeaderBytes)
        return AVERROR_EOF;
    qint64 const count = file->read(reinterpret_cast<char*>(buffer), size);
    return count > 0 ? static_cast<int>(count) : count == 0 ? AVERROR_EOF : AVERROR(EIO);
}

} // namespace

FileLatteClient::FileLatteClient(Uri const& uri, QObject* parent) : LatteClient(parent), _uri(uri)
{
    static QRegularExpression const scheme(QStringLiteral("^file\\:\\/\\/"));
    QString const path = uri.toString().remove(scheme);
    LOG_DEBUG("Creating FileChannel for file %s", qPrintable(path));
    _file = std::make_unique<QFile>(path);
    if (!QFileInfo(path).isFile() || !_file->open(QIODevice::ReadOnly)) {
        LOG_ERROR("Error code %d", AVERROR(ENOENT));
        throw std::invalid_argument("Could not parse header.");
    }
    qint64 const headerSize = findHeaderSize();
    _fileSize = QFileInfo(path).size();
    LOG_DEBUG("File has %lld data bytes", static_cast<long long>(_fileSize));
    _file->seek(0);
    _header = _file->read(std::max(headerSize, minimumHeaderBytes));
    _position = _header.size();
}

FileLatteClient::~FileLatteClient() = default;

qint64 FileLatteClient::findHeaderSize()
{
    AVInputFormat const* const format = FFwrapper::probeFormat(_file->peek(minimumHeaderBytes));
    AVFormatContext* opening = avformat_alloc_context();
    FFwrapper::setFFHandler(opening, &readForwards, nullptr, _file.get());
    int result = format ? FFwrapper::openContext(opening, "", format) : AVERROR_INVALIDDATA;
    FormatContextPointer const context(opening);
    qint64 headerSize = 0;
    if (result >= 0) {
        headerSize = avio_tell(context->pb);
        AVPacket* packet = av_packet_alloc();
        result = av_read_frame(context.get(), packet); // Fails when the index comes after what it points to.
        av_packet_free(&packet);
    }
    if (result < 0) {
        LOG_ERROR("Error code %d", result);
        throw std::invalid_argument("Could not parse header.");
    }
    return headerSize;
}

void FileLatteClient::startBuffering()
{
    bool first = false;
    {
        std::lock_guard const lock(_mutex);
        _state = Delivering;
        first = !std::exchange(_descriptorEmitted, true);
    }
    if (first)
        emit descriptorChanged(this, 0);
    emit readyRead(this);
}

void FileLatteClient::stopBuffering()
{
    std::lock_guard const lock(_mutex);
    _state = Idle;
}

LatteClient::LatteClientState FileLatteClient::state() const
{
    std::lock_guard const lock(_mutex);
    return _state == Delivering && _position >= _fileSize ? Finished : _state;
}

qint64 FileLatteClient::bufferByteLength() const
{
    std::lock_guard const lock(_mutex);
    return _bufferByteLength;
}

void FileLatteClient::setBufferByteLength(qint64 length)
{
    if (length < 0)
        throw std::invalid_argument("Cannot make buffer negative length.");
    std::lock_guard const lock(_mutex);
    _bufferByteLength = length;
}

void FileLatteClient::clearBuffer() {}

qint64 FileLatteClient::bytesAvailable() const
{
    std::lock_guard const lock(_mutex);
    return bytesAvailableLocked();
}

qint64 FileLatteClient::bytesAvailableLocked() const
{
    return std::clamp<qint64>(_fileSize - _position, 0, _bufferByteLength);
}

void FileLatteClient::seekToTime(QDateTime const&) {}

qint64 FileLatteClient::read(char* data, qint64 size)
{
    qint64 count = 0;
    {
        std::lock_guard const lock(_mutex);
        qint64 const wanted = std::min(size, bytesAvailableLocked());
        count = _file->read(data, wanted);
        if (count == 0 && wanted > 0)
            count = -1; // The file has been cut short meanwhile.
        if (count > 0)
            _position += count;
    }
    if (count < 0)
        emit error(this, NetworkErrors::GeneralError);
    else
        emit readyRead(this);
    return count;
}

QByteArray FileLatteClient::descriptor(qint64) const
{
    return _header;
}

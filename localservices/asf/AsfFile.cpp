#include "AsfFile.h"

#include "AsfBroadcastHeader.h"
#include "AsfGuids.h"
#include "ByteCursor.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <algorithm>

Logger* AsfFile::log = LoggerManager::logger();

namespace
{
constexpr qsizetype dataHeaderSize = 50;
constexpr quint32 longestDuration = 24 * 3600 * 1000; // ms. Whatever tells more is damaged.
} // namespace

std::unique_ptr<AsfFile> AsfFile::open(QString const& path, QString& error)
{
    std::unique_ptr<AsfFile> file(new AsfFile(path));
    QString why;
    if (file->_file.open(QIODevice::ReadOnly)) {
        if (file->readHeader(why) && file->readIndex(why))
            return file;
    } else {
        why = file->_file.errorString();
    }
    error = QStringLiteral("cannot broadcast %1: %2").arg(path, why);
    return nullptr;
}

QByteArray AsfFile::broadcastHeader(QString const& title) const
{
    return AsfBroadcastHeader::make(_headerBytes, _header, title);
}

bool AsfFile::readHeader(QString& error)
{
    _headerBytes = _file.read(24);
    ByteCursor start(_headerBytes, 16);
    quint64 const size = start.u64();
    if (!_headerBytes.startsWith(AsfGuids::view(AsfGuids::header)) || size > AsfHeader::maximumSize || size < 30) {
        error = QStringLiteral("it is no ASF file");
        return false;
    }
    _headerBytes += _file.read(static_cast<qint64>(size) - 24);
    QByteArray const dataHeader = _file.read(dataHeaderSize);
    if (dataHeader.size() < dataHeaderSize || !dataHeader.startsWith(AsfGuids::view(AsfGuids::data))) {
        error = QStringLiteral("it ends before its data packets");
        return false;
    }
    std::optional<AsfHeader> const header = AsfHeader::parse(_headerBytes, error);
    if (!header)
        return false;
    _header = *header;
    ByteCursor data(dataHeader, 40);
    _packetsTold = data.u64();
    _firstPacket = _file.pos();
    return true;
}

bool AsfFile::readIndex(QString& error)
{
    quint64 const there = static_cast<quint64>(_file.size() - _firstPacket) / _header.packetSize();
    quint64 const count = std::min<quint64>(_packetsTold ? std::min(_packetsTold, there) : there, maximumPackets);
    QMap<int, Totals> totals;
    for (quint64 i = 0; i < count; ++i) {
        std::optional<AsfPacket> const packet = AsfPacket::parse(_file.read(_header.packetSize()));
        if (!packet) {
            LOG_WARNING("%s: data packet %llu is damaged, the film ends before it", qUtf8Printable(_file.fileName()),
                        static_cast<unsigned long long>(i));
            break;
        }
        addToIndex(*packet, totals);
    }
    if (_sendTimes.isEmpty()) {
        error = QStringLiteral("it has no data packet");
        return false;
    }
    complete(totals);
    return true;
}

void AsfFile::addToIndex(AsfPacket const& packet, QMap<int, Totals>& totals)
{
    if (_sendTimes.isEmpty())
        _firstSendTime = packet.sendTime();
    quint32 const previous = _sendTimes.isEmpty() ? 0 : _sendTimes.last();
    quint32 const elapsed = packet.sendTime() < _firstSendTime ? 0 : packet.sendTime() - _firstSendTime;
    _sendTimes.append(std::clamp(elapsed, previous, std::max(previous, longestDuration)));
    for (AsfPacket::Payload const& payload : packet.payloads()) {
        Totals& total = totals[payload.stream];
        total.bytes += static_cast<quint64>(payload.dataSize);
        if (!payload.startsObject)
            continue;
        quint32 const time = payload.presentationTime.value;
        total.firstTime = total.objects == 0 ? time : std::min(total.firstTime, time);
        total.lastTime = std::max(total.lastTime, time);
        ++total.objects;
        QList<int>& keys = _keyPackets[payload.stream];
        if (payload.isKeyFrame && (keys.isEmpty() || keys.last() != packetCount() - 1))
            keys.append(packetCount() - 1);
    }
}

/// What can be told only when all packets have been seen.
void AsfFile::complete(QMap<int, Totals> const& totals)
{
    _duration = _sendTimes.last() + 1;
    for (auto total = totals.cbegin(); total != totals.cend(); ++total) {
        _objectCounts.insert(total.key(), total->objects);
        if (total->objects < 2)
            continue;
        quint32 const span = total->lastTime - total->firstTime;
        _duration = std::max(_duration, std::min(span + span / (total->objects - 1), longestDuration));
    }
    QList<int> pictures;
    for (auto stream = _header.streams().cbegin(); stream != _header.streams().cend(); ++stream) {
        if (stream->kind == AsfHeader::Kind::Video)
            pictures.append(stream.key());
        else
            _keyPackets.remove(stream.key()); // Sound begins anywhere.
    }
    for (auto total = totals.cbegin(); total != totals.cend(); ++total) {
        if (_header.streams().contains(total.key()) && _header.streams().value(total.key()).bitrate == 0)
            _header.setBitrate(total.key(), static_cast<quint32>(total->bytes * 8000 / _duration));
    }
    // Several pictures without a word on which are alternatives: the same one at several bit rates.
    if (pictures.size() > 1 && _header.exclusions().isEmpty())
        _header.addExclusion(pictures);
}

std::optional<AsfPacket> AsfFile::packet(int index)
{
    if (!_file.seek(_firstPacket + static_cast<qint64>(index) * _header.packetSize()))
        return std::nullopt;
    QByteArray const bytes = _file.read(_header.packetSize());
    return bytes.size() == static_cast<qsizetype>(_header.packetSize()) ? AsfPacket::parse(bytes) : std::nullopt;
}

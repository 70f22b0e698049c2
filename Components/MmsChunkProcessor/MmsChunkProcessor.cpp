#include "MmsChunkProcessor.h"

#include "AsfDataObject.h"
#include "AsfGuids.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QtEndian>

#include <algorithm>
#include <cctype>
#include <utility>

Logger* MmsChunkProcessor::log = LoggerManager::logger();

namespace
{
enum ChunkType : quint8 {
    ResetChunk = 'C',
    DataChunk = 'D',
    EndChunk = 'E',
    HeaderChunk = 'H',
    MetadataChunk = 'M',
    PacketPairChunk = 'P',
    TestChunk = 'T'
};

/// How many bytes of a chunk may still be missing.
constexpr qsizetype maximumLateBytes = 2;

/// Metadata without it is not complete.
constexpr QByteArrayView metadataMark = "playlist-gen-id";

bool isStart(quint8 byte)
{
    return (byte & 0x7F) == '$';
}

bool isKnown(quint8 type)
{
    return QByteArrayView("CDEHMPT").contains(static_cast<char>(type));
}
} // namespace

MmsChunkProcessor::MmsChunkProcessor(QObject* parent) : ChunkProcessor(parent) {}

void MmsChunkProcessor::processData(QByteArray const& bytes)
{
    QByteArray rest = bytes;
    takeLateBytes(rest);
    bool const borrowed = _input.isEmpty(); // Most often all of it is whole chunks, and none has to be kept.
    if (borrowed)
        _input = rest;
    else
        _input.append(rest);
    while (processChunk()) {
    }
    if (_consumed > 0 || borrowed) {
        _input = QByteArray(_input.constData() + _consumed, _input.size() - _consumed);
        _start -= _consumed;
        _consumed = 0;
    }
}

void MmsChunkProcessor::reset()
{
    _packetPairCycle = 1;
    _input.clear();
    _consumed = _start = 0;
    _lateBytes = 0;
}

bool MmsChunkProcessor::processChunk()
{
    if (_input.size() - _consumed <= 3 || !findStart() || _start + 1 >= _input.size())
        return false;
    auto const* const start = reinterpret_cast<uchar const*>(_input.constData()) + _start;
    quint8 const type = start[1];
    if (!isKnown(type))
        return processUnknown(type);
    Chunk chunk{.type = type, .body = _start + 4};
    chunk.available = _input.size() - chunk.body;
    if (chunk.available < 0)
        return false;
    chunk.length = qFromLittleEndian<quint16>(start + 2);
    return dispatch(chunk);
}

bool MmsChunkProcessor::processUnknown(quint8 type)
{
    bool const isInPlace = _start == _consumed && std::isupper(type);
    if (isInPlace) {
        if (_input.size() < _start + 4)
            return false;
        qsizetype const end = _start + 4 + qFromLittleEndian<quint16>(_input.constData() + _start + 2);
        if (_input.size() < end + 2)
            return false; // Whether a chunk follows is to be seen yet.
        if (isStart(static_cast<quint8>(_input.at(end))) && std::isupper(static_cast<uchar>(_input.at(end + 1)))) {
            LOG_DEBUG("Chunk of unknown type %d skipped", type);
            consume(end);
            return true;
        }
    }
    resynchronise(type);
    return true;
}

bool MmsChunkProcessor::dispatch(Chunk const& chunk)
{
    switch (chunk.type) {
    case ResetChunk:
    case EndChunk:
        return processReasonChunk(chunk);
    case PacketPairChunk:
        return processPacketPair(chunk);
    default:
        if (_strict && chunk.type == HeaderChunk)
            return processStrictHeader(chunk);
        return processPayloadChunk(chunk);
    }
}

/// Looks for the "$" of the next chunk from where the last search ended.
bool MmsChunkProcessor::findStart()
{
    qsizetype const searched = _start;
    while (_start < _input.size() && !isStart(static_cast<quint8>(_input.at(_start))))
        ++_start;
    if (_start > searched)
        LOG_DEBUG("POS is %d packet processed %d", static_cast<int>(_start - _consumed),
                  static_cast<int>(_packetsProcessed));
    if (_start - _consumed > maximumStrayBytes) {
        LOG_WARNING("Stream is not sync, %lld bytes without a chunk dropped",
                    static_cast<long long>(_start - _consumed));
        consume(_start);
    }
    return _start < _input.size();
}

void MmsChunkProcessor::consume(qsizetype end)
{
    _consumed = _start = end;
}

bool MmsChunkProcessor::processReasonChunk(Chunk const& chunk)
{
    if (chunk.length > chunk.available)
        return false;
    int const reason =
        chunk.length < 4 ? 0 : static_cast<int>(qFromLittleEndian<quint32>(_input.constData() + chunk.body));
    consume(chunk.body + chunk.length);
    _synchronised = true;
    if (chunk.type == ResetChunk) {
        LOG_INFO("Notification packet received reason %d", reason);
        emit onResetChunk(reason);
    } else {
        LOG_INFO("End Of Stream packet received reason %d", reason);
        _pendingPacket.clear();
        emit onEndOfData(reason);
    }
    return true;
}

bool MmsChunkProcessor::processPayloadChunk(Chunk const& chunk)
{
    // What the others say is said at once, and has to be whole.
    bool const mayBeLate = chunk.type == TestChunk || (chunk.type == DataChunk && !_strict);
    if (chunk.length > chunk.available + (mayBeLate ? maximumLateBytes : 0))
        return false;
    QByteArray const stray = _input.mid(_consumed, _start - _consumed);
    qsizetype const present = std::min(chunk.length, chunk.available);
    QByteArray const payload =
        chunk.type == TestChunk ? QByteArray()
                                : _input.mid(chunk.body + prefixBytes, std::max<qsizetype>(0, present - prefixBytes));
    _lateType = chunk.type;
    _lateBytes = chunk.length - present;
    _latePrefix = std::max<qsizetype>(0, prefixBytes - present);
    consume(chunk.body + present);
    _synchronised = true;
    switch (chunk.type) {
    case HeaderChunk:
        processHeader(payload);
        break;
    case DataChunk:
        processPacket(stray, payload);
        break;
    case MetadataChunk:
        _pendingPacket.clear();
        ++_packetsProcessed;
        addMetadata(payload);
        break;
    default:
        LOG_INFO("Test packet received reason %d", 0);
        emit onTestChunk(0);
    }
    return true;
}

/// Takes the last bytes of a chunk that was taken without them.
void MmsChunkProcessor::takeLateBytes(QByteArray& bytes)
{
    if (_lateBytes == 0)
        return;
    QByteArray late = bytes.left(_lateBytes);
    bytes.remove(0, late.size());
    _lateBytes -= late.size();
    qsizetype const prefix = std::min(_latePrefix, late.size());
    late.remove(0, prefix);
    _latePrefix -= prefix;
    if (_lateType == DataChunk)
        _pendingPacket.append(late);
}

bool MmsChunkProcessor::processPacketPair(Chunk const& chunk)
{
    constexpr qsizetype reasonBytes = 4;
    if (chunk.available < reasonBytes)
        return false;
    auto const reason = qFromLittleEndian<quint32>(_input.constData() + chunk.body);
    qint64 size = 1044;
    if (_packetPairCycle == 1)
        size = chunk.length + 4 - qint64(reason);
    else if (_packetPairCycle == 3)
        size = qint64(reason) + 500;
    if (size < reasonBytes || size > maximumPacketPairBytes) {
        resynchronise(chunk.type);
        return true;
    }
    if (size > chunk.available)
        return false;
    dropPending();
    consume(chunk.body + size);
    _synchronised = true;
    LOG_INFO("Packet pair packet received reason %d", static_cast<int>(reason));
    _packetPairCycle = _packetPairCycle % 3 + 1;
    emit onPacketPairPacket(static_cast<int>(reason));
    return true;
}

/// The header's own sizes decide where it ends.
bool MmsChunkProcessor::processStrictHeader(Chunk const& chunk)
{
    qsizetype const begin = chunk.body + prefixBytes;
    qint64 const available = _input.size() - begin;
    if (chunk.length > chunk.available || available < SimpleAsfObject::headerBytes)
        return false;
    auto const headerSize = qFromLittleEndian<quint64>(_input.constData() + begin + 16);
    bool const possible = headerSize <= static_cast<quint64>(maximumHeaderBytes);
    qint64 const expected = possible ? static_cast<qint64>(headerSize) + AsfDataObject::bytes : 0;
    if (available < expected)
        return false;
    _parser.reset();
    QByteArray const rest = _input.mid(begin, expected);
    qint64 const size = _parser.ParseHeader(rest);
    dropPending();
    _header = rest.left(size);
    _headerBytesMissing = 0;
    ++_packetsProcessed;
    consume(size > 0 ? begin + size : chunk.body + chunk.length);
    if (size == 0)
        LOG_WARNING("ASF header of %lld bytes cannot be parsed", static_cast<long long>(chunk.length));
    else
        emit onHeader(_header);
    return true;
}

/// The "$" was none of a chunk but within something else: gives it and what was skipped to where it can belong.
void MmsChunkProcessor::resynchronise(quint8 type)
{
    qsizetype const end = _start + (isStart(type) ? 1 : 2); // A second "$" may be one of a chunk.
    QByteArray const bytes = _input.mid(_consumed, end - _consumed);
    consume(end);
    if (!_pendingPacket.isEmpty() && _pendingPacket.size() + bytes.size() < effectivePacketSize()) {
        LOG_DEBUG("append data");
        _pendingPacket.append(bytes);
    } else if (!_pendingMetadata.isEmpty()) {
        LOG_DEBUG("append metadata");
        addMetadata(bytes);
    } else if (std::exchange(_synchronised, false)) {
        LOG_WARNING("Stream is not sync, trying to sync");
    }
}

void MmsChunkProcessor::dropPending()
{
    _pendingPacket.clear();
    _pendingMetadata.clear();
}

void MmsChunkProcessor::processHeader(QByteArray const& payload)
{
    dropPending();
    ++_packetsProcessed;
    if (_headerBytesMissing > 0) {
        _header.append(payload);
        _headerBytesMissing -= payload.size();
    } else {
        _header = payload;
        LittleEndianReader in(payload);
        QUuid const guid = SimpleAsfParser::uuidFromStream(in);
        auto const size = in.read<quint64>();
        if (guid != asfHeaderGuid || in.hasFailed()) {
            _header.clear();
        } else if (size > static_cast<quint64>(maximumHeaderBytes)) {
            LOG_WARNING("ASF header of %llu bytes refused", static_cast<unsigned long long>(size));
            _header.clear();
        } else {
            _headerBytesMissing = static_cast<qint64>(size) + AsfDataObject::bytes - _header.size();
        }
    }
    _headerBytesMissing = std::max<qint64>(0, _headerBytesMissing);
    if (_headerBytesMissing == 0 && !_header.isEmpty())
        emit onHeader(_header);
}

void MmsChunkProcessor::processPacket(QByteArray const& stray, QByteArray const& payload)
{
    _pendingMetadata.clear();
    ++_packetsProcessed;
    if (_strict) {
        if (_parser.ParseFrame(payload) != 0)
            emitPacket(payload);
        return;
    }
    QByteArray previous = std::exchange(_pendingPacket, payload);
    if (!previous.isEmpty())
        emitPacket(previous.append(stray));
}

void MmsChunkProcessor::emitPacket(QByteArray packet)
{
    if (_padding && packet.size() < effectivePacketSize())
        packet.append(effectivePacketSize() - packet.size(), '\0');
    emit onData(packet);
}

void MmsChunkProcessor::addMetadata(QByteArray const& bytes)
{
    qsizetype const searched = _pendingMetadata.size() - metadataMark.size() + 1;
    _pendingMetadata.append(bytes);
    if (processMetadata(_pendingMetadata, std::max<qsizetype>(0, searched)))
        return;
    LOG_DEBUG("Could not find playlist-gen-id from embedded playlist. waiting for next packet");
    if (_pendingMetadata.size() > maximumMetadataBytes) {
        LOG_WARNING("%lld bytes of metadata dropped", static_cast<long long>(_pendingMetadata.size()));
        _pendingMetadata.clear();
    }
}

bool MmsChunkProcessor::processMetadata(QByteArray const& bytes, qsizetype searchFrom)
{
    if (bytes.indexOf(metadataMark, searchFrom) < 0)
        return false;
    QString const text = QString::fromUtf8(bytes.constData()); // Up to the first zero byte.
    _pendingMetadata.clear();
    emit onMetadataChunk(text);
    return true;
}

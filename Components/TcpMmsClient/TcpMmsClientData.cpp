// The data packets that the client receives: first the ASF header, then the stream.

#include "Logger.h"
#include "TcpMmsClient.h"
#include "TcpMmsSessionHandlers.h"

#include <QtEndian>

#include <algorithm>

namespace
{

constexpr char headerObjectGuid[] = "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C";
constexpr qsizetype guidBytes = 16;
constexpr qsizetype objectPrefixBytes = 24; ///< GUID and 64-bit size.
constexpr qint64 dataObjectHeaderBytes = 50;

bool startsWithHeaderObject(QByteArray const& bytes)
{
    return bytes.startsWith(QByteArrayView(headerObjectGuid, guidBytes));
}

} // namespace

void TcpMmsClient::handleData(unsigned int locationId, unsigned char, QByteArray const& bytes)
{
    if (_state == ReadingHeader && locationId == _expectedLocationId) {
        handleHeaderData(locationId, bytes);
        return;
    }
    if (_state == Streaming) {
        if (!bytes.isEmpty())
            _uselessBytes = 0;
        emit onData(bytes.size() < _packetSize ? bytes.leftJustified(_packetSize, '\0') : bytes);
        return;
    }
    if (_state == Unconnected)
        handleSoon(new MmsDisconnectHandler(this), 0);
    LOG_WARNING("Receiving packet data length %d locationId %d while the state %d", static_cast<int>(bytes.size()),
                static_cast<int>(locationId), _state);
}

void TcpMmsClient::handleHeaderData(unsigned int locationId, QByteArray const& bytes)
{
    if (locationId == 0)
        _headerBuffer.clear();
    _headerBuffer += bytes;
    if (!startsWithHeaderObject(_headerBuffer)) {
        _headerBuffer.clear();
        _expectedLocationId = 0;
        LOG_WARNING("Unknown chunk of data with locationId %d", static_cast<int>(locationId));
        return;
    }
    ++_expectedLocationId;
    qint64 const useful = std::min<qint64>(bytes.size(), _headerAllowance);
    _headerAllowance -= useful;
    _uselessBytes -= useful;
    if (_headerBuffer.size() < objectPrefixBytes)
        return;
    auto const objectBytes = qFromLittleEndian<quint64>(_headerBuffer.constData() + guidBytes);
    if (objectBytes > maximumHeaderBytes) {
        LOG_ERROR("ASF header of %llu bytes, at most %lld are taken", static_cast<unsigned long long>(objectBytes),
                  static_cast<long long>(maximumHeaderBytes));
        endSession(Unconnected, StreamNotAvailable);
        return;
    }
    qint64 const whole = static_cast<qint64>(objectBytes) + dataObjectHeaderBytes;
    if (_headerBuffer.size() < whole)
        return;
    _headerBuffer.truncate(whole); // A server may fill its last packet up.
    headerCompleted();
}

void TcpMmsClient::headerCompleted()
{
    if (!processHeader()) {
        endSession(Unconnected, StreamNotAvailable);
        return;
    }
    _expectedLocationId = 0;
    sendLinkViewerToMacStreamSwitch();
    emit onHeader(_headerBuffer);
}

bool TcpMmsClient::processHeader()
{
    bool const isValid = openHeader(_headerBuffer) && !_headerBuffer.isEmpty() && _packetSize <= maximumPacketSize;
    if (!isValid)
        LOG_ERROR("Invalid ASF header");
    return isValid;
}

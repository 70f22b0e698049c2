// The data packets that the client receives: first the ASF header, then the stream.

#include "AsfDataObject.h"
#include "AsfGuids.h"
#include "Logger.h"
#include "TcpMmsClient.h"
#include "TcpMmsSessionHandlers.h"

#include <algorithm>

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
    LittleEndianReader in(_headerBuffer);
    if (in.read<QUuid>() != asfHeaderGuid) {
        _headerBuffer.clear();
        _expectedLocationId = 0;
        LOG_WARNING("Unknown chunk of data with locationId %d", static_cast<int>(locationId));
        return;
    }
    ++_expectedLocationId;
    qint64 const useful = std::min<qint64>(bytes.size(), _headerAllowance);
    _headerAllowance -= useful;
    _uselessBytes -= useful;
    auto const objectBytes = in.read<quint64>();
    if (in.hasFailed())
        return;
    if (objectBytes > maximumHeaderBytes) {
        LOG_ERROR("ASF header of %llu bytes, at most %lld are taken", static_cast<unsigned long long>(objectBytes),
                  static_cast<long long>(maximumHeaderBytes));
        endSession(Unconnected, StreamNotAvailable);
        return;
    }
    qint64 const whole = static_cast<qint64>(objectBytes) + AsfDataObject::bytes;
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

#include "MmsTcpRequestReader.h"

#include "ByteCursor.h"
#include "MmsTcpReport.h"

std::optional<MmsTcpRequest> MmsTcpRequestReader::next()
{
    if (!_error.isEmpty() || _buffer.size() < 16)
        return std::nullopt;
    ByteCursor cursor(_buffer);
    quint8 const representation = cursor.u8();
    cursor.skip(3);
    quint32 const session = cursor.u32();
    quint64 const size = quint64(cursor.u32()) + 16;
    quint32 const seal = cursor.u32();
    if (representation != 1 || session != MmsTcpReport::sessionId || seal != MmsTcpReport::seal)
        _error = QStringLiteral("what it sends is no MMS message");
    else if (size < MmsTcpReport::headerSize || size > maximumSize)
        _error = QStringLiteral("it sends an MMS message of %1 bytes, %2 to %3 are possible")
                     .arg(size)
                     .arg(MmsTcpReport::headerSize)
                     .arg(maximumSize);
    if (!_error.isEmpty() || static_cast<quint64>(_buffer.size()) < size)
        return std::nullopt;
    cursor.skip(16);
    quint64 const chunk = quint64(cursor.u32()) * 8;
    if (chunk < 8 || chunk > size - 32) {
        _error = QStringLiteral("it sends an MMS message whose two sizes do not agree");
        return std::nullopt;
    }
    MmsTcpRequest request;
    request.type = cursor.u32();
    request.body = cursor.bytes(chunk - 8).toByteArray();
    _buffer.remove(0, static_cast<qsizetype>(size));
    return request;
}

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// The bytes of MMS over TCP, written down apart from the classes under test.
namespace TcpMmsWire
{

QByteArray u16(quint16 value);
QByteArray u32(quint32 value);
QByteArray numbers(QList<quint32> const& values);
QByteArray real(double value);

/// UTF-16 with a 0 unit.
QByteArray text(QString const& text);

/// A whole message with its header and its padding.
QByteArray message(quint32 type, QByteArray const& body, quint16 sequence = 0);

/// A message with a length of one's choice in its header, and nothing but what its header and type take.
QByteArray messageOfLength(quint32 type, quint32 messageLength);

/// A data packet; without a size, the right one.
QByteArray data(quint32 locationId, QByteArray const& payload, int size = -1);

/// The ASF header of a film with two streams, with the Data object's own header.
QByteArray asfHeader();

/// The bytes cut into so many parts of about one size.
QList<QByteArray> parts(QByteArray const& bytes, int count);

// What a server answers to each step of a conversation that succeeds.
QByteArray connectedEx(quint32 result = 0, quint32 mark = 0);
QByteArray funnelInfo(quint32 result = 0);
QByteArray connectedFunnel(quint32 result = 0);
QByteArray openedFile(quint32 result = 0); ///< The file id is 7.
QByteArray readBlock(quint32 result = 0);
QByteArray header(); ///< In three data packets.
QByteArray streamSwitch(quint32 result = 0);
QByteArray startedPlaying(quint32 result = 0);

} // namespace TcpMmsWire

#pragma once

#include <QByteArray>
#include <QObject>

/// Cuts a received byte stream into an ASF header and data packets.
class ChunkProcessor : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Takes the next bytes of the stream, split anywhere; the signals are emitted from within.
    virtual void processData(QByteArray const& bytes) = 0;

    /// Bytes of an ASF data packet; with padding, shorter ones are filled up with zeros.
    virtual void setPacketSize(int size) = 0;
    virtual void setPadding(bool padding) = 0;

    /// Forgets the bytes that are still incomplete, before a new stream.
    virtual void reset() = 0;
    virtual int packetSize() const = 0;
    virtual bool isPadded() const = 0;
    virtual qint64 packetsProcessed() const = 0;

signals:
    /// The ASF header up to and including the Data object's own header.
    void onHeader(QByteArray header);
    void onData(QByteArray packet);
    /// The server says that the stream, or an entry of its playlist, has ended.
    void onEndOfData(int reason);
};

#include "AsfBuilder.h"

#include "ByteCursor.h"

namespace
{
QByteArray object(AsfGuids::Guid const& guid, QByteArray const& body)
{
    QByteArray bytes = AsfGuids::view(guid).toByteArray();
    appendLittleEndian<quint64>(bytes, static_cast<quint64>(body.size()) + 24);
    return bytes + body;
}

QByteArray streamProperties(AsfGuids::Guid const& kind, int number)
{
    QByteArray body = AsfGuids::view(kind) + QByteArray(32, '\0');
    appendLittleEndian<quint16>(body, static_cast<quint16>(number));
    return object(AsfGuids::streamProperties, body + QByteArray(4, '\0'));
}
} // namespace

AsfBuilder::AsfBuilder(int packets, int pictures) : _packets(packets), _pictures(pictures) {}

AsfBuilder& AsfBuilder::withoutBitrates()
{
    _bitrates = false;
    return *this;
}

QByteArray AsfBuilder::header() const
{
    QByteArray properties(16, 'f');
    properties += QByteArray(16, '\1') + QByteArray(36, '\0');
    for (quint32 const number : {packetSize, packetSize, 1000U})
        appendLittleEndian(properties, number);
    QByteArray objects = object(AsfGuids::fileProperties, properties.replace(64, 4, QByteArray("\2\0\0\0", 4)));
    quint32 count = 2;
    QByteArray rates;
    appendLittleEndian<quint16>(rates, static_cast<quint16>(_pictures + 1));
    for (int stream = 1; stream <= _pictures; ++stream, ++count) {
        objects += streamProperties(AsfGuids::videoMedia, stream);
        appendLittleEndian<quint16>(rates, static_cast<quint16>(stream));
        appendLittleEndian<quint32>(rates, static_cast<quint32>(100'000 * stream));
    }
    objects += streamProperties(AsfGuids::audioMedia, audioStream);
    appendLittleEndian<quint16>(rates, audioStream);
    appendLittleEndian<quint32>(rates, 50'000);
    if (_bitrates) {
        objects += object(AsfGuids::streamBitrates, rates);
        ++count;
    }
    QByteArray start;
    appendLittleEndian<quint32>(start, count);
    return object(AsfGuids::header, start + "\1\2" + objects);
}

QByteArray AsfBuilder::file() const
{
    QByteArray data(16, 'f');
    appendLittleEndian<quint64>(data, static_cast<quint64>(_packets));
    appendLittleEndian<quint16>(data, 0x0101);
    QByteArray packets;
    for (int i = 0; i < _packets; ++i) {
        auto const ms = static_cast<quint32>(i * msBetweenPackets);
        QList<Payload> payloads;
        for (int stream = 1; stream <= _pictures; ++stream)
            payloads.append({stream, i % packetsBetweenKeyFrames == 0, static_cast<quint8>(i), ms + 1000});
        payloads.append({audioStream, true, static_cast<quint8>(i), ms + 1000});
        packets += packet(ms, payloads);
    }
    return header() + object(AsfGuids::data, data + packets);
}

/// Error correction data, several payloads, and a padding length of 16 bits.
QByteArray AsfBuilder::packet(quint32 sendTime, QList<Payload> const& payloads)
{
    QByteArray start = QByteArray("\x82\0\0\x11\x5D", 5);
    QByteArray rest;
    appendLittleEndian(rest, sendTime);
    appendLittleEndian<quint16>(rest, msBetweenPackets);
    rest.append(static_cast<char>(0x80 | payloads.size()));
    for (Payload const& payload : payloads) {
        rest.append(static_cast<char>(payload.stream | (payload.isKeyFrame ? 0x80 : 0)));
        rest.append(static_cast<char>(payload.objectNumber));
        appendLittleEndian<quint32>(rest, 0);
        rest.append('\x8');
        appendLittleEndian<quint32>(rest, static_cast<quint32>(payload.data.size()));
        appendLittleEndian(rest, payload.presentationTime);
        appendLittleEndian<quint16>(rest, static_cast<quint16>(payload.data.size()));
        rest.append(payload.data);
    }
    qsizetype const padding = packetSize - start.size() - 2 - rest.size();
    appendLittleEndian<quint16>(start, static_cast<quint16>(padding));
    return start + rest + QByteArray(padding, '\0');
}

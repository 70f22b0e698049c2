#include "AsfBytes.h"

QByteArray AsfBytes::guid(QUuid const& value)
{
    QByteArray bytes = u32(value.data1) + u16(value.data2) + u16(value.data3);
    return bytes.append(reinterpret_cast<char const*>(value.data4), 8);
}

QByteArray AsfBytes::text(char const* ascii)
{
    QByteArray bytes;
    for (; *ascii; ++ascii)
        bytes += u16(static_cast<quint8>(*ascii));
    return bytes + u16(0);
}

QByteArray AsfBytes::object(QUuid const& objectGuid, QByteArray const& body)
{
    return guid(objectGuid) + u64(static_cast<quint64>(body.size() + 24)) + body;
}

QByteArray AsfBytes::fileProperties(quint32 packetSize, quint32 flags, quint64 fileSize)
{
    return object(asfFilePropertiesGuid, guid(asfWMGuid3) + u64(fileSize) + u64(1) + u64(2) + u64(3) + u64(4) +
                                             u64(5) + u32(flags) + u32(packetSize) + u32(packetSize) + u32(464000));
}

QByteArray AsfBytes::streamProperties(QUuid const& type, int streamNumber, QByteArray const& typeSpecific,
                                      QByteArray const& errorCorrection)
{
    return object(asfStreamPropertiesGuid,
                  guid(type) + guid(asfAudioConcealNone) + u64(7) + u32(static_cast<quint32>(typeSpecific.size())) +
                      u32(static_cast<quint32>(errorCorrection.size())) + u16(static_cast<quint16>(streamNumber)) +
                      u32(9) + typeSpecific + errorCorrection);
}

QByteArray AsfBytes::audio(int streamNumber, QByteArray const& codecData)
{
    return streamProperties(asfAudioMediaGuid, streamNumber,
                            u16(0x161) + u16(2) + u32(44100) + u32(8000) + u16(1486) + u16(16) +
                                u16(static_cast<quint16>(codecData.size())) + codecData,
                            "spread");
}

QByteArray AsfBytes::video(int streamNumber, QByteArray const& codecData)
{
    auto const headerSize = static_cast<quint16>(40 + codecData.size());
    return streamProperties(asfVideoMediaGuid, streamNumber,
                            u32(160) + u32(120) + u8(2) + u16(headerSize) + u32(headerSize) + u32(160) + u32(120) +
                                u16(1) + u16(24) + "WMV2" + u32(57600) + u32(1) + u32(2) + u32(3) + u32(4) +
                                codecData);
}

QByteArray AsfBytes::bitrates(QList<std::pair<int, quint32>> const& rates)
{
    QByteArray body = u16(static_cast<quint16>(rates.size()));
    for (auto const& [streamNumber, bitrate] : rates)
        body += u16(static_cast<quint16>(streamNumber)) + u32(bitrate);
    return object(asfBitratePropertiesGuid, body);
}

QByteArray AsfBytes::mutex(QUuid const& objectGuid, QUuid const& type, QList<int> const& streamNumbers)
{
    QByteArray body = guid(type) + u16(static_cast<quint16>(streamNumbers.size()));
    for (int const streamNumber : streamNumbers)
        body += u16(static_cast<quint16>(streamNumber));
    return object(objectGuid, body);
}

QByteArray AsfBytes::extendedStream(int streamNumber, QByteArray const& embedded, QByteArray const& names)
{
    QByteArray body = u64(1) + u64(2);
    for (quint32 i = 0; i < 8; ++i)
        body += u32(i);
    body += u16(static_cast<quint16>(streamNumber)) + u16(0) + u64(400000) + u16(static_cast<quint16>(names.size())) +
            u16(1) + names + guid(asfWMGuid3) + u16(4) + u32(3) + "abc" + embedded;
    return object(asfExtendedStreamPropertiesGuid, body);
}

QByteArray AsfBytes::metadata(QUuid const& objectGuid, QList<int> const& streamNumbers)
{
    QByteArray body = u16(static_cast<quint16>(streamNumbers.size()));
    for (int const streamNumber : streamNumbers)
        body += u16(0) + u16(static_cast<quint16>(streamNumber)) + u16(4) + u16(2) + u32(2) + text("V") + u16(1);
    return object(objectGuid, body);
}

QByteArray AsfBytes::headerExtension(QList<QByteArray> const& objects)
{
    QByteArray const data = objects.join();
    return object(asfHeaderExtensionGuid,
                  guid(asfReservedGuid) + u16(6) + u32(static_cast<quint32>(data.size())) + data);
}

QByteArray AsfBytes::header(QList<QByteArray> const& objects)
{
    QByteArray const inside = objects.join();
    return guid(asfHeaderGuid) + u64(static_cast<quint64>(inside.size() + 30)) +
           u32(static_cast<quint32>(objects.size())) + u8(1) + u8(2) + inside + guid(asfDataGuid) + u64(0) +
           guid(asfWMGuid3) + u64(0) + u16(0x101);
}

QList<QByteArray> AsfBytes::everyKind()
{
    QByteArray const codec = u16(1) + u16(3) + text("ab") + u16(2) + text("c") + u16(4) + "WMV2";
    QByteArray const groups = u16(2) + u16(1) + u16(1) + u16(2) + u16(2) + u16(3);
    return {
        fileProperties(),
        audio(1),
        video(2),
        streamProperties(asfCommandMediaGuid, 3, {}, "command"),
        bitrates({{1, 64000}, {2, 300000}}),
        mutex(asfBitrateMutexGuid, asfMutexBitrate, {2, 9}),
        mutex(asfAdvancedMutexGuid, asfMutexLanguage, {1, 5}),
        object(asfGroupMutexGuid, guid(asfMutexUnknown) + groups),
        object(asfCodecListGuid, guid(asfCodecListReservedGuid) + u32(1) + codec),
        extendedStream(4, video(4)),
        extendedStream(5, {}, "names of any length"),
        metadata(asfMetadataGuid, {1, 2}),
        metadata(asfMetadataLibraryGuid, {1, 2}),
        object(asfStreamPrioritizationGuid, u16(2) + u16(1) + u16(1) + u16(4) + u16(0)),
        object(asfLanguageListGuid, u16(2) + u8(12) + text("en-us") + u8(6) + text("fi")),
        object(asfScriptCommandGuid, "carried through"),
        object(asfHeaderGuid, "carried through"),
    };
}

#include "MmsData.h"

#include <QtEndian>

MmsData MmsData::fromBytes(QByteArrayView bytes)
{
    MmsData data;
    data.locationId = qFromLittleEndian<quint32>(bytes.data());
    data.incarnation = static_cast<quint8>(bytes[4]);
    data.flags = static_cast<quint8>(bytes[5]);
    data.payload = bytes.sliced(headerBytes, packetSize(bytes) - headerBytes).toByteArray();
    return data;
}

int MmsData::packetSize(QByteArrayView bytes)
{
    return qFromLittleEndian<quint16>(bytes.data() + 6);
}

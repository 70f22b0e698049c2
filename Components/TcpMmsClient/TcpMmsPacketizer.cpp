#include "TcpMmsPacketizer.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "TcpMessageHelper.h"
#include "TcpMmsClient.h"
#include "TcpMmsMessage.h"
#include "TcpMmsMessageHandlers.h"
#include "TcpMmsSessionHandlers.h"

#include <QtEndian>

Logger* TcpMmsPacketizer::log = LoggerManager::logger();

namespace
{

constexpr int probeBytes = 8;
constexpr int messageLengthOffset = 8;

bool isMessage(QByteArrayView bytes)
{
    return bytes[0] == TcpMmsHeader::rep && bytes[1] == 0 && bytes[2] == 0 &&
           qFromLittleEndian<quint32>(bytes.data() + 4) == TcpMmsHeader::sessionId;
}

} // namespace

TcpMmsPacketizer& TcpMmsPacketizer::instance()
{
    static TcpMmsPacketizer packetizer;
    return packetizer;
}

void TcpMmsPacketizer::addHandler(unsigned int type, FromStream fromStream)
{
    _types.insert(type, fromStream);
}

TcpMmsPacketizer::Result TcpMmsPacketizer::probeBuffer(TcpMmsClient* client, QByteArray& buffer) const
{
    qsizetype position = 0;
    Step step{Taken, 0};
    while (step.result == Taken) {
        step = probe(client, QByteArrayView(buffer).sliced(position));
        position += step.bytes;
    }
    buffer.remove(0, position); // Once for all that was taken, so that the cost is linear.
    if (step.result == OutOfStep)
        return OutOfStep;
    return position > 0 ? Taken : Waiting;
}

TcpMmsPacketizer::Step TcpMmsPacketizer::probe(TcpMmsClient* client, QByteArrayView bytes) const
{
    if (bytes.size() < probeBytes)
        return {Waiting, 0};
    Step const step = isMessage(bytes) ? probeMessage(client, bytes) : probeData(client, bytes);
    if (step.result == Waiting && bytes.size() >= TcpMmsMessage::maximumBytes) {
        LOG_ERROR("%lld bytes received that are neither a message nor a data packet",
                  static_cast<long long>(bytes.size()));
        return {OutOfStep, 0};
    }
    return step;
}

TcpMmsPacketizer::Step TcpMmsPacketizer::probeData(TcpMmsClient* client, QByteArrayView bytes) const
{
    int const size = MmsData::packetSize(bytes);
    if (size == 0 || size > bytes.size())
        return {Waiting, 0};
    if (size < MmsData::headerBytes) {
        LOG_ERROR("Data packet of impossible size %d received", size);
        return {OutOfStep, 0};
    }
    client->handleNow(new MmsDataReceivedHandler(client, LittleEndianReader(bytes).read<MmsData>()));
    return {Taken, size};
}

TcpMmsPacketizer::Step TcpMmsPacketizer::probeMessage(TcpMmsClient* client, QByteArrayView bytes) const
{
    if (bytes.size() < TcpMmsMessage::bytesBeforeBody)
        return {Waiting, 0};
    qint64 const size = qint64(qFromLittleEndian<quint32>(bytes.data() + messageLengthOffset)) +
                        TcpMmsHeader::bytesOutsideMessageLength;
    if (size < TcpMmsMessage::bytesBeforeBody || size > TcpMmsMessage::maximumBytes) {
        LOG_ERROR("Message of impossible size %lld received", static_cast<long long>(size));
        return {OutOfStep, 0};
    }
    if (bytes.size() < size)
        return {Waiting, 0};
    takeMessage(client, bytes.first(size));
    return {Taken, static_cast<qsizetype>(size)};
}

void TcpMmsPacketizer::takeMessage(TcpMmsClient* client, QByteArrayView bytes) const
{
    auto const type = qFromLittleEndian<quint32>(bytes.data() + TcpMmsMessage::typeOffset);
    FromStream const fromStream = _types.value(type);
    if (!fromStream) {
        LOG_WARNING("Unknown message with id %d", type);
        return;
    }
    LittleEndianReader in(bytes);
    TcpMmsMessage* const received = fromStream(in);
    LOG_DEBUG("Received %s", TcpMessageHelper::nameOf(type));
    if (in.hasFailed())
        LOG_WARNING("%s ends early", TcpMessageHelper::nameOf(type));
    TcpMmsMessageHandlers::instance().handleMessage(client, received);
}

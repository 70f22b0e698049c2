#include "Logger.h"
#include "LoggerManager.h"
#include "SimpleAsfParser.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    LoggerManager::logger()->setLevel(Logger::Fatal);
    return 0;
}

/// The first two bytes are the packet size of the header, then come packets with two bytes of length before each.
/// Nothing is read behind a packet, and no media object holds more than what came.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    auto const number = [&] {
        size_t const value = size < 2 ? 0 : data[0] + 256U * data[1];
        data += std::min<size_t>(2, size);
        size -= std::min<size_t>(2, size);
        return value;
    };
    SimpleAsfParser parser;
    parser.setMaxPacketSize(static_cast<quint32>(number()));
    qsizetype arrived = 0;
    qsizetype complete = 0;
    QObject::connect(&parser, &SimpleAsfParser::onPacket,
                     [&](SimpleAsfParser::MediaFrame const& frame) { complete += frame.data.size(); });
    while (size > 0) {
        size_t const length = std::min(number(), size);
        QByteArray const packet(reinterpret_cast<char const*>(data), static_cast<qsizetype>(length));
        data += length;
        size -= length;
        arrived += packet.size();
        qint64 const result = parser.ParseFrame(packet);
        if (result < 0 || result > std::max<qint64>(1, packet.size()) || complete > arrived)
            std::abort();
    }
    return 0;
}

#pragma once

#include "Clips.h"
#include "FFwrapper.h"
#include "RtspStreamFinder.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavformat/avformat.h>
}

#include <QList>

#include <gtest/gtest.h>
#include <map>

/// For each stream, the times in milliseconds of its packets.
using StreamTimes = std::map<int, QList<qint64>>;

/// Null when it cannot be opened.
inline FormatContextPointer openFile(QString const& path)
{
    AVFormatContext* context = avformat_alloc_context();
    FFwrapper::openContext(context, path.toUtf8().constData(), nullptr);
    return FormatContextPointer(context);
}

inline PacketPointer readPacket(FormatContextPointer const& context)
{
    PacketPointer packet(av_packet_alloc());
    return context && av_read_frame(context.get(), packet.get()) >= 0 ? std::move(packet) : nullptr;
}

inline void note(StreamTimes& times, FormatContextPointer const& context, AVPacket const& packet)
{
    AVRational const timeBase = context->streams[packet.stream_index]->time_base;
    times[packet.stream_index].append(av_rescale_q(packet.pts, timeBase, {1, 1000}));
}

/// Reads a stream back from a file of it.
inline StreamTimes timesOf(QByteArray const& stream)
{
    FormatContextPointer const context = openFile(Clips::write("passed.nut", stream));
    StreamTimes times;
    while (PacketPointer const packet = readPacket(context)) {
        AVCodecParameters const& parameters = *context->streams[packet->stream_index]->codecpar;
        EXPECT_TRUE(parameters.width > 0 || parameters.sample_rate > 0);
        note(times, context, *packet);
    }
    return times;
}

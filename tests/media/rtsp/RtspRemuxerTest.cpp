#include "RtspRemuxer.h"

#include "Clips.h"
#include "FFwrapper.h"
#include "RtspStreamFinder.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavformat/avformat.h>
}

#include <gtest/gtest.h>
#include <map>

namespace
{

FormatContextPointer openFile(QString const& path)
{
    AVFormatContext* context = avformat_alloc_context();
    EXPECT_GE(FFwrapper::openContext(context, path.toUtf8().constData(), nullptr), 0);
    return FormatContextPointer(context);
}

PacketPointer readPacket(AVFormatContext* context)
{
    PacketPointer packet(av_packet_alloc());
    return av_read_frame(context, packet.get()) >= 0 ? std::move(packet) : nullptr;
}

/// For each stream, the times in milliseconds of its packets.
using Times = std::map<int, QList<qint64>>;

void note(Times& times, AVFormatContext const* context, AVPacket const& packet)
{
    AVRational const timeBase = context->streams[packet.stream_index]->time_base;
    times[packet.stream_index].append(av_rescale_q(packet.pts, timeBase, {1, 1000}));
}

/// A film passed on from its packet number `first` on, as a server would send it to one who comes late.
struct Passed {
    explicit Passed(QString const& path, int first = 0, bool withoutFirstStamps = false)
    {
        FormatContextPointer const input = openFile(path);
        avformat_find_stream_info(input.get(), nullptr);
        for (unsigned int i = 0; i < input->nb_streams; ++i) // What an SDP does not tell.
            input->streams[i]->codecpar->width = input->streams[i]->codecpar->height = 0;
        RtspStreamFinder finder(*input);
        bool begun = false;
        for (int number = 0; PacketPointer const packet = readPacket(input.get()); ++number) {
            if (number < first)
                continue;
            bool const isPicture = packet->stream_index == 0;
            if (isPicture && packet->flags & AV_PKT_FLAG_KEY)
                keyFrameCame = true;
            if (keyFrameCame)
                note(in, input.get(), *packet);
            if (withoutFirstStamps && number == 0)
                packet->pts = packet->dts = AV_NOPTS_VALUE;
            if (begun) {
                pass(*packet);
            } else if (finder.take(*packet)) {
                begun = remuxer.begin(finder.takeStreams(), 0);
                stream = remuxer.header();
                for (PacketPointer const& kept : finder.takePackets())
                    pass(*kept);
            }
        }
    }

    void pass(AVPacket& packet)
    {
        auto const chunk = remuxer.write(packet);
        if (chunk.isEntry)
            entries.append(stream.size());
        stream += chunk.bytes;
    }

    RtspRemuxer remuxer;
    bool keyFrameCame = false;
    Times in;
    QByteArray stream;
    QList<qsizetype> entries; ///< Where in it.
};

/// Reads a stream, written to a file, back.
Times timesOf(QByteArray const& stream, int expectedStreams)
{
    FormatContextPointer const context = openFile(Clips::write("passed.nut", stream));
    EXPECT_EQ(context->nb_streams, static_cast<unsigned int>(expectedStreams));
    EXPECT_GT(context->streams[0]->codecpar->width, 0);
    Times times;
    while (PacketPointer const packet = readPacket(context.get()))
        note(times, context.get(), *packet);
    return times;
}

void expectEqualButForTheStart(Times const& in, Times const& out, qint64 tolerance)
{
    ASSERT_EQ(in.size(), out.size());
    qint64 const shift = out.at(0).first() - in.at(0).first();
    for (auto const& [stream, times] : in) {
        ASSERT_EQ(out.at(stream).size(), times.size()) << stream;
        for (qsizetype i = 0; i < times.size(); ++i)
            EXPECT_NEAR(out.at(stream)[i] - times[i], shift, tolerance) << stream << " " << i;
    }
}

} // namespace

TEST(RtspRemuxer, EveryPacketComesThroughAtItsTime)
{
    Passed const passed(Clips::h264Aac(4));
    EXPECT_TRUE(FFwrapper::probeFormat(passed.remuxer.header()));
    expectEqualButForTheStart(passed.in, timesOf(passed.stream, 2), 1);
    EXPECT_EQ(Passed(Clips::h264Aac(4)).remuxer.header(), passed.remuxer.header());
    EXPECT_NE(Passed(Clips::videoOnly(4)).remuxer.header(), passed.remuxer.header());
}

TEST(RtspRemuxer, WhoComesLateBeginsWithAKeyFrame)
{
    for (int const first : {1, 17, 40}) {
        Passed const passed(Clips::h264Aac(4), first);
        ASSERT_TRUE(passed.keyFrameCame);
        expectEqualButForTheStart(passed.in, timesOf(passed.stream, 2), 1);
    }
}

TEST(RtspRemuxer, AKeyFrameWithoutATimeGetsTheOneBeforeTheOthers)
{
    Passed const passed(Clips::videoOnly(4), 0, true);
    expectEqualButForTheStart(passed.in, timesOf(passed.stream, 1), 1);
}

TEST(RtspRemuxer, AReaderCanBeginAtAnyEntry)
{
    Passed const passed(Clips::h264Aac(4));
    ASSERT_GE(passed.entries.size(), 4);
    QByteArray const header = passed.remuxer.header();
    Times const whole = timesOf(passed.stream, 2);
    for (qsizetype const entry : passed.entries) {
        Times const rest = timesOf(QByteArray(header + passed.stream.mid(entry)), 2);
        ASSERT_FALSE(rest.at(0).isEmpty());
        EXPECT_EQ(rest.at(0), whole.at(0).last(rest.at(0).size()));
        EXPECT_EQ(rest.at(0).size() % 25, 0); // A key frame each second.
    }
}

TEST(RtspRemuxer, WhatTheContainerHasNoPlaceForIsLeftOut)
{
    FormatContextPointer const input = openFile(Clips::h264Aac());
    input->streams[0]->codecpar->codec_id = AV_CODEC_ID_XBM;
    RtspStreamFinder finder(*input);
    PacketPointer packet;
    do
        packet = readPacket(input.get());
    while (packet && !finder.take(*packet));
    std::vector<RtspStream> const streams = finder.takeStreams();
    ASSERT_EQ(streams.size(), 1u);
    EXPECT_EQ(streams[0].index, 1);
}

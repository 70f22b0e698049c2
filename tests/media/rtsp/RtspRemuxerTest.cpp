#include "RtspRemuxer.h"

#include "StreamTimes.h"

namespace
{

/// A film passed on from its packet number `first` on, as a server would send it to one who comes late.
struct Passed {
    explicit Passed(QString const& path, int first = 0, bool withoutFirstStamps = false)
    {
        FormatContextPointer const input = openFile(path);
        avformat_find_stream_info(input.get(), nullptr);
        input->streams[0]->codecpar->width = input->streams[0]->codecpar->height = 0; // What an SDP does not tell.
        RtspStreamFinder finder(*input);
        bool keyFrameCame = false;
        for (int number = 0; PacketPointer const packet = readPacket(input); ++number) {
            if (number < first)
                continue;
            keyFrameCame = keyFrameCame || (packet->stream_index == 0 && packet->flags & AV_PKT_FLAG_KEY);
            if (keyFrameCame)
                note(in, input, *packet);
            if (withoutFirstStamps && number == 0)
                packet->pts = packet->dts = AV_NOPTS_VALUE;
            if (!stream.isEmpty()) {
                pass(*packet);
            } else if (finder.take(*packet)) {
                EXPECT_TRUE(remuxer.begin(finder.takeStreams(), 0));
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
    StreamTimes in;
    QByteArray stream;
    QList<qsizetype> entries; ///< Where in it.
};

void expectEveryPacketAtItsTime(Passed const& passed)
{
    StreamTimes const out = timesOf(passed.stream);
    ASSERT_EQ(passed.in.size(), out.size());
    qint64 const shift = out.at(0).first() - passed.in.at(0).first();
    for (auto const& [stream, times] : passed.in) {
        ASSERT_EQ(out.at(stream).size(), times.size()) << stream;
        for (qsizetype i = 0; i < times.size(); ++i)
            EXPECT_NEAR(out.at(stream)[i] - times[i], shift, 1) << stream << " " << i;
    }
}

} // namespace

TEST(RtspRemuxer, EveryPacketComesThroughAtItsTimeFromAKeyFrameOn)
{
    for (int const first : {0, 17})
        expectEveryPacketAtItsTime(Passed(Clips::h264Aac(4), first));
}

TEST(RtspRemuxer, AKeyFrameWithoutATimeGetsTheOneBeforeTheOthers)
{
    expectEveryPacketAtItsTime(Passed(Clips::videoOnly(4), 0, true));
}

TEST(RtspRemuxer, AReaderCanBeginAtAnyEntry)
{
    Passed const passed(Clips::h264Aac(4));
    ASSERT_GE(passed.entries.size(), 4);
    QByteArray const header = passed.remuxer.header();
    EXPECT_TRUE(FFwrapper::probeFormat(header));
    QList<qint64> const whole = timesOf(passed.stream).at(0);
    for (qsizetype const entry : passed.entries) {
        QList<qint64> const rest = timesOf(QByteArray(header + passed.stream.mid(entry)))[0];
        ASSERT_FALSE(rest.isEmpty());
        EXPECT_EQ(rest, whole.last(rest.size()));
        EXPECT_EQ(rest.size() % 25, 0); // A key frame each second.
    }
}

TEST(RtspRemuxer, OnlyAKeyFrameOfThePictureIsAnEntry)
{
    EXPECT_EQ(Passed(Clips::rareKeyFrames(12)).entries.size(), 2); // Ten seconds apart.
}

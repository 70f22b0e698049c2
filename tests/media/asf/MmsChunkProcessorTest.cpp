#include "MmsChunkProcessor.h"

#include "ChunkBytes.h"
#include "LogCapture.h"

#include <gmock/gmock.h>

using namespace ChunkBytes;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
QByteArray const asfHeader =
    AsfBytes::header({AsfBytes::fileProperties(100), AsfBytes::audio(1), AsfBytes::video(2)});
QByteArray const metadataText = "playlist-gen-id=7, broadcast-id=1";

/// What a processor says, in order.
class Recorder
{
public:
    Recorder()
    {
        using Processor = MmsChunkProcessor;
        QObject::connect(&processor, &Processor::onHeader, [this](QByteArray const& b) { add("header", b); });
        QObject::connect(&processor, &Processor::onData, [this](QByteArray const& b) { add("data", b); });
        QObject::connect(&processor, &Processor::onEndOfData, [this](int reason) { add("end", reason); });
        QObject::connect(&processor, &Processor::onResetChunk, [this](int reason) { add("reset", reason); });
        QObject::connect(&processor, &Processor::onTestChunk, [this](int reason) { add("test", reason); });
        QObject::connect(&processor, &Processor::onPacketPairPacket, [this](int reason) { add("pair", reason); });
        QObject::connect(&processor, &Processor::onMetadataChunk,
                         [this](QString const& text) { add("metadata", text.toUtf8()); });
    }

    Recorder& feed(QByteArray const& bytes)
    {
        processor.processData(bytes);
        return *this;
    }

    QList<QByteArray> take() { return std::exchange(said, {}); }

    MmsChunkProcessor processor;
    QList<QByteArray> said;

private:
    void add(char const* what, QByteArray const& bytes) { said.append(what + (' ' + bytes)); }
    void add(char const* what, int reason) { add(what, QByteArray::number(reason)); }
};

QList<QByteArray> of(QByteArray const& bytes)
{
    return Recorder().feed(bytes).take();
}
} // namespace

TEST(MmsChunkProcessor, SaysWhatIsInTheStream)
{
    QByteArray const stream =
        metadata("broadcast-id=1, ") + metadata(metadataText) + header(asfHeader.left(100)) +
        header(asfHeader.mid(100)) + data("one $D\x04") + data("$$$$$$") + data("") + data("x") + data("$H$$") +
        chunk('Q', data("skipped")) + chunk('Z', "") + packetPair(1, 30) + packetPair(2, 31) + packetPair(3, 32) +
        chunk('T', "test") + chunk('C', AsfBytes::u32(5)) + data("three$") + data("four") +
        chunk('C', AsfBytes::u32(6) + "more") + data("\xA4last") + chunk('E', AsfBytes::u32(1) + "more");
    EXPECT_THAT(of(stream), ElementsAre("metadata broadcast-id=1, " + metadataText, "header " + asfHeader,
                                        "data one $D\x04", "data $$$$$$", "data x", "pair 30", "pair 31", "pair 32",
                                        "test 0", "reset 5", "data three$", "reset 6", "data four", "end 1"));
}

/// Every length that an unchecked subtraction or a short buffer would stumble over.
TEST(MmsChunkProcessor, AnyLengthOfAnyTypeEndsWhereItSays)
{
    for (char const type : {'C', 'D', 'E', 'H', 'M', 'T', 'Q'}) {
        for (int const length : {0, 3, 4, 7, 8, 65535}) {
            QByteArray const strange = chunk(type, QByteArray(length, 'x'));
            QList<QByteArray> const said = of(data("before") + strange + data("one") + data("two") + end(9));
            ASSERT_GE(said.size(), 2) << type << ' ' << length;
            EXPECT_EQ(said.constLast(), "end 9") << type << ' ' << length;
            EXPECT_EQ(said[said.size() - 2], "data one") << type << ' ' << length;
            EXPECT_THAT(of(strange.left(length)), IsEmpty()) << type << ' ' << length; // All of it, or nothing.
        }
    }
}

TEST(MmsChunkProcessor, PacketIsHeldBackUntilTheNextChunk)
{
    Recorder recorder;
    EXPECT_THAT(recorder.feed(data("one")).take(), IsEmpty());
    EXPECT_THAT(recorder.feed(data("two")).take(), ElementsAre("data one"));
    EXPECT_THAT(recorder.feed("stray" + data("three")).take(), ElementsAre("data twostray"));
    EXPECT_THAT(recorder.feed(header("no header") + data("four")).take(), IsEmpty());
    EXPECT_THAT(recorder.feed(metadata("text") + data("five")).take(), IsEmpty());
    EXPECT_THAT(recorder.feed(end(0) + data("six")).take(), ElementsAre("end 0"));
    EXPECT_EQ(recorder.processor.packetsProcessed(), 8);
}

TEST(MmsChunkProcessor, PaddingFillsUpAndNeverCuts)
{
    Recorder recorder;
    recorder.processor.setPadding(true);
    recorder.processor.setPacketSize(8);
    recorder.feed(data("one") + data("longer than 8") + data("next"));
    EXPECT_THAT(recorder.take(), ElementsAre(QByteArray("data one\0\0\0\0\0", 13), "data longer than 8"));
    recorder.processor.setPacketSize(0x7FFFFFFF);
    recorder.feed(data("next"));
    EXPECT_EQ(recorder.take().constFirst().size(), 5 + MmsChunkProcessor::maximumPacketSize);
}

TEST(MmsChunkProcessor, LastTwoBytesMayBeLateAndAreForgottenByReset)
{
    Recorder recorder;
    EXPECT_THAT(recorder.feed(data("one") + data("two").chopped(3)).take(), IsEmpty());
    EXPECT_THAT(recorder.feed("t").take(), ElementsAre("data one"));
    EXPECT_THAT(recorder.feed("w").feed("o").feed(chunk('T', "test").chopped(2)).take(), ElementsAre("test 0"));
    recorder.processor.reset();
    EXPECT_THAT(recorder.feed(data("three")).take(), ElementsAre("data two"));
}

TEST(MmsChunkProcessor, FalseStartsAreGivenToWhatTheyBelongTo)
{
    LogCapture const log;
    Recorder recorder;
    recorder.processor.setPacketSize(30);
    EXPECT_THAT(recorder.feed(data("one") + "a$xb" + data("two")).take(), ElementsAre("data onea$xb"));
    EXPECT_EQ(log.count("Stream is not sync, trying to sync"), 0);
    EXPECT_THAT(recorder.feed(metadata("playlist-gen") + "-id$$" + data("one") + data("two")).take(),
                ElementsAre("metadata playlist-gen-id$", "data one"));
    EXPECT_THAT(recorder.feed(data(QByteArray(28, 'x')) + "a$xb" + data("two")).take(),
                ElementsAre("data two", "data " + QByteArray(28, 'x') + "b"))
        << "is full: the stray bytes only";
    EXPECT_THAT(recorder.feed(end(1) + "noise$xnoise$y$$" + data("one") + data("two")).take(),
                ElementsAre("end 1", "data one"));
    EXPECT_EQ(log.count("Stream is not sync, trying to sync"), 3);
}

TEST(MmsChunkProcessor, HeaderOfAnImpossibleSizeIsRefused)
{
    Recorder recorder;
    recorder.feed(header(AsfBytes::guid(asfHeaderGuid) + AsfBytes::u64(MmsChunkProcessor::maximumHeaderBytes + 1)));
    EXPECT_THAT(recorder.feed(header(asfHeader)).take(), ElementsAre("header " + asfHeader));
}

TEST(MmsChunkProcessor, EndlessBytesWithoutAChunkAndEndlessMetadataAreDropped)
{
    LogCapture const log;
    Recorder recorder;
    recorder.feed(data("one") + QByteArray(100000, 'x'));
    EXPECT_EQ(log.count("without a chunk dropped"), 1);
    EXPECT_THAT(recorder.feed(data("two") + data("three")).take(), ElementsAre("data one", "data two"));
    for (int i = 0; i < 100; ++i)
        recorder.feed(metadata(QByteArray(5000, 'x')));
    EXPECT_LT(recorder.feed(metadata(metadataText)).take().constFirst().size(),
              MmsChunkProcessor::maximumMetadataBytes);
}

TEST(MmsChunkProcessor, SlotsMayChangeAndResetIt)
{
    Recorder recorder;
    QObject::connect(&recorder.processor, &MmsChunkProcessor::onHeader, [&] {
        recorder.processor.setPacketSize(8);
        recorder.processor.setPadding(true);
    });
    QObject::connect(&recorder.processor, &MmsChunkProcessor::onEndOfData, [&] { recorder.processor.reset(); });
    recorder.feed(header(asfHeader) + data("one") + data("two") + end(1) + data("gone") + data("gone"));
    EXPECT_THAT(recorder.take(), ElementsAre("header " + asfHeader, QByteArray("data one\0\0\0\0\0", 13), "end 1"));
    EXPECT_THAT(recorder.feed(data("12345678") + data("two")).take(), ElementsAre("data 12345678"));
}

#include "MmsChunkProcessor.h"

#include "ChunkBytes.h"
#include "LogCapture.h"

#include <QStringList>

#include <cctype>
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

    Recorder& feed(QByteArray const& bytes, qsizetype piece = 1 << 30)
    {
        for (qsizetype at = 0; at < bytes.size(); at += piece)
            processor.processData(QByteArray(bytes.constData() + at, std::min(piece, bytes.size() - at)));
        return *this;
    }

    QList<QByteArray> take() { return std::exchange(said, {}); }

    MmsChunkProcessor processor;
    QList<QByteArray> said;

private:
    void add(char const* what, QByteArray const& bytes) { said.append(what + (' ' + bytes)); }
    void add(char const* what, int reason) { add(what, QByteArray::number(reason)); }
};

QList<QByteArray> of(QByteArray const& bytes, qsizetype piece = 1 << 30)
{
    return Recorder().feed(bytes, piece).take();
}

/// All kinds of chunks and much that looks like them.
QByteArray wholeStream()
{
    return metadata("broadcast-id=1, ") + metadata(metadataText) + header(asfHeader.left(100)) +
           header(asfHeader.mid(100)) + data("one $D\x04") + data("$$$$$$") + data("") + data("$H$$") +
           packetPair(1, 30) + packetPair(2, 31) + packetPair(3, 32) + chunk('T', "test") +
           chunk('C', AsfBytes::u32(5)) + data("three$") + data("four") + chunk('C', AsfBytes::u32(6) + "more") +
           data("\xA4last") + chunk('E', AsfBytes::u32(1) + "more");
}
} // namespace

TEST(MmsChunkProcessor, AnUnknownChunkInItsPlaceIsSkippedByItsLength)
{
    QByteArray const bytes = data("first") + chunk('Q', data("inside")) + chunk('Z', "") + data("second") + data("x");
    for (qsizetype const piece : {1, 2, 3, 7, 1000})
        EXPECT_THAT(of(bytes, piece), ElementsAre("data first", "data second")) << piece;
}

TEST(MmsChunkProcessor, SaysWhatIsInTheStream)
{
    EXPECT_THAT(of(wholeStream()), ElementsAre("metadata broadcast-id=1, " + metadataText, "header " + asfHeader,
                                               "data one $D\x04", "data $$$$$$", "pair 30", "pair 31", "pair 32",
                                               "test 0", "reset 5", "data three$", "reset 6", "data four", "end 1"));
}

TEST(MmsChunkProcessor, SplitAnywhereSaysTheSame)
{
    QByteArray const stream = wholeStream() + "stray $ bytes $$D" + wholeStream();
    QList<QByteArray> const expected = of(stream);
    for (qsizetype split = 1; split < stream.size(); ++split)
        ASSERT_EQ(Recorder().feed(stream.left(split)).feed(stream.mid(split)).take(), expected) << split;
    for (qsizetype piece = 1; piece < 20; ++piece)
        ASSERT_EQ(of(stream, piece), expected) << piece;
}

/// Every length that an unchecked subtraction or a short buffer would stumble over.
TEST(MmsChunkProcessor, AnyLengthOfAnyTypeEndsWhereItSays)
{
    QList<int> lengths;
    for (int i = 0; i <= 16; ++i)
        lengths << i << 65535 - i;
    for (int type = 0; type < 256; ++type) {
        if ((type & 0x7F) == '$' || type == 'P')
            continue;
        bool const known = QByteArray("CDEHMT").contains(static_cast<char>(type));
        for (int const length : lengths) {
            if (!known && length > 16 && type % 16 != 1)
                continue;
            QByteArray const strange = chunk(static_cast<char>(type), QByteArray(length, 'x'));
            QList<QByteArray> const said = of(data("before") + strange + data("one") + data("two") + end(9), 10000);
            ASSERT_GE(said.size(), 2) << type << ' ' << length;
            EXPECT_EQ(said.constLast(), "end 9") << type << ' ' << length;
            EXPECT_EQ(said[said.size() - 2], "data one") << type << ' ' << length;
            bool const isTaken = known || std::isupper(type); // Otherwise it is no chunk.
            EXPECT_EQ(said.constFirst().startsWith(QByteArray("data before" + strange.left(2))), !isTaken)
                << type << ' ' << length;
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
    EXPECT_THAT(recorder.feed(end(0)).take(), ElementsAre("end 0"));
    EXPECT_THAT(recorder.feed(data("four") + data("five")).take(), ElementsAre("data four"));
    EXPECT_THAT(recorder.feed(header("no header") + data("six")).take(), IsEmpty());
    EXPECT_THAT(recorder.feed(metadata("text") + data("seven")).take(), IsEmpty());
    EXPECT_THAT(recorder.feed(packetPair(1, 0) + data("eight")).take(), ElementsAre("pair 0"));
    EXPECT_THAT(recorder.feed(chunk('C', AsfBytes::u32(3)) + data("nine")).take(),
                ElementsAre("reset 3", "data eight"));
    EXPECT_EQ(recorder.processor.packetsProcessed(), 11);
}

TEST(MmsChunkProcessor, PaddingFillsUpAndNeverCuts)
{
    struct {
        int packetSize;
        bool padding;
        qsizetype payload;
        qsizetype packet;
    } const table[] = {
        {1300, true, 1000, 1300},
        {1300, true, 1400, 1400},
        {1300, false, 1000, 1000},
        {0x7FFFFFFF, true, 10, MmsChunkProcessor::maximumPacketSize},
    };
    for (auto const& test : table) {
        Recorder recorder;
        recorder.processor.setPacketSize(test.packetSize);
        recorder.processor.setPadding(test.padding);
        recorder.feed(data(QByteArray(test.payload, 'x')) + data("next"));
        QByteArray const packet = QByteArray(test.payload, 'x').leftJustified(test.packet, '\0');
        EXPECT_THAT(recorder.take(), ElementsAre("data " + packet)) << test.packetSize << ' ' << test.payload;
    }
}

/// A chunk with a payload is taken without its last two bytes, and they are not lost.
TEST(MmsChunkProcessor, LastTwoBytesMayBeLate)
{
    for (QByteArray const last : {"ab", "$$", "$D", "\xA4H"}) {
        for (qsizetype late = 1; late <= 2; ++late) {
            Recorder recorder;
            EXPECT_THAT(recorder.feed(data("one") + data("two" + last).chopped(late)).take(),
                        ElementsAre("data one"));
            EXPECT_THAT(recorder.feed(last.right(late) + data("three")).take(), ElementsAre("data two" + last));
            QByteArray const part = header(asfHeader).chopped(late);
            EXPECT_THAT(recorder.feed(part).take(), IsEmpty());
            EXPECT_THAT(recorder.feed(asfHeader.right(late)).take(), ElementsAre("header " + asfHeader));
            EXPECT_THAT(recorder.feed(metadata(metadataText).chopped(late)).take(), IsEmpty());
            EXPECT_THAT(recorder.feed(metadataText.right(late)).take(), ElementsAre("metadata " + metadataText));
            EXPECT_THAT(recorder.feed(chunk('T', "test").chopped(late)).take(), ElementsAre("test 0"));
            EXPECT_THAT(recorder.feed(last.right(late) + end(4).chopped(1)).take(), IsEmpty());
            recorder.processor.reset(); // What was incomplete is forgotten.
            EXPECT_THAT(recorder.feed(data("x") + data("y")).take(), ElementsAre("data x"));
        }
    }
}

TEST(MmsChunkProcessor, FalseStartsAreGivenToWhatTheyBelongTo)
{
    struct {
        char const* name;
        QByteArray stream;
        QList<QByteArray> said;
        bool warns;
    } const table[] = {
        {"to the packet", data("one") + "a$xb" + data("two"), {"data onea$xb"}, false},
        {"to a packet that is full: the stray bytes only",
         data(QByteArray(28, 'x')) + "a$xb" + data("two"),
         {"data " + QByteArray(28, 'x') + "b"},
         true},
        {"to the metadata", metadata("broadcast, ") + "$$playlist$-gen-id$$ " + metadata(" end"), {}, false},
        {"that completes the metadata",
         metadata("playlist-gen") + "-id$$x" + data("one") + data("two"),
         {"metadata playlist-gen-id$", "data one"},
         true},
        {"to nothing", "noise$xnoise$ynoise$$" + data("one") + data("two"), {"data one"}, true},
    };
    for (auto const& test : table) {
        LogCapture log;
        Recorder recorder;
        recorder.processor.setPacketSize(30);
        EXPECT_EQ(recorder.feed(test.stream).take(), test.said) << test.name;
        EXPECT_EQ(log.count("Stream is not sync, trying to sync"), test.warns ? 1 : 0) << test.name;
        EXPECT_EQ(recorder.feed(end(1) + data("x") + data("y")).take().constLast(), "data x") << test.name;
    }
}

TEST(MmsChunkProcessor, HeaderComesInAnyNumberOfChunks)
{
    Recorder recorder;
    for (qsizetype part = 24; part <= asfHeader.size(); ++part) {
        QByteArray stream;
        for (qsizetype at = 0; at < asfHeader.size(); at += part)
            stream += header(asfHeader.mid(at, part));
        EXPECT_THAT(recorder.feed(stream).take(), ElementsAre("header " + asfHeader)) << part;
    }
    EXPECT_THAT(recorder.feed(header("anything else")).take(), IsEmpty());
    EXPECT_THAT(recorder.feed(header(asfHeader)).take(), ElementsAre("header " + asfHeader));
}

TEST(MmsChunkProcessor, HeaderOfAnImpossibleSizeIsRefused)
{
    for (quint64 const size : {~0ull, ~0ull - 50, 1ull << 63, 1ull << 32,
                               static_cast<unsigned long long>(MmsChunkProcessor::maximumHeaderBytes) + 1}) {
        Recorder recorder;
        recorder.feed(header(AsfBytes::guid(asfHeaderGuid) + AsfBytes::u64(size) + "more"));
        EXPECT_THAT(recorder.feed(header(asfHeader)).take(), ElementsAre("header " + asfHeader)) << size;
    }
}

TEST(MmsChunkProcessor, PacketPairsHaveThreeLengthsInTurn)
{
    QByteArray cycle = data("dropped") + packetPair(1, 104 - 4) + packetPair(2, 0xFFFFFFFF) + packetPair(3, 65035);
    EXPECT_THAT(of(cycle + cycle + data("one") + data("two")),
                ElementsAre("pair 100", "pair -1", "pair 65035", "pair 100", "pair -1", "pair 65035", "data one"));

    Recorder recorder;
    recorder.feed(packetPair(1, 1) + packetPair(2, 1).left(500)).take();
    recorder.processor.reset(); // The cycle begins anew.
    EXPECT_THAT(recorder.feed(packetPair(1, 2)).take(), ElementsAre("pair 2"));
}

TEST(MmsChunkProcessor, PacketPairOfAnImpossibleLengthIsNone)
{
    for (quint32 const reason : {101u, 105u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        QByteArray const bad = "$P" + AsfBytes::u16(100) + AsfBytes::u32(reason);
        EXPECT_THAT(of(bad + data("one") + data("two")), ElementsAre("data one")) << reason;
    }
    EXPECT_THAT(of(packetPair(1, 1) + packetPair(2, 1) + "$P" + AsfBytes::u16(0) + AsfBytes::u32(65036) +
                   data("one") + data("two")),
                ElementsAre("pair 1", "pair 1", "data one"));
}

TEST(MmsChunkProcessor, EndlessBytesWithoutAChunkAreDropped)
{
    LogCapture const log;
    Recorder recorder;
    QByteArray const noise(1000, 'x');
    recorder.feed(data("one"));
    for (int i = 0; i < 400; ++i)
        recorder.feed(noise, i % 10 ? 1000 : 1);
    EXPECT_GT(log.count("without a chunk dropped"), 4);
    QList<QByteArray> const said = recorder.feed(data("two") + data("three")).take();
    ASSERT_EQ(said.size(), 2);
    EXPECT_TRUE(said[0].startsWith("data one"));
    EXPECT_LT(said[0].size(), MmsChunkProcessor::maximumStrayBytes + 100);
    EXPECT_EQ(said[1], "data two");
}

TEST(MmsChunkProcessor, EndlessMetadataIsDropped)
{
    Recorder recorder;
    QByteArray const piece = metadata(QByteArray(20, 'x'));
    for (int i = 0; i < 100000; ++i)
        recorder.feed(piece);
    QList<QByteArray> const said = recorder.feed(metadata(metadataText)).take();
    ASSERT_EQ(said.size(), 1);
    EXPECT_LT(said[0].size(), MmsChunkProcessor::maximumMetadataBytes + 100);
}

TEST(MmsChunkProcessor, StrictModeJudgesHeadersAndPackets)
{
    QByteArray const good = QByteArray::fromHex("820000") + "\x01\x5D" + QByteArray(6, '\0') + "\x80"; // No payloads.
    QByteArray const bad = QByteArray::fromHex("820000") + "\x01\x5D" + QByteArray(6, '\0') + "\x81" + "\x01\x01" +
                           AsfBytes::u32(0) + "\x08" + AsfBytes::u64(1) + AsfBytes::u16(50) + "short";
    QByteArray const stream = data(good) + header(asfHeader) + data(good) + data(bad) + data("") + data("unknown") +
                              header("noise that is long enough, and more") + data(good) + end(1);
    Recorder recorder;
    recorder.processor.setHttpMode(true);
    QList<QByteArray> const expected = {"data " + good, "header " + asfHeader, "data " + good,
                                        "data unknown", "data " + good,        "end 1"};
    EXPECT_EQ(recorder.feed(stream).take(), expected);
    EXPECT_EQ(recorder.feed(stream, 1).take(), expected);
    recorder.processor.setPadding(true);
    EXPECT_EQ(recorder.feed(data("unknown")).take().constFirst().size(), 5 + recorder.processor.packetSize());
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

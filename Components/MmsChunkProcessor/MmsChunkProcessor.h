#pragma once

#include "ChunkProcessor.h"
#include "SimpleAsfParser.h"

class Logger;

/// Cuts the byte stream of MMS over HTTP into its chunks.
///
/// A chunk, little-endian: "$" (u8, the top bit ignored), type (u8), length of the body (u16), body. The body of H
/// (part of the ASF header), D (ASF data packet) and M (text of metadata) begins with a prefix of 8 bytes that is not
/// used; that of C (stream changes) and E (end of data) is a reason (u32) and possibly 4 bytes more; T is test data.
/// P (packet pair, to measure the line) has lengths of its own, in a cycle of three.
///
/// Data packets are held back by one, as bytes in front of the next chunk still belong to them; the last one before
/// the end of data is dropped. A chunk of another type is skipped by its length, when it stands where a chunk has to
/// and is followed by one. What is no chunk is skipped or added to what it can belong to; nothing is an error. H,
/// D, M and T are taken with up to two bytes still missing, which then go where they belong. Where the bytes are
/// split between calls makes no other difference and does not change what they cost. Lives on one thread. A slot may
/// call reset() and the setters, but not delete the object.
class MmsChunkProcessor : public ChunkProcessor
{
    Q_OBJECT

public:
    /// Bytes of an ASF header object; a longer one is refused.
    static constexpr qint64 maximumHeaderBytes = qint64{4} * 1024 * 1024;
    /// Bytes of metadata that are kept while the text is not complete.
    static constexpr qint64 maximumMetadataBytes = qint64{256} * 1024;
    /// Bytes without the beginning of a chunk that are kept: they may belong to a packet, which is not longer.
    static constexpr qint64 maximumStrayBytes = 0xFFFF;
    /// A packet pair is no longer than any other chunk.
    static constexpr qint64 maximumPacketPairBytes = 0xFFFF;
    /// A data packet comes in one chunk: none is filled up to more, whatever packet size is set.
    static constexpr int maximumPacketSize = 0xFFFF;

    explicit MmsChunkProcessor(QObject* parent = nullptr);

    void processData(QByteArray const& bytes) override;
    void setPacketSize(int size) override { _packetSize = size; }
    void setPadding(bool padding) override { _padding = padding; }
    void reset() override;
    int packetSize() const override { return _packetSize; }
    bool isPadded() const override { return _padding; }
    qint64 packetsProcessed() const override { return _packetsProcessed; }

    /// Of the header that is coming, the bytes that are here.
    qint64 incompleteHeaderBytes() const { return _headerBytesMissing > 0 ? _header.size() : 0; }

    /// The strict mode: headers and data packets are parsed, bad ones dropped, good ones not held back.
    void setHttpMode(bool strict) { _strict = strict; }

signals:
    void onTestChunk(int reason);
    void onPacketPairPacket(int reason);
    void onMetadataChunk(QString text);
    void onResetChunk(int reason);

private:
    static constexpr int prefixBytes = 8;

    /// What stands at the beginning of a chunk, and how much of its body has come.
    struct Chunk {
        quint8 type = 0;
        qsizetype length = 0;
        qsizetype body = 0; ///< Where it begins in _input.
        qsizetype available = 0;
    };

    // Each returns whether there may be another chunk; otherwise more bytes are awaited.
    bool processChunk();
    bool dispatch(Chunk const& chunk);
    bool processReasonChunk(Chunk const& chunk);
    bool processPayloadChunk(Chunk const& chunk);
    bool processPacketPair(Chunk const& chunk);
    bool processStrictHeader(Chunk const& chunk);

    bool processUnknown(quint8 type);
    bool findStart();
    void resynchronise(quint8 type);
    void consume(qsizetype end);
    void takeLateBytes(QByteArray& bytes);

    void processHeader(QByteArray const& payload);
    void processPacket(QByteArray const& stray, QByteArray const& payload);
    void emitPacket(QByteArray packet);
    void addMetadata(QByteArray const& bytes);
    bool processMetadata(QByteArray const& bytes, qsizetype searchFrom);
    void dropPending();
    int effectivePacketSize() const { return std::min(_packetSize, maximumPacketSize); }

    static Logger* log;

    int _packetSize = 1300;
    int _packetPairCycle = 1;
    bool _padding = false;
    bool _strict = false;
    qint64 _headerBytesMissing = 0;
    qint64 _packetsProcessed = 0;

    QByteArray _input;
    qsizetype _consumed = 0; ///< Bytes of _input that are done with.
    qsizetype _start = 0;    ///< The "$" in _input, or how far there is none.
    bool _synchronised = true;

    quint8 _lateType = 0;      ///< The type of the chunk whose last bytes are still missing.
    qsizetype _lateBytes = 0;  ///< How many they are,
    qsizetype _latePrefix = 0; ///< and how many of them belong to the prefix.

    QByteArray _pendingPacket;
    QByteArray _header;
    QByteArray _pendingMetadata;
    SimpleAsfParser _parser; ///< Used in the strict mode.
};

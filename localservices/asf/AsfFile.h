#pragma once

#include "AsfHeader.h"
#include "AsfPacket.h"

#include <QFile>
#include <QList>
#include <QMap>

#include <memory>

class Logger;

/// An ASF file to broadcast: its header, and an index of its data packets, which are read from the disk when they are
/// asked for. Lives on one thread.
class AsfFile
{
public:
    static constexpr int maximumPackets = 4'000'000; ///< The index holds 4 bytes for each.

    /// Reads header and index. Null, and a text that tells why, when the file cannot be broadcast. Packets that
    /// cannot be read end the film there, with a warning.
    static std::unique_ptr<AsfFile> open(QString const& path, QString& error);

    AsfHeader const& header() const { return _header; }

    /// The header to send for a broadcast of this title.
    QByteArray broadcastHeader(QString const& title) const;

    int packetCount() const { return static_cast<int>(_sendTimes.size()); }

    /// A data packet. Nothing when the file has changed or shrunk since it was opened.
    std::optional<AsfPacket> packet(int index);

    /// When a packet is sent, in ms from the first one on; never falls from one packet to the next.
    QList<quint32> const& sendTimes() const { return _sendTimes; }

    /// The packets in which a key frame starts, ascending, for each stream of pictures.
    QMap<int, QList<int>> const& keyPackets() const { return _keyPackets; }

    /// How long the film lasts until it may begin anew, in ms.
    quint32 duration() const { return _duration; }

    /// How many media objects each stream has.
    QMap<int, quint32> const& objectCounts() const { return _objectCounts; }

private:
    struct Totals {
        quint32 objects = 0;
        quint64 bytes = 0;
        quint32 firstTime = 0; ///< Presentation, ms.
        quint32 lastTime = 0;
    };

    explicit AsfFile(QString const& path) : _file(path) {}

    bool readHeader(QString& error);
    bool readIndex(QString& error);
    void addToIndex(AsfPacket const& packet, QMap<int, Totals>& totals);
    void complete(QMap<int, Totals> const& totals);

    QFile _file;
    QByteArray _headerBytes;
    AsfHeader _header;
    qint64 _firstPacket = 0; ///< Its place in the file.
    quint64 _packetsTold = 0;
    quint32 _firstSendTime = 0;
    QList<quint32> _sendTimes;
    QMap<int, QList<int>> _keyPackets;
    QMap<int, quint32> _objectCounts;
    quint32 _duration = 1;

    static Logger* log;
};

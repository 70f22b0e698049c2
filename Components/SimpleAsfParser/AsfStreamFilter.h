#pragma once

#include "SimpleAsfEncoder.h"
#include "SimpleAsfParser.h"

/// Decides which streams of an ASF header are wanted, and writes the header that describes only those.
///
/// Results are a selection, which maps each stream number to what an MMS server is told (0 the stream is wanted, 2 it
/// is switched off), and the new header, the Data object's own header included. A header that cannot be parsed gives
/// no streams and an empty new header. One object for each header; used on one thread.
class AsfStreamFilter : public SimpleAsfParser
{
    Q_OBJECT

public:
    static constexpr int wanted = 0;
    static constexpr int switchedOff = 2;

    /// A pair of streams and their bits a second together.
    struct avBandwidth {
        int audioStream = 0; ///< 0 for none, as the next one.
        int videoStream = 0;
        qint64 bandwidth = 0;
    };

    /// Orders pairs by what they need, the least first.
    static bool avCompare(avBandwidth const& left, avBandwidth const& right)
    {
        return left.bandwidth < right.bandwidth;
    }

    explicit AsfStreamFilter(QByteArray const& header);

    /// Takes the best pair of sound and pictures below the limit, in bits a second, or the least one where none is
    /// below it, and switches off what the header says is not played together with these two.
    void useBandwidthLimit(int limit, QMap<int, int>& selection, QByteArray& header);

    /// Bits a second of the streams that are wanted, where some are switched off and the header tells of each; else
    /// what it tells of the whole.
    int bitrateOf(QMap<int, int> const& selection, int whole) const;

    /// Wants the mandatory streams by their priority and switches off all others. Without priorities both arguments
    /// stay as they are.
    void usePrioritization(QMap<int, int>& selection, QByteArray& header);

    /// Languages are left to the movie engine; both arguments stay as they are.
    void useLocalization(QMap<int, int>& selection, QByteArray& header);

private:
    avBandwidth chooseStreams(int limit, QList<AudioStreamObject> const& audio,
                              QList<VideoStreamObject> const& video) const;
    QByteArray filteredHeader(QMap<int, int> const& selection);

    SimpleAsfEncoder _encoder;
};

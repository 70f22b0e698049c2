#include "AsfStreamFilter.h"

#include "StreamPropertiesObject.h"

#include <QSet>

#include <algorithm>
#include <limits>
#include <vector>

namespace
{
struct StreamRate {
    int streamNumber;
    int bitrate;
};

/// The streams in order, each number once; one of number 0 where there is none.
template<typename Stream>
std::vector<StreamRate> ratesOf(QList<Stream> const& streams)
{
    std::vector<StreamRate> rates;
    QSet<int> seen;
    for (Stream const& stream : streams) {
        if (seen.contains(stream.streamNumber))
            continue;
        seen.insert(stream.streamNumber);
        rates.push_back({stream.streamNumber, stream.bitrate});
    }
    if (rates.empty())
        rates.push_back({0, 0});
    return rates;
}
} // namespace

AsfStreamFilter::AsfStreamFilter(QByteArray const& header) : SimpleAsfParser(header) {}

void AsfStreamFilter::useBandwidthLimit(int limit, QMap<int, int>& selection, QByteArray& header)
{
    QList<AudioStreamObject> const audio = audioStreams();
    QList<VideoStreamObject> const video = videoStreams();
    avBandwidth const chosen = chooseStreams(limit, audio, video);

    auto const select = [&](auto const& streams, int chosenStream) {
        if (chosenStream == 0)
            return;
        QList<int> const excluded = inBitrateMutex(chosenStream);
        QSet<int> const excludedSet(excluded.begin(), excluded.end());
        for (auto const& stream : streams)
            selection[stream.streamNumber] = excludedSet.contains(stream.streamNumber) ? switchedOff : wanted;
    };
    select(audio, chosen.audioStream);
    select(video, chosen.videoStream);
    for (StreamObject const& stream : otherStreams())
        selection[stream.streamNumber] = wanted;
    header = filteredHeader(selection);
}

AsfStreamFilter::avBandwidth AsfStreamFilter::chooseStreams(int limit, QList<AudioStreamObject> const& audio,
                                                            QList<VideoStreamObject> const& video) const
{
    std::vector<avBandwidth> pairs;
    std::vector<StreamRate> const videoRates = ratesOf(video);
    for (StreamRate const& a : ratesOf(audio))
        for (StreamRate const& v : videoRates)
            pairs.push_back({a.streamNumber, v.streamNumber, qint64(a.bitrate) + v.bitrate});
    std::stable_sort(pairs.begin(), pairs.end(), avCompare);

    avBandwidth best = pairs.front();
    qint64 bestBandwidth = 0;
    for (avBandwidth const& pair : pairs) {
        if (pair.bandwidth > bestBandwidth && pair.bandwidth < limit) {
            best = pair;
            bestBandwidth = pair.bandwidth;
        }
    }
    return best;
}

int AsfStreamFilter::bitrateOf(QMap<int, int> const& selection, int whole) const
{
    QList<int> const on = selection.keys(wanted);
    if (on.isEmpty() || on.size() == selection.size())
        return whole;
    qint64 total = 0;
    for (int const stream : on) {
        int const bitrate = streamBitrate(stream);
        if (bitrate <= 0)
            return whole;
        total += bitrate;
    }
    return static_cast<int>(std::min<qint64>(total, std::numeric_limits<int>::max()));
}

void AsfStreamFilter::usePrioritization(QMap<int, int>& selection, QByteArray& header)
{
    QSet<int> numbers;
    for (StreamPropertiesObject const* const stream : streams())
        numbers.insert(stream->streamNumber());

    QSet<int> wantedStreams;
    for (auto const& record : streamPrioritization()) {
        if (!record.mandatory || !numbers.contains(record.streamNumber))
            continue;
        for (int const excluded : inBitrateMutex(record.streamNumber))
            wantedStreams.remove(excluded);
        wantedStreams.insert(record.streamNumber);
    }
    if (wantedStreams.isEmpty())
        return;
    for (int const number : numbers)
        selection[number] = wantedStreams.contains(number) ? wanted : switchedOff;
    header = filteredHeader(selection);
}

void AsfStreamFilter::useLocalization(QMap<int, int>&, QByteArray&) {}

QByteArray AsfStreamFilter::filteredHeader(QMap<int, int> const& selection)
{
    _encoder.clearObjects();
    for (auto const& object : objects())
        _encoder.addObject(object.get());
    QList<int> const off = selection.keys(switchedOff);
    _encoder.filterStreams(QSet<int>(off.begin(), off.end()));
    return _encoder.createHeader();
}

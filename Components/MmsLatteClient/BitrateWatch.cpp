#include "BitrateWatch.h"

#include <numeric>

void BitrateWatch::restart(int normalBitrate)
{
    _normalBitrate = normalBitrate;
    _bitrateSamples.clear();
    _lowBitrateSeconds = 0;
}

BitrateWatch::Verdict BitrateWatch::addSecond(int bytes, bool hasAlternative)
{
    _bitrateSamples.append(bytes);
    if (_bitrateSamples.size() > averagedSeconds) {
        _bitrateSamples.removeFirst();
        qint64 const sum = std::accumulate(_bitrateSamples.cbegin(), _bitrateSamples.cend(), qint64{0});
        if (_normalBitrate / 2 > sum * 8 / averagedSeconds && hasAlternative)
            return LowAverage;
    }
    if (qint64{bytes} * 16 >= _normalBitrate) {
        _lowBitrateSeconds = 0;
        return Good;
    }
    if (++_lowBitrateSeconds < lowSeconds || !hasAlternative)
        return Good;
    _lowBitrateSeconds = 0;
    return LowSeconds;
}

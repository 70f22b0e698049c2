#pragma once

#include <QList>
#include <QtGlobal>

/// Judges, second by second, whether a stream comes at the rate that its header promises.
class BitrateWatch
{
public:
    static constexpr int averagedSeconds = 30;
    static constexpr int lowSeconds = 12; ///< In a row.

    enum Verdict {
        Good = 0,
        LowAverage = 1, ///< Below half the normal bitrate over averagedSeconds.
        LowSeconds = 2  ///< Below half the normal bitrate in each of lowSeconds.
    };

    /// Begins anew, with a normal bitrate in bits a second.
    void restart(int normalBitrate);

    /// One more second has passed, in which this many bytes came. Without an alternative to switch to, no verdict is
    /// ever low.
    Verdict addSecond(int bytes, bool hasAlternative);

private:
    int _normalBitrate = 1;
    QList<int> _bitrateSamples; ///< Bytes of each of the last seconds.
    int _lowBitrateSeconds = 0; ///< In a row.
};

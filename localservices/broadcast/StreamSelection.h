#pragma once

#include <QList>
#include <QMap>

#include <compare>
#include <map>

class AsfHeader;

/// Which streams of a broadcast a client gets. A value.
class StreamSelection
{
public:
    /// As the numbers stand in the requests.
    enum Value { Full = 0, KeyFrames = 1, Off = 2 };

    /// A stream that was not named is sent in full.
    Value value(int stream) const;
    void set(int stream, Value value);
    bool isEverything() const { return _values.empty(); }

    /// One wish of a client: `to` at this value, in place of `from`, which goes off; `from` 0xFFFF is none.
    struct Switch {
        int from = 0xFFFF;
        int to = 0;
        Value value = Full;
    };

    /// What a client gets that has wished this, in order. Without a wish the server chooses: all streams. Of each
    /// group of alternatives one is left on: the one of the highest bit rate that, with all else that is on, stays
    /// within `maximumBitrate` (bits per second, 0 for no limit), otherwise the lowest.
    static StreamSelection choose(AsfHeader const& header, QList<Switch> const& switches, qint64 maximumBitrate);

    friend auto operator<=>(StreamSelection const&, StreamSelection const&) = default;

private:
    std::map<int, Value> _values; ///< Without those that are Full.
};

#pragma once

#include "AsfHeader.h"

/// Turns the header of a file into that of a broadcast.
class AsfBroadcastHeader
{
public:
    /// The Header object of the file `bytes`, which `header` was parsed from, followed by the 50 bytes of a Data
    /// object's header: the broadcast flag set, no durations and counts, the title put in, and the bit rates and the
    /// mutual exclusion of `header` added when the file's header lacks them.
    static QByteArray make(QByteArray const& bytes, AsfHeader const& header, QString const& title);
};

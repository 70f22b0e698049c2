#pragma once

#include <QtGlobal>

/// What to do with one stream of the file; 6 bytes, little-endian: u16 0xFFFF, u16 stream number of the ASF header,
/// u16 selection value.
struct StreamSwitchEntry {
    quint16 streamNumber = 0;
    quint16 selection = 0; ///< 0 wanted, 2 switched off.

    template<typename Archive>
    void fields(Archive& archive)
    {
        quint16 marker = 0xFFFF;
        archive(marker, streamNumber, selection);
    }
};

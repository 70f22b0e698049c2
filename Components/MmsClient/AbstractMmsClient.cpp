#include "AbstractMmsClient.h"

#include "AsfStreamFilter.h"
#include "FFwrapper.h"

#include <algorithm>

bool AbstractMmsClient::openHeader(QByteArray& header)
{
    FormatContextPointer const context(
        FFwrapper::contextFromHeader(header.constData(), static_cast<int>(header.size())));
    if (!context)
        return false;
    int const bitrate = std::max(FFwrapper::getMaxBitrate(context.get()), 1);
    _packetSize = FFwrapper::getAsfPacketSize(context.get());
    _selection.clear();
    AsfStreamFilter filter(header);
    filter.useBandwidthLimit(bandwidthLimit, _selection, header);
    if (header.isEmpty())
        _selection.clear();
    _streamBitrate = filter.bitrateOf(_selection, bitrate);
    return true;
}

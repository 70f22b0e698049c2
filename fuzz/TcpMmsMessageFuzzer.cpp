#include "MacToViewerFileReports.h"
#include "MacToViewerSessionReports.h"
#include "ViewerToMacFileMessages.h"
#include "ViewerToMacSessionMessages.h"

#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <stdexcept>

namespace
{

using FromStream = TcpMmsMessage* (*)(LittleEndianReader&);

FromStream const types[] = {
    &MmsLinkViewerToMacConnect::fromStream,
    &MmsLinkViewerToMacConnectFunnel::fromStream,
    &MmsLinkViewerToMacOpenFile::fromStream,
    &MmsLinkViewerToMacStartPlaying::fromStream,
    &MmsLinkViewerToMacCloseFile::fromStream,
    &MmsLinkViewerToMacReadBlock::fromStream,
    &MmsLinkViewerToMacFunnelInfo::fromStream,
    &MmsLinkViewerToMacPong::fromStream,
    &MmsLinkViewerToMacCancelReadBlock::fromStream,
    &MmsLinkViewerToMacStreamSwitch::fromStream,
    &MmsLinkMacToViewerReportConnectedEx::fromStream,
    &MmsLinkMacToViewerReportConnectedFunnel::fromStream,
    &MmsLinkMacToViewerReportDisconnectedFunnel::fromStream,
    &MmsLinkMacToViewerReportStartedPlaying::fromStream,
    &MmsLinkMacToViewerReportOpenFile::fromStream,
    &MmsLinkMacToViewerReportStartStriding::fromStream,
    &MmsLinkMacToViewerReportReadBlock::fromStream,
    &MmsLinkMacToViewerReportFunnelInfo::fromStream,
    &MmsLinkMacToViewerPing::fromStream,
    &MmsLinkMacToViewerReportEndOfStream::fromStream,
    &MmsLinkMacToViewerReportStreamChange::fromStream,
    &MmsLinkMacToViewerReportStreamSwitch::fromStream,
};

QByteArray written(FromStream fromStream, QByteArray const& bytes)
{
    LittleEndianReader in(bytes);
    std::unique_ptr<TcpMmsMessage> const message(fromStream(in));
    try {
        message->verify();
    } catch (std::out_of_range const&) {
    }
    LittleEndianWriter out;
    message->getObjectData(out);
    return out.bytes();
}

} // namespace

/// Whatever a message holds, it is read such that writing and reading it again changes nothing. The first byte
/// selects the type, the rest is the message.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    if (size == 0)
        return 0;
    FromStream const fromStream = types[data[0] % std::size(types)];
    QByteArray const once =
        written(fromStream, QByteArray(reinterpret_cast<char const*>(data + 1), static_cast<qsizetype>(size - 1)));
    if (once.size() % 8 != 0 || written(fromStream, once) != once)
        std::abort();
    return 0;
}

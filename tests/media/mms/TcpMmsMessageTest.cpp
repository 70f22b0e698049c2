#include "MacToViewerSessionReports.h"
#include "TcpMmsWire.h"
#include "ViewerToMacFileMessages.h"
#include "ViewerToMacSessionMessages.h"

#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>

using namespace TcpMmsWire;

namespace
{

template<typename Message>
std::unique_ptr<TcpMmsMessage> read(QByteArray const& bytes)
{
    LittleEndianReader in(bytes);
    return std::unique_ptr<TcpMmsMessage>(Message::fromStream(in));
}

template<typename Message>
std::string faultOf(QByteArray const& bytes)
{
    try {
        read<Message>(bytes)->verify();
    } catch (std::out_of_range const& error) {
        return error.what();
    }
    return "none";
}

QByteArray changed(QByteArray bytes, int offset, char byte)
{
    bytes[offset] = byte;
    return bytes;
}

} // namespace

TEST(TcpMmsMessage, VerifyNamesTheFieldThatIsWrong)
{
    using Connect = MmsLinkViewerToMacConnect;
    using ReadBlock = MmsLinkViewerToMacReadBlock;
    using ConnectedEx = MmsLinkMacToViewerReportConnectedEx;
    using FunnelInfo = MmsLinkMacToViewerReportFunnelInfo;
    using Funnel = MmsLinkMacToViewerReportConnectedFunnel;
    QByteArray const connect = message(0x30001, numbers({0xF0F0F0EF, 0x0004000B, 0x0003001C}) + text("p"));
    QByteArray const readBlock =
        message(0x30015, numbers({7, 0, 0, 0x8000, 0xFFFFFFFF, 0}) + real(0.0) + real(3600.0) + numbers({2, 0}));

    EXPECT_EQ(faultOf<Connect>(changed(connect, 12, 'X')), "Mms Tcp header _seal != 0x20534D4D");
    EXPECT_EQ(faultOf<Connect>(changed(connect, 48, 'X')),
              "MmsLinkViewerToMacConnect _viewerToMacProtocolVersion != 0x0003001C");
    EXPECT_EQ(faultOf<ReadBlock>(readBlock), "none");
    EXPECT_EQ(faultOf<ReadBlock>(changed(readBlock, 72, 'X')), "MmsLinkViewerToMacReadBlock _tDeadline != 3600.0");
    EXPECT_EQ(faultOf<ConnectedEx>(changed(connectedEx(), 76, 'X')),
              "MmsLinkMacToViewerReportConnectedEx _maxBitRate != 0x00989680");
    EXPECT_EQ(faultOf<FunnelInfo>(changed(funnelInfo(), 56, 'X')),
              "MmsLinkMacToViewerReportFunnelInfo _fragmentBytes != 0x00010000");
    EXPECT_EQ(faultOf<Funnel>(changed(connectedFunnel(), 52, 'X')),
              "MmsLinkMacToViewerReportConnectedFunnel _funnelName != Funnel Of The Gods");
}

TEST(TcpMmsMessage, TextsOfAReportAreCutAtTheirZeroUnit)
{
    auto const message = read<MmsLinkMacToViewerReportConnectedEx>(connectedEx());
    auto const& report = static_cast<MmsLinkMacToViewerReportConnectedEx const&>(*message);
    EXPECT_EQ(report.serverVersionInfo(), "9.1.0.12345");
    EXPECT_EQ(report.authenticationPackage(), "NTLM");
}

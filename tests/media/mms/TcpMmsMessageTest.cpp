#include "MacToViewerSessionReports.h"
#include "TcpMmsWire.h"
#include "ViewerToMacFileMessages.h"
#include "ViewerToMacSessionMessages.h"

#include <QDataStream>

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

using namespace TcpMmsWire;

namespace
{

template<typename Message>
std::string faultOf(QByteArray const& bytes)
{
    QDataStream stream(bytes);
    stream.setByteOrder(QDataStream::LittleEndian);
    Message const message(stream);
    try {
        message.verify();
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
    QByteArray const read =
        message(0x30015, numbers({7, 0, 0, 0x8000, 0xFFFFFFFF, 0}) + real(0.0) + real(3600.0) + numbers({2, 0}));

    EXPECT_EQ(faultOf<Connect>(connect), "none");
    EXPECT_EQ(faultOf<ReadBlock>(read), "none");
    EXPECT_EQ(faultOf<ConnectedEx>(connectedEx()), "none");
    EXPECT_EQ(faultOf<FunnelInfo>(funnelInfo()), "none");
    EXPECT_EQ(faultOf<Funnel>(connectedFunnel()), "none");

    EXPECT_EQ(faultOf<Connect>(changed(connect, 12, 'X')), "Mms Tcp header _seal != 0x20534D4D");
    EXPECT_EQ(faultOf<Connect>(changed(connect, 4, 'X')), "Mms Tcp header _sessionId != 0xB00BFACE");
    EXPECT_EQ(faultOf<Connect>(changed(connect, 48, 'X')),
              "MmsLinkViewerToMacConnect _viewerToMacProtocolVersion != 0x0003001C");
    EXPECT_EQ(faultOf<ReadBlock>(changed(read, 52, 'X')), "MmsLinkViewerToMacReadBlock _length != 0x00008000");
    EXPECT_EQ(faultOf<ReadBlock>(changed(read, 72, 'X')), "MmsLinkViewerToMacReadBlock _tDeadline != 3600.0");
    EXPECT_EQ(faultOf<ConnectedEx>(changed(connectedEx(), 76, 'X')),
              "MmsLinkMacToViewerReportConnectedEx _maxBitRate != 0x00989680");
    EXPECT_EQ(faultOf<FunnelInfo>(changed(funnelInfo(), 56, 'X')),
              "MmsLinkMacToViewerReportFunnelInfo _fragmentBytes != 0x00010000");
    EXPECT_EQ(faultOf<Funnel>(changed(connectedFunnel(), 52, 'X')),
              "MmsLinkMacToViewerReportConnectedFunnel _funnelName != Funnel Of The Gods");
}

TEST(TcpMmsMessage, TextsOfAReportAreCutAtTheirZeroUnit)
{
    QByteArray const report = connectedEx();
    QDataStream stream(report);
    stream.setByteOrder(QDataStream::LittleEndian);
    MmsLinkMacToViewerReportConnectedEx const message(stream);
    EXPECT_EQ(message.serverVersionInfo(), "9.1.0.12345");
    EXPECT_EQ(message.authenticationPackage(), "NTLM");
}

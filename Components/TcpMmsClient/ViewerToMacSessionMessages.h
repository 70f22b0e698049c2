#pragma once

#include "MmsNumbersMessage.h"

#include <QString>

// What the viewer sends about the session; ViewerToMacFileMessages.h holds what it sends about a file.

/// 0x30001, begins the session.
class MmsLinkViewerToMacConnect
    : public TcpMmsMessageOf<MmsLinkViewerToMacConnect, TcpMmsMessage::LinkViewerToMacConnect>
{
public:
    static constexpr quint32 macToViewerProtocolVersion = 0x0004000B;
    static constexpr quint32 viewerToMacProtocolVersion = 0x0003001C;

    explicit MmsLinkViewerToMacConnect(QString const& player = {}) : _player{player} {}
    void verify() const override;

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(_viewerMark, _macToViewerProtocolVersion, _viewerToMacProtocolVersion, _player);
    }

private:
    quint32 _viewerMark = 0xF0F0F0EF;
    quint32 _macToViewerProtocolVersion = macToViewerProtocolVersion;
    quint32 _viewerToMacProtocolVersion = viewerToMacProtocolVersion;
    MmsText _player;
};

/// 0x30002, says where the data is to go.
class MmsLinkViewerToMacConnectFunnel
    : public TcpMmsMessageOf<MmsLinkViewerToMacConnectFunnel, TcpMmsMessage::LinkViewerToMacConnectFunnel>
{
public:
    explicit MmsLinkViewerToMacConnectFunnel(QString const& transport = {}) : _transport{transport} {}

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(_numbers, _transport);
    }

private:
    std::array<quint32, 5> _numbers{0, 0xFFFFFFFF, 0, 10000000, 2};
    MmsText _transport;
};

/// 0x30018, asks what the server's funnel can do: u32 2; u32 0.
using MmsLinkViewerToMacFunnelInfo = MmsNumbersMessage<TcpMmsMessage::LinkViewerToMacFunnelInfo, 2>;

/// 0x3001B, answers MmsLinkMacToViewerPing: u32 0; u32 0.
using MmsLinkViewerToMacPong = MmsNumbersMessage<TcpMmsMessage::LinkViewerToMacPong, 2>;

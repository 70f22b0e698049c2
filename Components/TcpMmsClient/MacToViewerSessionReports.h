#pragma once

#include "MmsNumbersMessage.h"

#include <QString>

// What the server says about the session; MacToViewerFileReports.h holds what it says about a file. A result is an
// HRESULT: negative for a failure. Fields without a name have no known meaning; they are read and kept.

/// 0x40001, answers Connect. A length of more than is left ends the texts.
class MmsLinkMacToViewerReportConnectedEx
    : public TcpMmsMessageOf<MmsLinkMacToViewerReportConnectedEx, TcpMmsMessage::LinkMacToViewerReportConnectedEx>
{
public:
    /// The mark of a server that wants to be asked for its funnel before one is connected.
    static constexpr quint32 funnelInfoMark = 0xF0F0F0F0;

    void verify() const override;

    int result() const { return static_cast<int>(_result); }
    quint32 serverMark() const { return _serverMark; }
    QString serverVersionInfo() const { return _texts[0].section(QChar(0), 0, 0); }
    QString authenticationPackage() const { return _texts[3].section(QChar(0), 0, 0); }

    template<typename Archive>
    void fields(Archive& archive)
    {
        std::array<quint32, 4> lengths{};
        for (std::size_t i = 0; i < lengths.size(); ++i)
            lengths[i] = static_cast<quint32>(_texts[i].size());
        archive(_result, _serverMark, _macToViewerProtocolRevision, _viewerToMacProtocolRevision, _blockGroupPlayTime,
                _blockGroupBlocks, _nMaxOpenFiles, _nBlockMaxBytes, _maxBitRate, lengths);
        for (std::size_t i = 0; i < lengths.size(); ++i)
            archive.array(_texts[i], lengths[i]);
    }

private:
    quint32 _result = 0;
    quint32 _serverMark = 0;
    quint32 _macToViewerProtocolRevision = 0;
    quint32 _viewerToMacProtocolRevision = 0;
    double _blockGroupPlayTime = 0.0;
    quint32 _blockGroupBlocks = 0;
    quint32 _nMaxOpenFiles = 0;
    quint32 _nBlockMaxBytes = 0;
    quint32 _maxBitRate = 0;
    /// Server version, version, address of versions, authentication package; with their 0 units.
    std::array<QString, 4> _texts;
};

/// 0x40002, answers ConnectFunnel.
class MmsLinkMacToViewerReportConnectedFunnel
    : public TcpMmsMessageOf<MmsLinkMacToViewerReportConnectedFunnel,
                             TcpMmsMessage::LinkMacToViewerReportConnectedFunnel>
{
public:
    void verify() const override;

    int result() const { return static_cast<int>(_result); }
    quint32 playIncarnation() const { return _playIncarnation; }

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(_result, _playIncarnation, _number, _funnelName);
    }

private:
    quint32 _result = 0;
    quint32 _playIncarnation = 0;
    quint32 _number = 0;
    MmsText _funnelName;
};

/// 0x40003: two u32.
using MmsLinkMacToViewerReportDisconnectedFunnel =
    MmsNumbersMessage<TcpMmsMessage::LinkMacToViewerReportDisconnectedFunnel, 2>;

/// 0x40015, answers FunnelInfo: result u32; u32; `_transportMask` u32; `_nBlockFragments` u32; `_fragmentBytes` u32;
/// two u32; `_nDisks` u32; two u32.
class MmsLinkMacToViewerReportFunnelInfo
    : public TcpMmsMessageOf<MmsLinkMacToViewerReportFunnelInfo, TcpMmsMessage::LinkMacToViewerReportFunnelInfo>
{
public:
    int result() const { return static_cast<int>(_numbers[0]); }
    void verify() const override;

    template<typename Archive>
    void fields(Archive& archive)
    {
        archive(_numbers);
    }

private:
    std::array<quint32, 10> _numbers{};
};

/// 0x4001B, wants MmsLinkViewerToMacPong for an answer: two u32.
using MmsLinkMacToViewerPing = MmsNumbersMessage<TcpMmsMessage::LinkMacToViewerPing, 2>;

#include "ViewerToMacSessionMessages.h"

MmsLinkViewerToMacConnect::MmsLinkViewerToMacConnect(QDataStream& stream) : TcpMmsMessageOf(stream)
{
    stream >> _viewerMark >> _macToViewerProtocolVersion >> _viewerToMacProtocolVersion;
    _player = readText(stream);
}

void MmsLinkViewerToMacConnect::writeBody(QDataStream& stream) const
{
    stream << _viewerMark << _macToViewerProtocolVersion << _viewerToMacProtocolVersion;
    writeText(stream, _player);
}

void MmsLinkViewerToMacConnect::verify() const
{
    TcpMmsMessage::verify();
    char const* const name = "MmsLinkViewerToMacConnect";
    expect(name, "_macToViewerProtocolVersion", _macToViewerProtocolVersion, macToViewerProtocolVersion);
    expect(name, "_viewerToMacProtocolVersion", _viewerToMacProtocolVersion, viewerToMacProtocolVersion);
}

MmsLinkViewerToMacConnectFunnel::MmsLinkViewerToMacConnectFunnel(QDataStream& stream) : TcpMmsMessageOf(stream)
{
    for (quint32& number : _numbers)
        stream >> number;
    _transport = readText(stream);
}

void MmsLinkViewerToMacConnectFunnel::writeBody(QDataStream& stream) const
{
    for (quint32 const number : _numbers)
        stream << number;
    writeText(stream, _transport);
}

// What the client sends.

#include "Logger.h"
#include "TcpMessageHelper.h"
#include "TcpMmsClient.h"
#include "TcpMmsFileInfo.h"
#include "TcpMmsSessionHandlers.h"
#include "TcpSocket.h"
#include "ViewerToMacFileMessages.h"
#include "ViewerToMacSessionMessages.h"

bool TcpMmsClient::sendMessage(TcpMmsMessage& message)
{
    char const* const name = TcpMessageHelper::nameOf(message.type());
    if (!_socket || !_socket->isValid()) {
        LOG_WARNING("%s cannot be sent without a connection", name);
        return false;
    }
    message.header().setSequence(_sequence);
    message.header().setTimeSent(_timeSent);
    LittleEndianWriter out;
    message.getObjectData(out);
    QByteArray const& bytes = out.bytes();
    if (bytes.size() > TcpMmsMessage::maximumBytes) {
        LOG_ERROR("The address is too long: %s would take %lld bytes of at most %d", name,
                  static_cast<long long>(bytes.size()), TcpMmsMessage::maximumBytes);
        handleNow(new MmsSessionEndHandler(this, Unconnected, StreamNotAvailable));
        return false;
    }
    LOG_DEBUG("Sending %s", name);
    ++_sequence;
    return _socket->write(bytes) == bytes.size();
}

/// Sends a message that is to be answered in time.
void TcpMmsClient::sendRequest(TcpMmsMessage& message)
{
    quint16 const sequence = _sequence;
    if (!sendMessage(message))
        return;
    _lastMessage = message.type();
    _lastSequence = sequence;
    startTimer();
}

void TcpMmsClient::sendLinkViewerToMacConnect()
{
    QString const player = "NSPlayer/4.1.0.3928; " + _guid.toString() + "; Host: " + _url.host();
    MmsLinkViewerToMacConnect message(player);
    sendRequest(message);
}

void TcpMmsClient::sendLinkViewerToMacConnectFunnel()
{
    if (!_socket)
        return;
    QString const transport =
        "\\" + _socket->localAddress().toString() + "\\TCP\\" + QString::number(_socket->localPort());
    MmsLinkViewerToMacConnectFunnel message(transport);
    sendRequest(message);
}

void TcpMmsClient::sendLinkViewerToMacFunnelInfo()
{
    MmsLinkViewerToMacFunnelInfo message({2, 0});
    sendRequest(message);
}

void TcpMmsClient::sendLinkViewerToMacOpenFile()
{
    QString path = _url.path(QUrl::FullyEncoded);
    if (_url.hasQuery())
        path += '?' + _url.query(QUrl::FullyEncoded);
    if (path.isEmpty())
        path = '/';
    MmsLinkViewerToMacOpenFile message(++_openCounter, path);
    sendRequest(message);
}

void TcpMmsClient::sendLinkViewerToMacReadBlock()
{
    MmsLinkViewerToMacReadBlock message(_file ? _file->fileId : 0);
    sendRequest(message);
}

void TcpMmsClient::sendLinkViewerToMacStreamSwitch()
{
    QList<StreamSwitchEntry> entries;
    for (auto entry = _selection.cbegin(); entry != _selection.cend(); ++entry)
        entries.append({static_cast<quint16>(entry.key()), static_cast<quint16>(entry.value())});
    MmsLinkViewerToMacStreamSwitch message(entries);
    sendRequest(message);
}

void TcpMmsClient::sendLinkViewerToMacStartPlaying()
{
    MmsLinkViewerToMacStartPlaying message(_file ? _file->fileId : 0);
    sendRequest(message);
}

void TcpMmsClient::sendLinkViewerToMacStopPlaying()
{
    LOG_INFO("Sending LinkViewerToMacStopPlaying");
}

void TcpMmsClient::sendLinkViewerToMacCloseFile()
{
    MmsLinkViewerToMacCloseFile message({0, _file ? _file->fileId : 0});
    sendMessage(message);
}

void TcpMmsClient::sendLinkViewerToMacPong()
{
    MmsLinkViewerToMacPong message;
    if (_socket && _socket->bytesToWrite() < maximumUnsentBytes)
        sendMessage(message);
}

#include "RtspTestServer.h"

#include <QRegularExpression>
#include <QtEndian>

namespace
{

constexpr int soundBytes = 160;
char const sessionHeader[] = "Session: 1;timeout=60\r\n";

template<typename T>
void put(QByteArray& bytes, T value)
{
    value = qToBigEndian(value);
    bytes.append(reinterpret_cast<char const*>(&value), sizeof value);
}

} // namespace

QByteArray RtspTestServer::Request::header(QByteArray const& name) const
{
    for (QByteArray const& line : text.split('\n'))
        if (line.toLower().startsWith(QByteArray(name.toLower() + ':')))
            return line.mid(name.size() + 1).trimmed();
    return {};
}

RtspTestServer::RtspTestServer()
{
    connect(&_server, &QTcpServer::newConnection, this, &RtspTestServer::onConnection);
    _server.listen(QHostAddress::LocalHost);
    _udp.bind(QHostAddress::LocalHost);
}

QString RtspTestServer::address() const
{
    return "rtsp://127.0.0.1:" + QString::number(_server.serverPort()) + "/live";
}

QByteArray RtspTestServer::reply(Request const& request, QByteArray const& status, QByteArray const& headers,
                                 QByteArray const& body)
{
    QByteArray answer = "RTSP/1.0 " + status + "\r\nCSeq: " + request.header("CSeq") + "\r\n" + headers;
    if (!body.isEmpty())
        answer += "Content-Length: " + QByteArray::number(body.size()) + "\r\n";
    return answer + "\r\n" + body;
}

QByteArray RtspTestServer::describe(Request const& request, QByteArray const& media)
{
    return reply(request, "200 OK", "Content-Type: application/sdp\r\n",
                 "v=0\r\no=- 1 1 IN IP4 127.0.0.1\r\ns=live\r\nc=IN IP4 0.0.0.0\r\nt=0 0\r\na=control:*\r\n" + media);
}

void RtspTestServer::onConnection()
{
    while (QTcpSocket* const socket = _server.nextPendingConnection()) {
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { onReadyRead(socket); });
    }
}

void RtspTestServer::onReadyRead(QTcpSocket* socket)
{
    QByteArray& received = _received[socket];
    received += socket->readAll();
    for (;;) {
        while (received.size() >= 4 && received[0] == '$') // The client's own reports.
            received.remove(0, 4 + qFromBigEndian<quint16>(received.constData() + 2));
        qsizetype const end = received.indexOf("\r\n\r\n");
        if (end < 0 || received[0] == '$')
            return;
        Request request;
        request.text = received.left(end + 2);
        request.method = request.text.left(request.text.indexOf(' '));
        received.remove(0, end + 4);
        QString asked = QString::fromLatin1(request.method);
        if (request.method == "SETUP")
            asked += request.isTcp() ? " TCP" : " UDP";
        _asked.append(asked);
        _current = socket;
        auto const answer = _answers.value(request.method);
        QByteArray const bytes = answer ? answer(request) : answerTo(request);
        socket->write(bytes);
        if (request.method == "PLAY")
            _playing = bytes.contains("200 OK");
    }
}

QByteArray RtspTestServer::answerTo(Request const& request)
{
    if (request.method == "OPTIONS")
        return reply(request, "200 OK", "Public: DESCRIBE, SETUP, PLAY, TEARDOWN, GET_PARAMETER\r\n");
    if (request.method == "DESCRIBE")
        return describe(request, media);
    if (request.method != "SETUP")
        return reply(request, "200 OK", sessionHeader);
    _playing = false;
    _isTcp = request.isTcp();
    static QRegularExpression const port(QStringLiteral("client_port=(\\d+)"));
    _clientPort = port.match(QString::fromLatin1(request.text)).captured(1).toUShort();
    QByteArray const more = _isTcp ? QByteArray()
                                   : ";server_port=" + QByteArray::number(_udp.localPort()) + "-" +
                                         QByteArray::number(_udp.localPort() + 1);
    return reply(request, "200 OK",
                 QByteArray(sessionHeader) + "Transport: " + request.header("Transport") + more + "\r\n");
}

void RtspTestServer::sendSound(int packets)
{
    for (int i = 0; i < packets; ++i, ++_sequence) {
        QByteArray packet("\x80\x00", 2); // RFC 3550: version 2, payload type 0.
        put<quint16>(packet, _sequence);
        put<quint32>(packet, 1000u + _sequence * soundBytes);
        put<quint32>(packet, 0x12345678);
        sendMedia(packet + QByteArray(soundBytes, static_cast<char>(_sequence)), 0);
    }
}

void RtspTestServer::sendBye()
{
    QByteArray report("\x80\xc9\x00\x01", 4); // An empty receiver report begins a compound packet.
    put<quint32>(report, 0x12345678);
    report += QByteArray("\x81\xcb\x00\x01", 4);
    put<quint32>(report, 0x12345678);
    sendMedia(report, 1);
    _playing = false;
}

void RtspTestServer::sendMedia(QByteArray const& packet, int channel)
{
    if (!_isTcp) {
        _udp.writeDatagram(packet, QHostAddress::LocalHost, static_cast<quint16>(_clientPort + channel));
        return;
    }
    QByteArray frame("$");
    frame.append(static_cast<char>(channel));
    put<quint16>(frame, static_cast<quint16>(packet.size()));
    _current->write(frame + packet);
}

void RtspTestServer::dropConnections()
{
    for (QTcpSocket* const socket : _server.findChildren<QTcpSocket*>())
        socket->abort();
    _playing = false;
}

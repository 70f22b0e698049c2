#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUdpSocket>

#include <functional>

/// An RTSP server whose every answer a test can replace. Left alone it offers one stream of PCMU sound, by UDP and
/// TCP, and sends it when told. On a free port of 127.0.0.1, in the thread of the test.
class RtspTestServer : public QObject
{
public:
    struct Request {
        QByteArray method;
        QByteArray text; ///< Whole, with its header.
        QByteArray header(QByteArray const& name) const;
        bool isTcp() const { return text.contains("interleaved"); }
    };

    /// The whole bytes to send back; empty to keep silent.
    using Answer = std::function<QByteArray(Request const&)>;

    RtspTestServer();

    QString address() const;

    /// Replaces the answer to a method.
    void on(QByteArray const& method, Answer answer) { _answers[method] = std::move(answer); }

    /// What it says when left alone.
    QByteArray answerTo(Request const& request);

    /// An answer with these header lines, each with its line end, and a body.
    static QByteArray reply(Request const& request, QByteArray const& status = "200 OK",
                            QByteArray const& headers = {}, QByteArray const& body = {});
    static QByteArray describe(Request const& request, QByteArray const& media);

    QByteArray media = "m=audio 0 RTP/AVP 0\r\na=control:sound\r\n";

    /// The methods asked for so far, a SETUP with its transport, such as "SETUP UDP".
    QStringList const& asked() const { return _asked; }
    int count(QString const& method) const { return static_cast<int>(_asked.count(method)); }

    /// Sends the next RTP packets of 20 ms to whoever is playing.
    void sendSound(int packets);
    /// Says by RTCP that the stream has ended.
    void sendBye();
    bool isPlaying() const { return _playing; }
    void dropConnections();
    void stopListening() { _server.close(); }

private:
    void onConnection();
    void onReadyRead(QTcpSocket* socket);
    void sendMedia(QByteArray const& packet, int channel);

    QTcpServer _server;
    QHash<QByteArray, Answer> _answers;
    QHash<QTcpSocket*, QByteArray> _received;
    QStringList _asked;
    QUdpSocket _udp;
    QTcpSocket* _current = nullptr;
    bool _playing = false;
    bool _isTcp = false;
    quint16 _clientPort = 0;
    quint16 _sequence = 0;
};

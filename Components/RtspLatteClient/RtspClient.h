#pragma once

#include "NetworkErrors.h"

#include <QByteArray>
#include <QObject>

class Uri;

/// One RTSP session after another with one server: connects, and delivers the streams in a container.
///
/// Asynchronous: every operation returns at once, and each session ends with one done(), unless it is ended from this
/// side. Lives on one thread, with an event loop; its signals are emitted there, never from inside an operation.
class RtspClient : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Begins a session, ending one that runs. The server has `timeout` ms to accept it.
    virtual void connectToServer(Uri const& uri, int timeout) = 0;

    /// Ends the session without a done(); nothing of it arrives any more.
    virtual void disconnectFromServer() = 0;

    /// Whether this machine had an address to reach the server from when the last session ended by itself.
    virtual bool isNetworkAvailable() const = 0;

    /// Whether the last session ended where the server had said that the stream has its end. A live one has none.
    virtual bool isFinite() const = 0;

signals:
    /// The server has accepted the session.
    void connected();
    /// What a demultiplexer needs before the data of this session. A session whose header equals that of the one
    /// before goes on in time where that one was, so that its data can follow on the other's.
    void headerReceived(QByteArray header);
    /// A whole packet of the container. At an entry a demultiplexer can begin, and a decoder too.
    void dataReceived(QByteArray chunk, bool isEntry);
    /// The session has ended. EndOfStream when the server has ended the stream, RemoteClosed when it broke off.
    void done(NetworkErrors::NetworkError error);
};

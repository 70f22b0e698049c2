#pragma once

#include "BiscottiRequestReader.h"
#include "BiscottiRouter.h"
#include "ServiceConnection.h"

#include <memory>

class BiscottiServer;
class BiscottiSession;
class CentralisedBiscottiGreeting;
class Logger;

/// One link of a Biscotti client: a greeting each way, then messages (see CentralisedBiscottiGreeting and
/// BiscottiRequestReader). A client of another major version is answered with the server's greeting and let go; one
/// that says what cannot be read, nothing for too long, or reads too slowly, is dropped with a line in the log.
class BiscottiConnection : public ServiceConnection
{
    Q_OBJECT

public:
    static constexpr qint64 msForGreeting = 10'000;       ///< From the connection to the whole line.
    static constexpr qint64 msOfSilence = 120'000;        ///< Of a client; it has a heartbeat every 29 s.
    static constexpr qint64 msForMessage = 60'000;        ///< From the first byte of a message to the last.
    static constexpr qint64 msBetweenHeartbeats = 29'000; ///< To a client that has been sent nothing else.

    /// The server is borrowed and outlives the connection. The number is the client's for the router.
    BiscottiConnection(std::unique_ptr<QTcpSocket> socket, BiscottiServer& server, BiscottiRouter::Client client);

    BiscottiRouter::Client client() const { return _client; }

    /// Null until the client has said who it is, with its first message.
    std::shared_ptr<BiscottiSession> const& session() const { return _session; }

    /// Sends a post, which is with the system when this returns, unless the client is slow.
    void deliver(QByteArray const& bytes);

protected:
    void received(QByteArray const& bytes) override;
    void check(qint64 msNow) override;
    void over() override;

private:
    void readGreeting();
    void answerGreeting(CentralisedBiscottiGreeting const& greeting);
    void readMessages();
    bool hold(qint64 bytes);
    void handle(BiscottiRequest const& request);
    void sendNow(QByteArray const& bytes);

    BiscottiServer& _server;
    BiscottiRouter::Client const _client;
    std::shared_ptr<BiscottiSession> _session;
    QByteArray _greeting; ///< As far as it has come.
    bool _isGreeted = false;
    BiscottiRequestReader _reader;
    qint64 _msBegin; ///< Of the link.
    qint64 _msLastHeard;
    qint64 _msLastSent;
    qint64 _msMessage = 0; ///< When the message under way began; 0 if there is none.
    qint64 _bytesHeld = 0; ///< As the server has counted them.
    int _malformed = 0;

    static Logger* log;
};

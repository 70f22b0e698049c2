#pragma once

#include "BiscottiRequestReader.h"
#include "BiscottiRouter.h"
#include "ServiceConnection.h"

#include <memory>
#include <optional>

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
    static constexpr qint64 msForAnswer = 2'000;          ///< To a heartbeat, when its identity is wanted elsewhere.
    static constexpr qint64 msBetweenHeartbeats = 29'000; ///< To a client that has been sent nothing else.

    /// The server is borrowed and outlives the connection. The number is the client's for the router.
    BiscottiConnection(std::unique_ptr<QTcpSocket> socket, BiscottiServer& server, BiscottiRouter::Client client);

    BiscottiRouter::Client client() const { return _client; }

    /// Null until the client has said who it is, with its first message.
    std::shared_ptr<BiscottiSession> const& session() const { return _session; }

    /// Empty until then.
    QString const& identity() const { return _identity; }

    /// Another link wants its identity: sends it a heartbeat. If its system does not take that in time, it is
    /// dropped.
    void askWhetherItIsThere();

    /// The link that had its identity is gone.
    void tryToEnter();

    /// The link that has its identity is there.
    void turnAway();

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
    void forgetUnread();
    void enter(BiscottiRequest const& request, qsizetype bytes);
    void handle(BiscottiRequest const& request);
    void checkWhetherItIsThere(qint64 msNow);
    void answered();
    void sendNow(QByteArray const& bytes);

    BiscottiServer& _server;
    BiscottiRouter::Client const _client;
    QString _identity;
    std::shared_ptr<BiscottiSession> _session;
    std::optional<BiscottiRequest> _waiting; ///< Its first message, until its identity is free.
    qsizetype _bytesWaiting = 0;             ///< Of that message.
    std::optional<qint64> _msAsked;          ///< When it was asked whether it is there.
    QByteArray _greeting;                    ///< As far as it has come.
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

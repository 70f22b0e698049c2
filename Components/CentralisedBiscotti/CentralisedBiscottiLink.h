#pragma once

#include "CentralisedBiscottiVersion.h"
#include "MersenneTwisterRandomGenerator.h"
#include "ReconnectionPolicy.h"

#include <QAbstractSocket>
#include <QByteArray>
#include <QString>

#include <atomic>
#include <optional>

class CentralisedBiscotti;
class Logger;
class TcpSocket;
class TcpSocketFactory;
class TickCounter;

/// The TCP connection to the central server, from the greetings on, and how long it has been silent. On the memo
/// queue's thread, but for what says otherwise.
class CentralisedBiscottiLink
{
public:
    /// What the server's greeting has brought so far.
    enum class Greeting { Awaited, Refused, Accepted };

    /// What is read from the socket before it stops to take more from the network.
    static constexpr qint64 maximumUnreadBytes = qint64{256} * 1024;

    /// All are borrowed. What the socket signals goes to the client's slots.
    CentralisedBiscottiLink(CentralisedBiscotti* client, TickCounter* ticker, TcpSocketFactory* socketFactory,
                            QString const& host, unsigned short port);
    CentralisedBiscottiLink(CentralisedBiscottiLink const&) = delete;
    CentralisedBiscottiLink& operator=(CentralisedBiscottiLink const&) = delete;
    ~CentralisedBiscottiLink();

    QString host() const { return _host; }
    unsigned short port() const { return _port; }

    /// Null before the first createSocket() and after dispose().
    TcpSocket* socket() const { return _socket; }
    void createSocket();

    /// Closes the link and gives the socket back; what was written is still sent as far as the system takes it.
    void dispose();

    /// Begins to connect, unless that is under way or it is too early after messages out of step.
    void connectToHost();

    /// Drops a link over which the server sends what is no message: nothing that it sends can be understood any more.
    void leaveOutOfStep();

    /// The link is down. In how many ms to make the next one, if it was left out of step; the heartbeat does it
    /// otherwise.
    std::optional<int> end();

    /// Forgets the other side's greeting and counts all silence from now.
    void reset();

    /// Sends this side's greeting. False if it cannot be sent.
    bool sendGreeting();

    /// Reads the server's greeting once it is there. One that is none, or of an incompatible server, closes the link.
    Greeting readGreeting();

    bool sendMessage(QByteArray const& bytes);

    /// Reads some of the bytes that have come; empty if there are none.
    QByteArray readMessageBytes();

    void disconnectFromHost();

    qint64 lastSendMs() const { return _lastSendMs; }
    qint64 lastReceiveMs() const { return _lastReceiveMs; }
    void noteSend();
    void noteReceive();

    /// When a message last began or came to its end.
    qint64 lastMessageMs() const { return _lastMessageMs; }
    void noteMessage();

    // From any thread.
    qint64 maxDataWaitMs() const { return _maxDataWaitMs; }
    void setMaxDataWaitMs(qint64 ms) { _maxDataWaitMs = ms; }

private:
    bool isGreetingWhole() const;
    Greeting refuse();
    Greeting judgeGreeting(QByteArray const& line);
    void readNotes(class CentralisedBiscottiGreeting const& greeting);

    static Logger* log;

    CentralisedBiscotti* _client;
    TickCounter* _ticker;
    TcpSocketFactory* _socketFactory;
    QString const _host;
    unsigned short const _port;
    TcpSocket* _socket = nullptr;
    Greeting _greeting = Greeting::Awaited;
    CentralisedBiscottiVersion _serverProtocolVersion; ///< Null until a greeting has been read.
    CentralisedBiscottiVersion _serverMessageVersion;
    qint64 _lastSendMs;
    qint64 _lastReceiveMs;
    qint64 _lastMessageMs;
    std::atomic<qint64> _maxDataWaitMs;

    MersenneTwisterRandomGenerator _random;
    ReconnectionPolicy _policy;
    bool _isOutOfStep = false; ///< It was left for that, and is not down yet.
    qint64 _notBeforeMs;       ///< When to connect at the earliest.
};

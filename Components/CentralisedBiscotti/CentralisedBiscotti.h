#pragma once

#include "Biscotti.h"
#include "CentralisedBiscottiAck.h"
#include "CentralisedBiscottiHeartbeat.h"
#include "CentralisedBiscottiMessageCoding.h"
#include "CentralisedBiscottiMessageId.h"
#include "CentralisedBiscottiVersion.h"

#include <QAbstractSocket>
#include <QByteArray>
#include <QMutex>
#include <QString>

#include <memory>

class BiscottiSubscriptionEngine;
class CentralisedBiscottiSession;
class Keychain;
class Logger;
class MemoQueue;
class TcpSocket;
class TcpSocketFactory;
class TickCounter;

/// The Biscotti service over one TCP link to a central server.
///
/// Connects at once and, as long as there is no link, again every 29 seconds. Sends one operation at a time and waits
/// for its acknowledgement. After the loss of the link all subscriptions are sent again, then the posts of the last
/// 45 seconds; older posts are dropped.
///
/// The operations of Biscotti, nextId(), bounceConnection() and the setters may be called from any thread. All else
/// runs as memos on the memo queue's thread: socket, signals, calls of subscribers.
class CentralisedBiscotti : public Biscotti
{
    Q_OBJECT

public:
    inline static CentralisedBiscottiVersion const ClientProtocolVersion{1, 0};
    inline static CentralisedBiscottiVersion const ClientMessageVersion{1, 0};
    static constexpr char const* HandshakeArguments = "";
    static constexpr int DefaultHeartbeatMs = 29000;
    static constexpr qint64 DefaultMaxDataWaitMs = 120000;

    // Codes beyond those of acknowledgements, with their texts.
    static constexpr int EncodeErrorCode = 600;
    static constexpr char const* EncodeErrorDescription = "Could not encode message.";
    static constexpr int TimeoutErrorCode = 700;
    static constexpr char const* TimeoutErrorDescription = "Timed out trying to send message to server.";

    /// Starts to connect. All pointers are borrowed and outlive this object, the memo queue running; the engine is
    /// used by nobody else meanwhile. `clientId` is one that no other client of the server has.
    CentralisedBiscotti(TickCounter* ticker, Keychain* keychain, MemoQueue* memoQueue,
                        TcpSocketFactory* socketFactory, QString const& host, unsigned short port,
                        QString const& clientId, BiscottiSubscriptionEngine* engine,
                        CentralisedBiscottiMessageEncoding encoding = CentralisedBiscottiMessageEncoding::Der,
                        CentralisedBiscottiMessageDecoding decoding = CentralisedBiscottiMessageDecoding::Ber);

    /// Sends the posts that are left, the last one included, without waiting for their acknowledgements, and closes
    /// the link. Whoever posts is gone by then. Waits for a memo that runs. Not to be called from a signal or
    /// subscriber that this object calls.
    ~CentralisedBiscotti() override;

    BiscottiState state() const override;
    BiscottiSubscriptionId subscribe(BiscottiSubscription* subscription, BiscottiSubscriber* subscriber,
                                     BiscottiSignatureId const& signatureId) override;
    void unsubscribe(BiscottiSubscriptionId const& id) override;
    void unsubscribeAll(BiscottiSubscriberId const& subscriberId) override;
    BiscottiPostId post(BiscottiPost* post, BiscottiSignatureId const& signatureId) override;

    /// The id given to the constructor.
    QString clientId() const { return _clientId; }
    QString serverHost() const;
    unsigned short serverPort() const;

    /// How often the server is told that this client lives, and how often a lost link is tried again.
    void setHeartbeatMs(int ms);

    /// For how long the server may be silent before the link is dropped; the server's greeting may say so too.
    void setMaxDataWaitMs(qint64 ms);

    /// Drops the link; the next heartbeat makes a new one.
    void bounceConnection();

    /// A fresh id: the client's id, a comma, a number. Messages, subscriptions and posts share the numbers.
    QString nextId();

    // On the memo queue's thread only.

    /// Closes the link once what was written is sent; at once when that was asked before.
    void disconnectFromHost();

    /// Sends bytes to the server. False, with a log line, if there is no link or it takes none.
    bool sendMessage(QByteArray const& bytes);

    /// Whether a message that came is from whom it says; logged if not.
    bool verifyMessage(CentralisedBiscottiMessageId const& messageId, BiscottiSignatureId const& signatureId,
                       bool verified) const;

public slots:
    // Each only leaves a memo; called on the thread of the memo queue.
    void onConnected(TcpSocket* socket);
    void onDisconnected(TcpSocket* socket);
    void onError(TcpSocket* socket, QAbstractSocket::SocketError error);
    void onReadyRead(TcpSocket* socket);
    void handleHeartbeat(CentralisedBiscottiMessageId const& messageId, CentralisedBiscottiHeartbeat const& heartbeat,
                         BiscottiSignatureId const& signatureId, bool verified, QByteArray const& rawBytes);
    void handleAck(CentralisedBiscottiMessageId const& messageId, CentralisedBiscottiAck const& ack,
                   BiscottiSignatureId const& signatureId, bool verified, QByteArray const& rawBytes);
    void handlePost(CentralisedBiscottiMessageId const& messageId, BiscottiPost const& post,
                    BiscottiSignatureId const& signatureId, bool verified, QByteArray const& rawBytes);
    void onErrorDecoding();

signals:
    /// A post has come, whether or not anyone here subscribes to it.
    void postAvailable(CentralisedBiscottiMessageId messageId, BiscottiPost post, BiscottiSignatureId signatureId,
                       bool verified, QByteArray rawBytes);

    /// Bytes have come that are no message.
    void errorDecoding();

private:
    void connectDecoder();

    static Logger* log;

    MemoQueue* _memoQueue;
    QString const _clientId;
    QMutex _idMutex; ///< Guards _nextIdCounter.
    int _nextIdCounter = 0;
    std::unique_ptr<CentralisedBiscottiSession> _session; ///< All that the memos work on.
};

#include "CentralisedBiscotti.h"

#include "BiscottiSubscriber.h"
#include "CentralisedBiscottiDisconnectMemo.h"
#include "CentralisedBiscottiDoPendingMemo.h"
#include "CentralisedBiscottiHandleAckMemo.h"
#include "CentralisedBiscottiHandleHeartbeatMemo.h"
#include "CentralisedBiscottiHandlePostMemo.h"
#include "CentralisedBiscottiHeartbeatMemo.h"
#include "CentralisedBiscottiOnConnectedMemo.h"
#include "CentralisedBiscottiOnDisconnectedMemo.h"
#include "CentralisedBiscottiOnReadyReadMemo.h"
#include "CentralisedBiscottiPostMemo.h"
#include "CentralisedBiscottiShutdownMemo.h"
#include "CentralisedBiscottiSubscribeMemo.h"
#include "CentralisedBiscottiUnsubscribeAllMemo.h"
#include "CentralisedBiscottiUnsubscribeMemo.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MemoQueue.h"
#include "TcpSocket.h"

#include <QThread>

#include <algorithm>
#include <mutex>

Logger* CentralisedBiscotti::log = LoggerManager::logger();

CentralisedBiscotti::CentralisedBiscotti(TickCounter* ticker, Keychain* keychain, MemoQueue* memoQueue,
                                         TcpSocketFactory* socketFactory, QString const& host, unsigned short port,
                                         QString const& clientId, BiscottiSubscriptionEngine* engine,
                                         CentralisedBiscottiMessageEncoding encoding,
                                         CentralisedBiscottiMessageDecoding decoding)
    : _memoQueue(memoQueue), _clientId(clientId)
{
    _memoQueue->acquire(this);
    _session = std::make_unique<CentralisedBiscottiSession>(
        this, ticker, keychain, memoQueue, engine,
        std::make_unique<CentralisedBiscottiLink>(this, ticker, socketFactory, host, port));
    _session->encoder().setEncoding(encoding);
    _session->decoder().setDecoding(decoding);
    connectDecoder();
    _session->post(new CentralisedBiscottiHeartbeatMemo(*_session));
    _session->post(new CentralisedBiscottiDoPendingMemo(*_session, true));
}

CentralisedBiscotti::~CentralisedBiscotti()
{
    _memoQueue->release(this);
    TcpSocket* const socket = _session->link().socket();
    if (!socket || socket->thread() == QThread::currentThread()) {
        CentralisedBiscottiShutdownMemo(*_session).handle();
        return;
    }
    // The socket may be in the middle of a signal: it is let go where it lives.
    _memoQueue->acquire(_session.get());
    auto memo = std::make_unique<CentralisedBiscottiShutdownMemo>(*_session);
    std::future<void> const done = memo->done();
    _memoQueue->handleNow(memo.release());
    done.wait();
    _memoQueue->release(_session.get());
}

/// Directly, whatever thread the decoder was made on: it decodes in memos only.
void CentralisedBiscotti::connectDecoder()
{
    using Decoder = CentralisedBiscottiMessageDecoder;
    Decoder const* const decoder = &_session->decoder();
    connect(decoder, &Decoder::heartbeatAvailable, this, &CentralisedBiscotti::handleHeartbeat, Qt::DirectConnection);
    connect(decoder, &Decoder::ackAvailable, this, &CentralisedBiscotti::handleAck, Qt::DirectConnection);
    connect(decoder, &Decoder::postAvailable, this, &CentralisedBiscotti::handlePost, Qt::DirectConnection);
    connect(decoder, &Decoder::postAvailable, this, &CentralisedBiscotti::postAvailable, Qt::DirectConnection);
    connect(decoder, &Decoder::errorDecoding, this, &CentralisedBiscotti::onErrorDecoding, Qt::DirectConnection);
    connect(decoder, &Decoder::errorDecoding, this, &CentralisedBiscotti::errorDecoding, Qt::DirectConnection);
}

Biscotti::BiscottiState CentralisedBiscotti::state() const
{
    return _session->state();
}

BiscottiSubscriptionId CentralisedBiscotti::subscribe(BiscottiSubscription* subscription,
                                                      BiscottiSubscriber* subscriber,
                                                      BiscottiSignatureId const& signatureId)
{
    BiscottiSubscriptionId id(nextId());
    subscription->setSubscriptionId(id);
    // Asked for its id now: it may be gone when the memo runs.
    _session->post(new CentralisedBiscottiSubscribeMemo(*_session, *subscription, subscriber,
                                                        subscriber->biscottiSubscriberId(), signatureId));
    return id;
}

void CentralisedBiscotti::unsubscribe(BiscottiSubscriptionId const& id)
{
    _session->post(new CentralisedBiscottiUnsubscribeMemo(*_session, id));
}

void CentralisedBiscotti::unsubscribeAll(BiscottiSubscriberId const& subscriberId)
{
    _session->subscribers().silence(subscriberId);
    _session->post(new CentralisedBiscottiUnsubscribeAllMemo(*_session, subscriberId));
}

BiscottiPostId CentralisedBiscotti::post(BiscottiPost* post, BiscottiSignatureId const& signatureId)
{
    BiscottiPostId id(nextId());
    post->setPostId(id);
    _session->postInbox().add(*post, signatureId);
    _session->post(new CentralisedBiscottiPostMemo(*_session));
    return id;
}

QString CentralisedBiscotti::serverHost() const
{
    return _session->link().host();
}

unsigned short CentralisedBiscotti::serverPort() const
{
    return _session->link().port();
}

void CentralisedBiscotti::setHeartbeatMs(int ms)
{
    _session->setHeartbeatMs(std::max(1, ms));
}

void CentralisedBiscotti::setMaxDataWaitMs(qint64 ms)
{
    _session->link().setMaxDataWaitMs(ms);
}

void CentralisedBiscotti::bounceConnection()
{
    _session->post(new CentralisedBiscottiDisconnectMemo(*_session));
}

QString CentralisedBiscotti::nextId()
{
    std::lock_guard const lock(_idMutex);
    return _clientId + u',' + QString::number(_nextIdCounter++);
}

void CentralisedBiscotti::disconnectFromHost()
{
    _session->link().disconnectFromHost();
}

bool CentralisedBiscotti::sendMessage(QByteArray const& bytes)
{
    return _session->link().sendMessage(bytes);
}

bool CentralisedBiscotti::verifyMessage(CentralisedBiscottiMessageId const& messageId,
                                        BiscottiSignatureId const& signatureId, bool verified) const
{
    if (verified || signatureId.isNull())
        return true;
    LOG_WARNING("Dropping signed message %s from somebody fraudulently claiming to be %s.",
                qUtf8Printable(messageId.toString()), qUtf8Printable(signatureId.toString()));
    return false;
}

void CentralisedBiscotti::onConnected(TcpSocket*)
{
    _session->post(new CentralisedBiscottiOnConnectedMemo(*_session));
}

void CentralisedBiscotti::onDisconnected(TcpSocket*)
{
    _session->post(new CentralisedBiscottiOnDisconnectedMemo(*_session));
}

void CentralisedBiscotti::onError(TcpSocket*, QAbstractSocket::SocketError error)
{
    LOG_INFO("Client socket raised error code %d.", static_cast<int>(error));
}

void CentralisedBiscotti::onReadyRead(TcpSocket*)
{
    _session->post(new CentralisedBiscottiOnReadyReadMemo(*_session));
}

void CentralisedBiscotti::handleHeartbeat(CentralisedBiscottiMessageId const&, CentralisedBiscottiHeartbeat const&,
                                          BiscottiSignatureId const&, bool, QByteArray const&)
{
    _session->post(new CentralisedBiscottiHandleHeartbeatMemo(*_session));
}

void CentralisedBiscotti::handleAck(CentralisedBiscottiMessageId const& messageId, CentralisedBiscottiAck const& ack,
                                    BiscottiSignatureId const& signatureId, bool verified, QByteArray const&)
{
    _session->post(new CentralisedBiscottiHandleAckMemo(*_session, messageId, ack, signatureId, verified));
}

void CentralisedBiscotti::handlePost(CentralisedBiscottiMessageId const& messageId, BiscottiPost const& post,
                                     BiscottiSignatureId const& signatureId, bool verified, QByteArray const&)
{
    _session->post(new CentralisedBiscottiHandlePostMemo(*_session, messageId, post, signatureId, verified));
}

void CentralisedBiscotti::onErrorDecoding()
{
    LOG_WARNING("Error decoding message from server.");
}

#include "CentralisedBiscottiSession.h"

#include "BiscottiSubscriptionEngine.h"
#include "CentralisedBiscotti.h"
#include "CentralisedBiscottiAck.h"
#include "CentralisedBiscottiDoPendingMemo.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MemoQueue.h"
#include "TickCounter.h"

#include <stdexcept>

Logger* CentralisedBiscottiSession::log = LoggerManager::logger();

void CentralisedBiscottiSession::DeleteLater::operator()(QObject* object) const
{
    object->blockSignals(true);
    object->deleteLater();
}

CentralisedBiscottiSession::CentralisedBiscottiSession(CentralisedBiscotti* client, TickCounter* ticker,
                                                       Keychain* keychain, MemoQueue* memoQueue,
                                                       BiscottiSubscriptionEngine* engine,
                                                       std::unique_ptr<CentralisedBiscottiLink> link)
    : _client(client), _ticker(ticker), _memoQueue(memoQueue),
      _encoder(new CentralisedBiscottiMessageEncoder(keychain)),
      _decoder(new CentralisedBiscottiMessageDecoder(keychain)), _link(std::move(link)), _subscribers(engine),
      _heartbeatMs(CentralisedBiscotti::DefaultHeartbeatMs)
{
}

void CentralisedBiscottiSession::post(Memo* memo)
{
    _memoQueue->handleNow(memo);
}

void CentralisedBiscottiSession::postSoon(int ms, Memo* memo)
{
    _memoQueue->handleSoon(static_cast<unsigned int>(ms), memo);
}

void CentralisedBiscottiSession::setState(Biscotti::BiscottiState state)
{
    if (state == _state)
        return;
    _state = state;
    if (state == Biscotti::Connected) {
        postDoPending();
    } else {
        _link->reset();
        _decoder->reset();
    }
    emit _client->stateChanged(state);
}

void CentralisedBiscottiSession::postDoPending()
{
    post(new CentralisedBiscottiDoPendingMemo(*this, false));
}

std::unique_ptr<CentralisedBiscottiPendingOp>
CentralisedBiscottiSession::createOp(std::unique_ptr<BiscottiMessage> message, BiscottiSignatureId const& signatureId)
{
    return std::make_unique<CentralisedBiscottiPendingOp>(CentralisedBiscottiMessageId(_client->nextId()),
                                                          std::move(message), signatureId);
}

bool CentralisedBiscottiSession::queueNextPost()
{
    auto const item = _postInbox.take();
    if (!item)
        return false;
    auto op = createOp(std::make_unique<BiscottiPost>(item->post), item->signatureId);
    op->postedAtMs = static_cast<quint64>(_ticker->msSinceEpoch());
    LOG_DEBUG("Posting %s: %s...", qUtf8Printable(op->msgId.toString()), qUtf8Printable(op->toString()));
    _opQueue.append(std::move(op));
    return true;
}

void CentralisedBiscottiSession::addUnsubscribeOp(BiscottiSubscriptionId const& id)
{
    if (!engine().contains(id))
        return;
    BiscottiSubscription const subscription = engine().subscription(id);
    auto unsubscription = std::make_unique<BiscottiUnsubscription>();
    unsubscription->setSenderId(subscription.senderId());
    unsubscription->setSenderName(subscription.senderName());
    unsubscription->setSenderReplyTo(subscription.senderReplyTo());
    unsubscription->setSubscriptionId(id);
    auto op = createOp(std::move(unsubscription), engine().signatureId(id));
    LOG_DEBUG("Unsubscribing %s: %s...", qUtf8Printable(op->msgId.toString()), qUtf8Printable(op->toString()));
    _opQueue.append(std::move(op));
}

QByteArray CentralisedBiscottiSession::encode(CentralisedBiscottiPendingOp const& op)
{
    try {
        if (auto const* const subscription = op.subscription()) {
            // Unique among all clients.
            BiscottiSubscriberId const subscriberId(_client->clientId() + u',' + op.subscriberId.toString());
            return _encoder->encodeSubscription(op.msgId, subscriberId, *subscription, op.signatureId);
        }
        if (auto const* const unsubscription = op.unsubscription())
            return _encoder->encodeUnsubscription(op.msgId, *unsubscription, op.signatureId);
        return _encoder->encodePost(op.msgId, *op.post(), op.signatureId);
    } catch (std::logic_error const& error) {
        LOG_ERROR("Cannot encode message %s: %s", qUtf8Printable(op.msgId.toString()), error.what());
        return {};
    }
}

void CentralisedBiscottiSession::finishCurrentOp(int code, QString const& text)
{
    CentralisedBiscottiPendingOp const& op = *_opQueue.current();
    QByteArray const id = op.msgId.toString().toUtf8();
    if (code == CentralisedBiscottiAck::Ok) {
        LOG_DEBUG("    Successfully sent pending message %s.", id.constData());
        tellSuccess(op);
    } else {
        LOG_WARNING("    Error %d for operation %s.", code, id.constData());
        tellError(op, code, text);
    }
    _opQueue.complete();
    postDoPending();
}

void CentralisedBiscottiSession::tellSuccess(CentralisedBiscottiPendingOp const& op)
{
    if (auto const* const subscription = op.subscription()) {
        fireSubscribed(*subscription);
    } else if (auto const* const unsubscription = op.unsubscription()) {
        _subscribers.forgetSubscription(op.subscriberId, unsubscription->subscriptionId());
        fireUnsubscribed(*unsubscription);
    } else {
        firePosted(*op.post());
    }
}

void CentralisedBiscottiSession::tellError(CentralisedBiscottiPendingOp const& op, int code, QString const& text)
{
    if (auto const* const subscription = op.subscription()) {
        fireErrorSubscribing(*subscription, code, text);
        _subscribers.forgetSubscription(op.subscriberId, subscription->subscriptionId());
    } else if (auto const* const unsubscription = op.unsubscription()) {
        fireErrorUnsubscribing(unsubscription->subscriptionId(), code, text);
    } else {
        fireErrorPosting(*op.post(), code, text);
    }
}

void CentralisedBiscottiSession::flushPosts()
{
    LOG_DEBUG("Flushing posts.");
    while (queueNextPost()) {
    }
    _opQueue.complete();
    while (auto const* const op = _opQueue.next()) {
        LOG_DEBUG("Found pending op...");
        if (op->post())
            flush(*op);
        else
            LOG_DEBUG("Not a post; ignoring.");
    }
}

void CentralisedBiscottiSession::flush(CentralisedBiscottiPendingOp const& op)
{
    QByteArray const id = op.msgId.toString().toUtf8();
    if (_ticker->msSinceEpoch() - static_cast<qint64>(op.postedAtMs) >= PostTtlMSecs) {
        LOG_INFO("    Dropping post %s: %s.", id.constData(), qUtf8Printable(op.toString()));
        return;
    }
    LOG_DEBUG("    Sending %s...", id.constData());
    if (QByteArray const bytes = encode(op); !bytes.isEmpty())
        _link->sendMessage(bytes);
}

void CentralisedBiscottiSession::fireSubscribed(BiscottiSubscription const& subscription)
{
    emit _client->subscribed(subscription);
}

void CentralisedBiscottiSession::fireErrorSubscribing(BiscottiSubscription const& subscription, int code,
                                                      QString const& text)
{
    emit _client->errorSubscribing(subscription, code, text);
}

void CentralisedBiscottiSession::fireUnsubscribed(BiscottiUnsubscription const& unsubscription)
{
    emit _client->unsubscribed(unsubscription);
}

void CentralisedBiscottiSession::fireErrorUnsubscribing(BiscottiSubscriptionId const& id, int code,
                                                        QString const& text)
{
    emit _client->errorUnsubscribing(id, code, text);
}

void CentralisedBiscottiSession::firePosted(BiscottiPost const& post)
{
    emit _client->posted(post);
}

void CentralisedBiscottiSession::fireErrorPosting(BiscottiPost const& post, int code, QString const& text)
{
    emit _client->errorPosting(post, code, text);
}

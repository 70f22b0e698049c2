#pragma once

#include "Biscotti.h"
#include "CentralisedBiscottiLink.h"
#include "CentralisedBiscottiMessageDecoder.h"
#include "CentralisedBiscottiMessageEncoder.h"
#include "CentralisedBiscottiOpQueue.h"
#include "CentralisedBiscottiPostInbox.h"
#include "CentralisedBiscottiSubscribers.h"

#include <atomic>
#include <memory>

class CentralisedBiscotti;
class Keychain;
class Logger;
class Memo;
class MemoQueue;
class TickCounter;

/// All that the memos of a CentralisedBiscotti work on. On the memo queue's thread, but for what says otherwise.
class CentralisedBiscottiSession
{
public:
    /// How old a post that was not acknowledged may be when it is sent.
    static constexpr int PostTtlMSecs = 45000;

    /// Messages that have been decoded and not yet handled; beyond this no more bytes are read.
    static constexpr int maximumArrivals = 1000;

    CentralisedBiscottiSession(CentralisedBiscotti* client, TickCounter* ticker, Keychain* keychain,
                               MemoQueue* memoQueue, BiscottiSubscriptionEngine* engine,
                               std::unique_ptr<CentralisedBiscottiLink> link);

    CentralisedBiscotti* client() const { return _client; }
    TickCounter& ticker() const { return *_ticker; }
    CentralisedBiscottiLink& link() { return *_link; }
    CentralisedBiscottiMessageEncoder& encoder() { return *_encoder; }
    CentralisedBiscottiMessageDecoder& decoder() { return *_decoder; }
    CentralisedBiscottiPostInbox& postInbox() { return _postInbox; }
    CentralisedBiscottiOpQueue& opQueue() { return _opQueue; }
    CentralisedBiscottiSubscribers& subscribers() { return _subscribers; }
    BiscottiSubscriptionEngine& engine() { return _subscribers.engine(); }

    /// The memos that wait to handle messages which have come.
    std::atomic<int>& arrivals() { return _arrivals; }

    // From any thread.
    Biscotti::BiscottiState state() const { return _state; }
    int heartbeatMs() const { return _heartbeatMs; }
    void setHeartbeatMs(int ms) { _heartbeatMs = ms; }
    void post(Memo* memo);
    void postSoon(int ms, Memo* memo);

    void setState(Biscotti::BiscottiState state);

    /// Posts a memo that sends the next operation.
    void postDoPending();

    /// The message as an operation under a fresh message id, not queued yet.
    std::unique_ptr<CentralisedBiscottiPendingOp> createOp(std::unique_ptr<BiscottiMessage> message,
                                                           BiscottiSignatureId const& signatureId);

    /// Queues the post that came first in the inbox. False if there is none.
    bool queueNextPost();

    /// Queues the end of a subscription; does nothing if it is not known.
    void addUnsubscribeOp(BiscottiSubscriptionId const& id);

    /// The bytes of the operation's message; empty, with a log line, if it cannot be written.
    QByteArray encode(CentralisedBiscottiPendingOp const& op);

    /// The current operation is answered: tells its outcome, forgets what follows from that, and lets the next go.
    void finishCurrentOp(int code, QString const& text);

    /// Sends the posts that are left, in the inbox too, without waiting for acknowledgements, and empties the queue.
    void flushPosts();

    void fireSubscribed(BiscottiSubscription const& subscription);
    void fireErrorSubscribing(BiscottiSubscription const& subscription, int code, QString const& text);
    void fireUnsubscribed(BiscottiUnsubscription const& unsubscription);
    void fireErrorUnsubscribing(BiscottiSubscriptionId const& id, int code, QString const& text);
    void firePosted(BiscottiPost const& post);
    void fireErrorPosting(BiscottiPost const& post, int code, QString const& text);

private:
    struct DeleteLater {
        void operator()(QObject* object) const;
    };

    void tellSuccess(CentralisedBiscottiPendingOp const& op);
    void tellError(CentralisedBiscottiPendingOp const& op, int code, QString const& text);
    void flush(CentralisedBiscottiPendingOp const& op);

    static Logger* log;

    CentralisedBiscotti* _client;
    TickCounter* _ticker;
    MemoQueue* _memoQueue;
    std::unique_ptr<CentralisedBiscottiMessageEncoder, DeleteLater> _encoder;
    std::unique_ptr<CentralisedBiscottiMessageDecoder, DeleteLater> _decoder;
    std::unique_ptr<CentralisedBiscottiLink> _link;
    CentralisedBiscottiPostInbox _postInbox;
    CentralisedBiscottiOpQueue _opQueue;
    CentralisedBiscottiSubscribers _subscribers;
    std::atomic<int> _arrivals = 0;
    std::atomic<int> _heartbeatMs;
    std::atomic<Biscotti::BiscottiState> _state = Biscotti::Disconnected; ///< Written by the memos only.
};

#pragma once

#include "Biscotti.h"
#include "CentralisedBiscottiSubscribers.h"
#include "MemoQueue.h"
#include "TrieBiscottiSubscriptionEngine.h"

#include <QList>
#include <QString>

#include <functional>
#include <mutex>

/// The messaging service, whose central server is the test.
///
/// As the real one it may be asked from any thread, calls subscribers and signals on the memo queue's thread, and
/// keeps what it is asked while it is not connected; that state, the one at the start, is also the way to hold
/// answers back.
class FakeBiscotti : public Biscotti
{
public:
    enum Kind { Subscribe, Unsubscribe, UnsubscribeAll, Post };

    /// What was asked; beside the kind, only what belongs to it is set.
    struct Request {
        Kind kind;
        BiscottiSubscriberId subscriberId;
        BiscottiSubscription subscription;
        BiscottiPost post;
        BiscottiSignatureId signatureId;
    };

    /// The queue is borrowed, and outlives this object.
    explicit FakeBiscotti(MemoQueue* memoQueue);
    ~FakeBiscotti() override;

    // For the test, from any thread.

    /// The link comes or goes. When it comes back, the subscriptions from before are acknowledged anew.
    void setState(BiscottiState state);

    /// How the server acknowledges what comes from now on; 200 is yes.
    void answerWith(int code, QString const& text = {});

    /// The server sends a post to those who have subscribed to it.
    void deliver(BiscottiPost const& post);
    void deliver(QString const& topic, QByteArray const& body);

    /// What was asked since the last time, the oldest first.
    QList<Request> takeRequests();

    BiscottiState state() const override;
    BiscottiSubscriptionId subscribe(BiscottiSubscription* subscription, BiscottiSubscriber* subscriber,
                                     BiscottiSignatureId const& signatureId) override;
    void unsubscribe(BiscottiSubscriptionId const& id) override;
    void unsubscribeAll(BiscottiSubscriberId const& subscriberId) override;
    BiscottiPostId post(BiscottiPost* post, BiscottiSignatureId const& signatureId) override;

private:
    struct Answer {
        int code;
        QString text;
    };
    using Acknowledgement = std::function<void(Answer const&)>;

    QString nextId();
    void record(Request const& request);
    void onQueue(std::function<void()> const& work);
    void changeState(BiscottiState state);
    void whenConnected(Acknowledgement const& acknowledge);
    void acknowledge(BiscottiSubscription const& subscription, Answer const& answer);
    void acknowledge(BiscottiSubscriptionId const& id, Answer const& answer);

    MemoQueue* const _memoQueue;

    mutable std::mutex _mutex; ///< Guards the next four.
    BiscottiState _state = Disconnected;
    Answer _answer{200, {}};
    QList<Request> _requests;
    int _lastId = 0;

    // On the memo queue's thread, but for what CentralisedBiscottiSubscribers says otherwise.
    TrieBiscottiSubscriptionEngine _engine;
    CentralisedBiscottiSubscribers _subscribers{&_engine};
    QList<Acknowledgement> _waiting; ///< For when there is a link, in order.
};

#include "FakeBiscotti.h"

#include "BiscottiSubscriber.h"
#include "CentralisedBiscottiAck.h"
#include "TestMemo.h"

#include <utility>

FakeBiscotti::FakeBiscotti(MemoQueue* memoQueue) : _memoQueue(memoQueue)
{
    _memoQueue->acquire(this);
}

FakeBiscotti::~FakeBiscotti()
{
    _memoQueue->release(this);
}

void FakeBiscotti::setState(BiscottiState state)
{
    onQueue([this, state] { changeState(state); });
}

void FakeBiscotti::answerWith(int code, QString const& text)
{
    std::lock_guard const lock(_mutex);
    _answer = {code, text};
}

void FakeBiscotti::deliver(BiscottiPost const& post)
{
    onQueue([this, post] { _subscribers.notify(post); });
}

void FakeBiscotti::deliver(QString const& topic, QByteArray const& body)
{
    BiscottiPost post;
    post.setTopic(BiscottiTopic(topic));
    post.setBody(body);
    deliver(post);
}

QList<FakeBiscotti::Request> FakeBiscotti::takeRequests()
{
    std::lock_guard const lock(_mutex);
    return std::exchange(_requests, {});
}

Biscotti::BiscottiState FakeBiscotti::state() const
{
    std::lock_guard const lock(_mutex);
    return _state;
}

BiscottiSubscriptionId FakeBiscotti::subscribe(BiscottiSubscription* subscription, BiscottiSubscriber* subscriber,
                                               BiscottiSignatureId const& signatureId)
{
    subscription->setSubscriptionId(BiscottiSubscriptionId(nextId()));
    // Asked for its id now: it may be gone when the memo runs.
    BiscottiSubscriberId const subscriberId = subscriber->biscottiSubscriberId();
    record({Subscribe, subscriberId, *subscription, {}, signatureId});
    onQueue([this, subscription = *subscription, subscriber, subscriberId, signatureId] {
        _subscribers.rememberSubscription(subscription, subscriber, subscriberId, signatureId);
        whenConnected([this, subscription](Answer const& answer) { acknowledge(subscription, answer); });
    });
    return subscription->subscriptionId();
}

void FakeBiscotti::unsubscribe(BiscottiSubscriptionId const& id)
{
    BiscottiSubscription subscription;
    subscription.setSubscriptionId(id);
    record({Unsubscribe, {}, subscription, {}, {}});
    onQueue([this, id] {
        if (_engine.contains(id))
            whenConnected([this, id](Answer const& answer) { acknowledge(id, answer); });
        else
            emit errorUnsubscribing(id, CentralisedBiscottiAck::SubscriptionNotFound,
                                    QStringLiteral("Subscription not found."));
    });
}

void FakeBiscotti::unsubscribeAll(BiscottiSubscriberId const& subscriberId)
{
    record({UnsubscribeAll, subscriberId, {}, {}, {}});
    _subscribers.silence(subscriberId);
    onQueue([this, subscriberId] {
        for (BiscottiSubscriptionId const& id : _subscribers.subscriptionsOf(subscriberId))
            whenConnected([this, id](Answer const& answer) { acknowledge(id, answer); });
        _subscribers.forgetSubscriber(subscriberId);
        _subscribers.unsilence(subscriberId);
    });
}

BiscottiPostId FakeBiscotti::post(BiscottiPost* post, BiscottiSignatureId const& signatureId)
{
    post->setPostId(BiscottiPostId(nextId()));
    record({Post, {}, {}, *post, signatureId});
    onQueue([this, post = *post] {
        whenConnected([this, post](Answer const& answer) {
            if (answer.code == CentralisedBiscottiAck::Ok)
                emit posted(post);
            else
                emit errorPosting(post, answer.code, answer.text);
        });
    });
    return post->postId();
}

QString FakeBiscotti::nextId()
{
    std::lock_guard const lock(_mutex);
    return "fake," + QString::number(++_lastId);
}

void FakeBiscotti::record(Request const& request)
{
    std::lock_guard const lock(_mutex);
    _requests.append(request);
}

void FakeBiscotti::onQueue(std::function<void()> const& work)
{
    _memoQueue->handleNow(new TestMemo(this, work));
}

void FakeBiscotti::changeState(BiscottiState state)
{
    BiscottiState former{};
    {
        std::lock_guard const lock(_mutex);
        former = std::exchange(_state, state);
    }
    if (former == state)
        return;
    if (former == Connected) {
        for (auto ids = _engine.iterator(); ids.hasNext();) {
            BiscottiSubscription const subscription = _engine.subscription(ids.next());
            whenConnected([this, subscription](Answer const& answer) { acknowledge(subscription, answer); });
        }
    }
    emit stateChanged(state);
    if (state != Connected)
        return;
    for (Acknowledgement const& acknowledge : std::exchange(_waiting, {}))
        whenConnected(acknowledge);
}

void FakeBiscotti::whenConnected(Acknowledgement const& acknowledge)
{
    std::unique_lock lock(_mutex);
    Answer const answer = _answer;
    bool const isConnected = _state == Connected;
    lock.unlock();
    if (isConnected)
        acknowledge(answer);
    else
        _waiting.append(acknowledge);
}

void FakeBiscotti::acknowledge(BiscottiSubscription const& subscription, Answer const& answer)
{
    if (answer.code == CentralisedBiscottiAck::Ok) {
        emit subscribed(subscription);
        return;
    }
    BiscottiSubscriptionId const id = subscription.subscriptionId();
    emit errorSubscribing(subscription, answer.code, answer.text);
    _subscribers.forgetSubscription(_subscribers.subscriberOf(id), id);
}

void FakeBiscotti::acknowledge(BiscottiSubscriptionId const& id, Answer const& answer)
{
    if (answer.code != CentralisedBiscottiAck::Ok) {
        emit errorUnsubscribing(id, answer.code, answer.text);
        return;
    }
    BiscottiUnsubscription unsubscription;
    unsubscription.setSubscriptionId(id);
    _subscribers.forgetSubscription(_subscribers.subscriberOf(id), id);
    emit unsubscribed(unsubscription);
}

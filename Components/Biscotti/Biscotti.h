#pragma once

#include "BiscottiPost.h"
#include "BiscottiPostId.h"
#include "BiscottiSignatureId.h"
#include "BiscottiSubscriberId.h"
#include "BiscottiSubscription.h"
#include "BiscottiSubscriptionId.h"
#include "BiscottiUnsubscription.h"

#include <QMetaType>
#include <QObject>
#include <QString>

class BiscottiSubscriber;

/// The publish/subscribe service, as an interface.
///
/// Every operation returns at once; its work is done later on the service's memo queue, and its outcome is told by a
/// signal. The code of an error is that of the server's acknowledgement or one of the client's own; the text says the
/// same in words.
class Biscotti : public QObject
{
    Q_OBJECT

public:
    enum BiscottiState {
        Connected = 0,             ///< The link is up, and both sides have greeted.
        Disconnected = 1,          ///< Not connected yet, or not any more. The state at the start.
        PermanentlyUnavailable = 2 ///< The server will not serve this client at all.
    };
    Q_ENUM(BiscottiState)

    using QObject::QObject;

    virtual BiscottiState state() const = 0;

    /// Starts to hand posts to the subscriber, which is borrowed until unsubscribeAll(). Gives the subscription a
    /// fresh id and returns it. The signature may be null.
    virtual BiscottiSubscriptionId subscribe(BiscottiSubscription* subscription, BiscottiSubscriber* subscriber,
                                             BiscottiSignatureId const& signatureId) = 0;

    /// Ends one subscription.
    virtual void unsubscribe(BiscottiSubscriptionId const& id) = 0;

    /// Ends all subscriptions of a subscriber, which may then be destroyed: when this returns, it is not called any
    /// more. Waits for a call that runs on another thread, so that no lock may be held here that such a call takes.
    virtual void unsubscribeAll(BiscottiSubscriberId const& subscriberId) = 0;

    /// Sends a post. Gives it a fresh id and returns that. The signature may be null.
    virtual BiscottiPostId post(BiscottiPost* post, BiscottiSignatureId const& signatureId) = 0;

signals:
    void subscribed(BiscottiSubscription const& subscription);
    void errorSubscribing(BiscottiSubscription const& subscription, int code, QString const& text);
    void unsubscribed(BiscottiUnsubscription const& unsubscription);
    void errorUnsubscribing(BiscottiSubscriptionId const& id, int code, QString const& text);
    void posted(BiscottiPost const& post);
    void errorPosting(BiscottiPost const& post, int code, QString const& text);
    void stateChanged(Biscotti::BiscottiState state);
};

Q_DECLARE_METATYPE(Biscotti::BiscottiState)
inline int const biscottiStateMetaType = qRegisterMetaType<Biscotti::BiscottiState>("Biscotti::BiscottiState");

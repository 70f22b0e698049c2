#pragma once

#include "BiscottiPost.h"
#include "BiscottiSubscriberId.h"

/// A receiver of posts. A class that is a QObject as well derives from QObject first.
class BiscottiSubscriber
{
public:
    virtual ~BiscottiSubscriber() = default;

    /// The same for as long as the subscriber lives.
    virtual BiscottiSubscriberId biscottiSubscriberId() const = 0;

    /// Called on the thread of the service's memo queue, once for each post that arrives, however many of the
    /// subscriber's subscriptions it matches.
    virtual void handleBiscottiPost(BiscottiPost const& post) = 0;
};

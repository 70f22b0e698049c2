#include "BiscottiUnsubscription.h"

QString BiscottiUnsubscription::toString() const
{
    return u"[UNSUB] SubscriptionId:=" + _subscriptionId.toString() + u", " + BiscottiMessage::toString();
}

#include "BiscottiSubscription.h"

QString BiscottiSubscription::toString() const
{
    QString text = u"[SUB] SubscriptionId:=" + _subscriptionId.toString() + u", ";
    if (hasInterest())
        text += u"Interest:=" + _interest.toString() + u", ";
    else if (hasFact())
        text += u"Fact:=" + _fact.toString() + u", ";
    return text + BiscottiMessage::toString();
}

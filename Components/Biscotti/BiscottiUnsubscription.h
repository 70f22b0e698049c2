#pragma once

#include "BiscottiMessage.h"
#include "BiscottiSubscriptionId.h"

#include <QMetaType>
#include <QString>

/// The end of a subscription.
class BiscottiUnsubscription : public BiscottiMessage
{
public:
    BiscottiSubscriptionId subscriptionId() const { return _subscriptionId; }
    void setSubscriptionId(BiscottiSubscriptionId const& subscriptionId) { _subscriptionId = subscriptionId; }

    QString toString() const override;

private:
    BiscottiSubscriptionId _subscriptionId;
};

Q_DECLARE_METATYPE(BiscottiUnsubscription)
inline int const biscottiUnsubscriptionMetaType = qRegisterMetaType<BiscottiUnsubscription>("BiscottiUnsubscription");

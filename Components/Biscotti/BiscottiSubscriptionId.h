#pragma once

#include "BiscottiId.h"

#include <QMetaType>

/// Names one subscription. Every subscription gets a fresh one.
class BiscottiSubscriptionId : public BiscottiId<BiscottiSubscriptionId>
{
public:
    using BiscottiId::BiscottiId;
};

Q_DECLARE_METATYPE(BiscottiSubscriptionId)
inline int const biscottiSubscriptionIdMetaType = qRegisterMetaType<BiscottiSubscriptionId>("BiscottiSubscriptionId");

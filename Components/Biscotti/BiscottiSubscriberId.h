#pragma once

#include "BiscottiId.h"

#include <QMetaType>

/// Names a receiver of posts, for as long as it lives.
class BiscottiSubscriberId : public BiscottiId<BiscottiSubscriberId>
{
public:
    using BiscottiId::BiscottiId;
};

Q_DECLARE_METATYPE(BiscottiSubscriberId)
inline int const biscottiSubscriberIdMetaType = qRegisterMetaType<BiscottiSubscriberId>("BiscottiSubscriberId");

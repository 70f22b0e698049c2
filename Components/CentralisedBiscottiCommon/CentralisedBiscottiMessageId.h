#pragma once

#include "BiscottiId.h"

#include <QMetaType>

/// Names one message on the link to the central server; what that message acknowledges is named by it too.
class CentralisedBiscottiMessageId : public BiscottiId<CentralisedBiscottiMessageId>
{
public:
    using BiscottiId::BiscottiId;
};

Q_DECLARE_METATYPE(CentralisedBiscottiMessageId)
inline int const centralisedBiscottiMessageIdMetaType =
    qRegisterMetaType<CentralisedBiscottiMessageId>("CentralisedBiscottiMessageId");
